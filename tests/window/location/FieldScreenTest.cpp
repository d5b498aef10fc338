#include "TileServer.h"
#include "core/location/Coordinates.h"
#include "core/location/OnlineMode.h"
#include "core/location/ServiceAddresses.h"
#include "core/location/TileDownload.h"
#include "core/project/ChangeQuestions.h"
#include "support/DocumentState.h"
#include "support/LocalService.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/StatusTips.h"
#include "support/TestFolder.h"
#include "window/location/FrmField.h"
#include "window/location/ZoneMapView.h"
#include "window/shell/MessageBoxPrompt.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <memory>

namespace tremlo {
namespace {

using test::DocumentState;
using test::ScreenDriver;
using test::Settle;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr SitePosition kNewSite{38.0, 15.0, 20.66, 137.0, 46.0, 37.0};
constexpr QSize kWindow{1000, 720};

/// Takes the pages that the program would open in a browser.
class Browser : public QObject {
  Q_OBJECT
 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "Open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
  QStringList opened;

 public Q_SLOTS:
  void Open(const QUrl& url) { opened << url.toString(); }
};

class FieldScreenTest : public testing::Test {
 protected:
  FieldScreenTest() { test::CopyTables(folder); }
  ~FieldScreenTest() override {
    driver.reset();
    screen.reset();
  }

  /// The screen in a window, entered as the frame does.
  void Open(Prompt& asked, TileDownload tiles) {
    rules = std::make_unique<ChangeRules>(doc, asked, procedure);
    gate = std::make_unique<CommandGate>(asked);
    screen = std::make_unique<CFrmField>(
        doc, asked, *rules, *gate, [this] { return online; },
        TileCache(folder.Path(), QStringLiteral("http://tiles.example"), std::move(tiles)));
    driver = std::make_unique<ScreenDriver>(*screen, kWindow);
    screen->Entered();
    Settle();
    doc.SetModified(false);
  }
  void Open() { Open(prompt, server.Download()); }

  MapControl& Map() { return driver->Find<MapControl>("map"); }
  bool WaitForMap() {
    return QTest::qWaitFor([this] { return !Map().IsPainting(); }, 20000);
  }
  SitePosition Site() const { return PositionOf(doc.site); }
  GeoPoint Center() { return {Map().Map().view.centerLon, Map().Map().view.centerLat}; }
  std::vector<std::string> Cells() {
    std::vector<std::string> cells;
    for (int row = 1; row <= 2; ++row)
      for (int column = 1; column <= 3; ++column) cells.push_back(driver->Cell("positionGrid", row, column));
    return cells;
  }
  QString Label(const char* name) { return driver->Find<QLabel>(name).text(); }

  void AddFault() {
    doc.faults.emplace_back();
    doc.baseSpectrumName = QStringLiteral("A");
  }
  void ExpectSiteQuestion(PromptAnswer answer) { prompt.ExpectQuestion(SiteChangeQuestion(), answer); }

  // The mouse as the window system reports it: the state of its buttons is known between the events.
  QWindow* Window() { return screen->window()->windowHandle(); }
  QPoint OnMap(QPoint point) { return Map().mapTo(screen->window(), point); }
  QPoint Middle() { return {Map().width() / 2, Map().height() / 2}; }
  void Press(QPoint point) { QTest::mousePress(Window(), Qt::LeftButton, {}, OnMap(point)); }
  void Move(QPoint point) { QTest::mouseMove(Window(), OnMap(point)); }
  void Release(QPoint point) {
    QTest::mouseRelease(Window(), Qt::LeftButton, {}, OnMap(point));
    Settle();
  }
  void Wheel(int delta) {
    QWheelEvent event(Middle(), Map().mapToGlobal(QPointF(Middle())), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Map(), &event);
  }
  void ChooseZone(int choice) {
    driver->Click("zoneGrid", 1, 1);
    auto* const combo = driver->Grid("zoneGrid").viewport()->findChild<QComboBox*>();
    ASSERT_NE(combo, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return combo->view()->isVisible(); }));
    QTest::keyClick(combo->view(), Qt::Key_Home);
    for (int i = 0; i < choice; ++i) QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    Settle();
  }
  void PasteInto(const char* grid, int row, int column, const QString& text) {
    QApplication::clipboard()->setText(text);
    driver->Click(grid, row, column);
    driver->Key(Qt::Key_V, Qt::ControlModifier);
  }

