#include "FaultScreenParts.h"
#include "core/location/PlaneZone.h"
#include "core/location/SitePosition.h"
#include "core/project/ProjectFile.h"
#include "support/OfferedAction.h"
#include "support/StatusTips.h"

#include <QClipboard>
#include <QRadioButton>
#include <QWheelEvent>

namespace tremlo {
namespace {

using test::DocumentState;
using test::FaultScreenTest;
using test::Settle;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const QString kUnknownZone = QString::fromUtf16(kUnknownZoneText);

QString Sources(const QString& versions) {
  return QStringLiteral("出典：防災科学技術研究所 J-SHIS 地震ハザードステーション（地図バージョン：") +
         versions + u'）';
}

class MakeSeismicWave1ScreenTest : public FaultScreenTest {
 protected:
  std::vector<std::string> Row(const char* grid, int row) {
    std::vector<std::string> cells;
    for (int column = 1; column <= 9; ++column) cells.push_back(driver->Cell(grid, row, column));
    return cells;
  }
  GeoPoint Center() { return {Map().Map().view.centerLon, Map().Map().view.centerLat}; }
  GeoPoint Site() const { return PlaceOf(PositionOf(doc.site)); }
};

TEST_F(MakeSeismicWave1ScreenTest, ARankingFillsTheGrid) {
  Open();
  EXPECT_EQ(GridOnDisplay(), "rankingGrid");
  ExpectUnknownModel();
  Acquire();
  EXPECT_EQ(Codes(), "F005701 F005501 F005601 F005603 F005801 F004701 F016221 F004502");
  EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 13);
  EXPECT_THAT(Row("rankingGrid", 1), ElementsAre("1", "森本・富樫断層帯", "7.21", testing::_, testing::_,
                                                 "99.9", "99.3", "92.1", "48.2"));
  EXPECT_EQ(driver->Cell("rankingGrid", 6, 3), "7.85") << "from a negative magnitude";
  EXPECT_EQ(driver->Cell("rankingGrid", 13, 1), "8") << "no gaps where sources went";
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(log, ElementsAre("refresh 59656", "refresh 59657"));
}

TEST_F(MakeSeismicWave1ScreenTest, TheCellsOfAFaultSpanItsPlanesAndAreClearedWithIt) {
  Open();
  ExpectUnknownModel();
  Acquire();
  CSpread7& grid = driver->Grid("rankingGrid");
  for (int column = 0; column < 9; ++column)
    EXPECT_EQ(grid.rowSpan(6, column), column == 3 || column == 4 ? 1 : 6) << column;
  EXPECT_EQ(grid.rowSpan(5, 0), 1);
  EXPECT_EQ(grid.rowSpan(12, 0), 1);
  // One plane a fault: no span of the last list is left.
  doc.faults.erase(doc.faults.begin() + 6);
  screen->Refresh();
  EXPECT_EQ(grid.RowCount(), 7);
  for (int row = 0; row < 7; ++row) EXPECT_EQ(grid.rowSpan(row, 0), 1) << row;
}

TEST_F(MakeSeismicWave1ScreenTest, TheLineNamesServiceVersionsAndWhatCouldNotBeRead) {
  Open("F005501=drop");
  EXPECT_EQ(Line(), QString());
  EXPECT_FALSE(driver->Find<QLabel>("acquisitionLabel").isVisible());
  doc.apiParameters.versionIndex = 12;
  ExpectUnknownModel();
  Acquire();
  EXPECT_EQ(Line(), Sources("被害地検索 2018年版、地震活動モデル 2021年版") +
                        "　断層面を取得できなかった断層：邑知潟断層帯、試験用の未登録断層");
  EXPECT_TRUE(driver->Find<QLabel>("acquisitionLabel").isVisible());
  doc.ClearFaults();
  screen->Refresh();
  EXPECT_NE(Line(), QString()) << "it is of the acquisition, not of the list";
  doc.ResetDocument();
  screen->Refresh();
  EXPECT_EQ(Line(), QString());
  EXPECT_FALSE(driver->Find<QLabel>("acquisitionLabel").isVisible());
}

TEST_F(MakeSeismicWave1ScreenTest, ASilentFailureIsToldByTheLine) {
  Open("ranking=drop");
  Acquire();
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 0);
  EXPECT_EQ(Line(), Sources("被害地検索 2019年版") + "　断層の順位を取得できませんでした。");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(MakeSeismicWave1ScreenTest, OfManyTheToolTipNamesTheRest) {
  Open("model=drop");
  Acquire();
  EXPECT_TRUE(Line().contains("、他 "));
  EXPECT_TRUE(driver->Find<QLabel>("acquisitionLabel").toolTip().contains("木曽山脈西縁断層帯"));
}

TEST_F(MakeSeismicWave1ScreenTest, NamesAreShownAsTheyAre) {
  Start("model=drop");
  doc.mainFaultRows.clear();
  for (int i = 0; i < 7; ++i) {
    doc.mainFaultRows.push_back(test::RowNearTheSite("F005701", 136.6));
    doc.mainFaultRows.back().code = QStringLiteral("X%1").arg(i);
    doc.mainFaultRows.back().name = QStringLiteral("<b>甲 & 乙</b>①髙～%1").arg(i);
  }
  doc.faultAcquireMode = kAcquireRange;
  OpenAsked(prompt);
  Acquire();
  EXPECT_THAT(doc.faults, SizeIs(7)) << "in the range they stay, without a row";
  EXPECT_TRUE(Line().contains("<b>甲 & 乙</b>①髙～0、"));
  EXPECT_EQ(driver->Find<QLabel>("acquisitionLabel").textFormat(), Qt::PlainText);
  EXPECT_TRUE(
      driver->Find<QLabel>("acquisitionLabel").toolTip().contains("&lt;b&gt;甲 &amp; 乙&lt;/b&gt;①髙～6"));
}

TEST_F(MakeSeismicWave1ScreenTest, TheSearchRangeFillsTheOtherGrid) {
  Open();
  ChooseRange();
  EXPECT_EQ(GridOnDisplay(), "rangeGrid");
  EXPECT_EQ(doc.faultAcquireMode, kAcquireRange);
  EXPECT_TRUE(doc.IsModified());
  ExpectUnknownModel();
  Acquire();
  EXPECT_EQ(Codes(), "F005701 F099999 F005501") << "by distance; 300 km away is outside";
  ASSERT_EQ(driver->Grid("rangeGrid").RowCount(), 2) << "one without planes has no row";
  EXPECT_EQ(driver->Cell("rangeGrid", 1, 1), "1");
  EXPECT_EQ(driver->Cell("rangeGrid", 2, 1), "3");
  EXPECT_EQ(driver->Cell("rangeGrid", 2, 2), "F005501断層");
  EXPECT_EQ(driver->Cell("rangeGrid", 1, 8),
            QString::number(doc.faults[0].t30p.toDouble(), 'f', 5).toStdString());
  EXPECT_EQ(Line(), Sources("地震活動モデル 2021年版") + "　断層面を取得できなかった断層：F099999断層");
}

TEST_F(MakeSeismicWave1ScreenTest, ARangeOfZeroFindsNobody) {
  Open();
  ChooseRange();
  driver->Enter("rangeEdit", "0");
  EXPECT_EQ(doc.searchRangeKm, 0.0);
  prompt.ExpectMessage("指定された現場位置の主要断層データはありません。", PromptIcon::Stop);
  Acquire();
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_EQ(driver->Grid("rangeGrid").RowCount(), 0);
  EXPECT_EQ(Asked(), 0);
}

TEST_F(MakeSeismicWave1ScreenTest, SourcesWithoutRectanglesAndOfTheSagamiTroughLeave) {
  Open();
  doc.mainFaultRows = {test::RowNearTheSite("ASG05", 136.6), test::RowNearTheSite("ANNKI", 136.61),
                       test::RowNearTheSite("F005701", 136.7)};
  ChooseRange();
  Acquire();
  EXPECT_EQ(Codes(), "F005701");
  EXPECT_EQ(driver->Cell("rangeGrid", 1, 1), "1");
}

TEST_F(MakeSeismicWave1ScreenTest, WhatTheServiceGetsWrongIsToldAndEmptiesTheList) {
  const QString none = "指定された現場位置とAPIパラメータの断層データはありません。(メッシュ別被害地震)";
  const QString grammar = "Jsonファイルの文法エラーです。(メッシュ別被害地震)";
  const std::vector<std::tuple<const char*, QString, PromptIcon>> cases{
      {"ranking=file:fltsearch_error.json", none, PromptIcon::Warning},
      {"ranking=garbage", grammar, PromptIcon::Stop},
      {"ranking=status:503", grammar, PromptIcon::Stop},
      {"ranking=cut", QString(), PromptIcon::Stop},
      {"ranking=nohttp", QString(), PromptIcon::Stop}};
  for (const auto& [wishes, text, icon] : cases) {
    Start(wishes);
    OpenAsked(prompt);
    if (!text.isEmpty()) prompt.ExpectMessage(text, icon);
    Acquire();
    EXPECT_THAT(doc.faults, IsEmpty()) << wishes;
    EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 0) << wishes;
    prompt.CheckUsedUp();
  }
}

