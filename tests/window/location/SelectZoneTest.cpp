#include "core/location/PlaneZone.h"
#include "core/location/ZoneMap.h"
#include "support/PaletteChange.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedPrompt.h"
#include "support/TestFolder.h"
#include "window/location/DlgHelpFieldRect.h"
#include "window/location/DlgSelectRectangularPlane.h"
#include "window/location/ZoneMapView.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include <gtest/gtest.h>
#include <memory>

namespace tremlo {
namespace {

using test::ScreenDriver;
using test::ScriptedPrompt;
using test::TestFolder;

constexpr int kCheck = 1;
const QColor kPink(255, 0, 128);

class SelectZoneTest : public testing::Test {
 protected:
  SelectZoneTest() {
    InstallJapaneseFonts();
    test::CopyTables(folder);
  }

  CDlgSelectRectangularPlane& Open(int current) {
    std::vector<CDPoly> areas;
    EXPECT_EQ(LoadZonePolygons(folder.Path(), areas), std::nullopt);
    dialog = std::make_unique<CDlgSelectRectangularPlane>(folder.Path(), std::move(areas), current, nullptr);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    return *dialog;
  }
  CSpread7& Grid() { return *dialog->findChild<CSpread7*>(QStringLiteral("zoneGrid")); }
  ZoneMapView& Map() { return *dialog->findChild<ZoneMapView*>(QStringLiteral("zoneMap")); }
  QString AreaText() { return dialog->findChild<QLabel*>(QStringLiteral("areaText"))->text(); }
  void ClickCell(int row, int column) {
    CSpread7& grid = Grid();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.visualRect(grid.model()->index(row - 1, column - 1)).center());
    test::Settle();
  }
  /// The pixel of the map where a place lies.
  static QPoint MapPixel(double lat, double lon) {
    return {static_cast<int>((lon - 121.9) * 15.55), static_cast<int>(500.0 - (lat - 20.0) * 19.2)};
  }
  std::vector<int> CheckedRows() {
    std::vector<int> rows;
    for (int row = 1; row <= Grid().RowCount(); ++row)
      if (Grid().GetCheck(row)) rows.push_back(row);
    return rows;
  }
  QColor TextColor(int row, int column) {
    return Grid().model()->index(row - 1, column - 1).data(Qt::ForegroundRole).value<QBrush>().color();
  }

