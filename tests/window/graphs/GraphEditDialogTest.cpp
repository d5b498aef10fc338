#include "support/OfferedAction.h"
#include "support/PaletteChange.h"
#include "window/graphs/DlgGraphEdit.h"
#include "window/graphs/DlgGraphEditAccSpec.h"
#include "window/graphs/DlgGraphEditBaseSpec.h"
#include "window/graphs/DlgGraphEditVisual.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/Spread7.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

/// Runs what a key or click has left to the event loop.
void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

class GraphEditDialogTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  GraphEditDialogTest() { block.autoRange = block.specLog = 0; }

  void Open(GraphEditDialog& dialog) {
    m_dialog = &dialog;
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    // Each time the owner is told, it draws the block as it then is.
    QObject::connect(&dialog, &GraphEditDialog::Apply, [this] { drawn.push_back(block); });
  }
  template <class Control>
  Control* Find(const char* name) {
    auto* const control = m_dialog->findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void Press(const char* name) {
    auto* const button = Find<QAbstractButton>(name);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    Settle();
  }
  void Click(const char* grid, int row, int column) {
    auto* const view = Find<CSpread7>(grid);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row - 1, column - 1)).center());
    Settle();
  }
  void Type(const char* grid, int row, int column, const QString& text) {
    Click(grid, row, column);
    auto* const view = Find<CSpread7>(grid);
    QTest::keyClick(view, Qt::Key_F2);
    auto* const editor = view->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
  }
  void Leave(const char* grid) {
    QTest::keyClick(Find<CSpread7>(grid)->findChild<QLineEdit*>(), Qt::Key_Return);
    Settle();
  }
  std::string Row(const char* grid, int row) {
    QStringList cells;
    for (int column = 1; column <= Find<CSpread7>(grid)->ColumnCount(); ++column)
      cells << Find<CSpread7>(grid)->GetCellText(row, column);
    return cells.join('|').toStdString();
  }

  WaveGraphSetting block;
  std::vector<WaveGraphSetting> drawn;

 private:
  GraphEditDialog* m_dialog = nullptr;
};

std::vector<std::unique_ptr<GraphEditDialog>> AllDialogs(WaveGraphSetting& block) {
  std::vector<std::unique_ptr<GraphEditDialog>> dialogs;
  dialogs.push_back(std::make_unique<CDlgGraphEdit>(block, ColorsOf(block)));
  dialogs.push_back(std::make_unique<CDlgGraphEditVisual>(block, ColorsOf(block)));
  dialogs.push_back(std::make_unique<CDlgGraphEditAccSpec>(block, ColorsOf(block)));
  dialogs.push_back(std::make_unique<CDlgGraphEditBaseSpec>(block));
  return dialogs;
}

std::vector<std::string> Controls(const GraphEditDialog& dialog) {
  std::vector<std::string> names;
  for (const char* name : {"autoCheck", "timeGrid", "spectrumGrid", "spectrumLogCheck", "fourierGrid",
                           "fourierLogCheck", "resetRangeButton", "colorGrid", "resetColorsButton"})
    if (dialog.findChild<QWidget*>(name)) names.emplace_back(name);
  return names;
}

TEST_F(GraphEditDialogTest, EachDialogHasItsControls) {
  const CDlgGraphEdit wave(block, ColorsOf(block));
  const CDlgGraphEditVisual visual(block, ColorsOf(block));
  EXPECT_THAT(Controls(wave), testing::SizeIs(9));
  EXPECT_THAT(Controls(visual), testing::SizeIs(9));
  EXPECT_THAT(Controls(CDlgGraphEditAccSpec(block, {{"波1", &block.specColor}})),
              testing::ElementsAre("autoCheck", "spectrumGrid", "spectrumLogCheck", "resetRangeButton",
                                   "colorGrid", "resetColorsButton"));
  EXPECT_THAT(Controls(CDlgGraphEditAccSpec(block, {})),
              testing::IsSupersetOf({"colorGrid", "resetColorsButton"}));
  EXPECT_THAT(Controls(CDlgGraphEditBaseSpec(block)),
              testing::ElementsAre("autoCheck", "spectrumGrid", "spectrumLogCheck", "resetRangeButton"));
}

