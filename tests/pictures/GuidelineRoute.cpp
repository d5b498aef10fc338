#include "pictures/GuidelineRoute.h"

#include "core/project/ProjectFile.h"
#include "pictures/Photographer.h"
#include "window/graphs/Spread7.h"

#include <QAction>
#include <QTest>

namespace tremlo::pictures {

namespace {

constexpr int kZone = 8;
constexpr int kLowerLimitRow = 10;  // among the candidates: a wave, eight spectra of planes, the limit
constexpr int kFieldZoom = 7;       // turns of the wheel
constexpr int kFaultZoom = 5;

void TakeSite(Photographer& camera) {
  camera.TypeCell("jobGrid", 1, 1, QStringLiteral("見本ダム耐震性能照査"));
  camera.TypeCell("jobGrid", 2, 1, QStringLiteral("取り扱い説明書の例題（見本）"));
  camera.TypeCell("siteGrid", 1, 1, QStringLiteral("見本ダム"));
  camera.TypeCell("commentGrid", 1, 1, QStringLiteral("現場、記録、断層はすべて架空のものです。"));
  const char* const position[] = {"36", "25", "12", "138", "6", "30"};
  for (int i = 0; i < 6; ++i)
    camera.TypeCell("positionGrid", 1 + i / 3, 1 + i % 3, QLatin1String(position[i]));
  camera.TakeDialog(
      "select_zone", "CDlgSelectRectangularPlane", [&] { camera.Press("zoneButton"); },
      [&](QWidget& dialog) {
        camera.TakeDialog("help_zone", "CDlgHelpFieldRect",
                          [&] { dialog.findChild<QAbstractButton*>(QStringLiteral("helpButton"))->click(); });
        auto* const zones = dialog.findChild<CSpread7*>(QStringLiteral("zoneGrid"));
        zones->setFocus();
        zones->SelectCell(kZone, 1);
        QTest::keyClick(zones, Qt::Key_Space);
        camera.Take("select_zone", dialog);
        dialog.findChild<QAbstractButton*>(QStringLiteral("ok"))->click();
      });
  camera.ZoomMap(kFieldZoom);
  camera.TakeFrame("field");
}

void TakeProcedure(Photographer& camera) {
  camera.PressStep(FlowStep::FlowCheck);
  camera.TakeFrame("flow_check");
  camera.Press("clicksButton");
  for (const char* box : {"box2", "box3", "box5", "box6"}) camera.Press(box);
  camera.TakeFrame("flowchart2");
  camera.Doc().flowFixed = false;
  camera.PressStep(FlowStep::FlowCheck);
  camera.AnswerDialogs({{"question", "yesButton", "questions_chart"},
                        {nullptr, "yesButton"},
                        {nullptr, "yesButton"},
                        {nullptr, "yesButton"},
                        {nullptr, "yesButton"},
                        {nullptr, "yesButton"},
                        {"question_end", "yesButton"}},
                       [&] { camera.Press("questionsButton"); });
  camera.TakeFrame("flowchart3");
  camera.TakeSteps("pane_guideline");
}

void TakeWaves(Photographer& camera, const QString& records) {
  camera.PressStep(FlowStep::OrigSeismicWave);
  camera.TakeDialog("wave_add", "CDlgSeismicWaveAdd", [&] { camera.Press("addButton"); });
  for (const char* name : {"record_dam_ns", "record_near_ew", "record_coarse"}) {
    camera.nextFile = records + u'/' + QLatin1String(name) + QStringLiteral(".csv");
    camera.Press("readButton");
    if (camera.Doc().seedWaves.Count() > 1) continue;
    camera.TakeFrame("waves");
    camera.nextBox = "record_details";
    camera.Press("recordDetailsButton");
  }
}

}  // namespace

void TakeGuidelineRoute(const Places& places, const test::LocalService& service) {
  Photographer camera(places.pictures, service, TopChoice::GuidelineRoute);
  TakeSite(camera);
  TakeProcedure(camera);
  TakeWaves(camera, places.records);

  camera.PressStep(FlowStep::DamsiteWave);
  camera.ClickCell("waveGrid", 2, 5);
  camera.TakeFrame("damsite");

  camera.PressStep(FlowStep::FaultSpectra);
  camera.TakeDialog("fault_exploration", "CDlgFaultExploration", [&] { camera.Press("parametersButton"); });
  camera.Press("acquireButton");
  camera.ZoomMap(kFaultZoom);
  camera.TakeFrame("faults");
  camera.Press("attenuationButton");
  camera.TakeFrame("attenuation");
  camera.TakeDialog("relation_refer", "CFrmMakeSeismicWave2Refer", [&] { camera.Press("referButton"); });

  camera.PressStep(FlowStep::LowerSpectrum);
  camera.TakeFrame("lower");
  camera.TakeDialog("graph_edit_spectrum", "CDlgGraphEditAccSpec", [&] { camera.Press("settingsButton"); });

  camera.PressStep(FlowStep::BaseSpectrum);
  camera.ClickCell("candidateGrid", kLowerLimitRow, 7);
  camera.TakeFrame("base");
  camera.TakeDialog("graph_edit_base", "CDlgGraphEditBaseSpec", [&] { camera.Press("settingsButton"); });

  camera.PressStep(FlowStep::AdjustSeismicWave);
  camera.ClickCell("waveGrid", 3, 7);
  camera.nextBox = "failed_run";
  camera.ClickCell("waveGrid", 3, 8);
  camera.TakeFrame("adjust_failed");
  camera.ClickCell("waveGrid", 1, 7);
  camera.ClickCell("waveGrid", 1, 8);
  camera.TakeFrame("adjust");
  camera.nextBox = "change_question";
  camera.Frame().Menu()->adjustSettings->trigger();

  camera.PressStep(FlowStep::Visualization);
  camera.TakeFrame("result_time");
  camera.Press("specButton");
  camera.TakeFrame("result_spectrum");
  camera.Press("fourierButton");
  camera.TakeFrame("result_fourier");
  camera.TakeDialog("graph_edit_visual", "CDlgGraphEditVisual", [&] { camera.Press("settingsButton"); });
  if (!SaveProject(camera.Doc(), places.project)) qFatal("the project cannot be saved");
}

}  // namespace tremlo::pictures
