#pragma once

#include "core/location/TileDownload.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "support/DocumentState.h"
#include "support/LocalService.h"
#include "support/RecordedMessages.h"
#include "support/ScreenDriver.h"
#include "support/TestFolder.h"
#include "window/sources/DlgFaultExploration.h"
#include "window/sources/DlgNowGetFault.h"
#include "window/sources/FrmMakeSeismicWave1.h"
#include "window/sources/OneScreenHost.h"

#include <QLabel>
#include <QProgressBar>
#include <QStackedWidget>

#include <memory>

namespace tremlo::test {

/// The site of the answers of the local service.
inline void SetSite(CMorvaneDoc& doc) {
  doc.site.latDeg = 36.0;
  doc.site.latMin = 33.0;
  doc.site.latSec = 41.184;
  doc.site.lonDeg = 136.0;
  doc.site.lonMin = 36.0;
  doc.site.lonSec = 50.724;
  doc.site.planeZone = QStringLiteral("VII (7)");
}

inline MainFaultRow RowNearTheSite(const char* code, double lon) {
  MainFaultRow row;
  row.code = QString::fromLatin1(code);
  row.name = row.code + QStringLiteral("断層");
  row.lon = lon;
  row.lat = 36.5;
  return row;
}

/// A project far on in the work, and the local service.
class FaultTest : public testing::Test {
 protected:
  FaultTest() {
    FillProject(doc);
    SetSite(doc);
    doc.apiParameters = {};
    doc.mainFaultRows = {RowNearTheSite("F005501", 136.8), RowNearTheSite("F005701", 136.6),
                         RowNearTheSite("F099999", 136.7), RowNearTheSite("F016221", 140.0)};
    doc.SetModified(false);
  }

  void Start(const char* wishes = "") {
    if (!local) local = std::make_unique<LocalService>();
    ASSERT_TRUE(local->IsReady());
    services = local->Settings(QStringLiteral("http"), QString::fromLatin1(wishes));
    // The map asks for its tiles elsewhere: nobody answers there.
    services.tileAddress = QStringLiteral("http://127.0.0.1:9");
  }
  int Asked() const { return local ? static_cast<int>(local->Paths().size()) : 0; }
  QString Codes() const {
    QStringList codes;
    for (const FaultInfo& fault : doc.faults) codes << fault.ltecode;
    return codes.join(u' ');
  }
  void ExpectUnknownModel() {
    prompt.ExpectMessage(
        "指定された現場位置とAPIパラメータの断層データはありません。(地震活動モデル情報, F099999)");
  }

  TestFolder folder;
  CMorvaneDoc doc{folder.Path()};
  QStringList log;
  ScriptedPrompt prompt;
  OneScreenHost host{doc, log, ScreenId::MakeSeismicWave1};
  RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  ChangeRules rules{doc, prompt, procedure};
  std::unique_ptr<LocalService> local;
  ServiceSettings services;
};

/// The same with the screen in a window, entered as the frame does.
class FaultScreenTest : public FaultTest {
 protected:
  ~FaultScreenTest() override { Close(); }

  void Close() {
    host.screen = nullptr;
    driver.reset();
    screen.reset();
  }

  void Open(const char* wishes = "", QSize size = {1000, 700}) {
    Start(wishes);
    OpenAsked(prompt, size);
  }
  void OpenAsked(Prompt& asked, QSize size = {1000, 700}) {
    Close();
    askedRules = std::make_unique<ChangeRules>(doc, asked, procedure);
    gate = std::make_unique<CommandGate>(asked);
    screen = std::make_unique<CFrmMakeSeismicWave1>(
        CFrmMakeSeismicWave1::Parts{doc, asked, *askedRules, procedure, *gate, services,
                                    [this] { return online; },
                                    [this, &asked] {
                                      if (!askedRules->BeginApiParameters()) return;
                                      CDlgFaultExploration(doc, asked, screen->window()).exec();
                                    },
                                    [this](SwitchOutcome outcome) { followed.push_back(outcome); }},
        TileCache(folder.Path(), services.tileAddress,
                  [](const QString&, QByteArray&, const std::stop_token&) { return TileOutcome::Failed; }));
    host.screen = screen.get();
    driver = std::make_unique<ScreenDriver>(*screen, size);
    screen->Prepare();
    screen->Entered();
    Settle();
    doc.SetModified(false);
    log.clear();
  }

  void ChooseRange() { driver->Press("rangeRadio"); }
  void Acquire() { driver->Press("acquireButton"); }
  MapControl& Map() { return driver->Find<MapControl>("map"); }
  QString Line() { return driver->Find<QLabel>("acquisitionLabel").text(); }
  QString GridOnDisplay() { return screen->findChild<QStackedWidget*>()->currentWidget()->objectName(); }

  std::unique_ptr<ChangeRules> askedRules;
  std::unique_ptr<CommandGate> gate;
  bool online = true;
  std::vector<SwitchOutcome> followed;
  std::unique_ptr<CFrmMakeSeismicWave1> screen;
  std::unique_ptr<ScreenDriver> driver;
};

}  // namespace tremlo::test