  test::TestFolder folder;
  CMorvaneDoc doc{folder.Path()};
  QStringList log;
  test::ScriptedPrompt prompt;
  test::RecordingHost host{doc, log};
  test::RecordingPane pane{log};
  WorkProcedure procedure{doc, prompt, host, pane};
  test::TileServer server;
  bool online = true;
  std::unique_ptr<ChangeRules> rules;
  std::unique_ptr<CommandGate> gate;
  std::unique_ptr<CFrmField> screen;
  std::unique_ptr<ScreenDriver> driver;
};

TEST_F(FieldScreenTest, ShowsTheRecord) {
  doc.site.title = QStringLiteral("耐震性能照査");
  doc.site.address = QStringLiteral("石川県");
  doc.site.comments[9] = QStringLiteral("最後の行");
  Open();
  EXPECT_EQ(driver->Cell("jobGrid", 1, 1), "耐震性能照査");
  EXPECT_EQ(driver->Cell("siteGrid", 2, 1), "石川県");
  EXPECT_EQ(driver->Cell("commentGrid", 10, 1), "最後の行");
  EXPECT_THAT(Cells(), ElementsAre("38", "15", "20.6600", "137", "46", "37.0000"));
  EXPECT_EQ(driver->Cell("zoneGrid", 1, 1), "I (1)");
  EXPECT_EQ(Center(), (GeoPoint{SiteLongitude(doc.site), SiteLatitude(doc.site)}));
  EXPECT_EQ(Map().Map().view.zoom, 5);
  EXPECT_EQ(Map().Map().view.scale, 0.8128668946369415);
}

TEST_F(FieldScreenTest, EnteringGivesTheFocusToTheMap) {
  Open();
  EXPECT_TRUE(Map().hasFocus());
}

TEST_F(FieldScreenTest, ButtonsTellWhatTheyDo) {
  Open();
  EXPECT_EQ(driver->Find<QAbstractButton>("zoneButton").toolTip(), u"平面直角座標系番号の選択");
  EXPECT_EQ(driver->Find<QAbstractButton>("backButton").toolTip(), u"現場位置に戻る");
}

