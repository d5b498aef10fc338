#include "window/graphs/SpectrumSettings.h"

#include "window/graphs/DlgGraphEditAccSpec.h"
#include "window/graphs/DlgGraphEditBaseSpec.h"

namespace tremlo {

WaveGraphPanel::Settings SpectrumSettings(CMorvaneDoc& doc, CSeismicWave CMorvaneDoc::*record) {
  WaveGraphPanel::Settings settings;
  settings.make = [&doc, record](QWidget* parent) {
    return std::make_unique<CDlgGraphEditBaseSpec>((doc.*record).origGraph, parent);
  };
  settings.changed = [&doc] { doc.SetModified(true); };
  settings.resetRange = [&doc, record] { doc.*record = CSeismicWave(); };
  return settings;
}

WaveGraphPanel::Settings SpectrumSettings(CMorvaneDoc& doc, CSeismicWave CMorvaneDoc::*record,
                                          ColorSettings colors) {
  WaveGraphPanel::Settings settings = SpectrumSettings(doc, record);
  settings.make = [&doc, record, list = std::move(colors.list)](QWidget* parent) {
    return std::make_unique<CDlgGraphEditAccSpec>((doc.*record).origGraph, list(), parent);
  };
  settings.changed = [&doc, changed = std::move(colors.changed)] {
    doc.SetModified(true);
    changed();
  };
  settings.resetColors = std::move(colors.reset);
  return settings;
}

}  // namespace tremlo
