#include "window/shell/ScreenTable.h"

#include "core/location/TileDownload.h"
#include "core/sources/DamSpectra.h"
#include "window/graphs/FrontWindow.h"
#include "window/location/FrmField.h"
#include "window/report/ReportRun.h"
#include "window/shell/FrmFlowCheck.h"
#include "window/shell/FrmFlowchart1.h"
#include "window/shell/FrmFlowchart2.h"
#include "window/shell/FrmFlowchart3.h"
#include "window/sources/DlgFaultExploration.h"
#include "window/sources/FrmBaseSpectrum.h"
#include "window/sources/FrmDamsiteWave.h"
#include "window/sources/FrmLowerSpectrum.h"
#include "window/sources/FrmMakeSeismicWave1.h"
#include "window/sources/FrmMakeSeismicWave2.h"
#include "window/waves/DlgAdjustSetting.h"
#include "window/waves/FrmAdjustSeismicWave.h"
#include "window/waves/FrmOrigSeismicWave.h"
#include "window/waves/FrmRespAdjustSpectrum.h"
#include "window/waves/FrmRespOrigSeismicWave.h"
#include "window/waves/FrmRespVisualization.h"
#include "window/waves/FrmVisualization.h"
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

bool ComputeSpectra(const ScreenParts& parts) {
  return ComputeMissingSpectra(parts.doc, FrontWindow());
}

void EditAdjustSettings(const ScreenParts& parts) {
  CDlgAdjustSetting(parts.doc, FrontWindow()).exec();
}

/// The choice of how the procedure is fixed, the two charts that fix it, and the one that shows it.
void AddCharts(ScreenTable& table) {
  table.screens[ScreenId::FlowCheck] = [](const ScreenParts& parts) {
    return new CFrmFlowCheck(parts.procedure, parts.gate, parts.follow);
  };
  table.screens[ScreenId::Flowchart1] = [](const ScreenParts& parts) {
    return new CFrmFlowchart1(parts.doc, parts.prompt, parts.procedure, parts.gate, parts.follow);
  };
  table.screens[ScreenId::Flowchart2] = [](const ScreenParts& parts) {
    return new CFrmFlowchart2(parts.prompt, parts.procedure, parts.gate, parts.follow);
  };
  table.screens[ScreenId::Flowchart3] = [](const ScreenParts& parts) {
    return new CFrmFlowchart3(parts.doc, parts.procedure, parts.gate, parts.follow);
  };
}

/// The response route: its three screens and the run that its last step makes, whose fit that screen tells.
void AddResponseRoute(ScreenTable& table) {
  const auto visualization = std::make_shared<QPointer<CFrmRespVisualization>>();
  table.screens[ScreenId::RespOrigSeismicWave] = [](const ScreenParts& parts) {
    return new CFrmRespOrigSeismicWave(parts.doc, parts.prompt, parts.files, parts.gate);
  };
  table.screens[ScreenId::RespAdjustSpectrum] = [](const ScreenParts& parts) {
    return new CFrmRespAdjustSpectrum(parts.doc, parts.prompt, parts.files, parts.gate);
  };
  table.screens[ScreenId::RespVisualization] = [visualization](const ScreenParts& parts) {
    *visualization = new CFrmRespVisualization(parts.doc, parts.prompt, parts.files, parts.gate);
    return visualization->data();
  };
  table.runs.runRespAdjustment = [visualization](const ScreenParts& parts) {
    const std::uint64_t generation = parts.doc.Generation();
    AdjustResult result = RunRespAdjustment(parts.doc, FrontWindow());
    if (*visualization && parts.doc.Generation() == generation) (*visualization)->ShowRun(result);
    return result;
  };
}