TEST_F(FieldScreenTest, TextsGoToTheRecord) {
  Open();
  driver->EnterCell("jobGrid", 4, 1, "Company & Co");
  EXPECT_EQ(doc.site.company, u"Company & Co");
  EXPECT_TRUE(doc.IsModified());
  doc.SetModified(false);
  driver->EnterCell("siteGrid", 1, 1, "Dam");
  EXPECT_EQ(doc.site.siteName, u"Dam");
  EXPECT_TRUE(doc.IsModified());
  doc.SetModified(false);
  PasteInto("commentGrid", 9, 1, QStringLiteral("a\nb"));
  EXPECT_EQ(doc.site.comments[8], u"a");
  EXPECT_EQ(doc.site.comments[9], u"b");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(FieldScreenTest, CommentsThatDoNotFitAreRefused) {
  Open();
  prompt.ExpectMessage("貼り付ける行が表に入りきりません。\n\n行：11\n内容：c");
  PasteInto("commentGrid", 9, 1, QStringLiteral("a\nb\nc"));
  EXPECT_EQ(doc.site.comments[8], u"");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FieldScreenTest, TypingAPositionWithoutFaultsAsksNothing) {
  doc.site.lonDeg = 137.5;  // shown without its decimals
  Open();
  driver->EnterCell("positionGrid", 1, 1, "36");
  EXPECT_EQ(Site(), (SitePosition{36.0, 15.0, 20.66, 137.5, 46.0, 37.0}));
  EXPECT_EQ(Center(), (GeoPoint{SiteLongitude(doc.site), SiteLatitude(doc.site)}));
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(FieldScreenTest, AnEmptiedPositionCellKeepsItsNumber) {
  Open();
  driver->EnterCell("positionGrid", 2, 2, "");
  EXPECT_EQ(Site(), kNewSite);
  EXPECT_THAT(Cells(), ElementsAre("38", "15", "20.6600", "137", "46", "37.0000"));
}

TEST_F(FieldScreenTest, ANumberTypedAgainAndAnEmptiedCellAskNothing) {
  AddFault();
  Open();
  const DocumentState before(doc);
  driver->EnterCell("positionGrid", 1, 1, "38.0");
  driver->EnterCell("positionGrid", 2, 2, "");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(FieldScreenTest, TypingWithFaultsAndANoPutsTheNumbersBack) {
  AddFault();
  Open();
  const DocumentState before(doc);
  ExpectSiteQuestion(PromptAnswer::No);
  driver->EnterCell("positionGrid", 1, 1, "36");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_THAT(Cells(), ElementsAre("38", "15", "20.6600", "137", "46", "37.0000"));
}

TEST_F(FieldScreenTest, TypingWithFaultsAndAYesClearsThemAndStores) {
  AddFault();
  Open();
  ExpectSiteQuestion(PromptAnswer::Yes);
  driver->EnterCell("positionGrid", 1, 3, "1.23456");
  EXPECT_EQ(doc.site.latSec, 1.23456);
  EXPECT_EQ(driver->Cell("positionGrid", 1, 3), "1.2346");
  EXPECT_TRUE(doc.faults.empty());
  EXPECT_TRUE(doc.baseSpectrumName.isEmpty());
  driver->EnterCell("positionGrid", 1, 3, "2");  // there is nothing left to ask about
}

TEST_F(FieldScreenTest, PastingAPositionAsksOnceAndANoPastesNothing) {
  AddFault();
  Open();
  const DocumentState before(doc);
  ExpectSiteQuestion(PromptAnswer::No);
  PasteInto("positionGrid", 1, 1, QStringLiteral("36\t33\t41.184\n136\t36\t50.724\n"));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  ExpectSiteQuestion(PromptAnswer::Yes);
  PasteInto("positionGrid", 1, 1, QStringLiteral("３６\t33\t41.184\n136\t36\t50.724\n"));
  EXPECT_EQ(Site(), (SitePosition{36.0, 33.0, 41.184, 136.0, 36.0, 50.724}));
  EXPECT_TRUE(doc.faults.empty());
  EXPECT_EQ(Center(), (GeoPoint{SiteLongitude(doc.site), SiteLatitude(doc.site)}));
}

TEST_F(FieldScreenTest, TheZoneIsPickedFromTheList) {
  Open();
  ChooseZone(7);
  EXPECT_EQ(doc.site.planeZone, u"VIII (8)");
  EXPECT_TRUE(doc.IsModified());
  EXPECT_TRUE(Label("planeLabel").contains(QStringLiteral("VIII (8)")));
}

TEST_F(FieldScreenTest, AZonePickedWithFaultsIsGuarded) {
  AddFault();
  Open();
  const DocumentState before(doc);
  ExpectSiteQuestion(PromptAnswer::No);
  ChooseZone(7);
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(driver->Cell("zoneGrid", 1, 1), "I (1)");
  ExpectSiteQuestion(PromptAnswer::Yes);
  ChooseZone(8);
  EXPECT_EQ(doc.site.planeZone, u"IX (9)");
  EXPECT_TRUE(doc.faults.empty());
}

TEST_F(FieldScreenTest, TheZoneButtonShowsTheDialog) {
  Open();
  ScreenDriver::InDialog([](QWidget& dialog) {
    QTest::mouseClick(dialog.findChild<ZoneMapView*>(QStringLiteral("zoneMap")), Qt::LeftButton, {},
                      {276, 198});
    test::PressIn(dialog, "ok");
  });
  driver->Press("zoneButton");
  EXPECT_EQ(doc.site.planeZone, u"IX (9)");
  EXPECT_EQ(driver->Cell("zoneGrid", 1, 1), "IX (9)");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(FieldScreenTest, ANoBeforeTheZoneDialogLeavesEverything) {
  AddFault();
  Open();
  const DocumentState before(doc);
  ExpectSiteQuestion(PromptAnswer::No);
  driver->Press("zoneButton");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(FieldScreenTest, AYesBeforeTheZoneDialogClearsAlsoWhenThatIsCancelled) {
  AddFault();
  Open();
  ExpectSiteQuestion(PromptAnswer::Yes);
  ScreenDriver::InDialog([](QWidget& dialog) { test::PressIn(dialog, "cancel"); });
  driver->Press("zoneButton");
  EXPECT_TRUE(doc.faults.empty());
  EXPECT_EQ(doc.site.planeZone, u"I (1)");
}

TEST_F(FieldScreenTest, AnUnknownZoneOpensTheDialogWithoutASelectionAndOkGivesTheFirst) {
  doc.site.planeZone = QStringLiteral("XX (20)");
  Open();
  EXPECT_EQ(driver->Cell("zoneGrid", 1, 1), "XX (20)");
  ScreenDriver::InDialog([](QWidget& dialog) {
    auto* const grid = dialog.findChild<CSpread7*>(QStringLiteral("zoneGrid"));
    for (int row = 1; row <= 19; ++row) EXPECT_FALSE(grid->GetCheck(row));
    test::PressIn(dialog, "ok");
  });
  driver->Press("zoneButton");
  EXPECT_EQ(doc.site.planeZone, u"I (1)");
}

TEST_F(FieldScreenTest, TheBackButtonCentresTheMapOnTheSite) {
  Open();
  Map().CenterOn({130.0, 30.0});
  driver->Press("backButton");
  EXPECT_EQ(Center(), (GeoPoint{SiteLongitude(doc.site), SiteLatitude(doc.site)}));
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FieldScreenTest, ADragMovesTheSiteUnderTheCrosshair) {
  Open();
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  const SitePosition shown = PositionAt(Center());
  EXPECT_EQ(Site(), kNewSite);  // stored at the end
  EXPECT_EQ(driver->Cell("positionGrid", 2, 1), std::to_string(static_cast<int>(shown.lonDeg)));
  EXPECT_EQ(driver->Cell("positionGrid", 1, 2), std::to_string(static_cast<int>(shown.latMin)));
  Release(Middle() + QPoint(40, -30));
  EXPECT_EQ(Site(), shown);
  EXPECT_LT(doc.site.lonDeg, 137.0);
  EXPECT_LT(doc.site.latDeg, 38.0);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(Center(), PlaceOf(Site()));
  // Three decimals, cut.
  EXPECT_EQ(doc.site.latSec * 1000.0, std::round(doc.site.latSec * 1000.0));
}

TEST_F(FieldScreenTest, APressAndReleaseStoresTheSameNumbersAndAsksNothing) {
  AddFault();
  doc.site.latDeg = 38.5;
  Open();
  const SitePosition before = Site();
  Press({30, 40});
  Release({30, 40});
  EXPECT_EQ(Site(), before);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(doc.faults.size(), 1u);
  EXPECT_EQ(Center(), PlaceOf(before));
}

TEST_F(FieldScreenTest, ANoInADragLeavesTheSiteAndEndsTheDrag) {
  AddFault();
  Open();
  const DocumentState before(doc);
  ExpectSiteQuestion(PromptAnswer::No);
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  EXPECT_EQ(Center(), PlaceOf(kNewSite));
  Move(Middle() + QPoint(60, -30));
  Release(Middle() + QPoint(60, -30));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_THAT(Cells(), ElementsAre("38", "15", "20.6600", "137", "46", "37.0000"));
  EXPECT_EQ(Center(), PlaceOf(kNewSite));
}

TEST_F(FieldScreenTest, AYesInADragAsksNoSecondTime) {
  AddFault();
  Open();
  ExpectSiteQuestion(PromptAnswer::Yes);
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  EXPECT_TRUE(doc.faults.empty());
  Move(Middle() + QPoint(60, -30));
  Release(Middle() + QPoint(60, -30));
  EXPECT_NE(Site(), kNewSite);
}

/// Answers the real question box: `inBox` works it while the button of the mouse is down on the map.
class FieldDragBoxTest : public FieldScreenTest {
 protected:
  void DragThroughBox(std::function<void(QWidget& box)> inBox) {
    AddFault();
    Open(boxes, server.Download());
    Press(Middle());
    ScreenDriver::InDialog(std::move(inBox));
    Move(Middle() + QPoint(40, -30));
    Settle();
  }
  MessageBoxPrompt boxes;
};

TEST_F(FieldDragBoxTest, ABoxThatSwallowsTheReleaseEndsTheDragWithTheMoveThatAsked) {
  DragThroughBox([&](QWidget& box) {
    QTest::mouseRelease(Window(), Qt::LeftButton, {}, OnMap(Middle()));
    test::PressIn(box, "yes");
  });
  const SitePosition stored = Site();
  EXPECT_NE(stored, kNewSite);
  EXPECT_TRUE(doc.faults.empty());
  EXPECT_EQ(Center(), PlaceOf(stored));
  Move(Middle() + QPoint(100, 100));
  EXPECT_EQ(Site(), stored);
  EXPECT_EQ(Center(), PlaceOf(stored));
}

TEST_F(FieldDragBoxTest, ANoWithTheReleaseInTheBoxChangesNothing) {
  DragThroughBox([&](QWidget& box) {
    QTest::mouseRelease(Window(), Qt::LeftButton, {}, OnMap(Middle()));
    test::PressIn(box, "no");
  });
  EXPECT_EQ(Site(), kNewSite);
  EXPECT_EQ(doc.faults.size(), 1u);
  Move(Middle() + QPoint(100, 100));
  EXPECT_EQ(Site(), kNewSite);
}

TEST_F(FieldDragBoxTest, ADragWhoseButtonStaysDownBehindTheBoxGoesOn) {
  DragThroughBox([](QWidget& box) { test::PressIn(box, "yes"); });
  EXPECT_EQ(Site(), kNewSite);  // not stored yet
  const std::vector<std::string> shown = Cells();
  Move(Middle() + QPoint(80, -60));
  EXPECT_NE(Cells(), shown);
  Release(Middle() + QPoint(80, -60));
  EXPECT_NE(Site(), kNewSite);
  EXPECT_EQ(Center(), PlaceOf(Site()));
}

TEST_F(FieldScreenTest, AReleaseThatWentElsewhereEndsTheDragAtTheNextMove) {
  Open();
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  // What a move without the button looks like when no release has come.
  QMouseEvent move(QEvent::MouseMove, Middle(), Map().mapToGlobal(QPointF(Middle())), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&Map(), &move);
  const SitePosition stored = Site();
  EXPECT_NE(stored, kNewSite);
  Release(Middle());
  EXPECT_EQ(Site(), stored);
}

TEST_F(FieldScreenTest, ACommandInADragTakesWhatIsShown) {
  Open();
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  screen->CommandBegins();
  const SitePosition stored = Site();
  EXPECT_NE(stored, kNewSite);
  EXPECT_FALSE(Map().IsPainting());
  screen->CommandEnded();
  EXPECT_TRUE(WaitForMap());
  Release(Middle() + QPoint(90, 0));
  EXPECT_EQ(Site(), stored);
}

TEST_F(FieldScreenTest, LeavingTheScreenEndsTheDragAndThePainting) {
  server.SetDead(true);
  Open();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !server.Asked().isEmpty(); }));
  Press(Middle());
  QElapsedTimer timer;
  timer.start();
  screen->Left();
  EXPECT_LT(timer.elapsed(), 100);
  EXPECT_FALSE(Map().IsPainting());
  EXPECT_EQ(Site(), kNewSite);
  EXPECT_FALSE(doc.IsModified());
  Release(Middle());
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FieldScreenTest, ADragSurvivesARefresh) {
  Open();
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  const std::vector<std::string> shown = Cells();
  const GeoPoint center = Center();
  screen->Refresh();
  EXPECT_EQ(Cells(), shown);
  EXPECT_EQ(Center(), center);
  Release(Middle() + QPoint(40, -30));
  EXPECT_NE(Site(), kNewSite);
}

TEST_F(FieldScreenTest, ARefreshShowsAnotherProject) {
  Open();
  doc.site = SiteRecord();
  doc.site.title = QStringLiteral("別の業務");
  doc.site.latDeg = 35.0;
  doc.site.mapZoom = 9;
  screen->Refresh();
  EXPECT_EQ(driver->Cell("jobGrid", 1, 1), "別の業務");
  EXPECT_EQ(driver->Cell("positionGrid", 1, 1), "35");
  EXPECT_EQ(Center(), PlaceOf(Site()));
  EXPECT_EQ(Map().Map().view.zoom, 9);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FieldScreenTest, AWheelTurnThatWouldReachZoomSeventeenIsDropped) {
  doc.site.mapZoom = 16;
  doc.site.mapScale = 1.4;
  Open();
  Wheel(120);
  EXPECT_EQ(doc.site.mapZoom, 16);
  EXPECT_EQ(doc.site.mapScale, 1.4);
  EXPECT_FALSE(doc.IsModified());
  Wheel(-120);
  EXPECT_EQ(doc.site.mapScale, 1.4 * 0.9);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(FieldScreenTest, TheWheelInADragKeepsTheDragGoing) {
  Open();
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  Wheel(120);
  Move(Middle() + QPoint(41, -30));
  Release(Middle() + QPoint(41, -30));
  EXPECT_NE(Site(), kNewSite);
  EXPECT_EQ(Center(), PlaceOf(Site()));
}

TEST_F(FieldScreenTest, TheArrowsLeaveTheMapOnTheSite) {
  Open();
  QTest::keyClick(&Map(), Qt::Key_Right);
  QTest::keyClick(&Map(), Qt::Key_Down);
  EXPECT_EQ(Center(), PlaceOf(kNewSite));
  QTest::keyClick(&Map(), Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_NE(doc.site.mapScale, 0.8128668946369415);
}

TEST_F(FieldScreenTest, OfflineThePictureIsShownAndADragStillMovesTheSite) {
  online = false;
  Open();
  ASSERT_TRUE(WaitForMap());
  const QImage picture(test::SourcePath(QStringLiteral("data/SystemData/OffLine.bmp")));
  EXPECT_EQ(Map().grab().toImage().pixelColor(5, 5), picture.pixelColor(3, 3));
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  Release(Middle() + QPoint(40, -30));
  EXPECT_NE(Site(), kNewSite);
  EXPECT_TRUE(server.Asked().isEmpty());
  online = true;
  screen->Refresh();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !server.Asked().isEmpty(); }));
}

TEST_F(FieldScreenTest, ThePointerIsReadOutInTheStatusBar) {
  Open();
  const test::StatusTips tips(*screen->window());
  Move(Middle());
  ASSERT_FALSE(tips.heard.isEmpty());
  const GeoPoint place = GeoAt(Map().Map().view, {Middle().x(), Middle().y()});
  EXPECT_NEAR(place.lat, PlaceOf(kNewSite).lat, 1e-6);
  EXPECT_TRUE(tips.heard.back().startsWith(u"北緯 38°15′"));
  EXPECT_TRUE(tips.heard.back().contains(u"東経 137°46′"));
  EXPECT_EQ(Site(), kNewSite);
  EXPECT_FALSE(doc.IsModified());
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&Map(), &leave);
  EXPECT_TRUE(tips.heard.back().isEmpty());
}