TEST_F(GraphEditDialogTest, TheTextsAreTheirOwn) {
  CDlgGraphEditVisual dialog(block, ColorsOf(block));
  Open(dialog);
  EXPECT_EQ(dialog.windowTitle(), "描画設定");
  EXPECT_EQ(Find<QCheckBox>("autoCheck")->text(), "各グラフの自動調整を有効にする");
  EXPECT_EQ(Find<QCheckBox>("spectrumLogCheck")->text(), "対数グラフにする");
  EXPECT_EQ(Find<QPushButton>("resetRangeButton")->text(), "初期範囲に戻す");
  EXPECT_EQ(Find<QPushButton>("resetColorsButton")->text(), "色のリセット");
  EXPECT_EQ(Row("timeGrid", 0), "グラフ(時間-平均応答加速度)|最小値|最大値|間隔");
}

TEST_F(GraphEditDialogTest, EveryControlHasNamesOfItsOwn) {
  for (const auto& dialog : AllDialogs(block)) {
    EXPECT_FALSE(dialog->objectName().isEmpty());
    QStringList objectNames, accessibleNames;
    for (const QWidget* control : dialog->findChildren<QWidget*>()) {
      if (!qobject_cast<const QAbstractButton*>(control) && !qobject_cast<const CSpread7*>(control)) continue;
      EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
      EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
      if (qobject_cast<const CSpread7*>(control->parentWidget())) continue;  // every grid has the same
      objectNames << control->objectName();
      accessibleNames << control->accessibleName();
    }
    EXPECT_GE(objectNames.size(), 6);
    EXPECT_EQ(objectNames.removeDuplicates(), 0);
    EXPECT_EQ(accessibleNames.removeDuplicates(), 0);
  }
}

TEST_F(GraphEditDialogTest, TheLogCheckSwapsTheTextsAndRedrawsTheOwner) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  EXPECT_EQ(Row("spectrumGrid", 0).substr(0, Row("spectrumGrid", 0).find('|')), "周期-加速度応答スペクトル");
  Press("spectrumLogCheck");
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].specLog, 1);
  EXPECT_EQ(Row("spectrumGrid", 0), "周期-加速度応答スペクトル(対数)|最小値|最大値|間隔");
  EXPECT_EQ(Row("spectrumGrid", 1), "周期T (sec) (×10^n)|0.01|10|対数");
  EXPECT_EQ(Find<CSpread7>("spectrumGrid")->model()->headerData(0, Qt::Horizontal).toString(),
            "周期-加速度応答スペクトル(対数)");
  Press("spectrumLogCheck");
  ASSERT_EQ(drawn.size(), 2u);
  EXPECT_EQ(drawn[1].specLog, 0);
  Press("fourierLogCheck");
  ASSERT_EQ(drawn.size(), 3u);
  EXPECT_EQ(drawn[2].fourierLog, 1);
  EXPECT_EQ(Row("fourierGrid", 1), "周期T (sec) (×10^n)|0.1|10|対数");
}

TEST_F(GraphEditDialogTest, TheAutoCheckOpensAndLocksCellsAndRedrawsTheOwner) {
  CDlgGraphEditBaseSpec dialog(block);
  Open(dialog);
  const auto open = [this] { return !Find<CSpread7>("spectrumGrid")->Data().Format(2, 3).locked; };
  EXPECT_TRUE(open());
  Press("autoCheck");
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].autoRange, 1);
  EXPECT_FALSE(open());
  Press("autoCheck");
  EXPECT_EQ(drawn.back().autoRange, 0);
  EXPECT_TRUE(open());
}

TEST_F(GraphEditDialogTest, TheChecksShowTheBlockAsItIsOpened) {
  block.autoRange = 2;
  block.fourierLog = -1;
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  EXPECT_TRUE(Find<QCheckBox>("autoCheck")->isChecked());
  EXPECT_FALSE(Find<QCheckBox>("spectrumLogCheck")->isChecked());
  EXPECT_TRUE(Find<QCheckBox>("fourierLogCheck")->isChecked());
  EXPECT_EQ(block.autoRange, 2);
  EXPECT_TRUE(drawn.empty());
}

