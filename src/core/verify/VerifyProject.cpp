#include "core/verify/VerifyProject.h"

#include "core/verify/VerifyAdjustment.h"
#include "core/verify/VerifyAreas.h"
#include "core/verify/VerifyFaults.h"
#include "core/verify/VerifyInvariants.h"
#include "core/verify/VerifyWaves.h"

namespace tremlo {

VerifyReport VerifyProject(const CMorvaneDoc& doc, const std::optional<TableFailure>& tableFailure,
                           const VerifyProgress& progress) {
  VerifyReport report;
  std::vector<VerifyItem>& items = report.items;
  const int count = static_cast<int>(doc.seedWaves.Count()) + 1;
  VerifyInvariants(doc, items);
  for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) {
    if (progress) progress(static_cast<int>(i) + 1, count, doc.seedWaves.At(i).name);
    VerifyWaveSpectrum(doc, i, items);
    VerifyAdjustedWave(doc, i, items);
    VerifyAdjustedSpectrum(doc, i, items);
  }
  if (progress) progress(count, count, QStringLiteral("断層"));
  VerifyDistances(doc, items);
  VerifyPlaneSpectra(doc, tableFailure, items);
  VerifyAreas(doc, items);
  report.outcome = OutcomeOf(items);
  return report;
}

}  // namespace tremlo
