#include "core/report/ReportWave.h"

#include "core/project/AdjustCheck.h"
#include "core/project/BaseSpectrumView.h"
#include "core/project/ResponseRoute.h"
#include "core/waves/AdoptedWave.h"

namespace tremlo {

const CSeismicWave* ReportWave(const CMorvaneDoc& doc) {
  if (!doc.guidelineRoute) return doc.seedWaves.IsEmpty() ? nullptr : &doc.seedWaves.At(0);
  const std::optional<std::size_t> adopted = AdoptedWave(doc.seedWaves);
  return adopted ? &doc.seedWaves.At(*adopted) : nullptr;
}

bool OffersReport(const CMorvaneDoc& doc) {
  const CSeismicWave* const wave = ReportWave(doc);
  return wave && wave->adjusted && !wave->adjustedAcc.empty();
}

AdjustInput ReportInput(const CMorvaneDoc& doc, const CSeismicWave& wave) {
  return doc.guidelineRoute ? AdjustInputOf(doc, wave) : RespAdjustInput(doc);
}

QString TargetName(const CMorvaneDoc& doc) {
  if (doc.guidelineRoute) return ViewOfBase(doc).label;
  return doc.respSpectra.IsEmpty() ? QString() : doc.respSpectra.At(0).name;
}

}  // namespace tremlo