TEST_F(GraphEditDialogTest, LeavingACellWritesItsNumberAndRedrawsTheOwner) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Type("timeGrid", 2, 3, "750.5");
  EXPECT_TRUE(drawn.empty());
  Leave("timeGrid");
  ASSERT_EQ(drawn.size(), 1u);
  WaveGraphSetting expected;
  expected.autoRange = expected.specLog = 0;
  expected.timeYMax = 750.5;
  EXPECT_EQ(drawn[0], expected);
}

TEST_F(GraphEditDialogTest, ALogarithmicLimitIsTheValueItself) {
  block.specLog = 1;
  CDlgGraphEditBaseSpec dialog(block);
  Open(dialog);
  Type("spectrumGrid", 1, 2, "0.02");
  Leave("spectrumGrid");
  EXPECT_EQ(block.specLogXMin, 0.02);
}

TEST_F(GraphEditDialogTest, AnEmptiedCellKeepsTheStoredNumber) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Type("timeGrid", 1, 3, "");
  Leave("timeGrid");
  EXPECT_EQ(block.timeXMax, 30.0);
  EXPECT_EQ(Row("timeGrid", 1), "時間 (sec)|0|30|5");
}

TEST_F(GraphEditDialogTest, APasteOfARangeIsToldOnce) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  QApplication::clipboard()->setText("1\t60\t10\n-900\t\t300\n");
  Click("timeGrid", 1, 2);
  Find<CSpread7>("timeGrid")->Paste();
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(Row("timeGrid", 1), "時間 (sec)|1|60|10");
  EXPECT_EQ(Row("timeGrid", 2), "加速度 (gal)|-900|500|300");
}

TEST_F(GraphEditDialogTest, TheResetButtonsAskTheOwnerThenRedrawIt) {
  block = DefaultLowerGraph();
  block.specXMax = 77.0;
  block.specLog = 0;
  CDlgGraphEditAccSpec dialog(block, {{"下限", &block.specColor}});
  QStringList messages;
  QObject::connect(&dialog, &GraphEditDialog::ResetRange, [&] {
    messages << "range";
    block = DefaultLowerGraph();
    block.specLog = 0;
  });
  QObject::connect(&dialog, &GraphEditDialog::ResetColors, [&] {
    messages << "colours";
    block.specColor = 0x00FF00;
  });
  QObject::connect(&dialog, &GraphEditDialog::Apply, [&] { messages << "apply"; });
  Open(dialog);
  for (const char* grid : {"spectrumGrid", "colorGrid"})
    QObject::connect(Find<CSpread7>(grid)->model(), &QAbstractItemModel::dataChanged,
                     [&, grid] { messages << grid; });
  Press("resetRangeButton");
  EXPECT_EQ(messages.join(' '), "range spectrumGrid colorGrid apply");
  EXPECT_EQ(Row("spectrumGrid", 1), "周期T (sec)|0|5|1");
  Press("resetColorsButton");
  EXPECT_EQ(messages.mid(4).join(' '), "colours spectrumGrid colorGrid apply");
  EXPECT_EQ(Row("colorGrid", 1), "下限|#00FF00");
}

TEST_F(GraphEditDialogTest, AChosenColourGoesToItsCurveAndRedrawsTheOwner) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Find<CSpread7>("colorGrid")->SetColorChooser([](QWidget*, std::int32_t color) {
    EXPECT_EQ(color, 0xFF3232);
    return std::optional<std::int32_t>(0x00C800);
  });
  Click("colorGrid", 3, 2);
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_EQ(drawn[0].fourierColor, 0x00C800);
  EXPECT_EQ(drawn[0].timeColor, 0xFF3232);
}

TEST_F(GraphEditDialogTest, CancelAndEscapeKeepTheChanges) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Press("autoCheck");
  Press("cancelButton");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_EQ(block.autoRange, 1);
  dialog.show();
  Press("spectrumLogCheck");
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(block.specLog, 1);
}