TEST_F(FieldScreenTest, ThePlaneCoordinatesFollowSiteAndZoneAndAFarZoneIsHintedAt) {
  Open();
  EXPECT_TRUE(driver->Find<QLabel>("hintLabel").isVisible());
  EXPECT_TRUE(Label("hintLabel").contains(QStringLiteral("I (1)")));
  doc.site.planeZone = QStringLiteral("VIII (8)");
  screen->Refresh();
  EXPECT_FALSE(driver->Find<QLabel>("hintLabel").isVisible());
  driver->EnterCell("positionGrid", 1, 1, "36");
  driver->EnterCell("positionGrid", 1, 2, "0");
  driver->EnterCell("positionGrid", 1, 3, "0");
  driver->EnterCell("positionGrid", 2, 1, "139");
  driver->EnterCell("positionGrid", 2, 2, "30");
  driver->EnterCell("positionGrid", 2, 3, "0");
  EXPECT_EQ(Label("planeLabel"), u"平面直角座標 VIII (8)系　X = 462.473 m　Y = 90156.099 m");
}

TEST_F(FieldScreenTest, TheMapKeepsItsSizeWhenTheHintComesAndGoes) {
  Open();
  const QSize size = Map().size();
  const auto& hint = driver->Find<QLabel>("hintLabel");
  ASSERT_TRUE(hint.isVisible());
  Press(Middle());
  Move(Middle() + QPoint(130, 0));  // six degrees and more to the west: into the reach of the zone
  Settle();
  EXPECT_FALSE(hint.isVisible());
  EXPECT_EQ(Map().size(), size);
  Move(Middle() + QPoint(10, 0));
  Settle();
  EXPECT_TRUE(hint.isVisible());
  EXPECT_EQ(Map().size(), size);
  Release(Middle() + QPoint(10, 0));
}