TEST_F(MakeSeismicWave1ScreenTest, ANoToTheGuardChangesNothingAndAsksNobody) {
  for (const char16_t* label : {test::kPlaneLabel, test::kEquivalentLabel}) {
    test::ChooseBase(doc, label);
    Open();
    const DocumentState before(doc);
    prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(label)), PromptAnswer::No);
    Acquire();
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
    EXPECT_EQ(Asked(), 0);
    EXPECT_THAT(log, IsEmpty());
  }
}

TEST_F(MakeSeismicWave1ScreenTest, AYesToTheGuardClearsTheBaseAndAcquires) {
  test::ChooseBase(doc, test::kPlaneLabel);
  Open();
  prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(test::kPlaneLabel)), PromptAnswer::Yes);
  ExpectUnknownModel();
  Acquire();
  EXPECT_THAT(doc.faults, SizeIs(8));
  EXPECT_EQ(doc.baseSpectrumName, QString());
  EXPECT_FALSE(doc.seedAdopted);
  EXPECT_EQ(MarkedBase(doc), std::nullopt);
}

TEST_F(MakeSeismicWave1ScreenTest, WithAnUnknownZoneAYesClearsNothing) {
  test::ChooseBase(doc, test::kPlaneLabel);
  doc.site.planeZone = "VII";
  Open();
  const DocumentState before(doc);
  prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(test::kPlaneLabel)), PromptAnswer::Yes);
  prompt.ExpectMessage(kUnknownZone, PromptIcon::Stop);
  Acquire();
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(Asked(), 0);
}