TEST_F(GraphEditDialogTest, ANumberStillBeingTypedIsNotLostWhenTheDialogCloses) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Type("timeGrid", 1, 3, "45");
  dialog.accept();
  EXPECT_EQ(block.timeXMax, 45.0);
  ASSERT_EQ(drawn.size(), 1u);
}

TEST_F(GraphEditDialogTest, EnterInAGridDoesNotCloseTheDialog) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Type("timeGrid", 2, 3, "600");
  Leave("timeGrid");
  QTest::keyClick(Find<CSpread7>("timeGrid"), Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible());
  Find<QCheckBox>("autoCheck")->setFocus();
  QTest::keyClick(Find<QCheckBox>("autoCheck"), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
}

void ExpectNothingCutOff(const GraphEditDialog& dialog) {
  for (const CSpread7* grid : dialog.findChildren<CSpread7*>()) {
    const QAbstractItemModel& model = *grid->model();
    const QRect last = grid->visualRect(model.index(model.rowCount() - 1, model.columnCount() - 1));
    EXPECT_TRUE(grid->viewport()->rect().contains(last)) << grid->objectName().toStdString();
    for (int row = 0; row <= grid->RowCount(); ++row)
      for (int column = 1; column <= grid->ColumnCount(); ++column)
        EXPECT_LT(grid->fontMetrics().horizontalAdvance(grid->GetCellText(row, column)),
                  grid->columnWidth(column - 1))
            << grid->GetCellText(row, column).toStdString();
  }
  for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
    if (button->isVisible() && !qobject_cast<const CSpread7*>(button->parentWidget())) {
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
      EXPECT_GE(button->height(), button->sizeHint().height()) << button->objectName().toStdString();
    }
}

TEST_F(GraphEditDialogTest, NothingIsCutOff) {
  for (const auto& dialog : AllDialogs(block)) {
    for (const int logarithmic : {0, 1}) {
      block.specLog = block.fourierLog = logarithmic;
      Open(*dialog);
      Press("autoCheck");
      ExpectNothingCutOff(*dialog);
    }
    dialog->close();
  }
}

/// The size that a window keeps, or what it has come to when it changes still after many turns of the event
/// loop.
QSize SettledSize(QWidget& window) {
  QSize size = window.size();
  for (int turn = 0, same = 0; turn < 500 && same < 20; ++turn) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    same = window.size() == size ? same + 1 : 0;
    size = window.size();
  }
  return size;
}

std::vector<std::unique_ptr<GraphEditDialog>> DialogsWithCurves(WaveGraphSetting& block, int count) {
  std::vector<CurveColor> curves;
  for (int i = 1; i <= count; ++i)
    curves.push_back(
        {QStringLiteral("(%1)(等価震源距離)中央構造線断層帯（金剛山地東縁）").arg(i), &block.specColor});
  std::vector<std::unique_ptr<GraphEditDialog>> dialogs;
  dialogs.push_back(std::make_unique<CDlgGraphEdit>(block, curves));
  dialogs.push_back(std::make_unique<CDlgGraphEditVisual>(block, curves));
  dialogs.push_back(std::make_unique<CDlgGraphEditAccSpec>(block, curves));
  return dialogs;
}

TEST_F(GraphEditDialogTest, TheSizeStaysAndIsThatOfFewCurves) {
  for (const int count : {1, 3, 60}) {
    for (const auto& dialog : DialogsWithCurves(block, count)) {
      Open(*dialog);
      const QSize opened = dialog->size();
      EXPECT_EQ(SettledSize(*dialog), opened) << count;
      EXPECT_LE(opened.width(), 620) << count;
      Press("spectrumLogCheck");
      EXPECT_EQ(SettledSize(*dialog), opened) << count;
      dialog->close();
    }
  }
}

TEST_F(GraphEditDialogTest, TheDialogLiesOnItsMonitorWithItsButtonsInSight) {
  for (const auto& dialog : DialogsWithCurves(block, 60)) {
    Open(*dialog);
    SettledSize(*dialog);
    const QRect monitor = dialog->screen()->availableGeometry();
    EXPECT_TRUE(monitor.contains(dialog->frameGeometry())) << dialog->width() << " x " << dialog->height();
    for (const char* button : {"okButton", "cancelButton"}) {
      const QRect place(Find<QPushButton>(button)->mapToGlobal(QPoint()), Find<QPushButton>(button)->size());
      EXPECT_TRUE(monitor.contains(place)) << button;
      EXPECT_FALSE(Find<QPushButton>(button)->visibleRegion().isEmpty()) << button;
    }
    dialog->close();
  }
}