  TestFolder folder;
  std::unique_ptr<CDlgSelectRectangularPlane> dialog;
};

TEST_F(SelectZoneTest, ShowsTheNineteenZonesWithTheirOrigins) {
  Open(8);
  EXPECT_EQ(dialog->windowTitle(), u"平面直角座標系番号の選択");
  EXPECT_EQ(Grid().RowCount(), 19);
  EXPECT_EQ(Grid().GetCellText(0, 2), u"系番号");
  EXPECT_EQ(Grid().GetCellText(0, 3), u"経度(東経)");
  EXPECT_EQ(Grid().GetCellText(0, 4), u"緯度(北緯)");
  EXPECT_EQ(Grid().GetCellText(2, 2), u"II (2)");
  EXPECT_EQ(Grid().GetCellText(2, 3), u"131度 0分0秒");
  EXPECT_EQ(Grid().GetCellText(19, 4), u"26度0分0秒");
  QStringList labels;
  for (const QLabel* label : dialog->findChildren<QLabel*>()) labels << label->text();
  EXPECT_TRUE(labels.contains(QStringLiteral("座標系原点の経緯度")));
  EXPECT_TRUE(labels.contains(QStringLiteral("適用区域")));
}

TEST_F(SelectZoneTest, ReturnIsOkAgainBehindAWalkOverTheCancelButton) {
  Open(8);
  dialog->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  auto* const cancel = dialog->findChild<QPushButton*>(QStringLiteral("cancel"));
  cancel->setFocus();
  EXPECT_TRUE(cancel->isDefault());
  Grid().setFocus();
  EXPECT_FALSE(cancel->isDefault());
  EXPECT_TRUE(dialog->findChild<QPushButton*>(QStringLiteral("ok"))->isDefault());
}

TEST_F(SelectZoneTest, TheCurrentZoneIsCheckedColouredAndItsAreaTold) {
  Open(8);
  EXPECT_EQ(dialog->Selected(), 8);
  EXPECT_EQ(CheckedRows(), std::vector{9});
  for (const int column : {2, 3, 4}) {
    EXPECT_EQ(TextColor(9, column), kPink);
    EXPECT_EQ(TextColor(8, column), QColor(Qt::black));
  }
  EXPECT_EQ(AreaText(), PlaneZones()[8].areaText);
}

TEST_F(SelectZoneTest, AnEmptyBoxLooksEmptyOnADarkDesktopToo) {
  test::PaletteChange palette;
  palette.ToDark();
  Open(8);
  const QRect cell = Grid().visualRect(Grid().model()->index(0, kCheck - 1));
  const QImage seen = Grid().viewport()->grab(cell).toImage();
  const QColor middle = seen.pixelColor(seen.width() / 2, seen.height() / 2);
  EXPECT_GT(middle.lightness(), 200) << middle.name().toStdString();
}

TEST_F(SelectZoneTest, AnUnknownZoneSelectsNoRow) {
  Open(-1);
  EXPECT_EQ(dialog->Selected(), -1);
  EXPECT_TRUE(CheckedRows().empty());
  EXPECT_TRUE(AreaText().isEmpty());
  ClickCell(3, kCheck);
  EXPECT_EQ(dialog->Selected(), 2);
  EXPECT_EQ(CheckedRows(), std::vector{3});
}

TEST_F(SelectZoneTest, AClickInTheCheckColumnMovesTheSelection) {
  Open(0);
  ClickCell(5, kCheck);
  EXPECT_EQ(dialog->Selected(), 4);
  EXPECT_EQ(CheckedRows(), std::vector{5});
  EXPECT_EQ(TextColor(1, 2), QColor(Qt::black));
  EXPECT_EQ(TextColor(5, 2), kPink);
  EXPECT_EQ(AreaText(), u"兵庫県　鳥取県　岡山県");
}

TEST_F(SelectZoneTest, AClickOnTheSelectedRowOrBesideTheCheckChangesNothing) {
  Open(4);
  ClickCell(5, kCheck);
  EXPECT_EQ(dialog->Selected(), 4);
  EXPECT_EQ(CheckedRows(), std::vector{5});
  ClickCell(7, 2);
  EXPECT_EQ(dialog->Selected(), 4);
  EXPECT_EQ(CheckedRows(), std::vector{5});
}

TEST_F(SelectZoneTest, TheSpaceKeySelectsTheRow) {
  Open(0);
  dialog->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  ASSERT_TRUE(Grid().hasFocus());
  QTest::keyClick(&Grid(), Qt::Key_Down);
  QTest::keyClick(&Grid(), Qt::Key_Space);
  test::Settle();
  EXPECT_EQ(dialog->Selected(), 1);
}

TEST_F(SelectZoneTest, AClickOnTheMapGivesTheZone) {
  Open(0);
  const std::tuple<double, double, int> places[] = {
      {35.68, 139.69, 8}, {36.56, 136.65, 6}, {43.06, 141.35, 11}, {26.2, 127.7, 14}};
  for (const auto& [lat, lon, zone] : places) {
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, MapPixel(lat, lon));
    EXPECT_EQ(dialog->Selected(), zone);
    EXPECT_EQ(CheckedRows(), std::vector{zone + 1});
    EXPECT_EQ(AreaText(), PlaneZones()[static_cast<std::size_t>(zone)].areaText);
  }
}

TEST_F(SelectZoneTest, AClickOutsideEveryAreaChangesNothing) {
  Open(8);
  QTest::mouseClick(&Map(), Qt::LeftButton, {}, MapPixel(44.5, 124.0));
  QTest::mouseClick(&Map(), Qt::LeftButton, {}, {499, 0});
  EXPECT_EQ(dialog->Selected(), 8);
}

TEST_F(SelectZoneTest, WithoutTheFilesOnlyTheGridCanChoose) {
  dialog = std::make_unique<CDlgSelectRectangularPlane>(folder.Path(QStringLiteral("nowhere")),
                                                        std::vector<CDPoly>(), 0, nullptr);
  dialog->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
  QTest::mouseClick(&Map(), Qt::LeftButton, {}, MapPixel(35.68, 139.69));
  EXPECT_EQ(dialog->Selected(), 0);
  ClickCell(9, kCheck);
  EXPECT_EQ(dialog->Selected(), 8);
}