TEST_F(FieldScreenTest, TheAttributionNamesTheMapAndLeadsToItsTerms) {
  Open();
  EXPECT_STREQ(kTileTermsAddress, "https://maps.gsi.go.jp/development/ichiran.html");
  const QString text = Label("attribution");
  EXPECT_TRUE(text.startsWith(u"この地図は国土地理院発行の地理院タイル『標準地図』を使用しています。<br>"));
  EXPECT_TRUE(text.contains(u"国土地理院コンテンツ利用規約"));
  // The one stop of the tab key there is the link, which shows it and opens by Return.
  Browser browser;
  Map().setFocus();
  QTest::keyClick(&Map(), Qt::Key_Tab);
  auto& label = driver->Find<QLabel>("attribution");
  ASSERT_TRUE(label.hasFocus());
  EXPECT_TRUE(label.hasSelectedText());
  QTest::keyClick(&label, Qt::Key_Return);
  EXPECT_EQ(browser.opened, QStringList(QString::fromLatin1(kTileTermsAddress)));
  QTest::keyClick(&label, Qt::Key_Tab);
  ASSERT_FALSE(label.hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_TRUE(label.hasFocus());
  QTest::keyClick(&label, Qt::Key_Return);
  EXPECT_EQ(browser.opened.size(), 2);
  QTest::keyClick(&label, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(Map().hasFocus());
}

std::vector<std::string> MenuTexts(const QWidget& grid) {
  std::vector<std::string> texts;
  for (const QAction* action : grid.findChild<QMenu*>()->actions())
    texts.push_back(action->text().toStdString());
  return texts;
}

TEST_F(FieldScreenTest, GridsHaveTheirMenus) {
  Open();
  for (const char* grid : {"jobGrid", "siteGrid", "commentGrid"})
    EXPECT_THAT(MenuTexts(driver->Grid(grid)),
                ElementsAre("切り取り\tCtrl+X", "コピー\tCtrl+C", "貼り付け\tCtrl+V"));
  EXPECT_THAT(MenuTexts(driver->Grid("positionGrid")), ElementsAre("コピー\tCtrl+C", "貼り付け\tCtrl+V"));
  EXPECT_THAT(MenuTexts(driver->Grid("zoneGrid")), ElementsAre("コピー\tCtrl+C"));
  EXPECT_EQ(Map().contextMenuPolicy(), Qt::DefaultContextMenu);
  EXPECT_EQ(Map().findChild<QMenu*>(), nullptr);
}

TEST_F(FieldScreenTest, BesideTheGridsThereIsNoMenu) {
  Open();
  for (const char* name : {"map", "attribution", "planeLabel", "zoneButton"}) {
    auto& control = driver->Find<QWidget>(name);
    const QPoint spot(30, control.height() - 6);  // on the link of the attribution
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, control.mapToGlobal(spot));
    QCoreApplication::sendEvent(&control, &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << name;
    if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
  }
}

TEST_F(FieldScreenTest, NoColumnCanBeDraggedOutOfSight) {
  Open();
  for (const char* name : {"jobGrid", "siteGrid", "positionGrid", "zoneGrid", "commentGrid"}) {
    CSpread7& grid = driver->Grid(name);
    QHeaderView& header = *grid.horizontalHeader();
    const int edge = header.sectionViewportPosition(0) + header.sectionSize(0) - 1;
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, {edge, 5});
    QTest::mouseMove(header.viewport(), {edge + 300, 5});
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, {edge + 300, 5});
    EXPECT_EQ(header.sectionViewportPosition(0) + header.sectionSize(0) - 1, edge) << name;
    EXPECT_EQ(header.length(), grid.viewport()->width()) << name;
  }
}