TEST_F(MakeSeismicWave1ScreenTest, ABaseThatIsNoPlaneIsNotAskedAbout) {
  for (const char16_t* label : {test::kWaveLabel, test::kLowerLabel}) {
    test::ChooseBase(doc, label);
    Open();
    ExpectUnknownModel();
    Acquire();
    EXPECT_EQ(doc.baseSpectrumName, QString::fromUtf16(label));
    EXPECT_TRUE(MarkedBase(doc).has_value());
    prompt.CheckUsedUp();
  }
}

TEST_F(MakeSeismicWave1ScreenTest, OfflineSaysSoAndTheButtonIsOff) {
  online = false;
  Open();
  auto& label = driver->Find<QLabel>("offlineLabel");
  auto& button = driver->Find<QAbstractButton>("acquireButton");
  EXPECT_EQ(label.text(), "オフラインではデータを取得できません。");
  EXPECT_TRUE(label.isVisible());
  EXPECT_FALSE(button.isEnabled());
  EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 3) << "faults of the project stay usable";
  button.click();
  EXPECT_EQ(Asked(), 0);
  online = true;
  screen->Refresh();
  EXPECT_FALSE(label.isVisible());
  EXPECT_TRUE(button.isEnabled());
  online = false;
  screen->Refresh();
  EXPECT_TRUE(label.isVisible());
  EXPECT_FALSE(button.isEnabled());
}