TEST_F(GraphEditDialogTest, NothingScrollsWhereTheMonitorHasRoom) {
  auto dialogs = DialogsWithCurves(block, 60);
  dialogs.push_back(std::make_unique<CDlgGraphEditBaseSpec>(block));
  for (const auto& dialog : dialogs) {
    Open(*dialog);
    SettledSize(*dialog);
    auto* const body = Find<QScrollArea>("body");
    const QSize wanted = body->widget()->sizeHint() + dialog->size() - body->size();
    const QSize room = dialog->screen()->availableSize() - QSize(20, 50);  // room for the window's frame
    if (wanted.width() <= room.width() && wanted.height() <= room.height()) {
      EXPECT_EQ(body->verticalScrollBar()->maximum(), 0);
      EXPECT_EQ(body->horizontalScrollBar()->maximum(), 0);
      EXPECT_EQ(body->size(), body->widget()->sizeHint());
    } else {
      EXPECT_GT(body->verticalScrollBar()->maximum(), 0);
    }
    EXPECT_GE(dialog->width(), std::min(room.width() - 20, wanted.width()));
    dialog->close();
  }
}

/// What the tab key does where it does not go from cell to cell.
struct TabKey : QWidget {
  static bool Press(QWidget& control) { return (control.*(&TabKey::focusNextChild))(); }
};

TEST_F(GraphEditDialogTest, TheTabKeyBringsEveryControlIntoSight) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  Find<QCheckBox>("autoCheck")->setFocus();
  QStringList reached;
  for (int i = 0; i < 20 && !reached.contains(dialog.focusWidget()->objectName()); ++i) {
    reached << dialog.focusWidget()->objectName();
    EXPECT_FALSE(dialog.focusWidget()->visibleRegion().isEmpty()) << reached.last().toStdString();
    TabKey::Press(*dialog.focusWidget());
    Settle();
  }
  EXPECT_EQ(reached.join(' ').toStdString(),
            "autoCheck timeGrid spectrumGrid spectrumLogCheck fourierGrid fourierLogCheck resetRangeButton "
            "colorGrid resetColorsButton okButton cancelButton");
}

TEST_F(GraphEditDialogTest, TheActionOfferedToScreenReadersIsAClick) {
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  test::DoOfferedAction(*Find<QCheckBox>("autoCheck"));
  test::DoOfferedAction(*Find<QCheckBox>("spectrumLogCheck"));
  test::DoOfferedAction(*Find<QCheckBox>("fourierLogCheck"));
  test::DoOfferedAction(*Find<QCheckBox>("autoCheck"));
  ASSERT_EQ(drawn.size(), 4u);
  EXPECT_EQ(drawn[0].autoRange, 1);
  EXPECT_EQ(drawn[1].specLog, 1);
  EXPECT_EQ(drawn[2].fourierLog, 1);
  EXPECT_EQ(drawn[3].autoRange, 0);
  EXPECT_EQ(Row("fourierGrid", 1), "周期T (sec) (×10^n)|0.1|10|対数");
}

TEST_F(GraphEditDialogTest, TheDialogFollowsThePalette) {
  const auto picture = [](GraphEditDialog& dialog) {
    SettledSize(dialog);
    return dialog.grab().toImage();
  };
  test::PaletteChange palette;
  QImage dark;
  {
    CDlgGraphEdit dialog(block, ColorsOf(block));
    Open(dialog);
    const QImage light = picture(dialog);
    palette.ToDark();
    dark = picture(dialog);
    palette.Back();
    EXPECT_EQ(picture(dialog), light);
  }
  palette.ToDark();
  CDlgGraphEdit dialog(block, ColorsOf(block));
  Open(dialog);
  EXPECT_EQ(picture(dialog), dark);
}

}  // namespace
}  // namespace tremlo