TEST_F(FieldScreenTest, CopyTakesTheNumbersAsTheyAre) {
  doc.site.latDeg = 38.5;
  Open();
  driver->Grid("positionGrid").SelectBlock({1, 1, 1, 3});
  driver->Grid("positionGrid").setFocus();
  driver->Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().trimmed(), u"38.5\t15\t20.66");
}

TEST_F(FieldScreenTest, TabLeadsThroughEveryControlAndBack) {
  Open();
  driver->Grid("jobGrid").setFocus();
  QStringList stops;
  for (int i = 0; i < 9; ++i) {
    stops << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(stops, QStringList({"jobGrid", "siteGrid", "positionGrid", "zoneGrid", "zoneButton", "backButton",
                                "commentGrid", "map", "attribution"}));
}

TEST_F(FieldScreenTest, ASiteThatIsNoPlaceIsHarmless) {
  doc.site.latDeg = std::numeric_limits<double>::quiet_NaN();
  doc.site.lonDeg = std::numeric_limits<double>::infinity();
  doc.site.mapScale = std::numeric_limits<double>::quiet_NaN();
  doc.site.mapZoom = -5;
  Open();
  EXPECT_TRUE(WaitForMap());
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  Release(Middle() + QPoint(40, -30));
  Wheel(120);
  driver->EnterCell("positionGrid", 1, 1, "36");
  EXPECT_EQ(doc.site.latDeg, 36.0);
}

/// The tiles of the service on this machine.
class FieldTilesTest : public FieldScreenTest {
 protected:
  void Open(const char* wishes, int silenceMs = 20000) {
    ASSERT_TRUE(service.IsReady());
    ServiceSettings settings = service.Settings();
    settings.tiles.silenceTimeoutMs = silenceMs;
    settings.tileAddress = service.Address(QStringLiteral("http"), QString::fromLatin1(wishes));
    const TileDownload download = MakeTileDownload(settings);
    FieldScreenTest::Open(prompt, [download, address = settings.tileAddress](QString url, QByteArray& content,
                                                                             const std::stop_token& stop) {
      return download(url.replace(QStringLiteral("http://tiles.example"), address), content, stop);
    });
  }
  QColor Seen() { return Map().grab().toImage().pixelColor(40, 40); }
  test::LocalService service;
};

TEST_F(FieldTilesTest, GoodTilesArrive) {
  Open("");
  ASSERT_TRUE(WaitForMap());
  EXPECT_NE(Seen(), QColor(MapSurface::kGap));
}

TEST_F(FieldTilesTest, SlowTilesArriveWhileTheWindowLives) {
  Open("tile=trickle:1");
  int turns = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++turns; });
  timer.start(0);
  ASSERT_TRUE(WaitForMap());
  EXPECT_GT(turns, 20);
  EXPECT_NE(Seen(), QColor(MapSurface::kGap));
}