TEST_F(MakeSeismicWave1ScreenTest, TheModeFollowsTheRadioButtonsAndTheDocument) {
  Open();
  EXPECT_EQ(driver->Find<QRadioButton>("rankingRadio").text(), "現場位置に影響の大きい断層を取得");
  EXPECT_EQ(driver->Find<QRadioButton>("rangeRadio").text(), "探索範囲内の断層を取得");
  driver->Find<QWidget>("rankingRadio").setFocus();
  driver->Key(Qt::Key_Down);
  EXPECT_EQ(doc.faultAcquireMode, kAcquireRange);
  EXPECT_EQ(GridOnDisplay(), "rangeGrid");
  test::DoOfferedAction(driver->Find<QWidget>("rankingRadio"));
  EXPECT_EQ(doc.faultAcquireMode, kAcquireRanking);
  EXPECT_EQ(GridOnDisplay(), "rankingGrid");
  doc.faultAcquireMode = kAcquireRange;
  doc.SetModified(false);
  screen->Refresh();
  EXPECT_TRUE(driver->Find<QRadioButton>("rangeRadio").isChecked());
  EXPECT_EQ(GridOnDisplay(), "rangeGrid");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(MakeSeismicWave1ScreenTest, BehindADialogNothingActs) {
  Open();
  const DocumentState before(doc);
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  for (const char* name : {"rangeRadio", "acquireButton", "parametersButton", "attenuationButton",
                           "screenInfoButton", "rankingInfoButton"})
    driver->Find<QAbstractButton>(name).click();
  EXPECT_TRUE(driver->Find<QRadioButton>("rankingRadio").isChecked()) << "put back";
  EXPECT_FALSE(driver->Find<QRadioButton>("rangeRadio").isChecked());
  driver->Find<QLineEdit>("rangeEdit").setText("7");
  Settle();
  dialog.hide();
  Settle();
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(driver->Text("rangeEdit"), "50");
  EXPECT_EQ(Asked(), 0);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(MakeSeismicWave1ScreenTest, TheRangeTakesAnyWholeNumber) {
  Open();
  EXPECT_EQ(driver->Text("rangeEdit"), "50");
  const std::vector<std::pair<const char*, double>> entries{
      {"120", 120.0}, {"0", 0.0}, {"-3", -3.0}, {"99999999999", 99999999999.0}, {"12ab", 12.0}};
  for (const auto& [text, value] : entries) {
    doc.SetModified(false);
    driver->Enter("rangeEdit", text);
    EXPECT_EQ(doc.searchRangeKm, value) << text;
    EXPECT_TRUE(doc.IsModified());
  }
}

TEST_F(MakeSeismicWave1ScreenTest, AnEmptiedRangeStandsForTheStoredOne) {
  doc.searchRangeKm = 12.5;
  Open();
  const DocumentState before(doc);
  driver->Enter("rangeEdit", "");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(driver->Text("rangeEdit"), "12");
  driver->Find<QWidget>("rangeEdit").setFocus();
  driver->Key(Qt::Key_Tab);
  EXPECT_EQ(doc.searchRangeKm, 12.5) << "a number shown rounded never flows back";
}

TEST_F(MakeSeismicWave1ScreenTest, TheSmallestIntegerIsRefused) {
  Open();
  const DocumentState before(doc);
  for (const char* text : {"-2147483648", "-99999999999"}) {
    prompt.ExpectMessage("時間間隔の入力エラーです。");
    driver->Type("rangeEdit", text);
    driver->Press("acquireButton");
    EXPECT_EQ(driver->Text("rangeEdit"), "50");
    EXPECT_TRUE(driver->Find<QWidget>("rangeEdit").hasFocus());
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
    EXPECT_EQ(Asked(), 0) << "the press that left the field had no effect";
  }
}

TEST_F(MakeSeismicWave1ScreenTest, ATypedRangeCountsForThePressThatLeavesTheField) {
  Open();
  ChooseRange();
  driver->Type("rangeEdit", "10");
  Acquire();
  EXPECT_EQ(doc.searchRangeKm, 10.0);
  EXPECT_EQ(Codes(), "F005701");
}

TEST_F(MakeSeismicWave1ScreenTest, EscLeavesTheRangeAsItWas) {
  Open();
  const DocumentState before(doc);
  driver->Type("rangeEdit", "7");
  driver->Key(Qt::Key_Escape);
  driver->Key(Qt::Key_Tab);
  EXPECT_EQ(driver->Text("rangeEdit"), "50");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(MakeSeismicWave1ScreenTest, WithoutFaultsTheParametersOpenAtOnce) {
  doc.faults.clear();
  Open();
  bool seen = false;
  test::ScreenDriver::InDialog([&](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "CDlgFaultExploration");
    seen = true;
    test::PressIn(dialog, "cancelButton");
  });
  driver->Press("parametersButton");
  EXPECT_TRUE(seen);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(MakeSeismicWave1ScreenTest, NosToTheParametersChangeNothing) {
  test::ChooseBase(doc, test::kPlaneLabel);
  Open();
  const DocumentState before(doc);
  prompt.ExpectQuestion(ApiParametersQuestion(doc.apiParameters), PromptAnswer::No);
  driver->Press("parametersButton");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  prompt.ExpectQuestion(ApiParametersQuestion(doc.apiParameters), PromptAnswer::Yes);
  prompt.ExpectQuestion(BaseChangeQuestion(QString::fromUtf16(test::kPlaneLabel)), PromptAnswer::No);
  driver->Press("parametersButton");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 3);
}

TEST_F(MakeSeismicWave1ScreenTest, AYesToTheParametersEmptiesTheGridsAndACancelDoesNotBringThemBack) {
  test::ChooseBase(doc, test::kLowerLabel);
  Open();
  EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 3);
  prompt.ExpectQuestion(ApiParametersQuestion(doc.apiParameters), PromptAnswer::Yes);
  test::ScreenDriver::InDialog([&](QWidget& dialog) {
    EXPECT_EQ(driver->Grid("rankingGrid").RowCount(), 0) << "before the dialog opens";
    test::PressIn(dialog, "cancelButton");
  });
  driver->Press("parametersButton");
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_EQ(driver->Grid("rangeGrid").RowCount(), 0);
  EXPECT_EQ(driver->Grid("rankingGrid").rowSpan(0, 0), 1);
  EXPECT_THAT(Map().Map().overlays, IsEmpty());
  EXPECT_EQ(doc.baseSpectrumName, QString::fromUtf16(test::kLowerLabel)) << "it is no plane";
}

TEST_F(MakeSeismicWave1ScreenTest, TheLastButtonGoesToTheSecondScreen) {
  Open();
  driver->Press("attenuationButton");
  EXPECT_THAT(followed, SizeIs(1));
  EXPECT_TRUE(log.contains("show 59657")) << log.join(", ").toStdString();
}

TEST_F(MakeSeismicWave1ScreenTest, TheInformationButtonsTell) {
  Open();
  prompt.ExpectMessage("断層情報から加速度応答スペクトルを作成します。", PromptIcon::Information);
  driver->Press("screenInfoButton");
  prompt.ExpectMessage(
      "現場位置に影響が大きい断層のランキングが得られます。\n\n指定した現場位置に対して、地震動の超過確率をも"
      "とにラ"
      "ンク付けして、断層名を表示します。評価方法に関してはマニュアルを参照してください。",
      PromptIcon::Information);
  driver->Press("rankingInfoButton");
}

TEST_F(MakeSeismicWave1ScreenTest, TheMapStandsOnTheSiteWithAPolygonForEachPlane) {
  Open();
  EXPECT_EQ(Center(), Site());
  EXPECT_THAT(Map().Map().overlays, IsEmpty()) << "the faults of this project have no corners";
  ExpectUnknownModel();
  Acquire();
  EXPECT_THAT(Map().Map().overlays, SizeIs(13));
  EXPECT_EQ(Map().Map().overlays[0].points[0],
            (GeoPoint{doc.faults[0].corner1Lon[0], doc.faults[0].corner1Lat[0]}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Map().IsPainting(); }));
}

