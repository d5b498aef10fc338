#pragma once

#include "core/project/BaseItemFields.h"

namespace tremlo {

/// The base spectrum as the screen of the adjustment shows and uses it. Holds until the document changes.
struct BaseSpectrumView {
  std::optional<BaseItem> item;  ///< none: no base spectrum is chosen, and the rest is empty
  QString label;
  std::span<const double> periods;   ///< s
  std::span<const double> spectrum;  ///< gal
  bool show = false;                 ///< drawn in the graph
};

/// Finds the base spectrum by its mark.
BaseSpectrumView ViewOfBase(const CMorvaneDoc& doc);

/// The spectrum of a wave that its row and curve tell of where it is adjusted: that of the adjusted wave
/// while the box of the adjustment is checked.
SpectrumView MeasuredSpectrum(const CSeismicWave& wave);

}  // namespace tremlo