TEST_F(FieldTilesTest, GarbageAndErrorPagesAreGaps) {
  for (const char* wishes : {"tile=garbage", "tile=status:404", "tile=drop"}) {
    Open(wishes);
    ASSERT_TRUE(WaitForMap());
    EXPECT_EQ(Seen(), QColor(MapSurface::kGap)) << wishes;
    driver.reset();
    screen.reset();
    ASSERT_TRUE(ClearMapCache(folder.Path()));
  }
}

TEST_F(FieldTilesTest, AServiceThatIsNotThereLeavesGaps) {
  ServiceSettings settings = service.Settings(QStringLiteral("refused"));
  settings.tiles.connectAttempts = 1;
  const TileDownload download = MakeTileDownload(settings);
  FieldScreenTest::Open(prompt, [download, address = settings.tileAddress](QString url, QByteArray& content,
                                                                           const std::stop_token& stop) {
    return download(url.replace(QStringLiteral("http://tiles.example"), address), content, stop);
  });
  ASSERT_TRUE(WaitForMap());
  EXPECT_EQ(Seen(), QColor(MapSurface::kGap));
}

TEST_F(FieldTilesTest, AStalledServiceHoldsNothingAndIsBrokenOffAtOnce) {
  Open("tile=stall");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !service.Requests().empty(); }));
  // The screen works on: the pointer is read, a cell typed, the site dragged.
  const test::StatusTips tips(*screen->window());
  Move(Middle() + QPoint(5, 5));
  EXPECT_FALSE(tips.heard.isEmpty());
  driver->EnterCell("jobGrid", 1, 1, "Title");
  EXPECT_EQ(doc.site.title, u"Title");
  Press(Middle());
  Move(Middle() + QPoint(40, -30));
  Release(Middle() + QPoint(40, -30));
  EXPECT_NE(Site(), kNewSite);
  EXPECT_TRUE(Map().IsPainting());

  ASSERT_TRUE(QTest::qWaitFor([&] { return !service.Requests().empty(); }));
  QElapsedTimer timer;
  timer.start();
  screen->CommandBegins();
  EXPECT_LT(timer.elapsed(), 100);
  const auto asked = service.Paths().size();
  screen->CommandEnded();
  EXPECT_TRUE(QTest::qWaitFor([&] { return service.Paths().size() > asked; }));  // asked for again
  timer.restart();
  driver.reset();
  screen.reset();
  EXPECT_LT(timer.elapsed(), 300);
}

}  // namespace
}  // namespace tremlo

#include "FieldScreenTest.moc"