TEST_F(MakeSeismicWave1ScreenTest, ADragAndTheArrowsMoveTheViewAlone) {
  Open();
  const DocumentState before(doc);
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {100, 100});
  QTest::mouseMove(&Map(), {150, 120});
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {150, 120});
  EXPECT_LT(Center().lon, Site().lon);
  const GeoPoint dragged = Center();
  QTest::keyClick(&Map(), Qt::Key_Right);
  EXPECT_GT(Center().lon, dragged.lon);
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  const GeoPoint moved = Center();
  screen->Refresh();
  EXPECT_EQ(Center(), moved) << "the view is the user's";
  screen->Left();
  screen->Entered();
  EXPECT_EQ(Center(), Site());
}

TEST_F(MakeSeismicWave1ScreenTest, TheWheelStoresTheZoomWithinItsLimits) {
  Open();
  const auto wheel = [&](int delta) {
    QWheelEvent event(QPointF(50, 50), Map().mapToGlobal(QPointF(50, 50)), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Map(), &event);
  };
  const double scale = doc.site.mapScale;
  wheel(120);
  EXPECT_DOUBLE_EQ(doc.site.mapScale, scale * 1.1);
  EXPECT_TRUE(doc.IsModified());
  doc.site.mapZoom = 16;
  doc.site.mapScale = 1.45;
  wheel(120);
  EXPECT_EQ(doc.site.mapZoom, 16);
  EXPECT_EQ(doc.site.mapScale, 1.45);
}

