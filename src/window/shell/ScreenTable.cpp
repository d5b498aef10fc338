#include "window/shell/ScreenTable.h"

#include "core/location/TileDownload.h"
#include "core/project/ResponseRoute.h"
#include "core/sources/DamSpectra.h"
#include "core/waves/FitText.h"
#include "window/graphs/FrontWindow.h"
#include "window/location/FrmField.h"
#include "window/waves/DlgAdjustSetting.h"
#include "window/waves/FrmRespAdjustSpectrum.h"
#include "window/waves/FrmRespOrigSeismicWave.h"
#include "window/waves/FrmRespVisualization.h"
#include "window/waves/WaveRuns.h"

#include <QPointer>

#include <memory>

namespace tremlo {

namespace {

bool CalculateFaultSpectra(const ScreenParts& parts) {
  const std::optional<TableFailure> failure =
      CalculateDamSpectra(parts.doc.damCoefSets, parts.doc.attenuationMethod, parts.doc.faults);
  if (failure) {
    parts.prompt.Tell(failure->text, PromptIcon::None);
    return false;
  }
  parts.doc.SetModified(true);
  return true;
}

void ComputeSpectra(const ScreenParts& parts) {
  ComputeMissingSpectra(parts.doc.seedWaves, FrontWindow());
  parts.doc.SetModified(true);
}

void EditAdjustSettings(const ScreenParts& parts) {
  CDlgAdjustSetting(parts.doc, FrontWindow()).exec();
}

/// The response route: its three screens and the run that its last step makes, whose fit that screen tells.
void AddResponseRoute(ScreenTable& table) {
  const auto visualization = std::make_shared<QPointer<CFrmRespVisualization>>();
  table.screens[ScreenId::RespOrigSeismicWave] = [](const ScreenParts& parts) {
    return new CFrmRespOrigSeismicWave(parts.doc, parts.prompt, parts.files);
  };
  table.screens[ScreenId::RespAdjustSpectrum] = [](const ScreenParts& parts) {
    return new CFrmRespAdjustSpectrum(parts.doc, parts.prompt, parts.files);
  };
  table.screens[ScreenId::RespVisualization] = [visualization](const ScreenParts& parts) {
    *visualization = new CFrmRespVisualization(parts.doc, parts.files);
    return visualization->data();
  };
  table.runs.runRespAdjustment = [visualization](const ScreenParts& parts) {
    const AdjustResult result = AdjustBehindDialog(RespAdjustInput(parts.doc), FrontWindow());
    StoreRespAdjustment(parts.doc, result);
    if (result.converged && *visualization) (*visualization)->ShowFit(FitText(result.fit));
    return result.converged;
  };
}

TileCache MapTiles(const ScreenParts& parts) {
  return {parts.doc.ProgramFolder(), parts.services.tileAddress, MakeTileDownload(parts.services)};
}

/// The screens of the guideline route, as far as they are there.
void AddGuidelineRoute(ScreenTable& table) {
  table.screens[ScreenId::Field] = [](const ScreenParts& parts) {
    return new CFrmField(
        parts.doc, parts.prompt, parts.rules, [&online = parts.online] { return online.IsOnline(); },
        MapTiles(parts));
  };
}

}  // namespace

bool ScreenTable::HasRoute(bool guidelineRoute) const {
  const ScreenId first = guidelineRoute ? kFirstScreen : ScreenId::RespOrigSeismicWave;
  const ScreenId last = guidelineRoute ? ScreenId::Visualization : kLastScreen;
  for (int id = static_cast<int>(first); id <= static_cast<int>(last); ++id)
    if (!screens.contains(static_cast<ScreenId>(id))) return false;
  return true;
}

ScreenTable ProgramScreens() {
  ScreenTable table;
  table.runs.computeMissingSpectra = ComputeSpectra;
  table.runs.calculateFaultSpectra = CalculateFaultSpectra;
  table.editAdjustSettings = EditAdjustSettings;
  AddGuidelineRoute(table);
  AddResponseRoute(table);
  return table;
}

}  // namespace tremlo
