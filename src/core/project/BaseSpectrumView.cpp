#include "core/project/BaseSpectrumView.h"

namespace tremlo {

BaseSpectrumView ViewOfBase(const CMorvaneDoc& doc) {
  const auto item = MarkedBase(doc);
  if (!item) return {};
  const SpectrumView target = SpectrumOf(doc, *item);
  return {item, LabelOf(doc, *item), target.periods, target.values, IsTargetShown(doc, *item)};
}

SpectrumView MeasuredSpectrum(const CSeismicWave& wave) {
  if (wave.adjustChecked) return {wave.adjustedPeriods, wave.adjustedSpec};
  return {wave.periods, wave.accSpec};
}

}  // namespace tremlo