TEST_F(MakeSeismicWave1ScreenTest, ThePlaceUnderThePointerStandsInTheStatusBar) {
  Open();
  const test::StatusTips tips(*screen);
  QTest::mouseMove(&Map(), {60, 60});
  Settle();
  EXPECT_THAT(tips.Last().toStdString(), HasSubstr("北緯"));
  screen->CommandBegins();
  EXPECT_EQ(tips.Last(), QString());
  screen->CommandEnded();
}

TEST_F(MakeSeismicWave1ScreenTest, OfflineTheMapStandsWithoutItsTiles) {
  online = false;
  Open();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !Map().IsPainting(); }));
  EXPECT_EQ(Map().accessibleDescription(), "オフラインのため地図は表示されていません。");
}

TEST_F(MakeSeismicWave1ScreenTest, TheMapBearsItsAttribution) {
  Open();
  const QString text = driver->Find<QLabel>("attribution").text();
  EXPECT_THAT(text.toStdString(),
              HasSubstr("この地図は国土地理院発行の地理院タイル『標準地図』を使用しています。"));
  EXPECT_THAT(text.toStdString(), HasSubstr("<a href="));
}

TEST_F(MakeSeismicWave1ScreenTest, TheGridCanBeCopiedAndNotWritten) {
  Open();
  const DocumentState before(doc);
  driver->Click("rankingGrid", 1, 2);
  driver->Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().trimmed(), "南");
  QApplication::clipboard()->setText("x\ty\nz");
  driver->Key(Qt::Key_V, Qt::ControlModifier);
  driver->Key(Qt::Key_F2);
  driver->Key(Qt::Key_X, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "77");
  driver->Key(Qt::Key_Delete);
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(MakeSeismicWave1ScreenTest, AllIsReachedByTheTabKeyInTheOrderOfReading) {
  Open();
  QStringList order;
  driver->Find<QWidget>("screenInfoButton").setFocus();
  for (int i = 0; i < 11; ++i) {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    Settle();
  }
  EXPECT_THAT(order, ElementsAre("screenInfoButton", "rankingRadio", "rankingInfoButton", "rangeEdit",
                                 "parametersButton", "acquireButton", "map", "attribution", "rankingGrid",
                                 "attenuationButton", "screenInfoButton"));
}

TEST_F(MakeSeismicWave1ScreenTest, TheChosenWayIsTheStopOfBoth) {
  doc.faultAcquireMode = kAcquireRange;
  Open();
  QStringList order;
  driver->Find<QWidget>("screenInfoButton").setFocus();
  for (int i = 0; i < 4; ++i) {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("screenInfoButton", "rankingInfoButton", "rangeRadio", "rangeEdit"));
}

TEST_F(MakeSeismicWave1ScreenTest, AllOfItWorksByTheKeyboard) {
  Open();
  driver->Find<QWidget>("rankingRadio").setFocus();
  driver->Key(Qt::Key_Down);
  driver->Find<QWidget>("rangeEdit").setFocus();
  QTest::keyClicks(QApplication::focusWidget(), "10");
  driver->Key(Qt::Key_Tab);
  driver->Key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "acquireButton");
  driver->Key(Qt::Key_Space);
  EXPECT_EQ(Codes(), "F005701");
  EXPECT_EQ(screen->window()->focusWidget()->objectName(), "acquireButton") << "the focus comes back";
}

TEST_F(MakeSeismicWave1ScreenTest, EveryControlHasItsNames) {
  Open();
  for (const QWidget* widget : screen->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->parentWidget()->inherits("QAbstractScrollArea"))
      continue;
    EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
  }
}

TEST_F(MakeSeismicWave1ScreenTest, WhatIsAcquiredIsSavedAndReadAndSavedTheSame) {
  Open();
  ExpectUnknownModel();
  Acquire();
  ASSERT_TRUE(SaveProject(doc, folder.Path("a.trml")));
  CMorvaneDoc read(folder.Path());
  ASSERT_TRUE(OpenProject(read, folder.Path("a.trml")).result == OpenResult::kOpened);
  EXPECT_TRUE(read.faults == doc.faults);
  ASSERT_TRUE(SaveProject(read, folder.Path("b.trml")));
  EXPECT_EQ(test::ReadAll(folder.Path("a.trml")), test::ReadAll(folder.Path("b.trml")));
}

}  // namespace
}  // namespace tremlo