/// The last two steps of the guideline route: the adjustment to the base spectrum, and what came of it.
void AddAdjustment(ScreenTable& table) {
  table.screens[ScreenId::AdjustSeismicWave] = [](const ScreenParts& parts) {
    return new CFrmAdjustSeismicWave(
        parts.doc, parts.prompt, parts.files, parts.rules, parts.gate,
        [](const AdjustInput& input) { return AdjustBehindDialog(input, FrontWindow()); });
  };
  table.screens[ScreenId::Visualization] = [](const ScreenParts& parts) {
    return new CFrmVisualization(parts.doc, parts.prompt, parts.files, parts.gate);
  };
}

TileCache MapTiles(const ScreenParts& parts) {
  return {parts.doc.Folders().Own(), parts.services.tileAddress, MakeTileDownload(parts.services)};
}

/// The site, with its map.
void AddSite(ScreenTable& table) {
  table.screens[ScreenId::Field] = [](const ScreenParts& parts) {
    return new CFrmField(
        parts.doc, parts.prompt, parts.rules, parts.gate,
        [&online = parts.online] { return online.IsOnline(); }, MapTiles(parts));
  };
}

void EditApiParameters(const ScreenParts& parts) {
  CDlgFaultExploration(parts.doc, parts.prompt, FrontWindow()).exec();
}

/// The faults around the site and what the service is asked for.
void AddFaults(ScreenTable& table) {
  table.editApiParameters = EditApiParameters;
  table.screens[ScreenId::MakeSeismicWave1] = [](const ScreenParts& parts) {
    return new CFrmMakeSeismicWave1(
        {parts.doc, parts.prompt, parts.rules, parts.procedure, parts.gate, parts.services,
         [&online = parts.online] { return online.IsOnline(); }, parts.editApiParameters, parts.follow},
        MapTiles(parts));
  };
}

/// The waves that everything else is made of.
void AddWaveRegistration(ScreenTable& table) {
  table.screens[ScreenId::OrigSeismicWave] = [](const ScreenParts& parts) {
    return new CFrmOrigSeismicWave(parts.doc, parts.prompt, parts.files, parts.rules, parts.gate);
  };
}

/// The waves near the site, and the choice of the base spectrum among all candidates.
void AddBaseSpectrum(ScreenTable& table) {
  table.screens[ScreenId::DamsiteWave] = [](const ScreenParts& parts) {
    return new CFrmDamsiteWave(parts.doc, parts.prompt, parts.files, parts.rules, parts.gate);
  };
  table.screens[ScreenId::BaseSpectrum] = [](const ScreenParts& parts) {
    return new CFrmBaseSpectrum(parts.doc, parts.prompt, parts.files, parts.rules, parts.gate);
  };
}

/// The spectra of the acquired faults.
void AddFaultSpectra(ScreenTable& table) {
  table.screens[ScreenId::MakeSeismicWave2] = [](const ScreenParts& parts) {
    return new CFrmMakeSeismicWave2(parts.doc, parts.prompt, parts.files, parts.procedure, parts.rules,
                                    parts.gate,
                                    {.calculate = parts.calculateFaultSpectra, .follow = parts.follow});
  };
}

void AddLowerLimit(ScreenTable& table) {
  table.screens[ScreenId::LowerSpectrum] = [](const ScreenParts& parts) {
    return new CFrmLowerSpectrum(parts.doc, parts.prompt, parts.files, parts.rules, parts.gate);
  };
}

}  // namespace

ScreenTable ProgramScreens() {
  ScreenTable table;
  table.runs.computeMissingSpectra = ComputeSpectra;
  table.runs.calculateFaultSpectra = CalculateFaultSpectra;
  table.editAdjustSettings = EditAdjustSettings;
  table.writeReport = [](const ScreenParts& parts) {
    WriteReport(parts.doc, parts.prompt, parts.files, FrontWindow());
  };
  AddSite(table);
  AddFaults(table);
  AddCharts(table);
  AddWaveRegistration(table);
  AddBaseSpectrum(table);
  AddFaultSpectra(table);
  AddLowerLimit(table);
  AddAdjustment(table);
  AddResponseRoute(table);
  return table;
}

}  // namespace tremlo
