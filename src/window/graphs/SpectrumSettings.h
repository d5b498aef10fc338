#pragma once

#include "core/graphs/ColorRows.h"
#include "core/project/MorvaneDoc.h"
#include "window/graphs/WaveGraphPanel.h"

namespace tremlo {

/// The colours of the curves as a graph's settings dialog sets them.
struct ColorSettings {
  std::function<std::vector<CurveColor>()> list;
  std::function<void()> reset;
  std::function<void()> changed;  ///< behind every change of the dialog: shows the colours elsewhere
};

/// The settings of a spectrum graph whose block stands in a record of the document that holds nothing else:
/// range and scale.
WaveGraphPanel::Settings SpectrumSettings(CMorvaneDoc& doc, CSeismicWave CMorvaneDoc::*record);
/// The colours too.
WaveGraphPanel::Settings SpectrumSettings(CMorvaneDoc& doc, CSeismicWave CMorvaneDoc::*record,
                                          ColorSettings colors);

}  // namespace tremlo