/// With its frame on the monitor, and its buttons in sight.
void ExpectInSight(const QDialog& dialog, std::initializer_list<const char*> buttons) {
  const QRect monitor = dialog.screen()->availableGeometry();
  EXPECT_TRUE(monitor.contains(dialog.frameGeometry())) << dialog.width() << " x " << dialog.height();
  for (const char* name : buttons) {
    const auto* const button = dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    EXPECT_TRUE(monitor.contains(QRect(button->mapToGlobal(QPoint()), button->size()))) << name;
    EXPECT_FALSE(button->visibleRegion().isEmpty()) << name;
  }
}

TEST_F(SelectZoneTest, TheDialogsLieOnTheirMonitorWithTheirButtonsInSight) {
  Open(0);
  const QSize size = dialog->size();
  for (int row = 19; row >= 1; --row) {
    Grid().SelectCell(row, kCheck);
    QTest::keyClick(&Grid(), Qt::Key_Space);
    test::Settle();
    EXPECT_EQ(dialog->Selected(), row - 1);
    EXPECT_EQ(dialog->size(), size);
    // Where the grid is too long for the monitor, the row that the keys have come to is scrolled to.
    const QRect cell = Grid().visualRect(Grid().currentIndex());
    EXPECT_FALSE(Grid().viewport()->visibleRegion().intersected(cell).isEmpty()) << row;
  }
  ExpectInSight(*dialog, {"ok", "cancel"});
  CDlgHelpFieldRect help(dialog.get());
  help.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
  ExpectInSight(help, {"close"});
}

TEST_F(SelectZoneTest, NothingScrollsWhereTheMonitorHasRoom) {
  Open(0);
  const QSize room = dialog->screen()->availableSize();
  ASSERT_GE(room.width(), 900) << "to be run on a larger monitor";
  ASSERT_GE(room.height(), 700);
  CDlgHelpFieldRect help(dialog.get());
  help.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
  test::Settle();
  for (const QScrollBar* bar : dialog->findChildren<QScrollBar*>()) EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(Map().visibleRegion().boundingRect(), Map().rect());
}

TEST_F(SelectZoneTest, TheQuestionMarkOpensTheHelp) {
  Open(0);
  QString title;
  ScreenDriver::InDialog([&](QWidget& help) {
    title = help.windowTitle();
    EXPECT_NE(qobject_cast<CDlgHelpFieldRect*>(&help), nullptr);
    EXPECT_GT(help.findChild<QWidget*>(QStringLiteral("picture"))->width(), 300);
    test::PressIn(help, "close");
  });
  QTest::mouseClick(dialog->findChild<QAbstractButton*>(QStringLiteral("helpButton")), Qt::LeftButton);
  EXPECT_EQ(title, u"平面直角座標系について");
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(SelectZoneTest, OkGivesTheSelectionAndCancelNone) {
  ScriptedPrompt prompt;
  const auto choose = [&](const char* button) {
    ScreenDriver::InDialog([&, button](QWidget& box) {
      auto* const map = box.findChild<ZoneMapView*>(QStringLiteral("zoneMap"));
      QTest::mouseClick(map, Qt::LeftButton, {}, MapPixel(35.68, 139.69));
      test::PressIn(box, button);
    });
    return SelectZoneDialog(folder.Path(), 0, prompt, nullptr);
  };
  EXPECT_EQ(choose("ok"), 8);
  EXPECT_EQ(choose("cancel"), std::nullopt);
  ScreenDriver::InDialog([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(SelectZoneDialog(folder.Path(), 0, prompt, nullptr), std::nullopt);
  ScreenDriver::InDialog([](QWidget& box) { test::PressIn(box, "ok"); });
  EXPECT_EQ(SelectZoneDialog(folder.Path(), -1, prompt, nullptr), -1);
}

TEST_F(SelectZoneTest, AFaultyAreaFileIsToldInPlaceOfTheDialog) {
  folder.Write(QStringLiteral("SystemData/keiarea.csv"), "KEI,1\n1,2\n\n3,4\n");
  ScriptedPrompt prompt;
  prompt.ExpectMessage(QStringLiteral("SystemData\\keiarea.csvの3行目が正しい座標ではありません。"),
                       PromptIcon::Stop);
  EXPECT_EQ(SelectZoneDialog(folder.Path(), 0, prompt, nullptr), std::nullopt);
}

}  // namespace
}  // namespace tremlo
