#include "core/graphs/GridTable.h"
#include "core/graphs/NumberRows.h"
#include "support/ScriptedPrompt.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Spread7.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <functional>
#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Action = GridChange::Action;

constexpr double kBlank = std::numeric_limits<double>::infinity();

CellFormat Format(CellType type, bool locked = false) {
  CellFormat format;
  format.type = type;
  format.locked = locked;
  return format;
}

/// Runs what a key or click has left to the event loop; the last of it is begun by the one before.
void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

/// A window with a grid and a button behind it, and a record of what the grid tells and asks.
class Spread7Test : public testing::Test {
 protected:
  Spread7Test() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&grid);
    layout->addWidget(&button);
    window.resize(500, 400);
    grid.SetGuard([this](const GridChange& change) {
      asked.push_back(change);
      return answer;
    });
    QObject::connect(&grid, &CSpread7::Changed,
                     [this](const GridChange& change) { changed.push_back(change); });
    QObject::connect(&grid, &CSpread7::CellClicked,
                     [this](int row, int column) { clicked.emplace_back(row, column); });
    QObject::connect(&grid, &CSpread7::CellLeft,
                     [this](int row, int column) { left.emplace_back(row, column); });
    QApplication::clipboard()->clear();
  }

  void Show() {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    grid.setFocus();
    ASSERT_TRUE(grid.hasFocus());
  }

  QPoint Middle(int row, int column) const {
    return grid.visualRect(grid.model()->index(row - 1, column - 1)).center();
  }
  void Click(int row, int column, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, keys, Middle(row, column));
    Settle();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, keys);
    // Qt remembers the keys held down until it hears of them again: the hand lets go of them.
    if (keys != Qt::NoModifier) QTest::keyRelease(&grid, Qt::Key_Shift);
    Settle();
  }
  void Type(const char* text) {
    for (const QChar c : QString::fromUtf8(text)) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  }
  /// The open editor; one that was closed is there until the event loop deletes it.
  QLineEdit* Editor() const {
    for (auto* const line : grid.viewport()->findChildren<QLineEdit*>())
      if (line->isVisible()) return line;
    return nullptr;
  }
  static void SetClipboard(const char* text) { QApplication::clipboard()->setText(QString::fromUtf8(text)); }
  static std::string Clipboard() { return QApplication::clipboard()->text().toStdString(); }

  QWidget window;
  CSpread7 grid{&window};
  QPushButton button{&window};
  bool answer = true;
  std::vector<GridChange> asked, changed;
  std::vector<std::pair<int, int>> clicked, left;
};

/// A list of samples beside their times, with the full menu.
class SampleGridTest : public Spread7Test {
 protected:
  SampleGridTest() {
    grid.SetMenu(CSpread7::Menu::FullEdit);
    grid.SetData(std::make_shared<NumberRows>(std::vector<NumberRows::Column>{
        {QStringLiteral("時間"), nullptr, [](int index) { return 0.01 * index; }, 2, {}},
        {QStringLiteral("加速度"), [this] { return &acc; }, nullptr, 3, kBlank}}));
  }
  void ShowSamples(std::vector<double> samples) {
    acc = std::move(samples);
    grid.Refresh();
    Show();
  }

  std::vector<double> acc;
};

/// Two rows with a cell of each type, column 6 locked.
class MixedGridTest : public Spread7Test {
 protected:
  MixedGridTest() {
    grid.SetSize(2, 6);
    int column = 0;
    for (const CellType type : {CellType::Text, CellType::Number, CellType::List, CellType::Check,
                                CellType::Color, CellType::Text}) {
      CellFormat format = Format(type, column == 5);
      if (type == CellType::List)
        format.choices = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")};
      grid.SetColumnFormat(++column, format);
      grid.SetColumnWidth(column, 70);
    }
    for (int row = 1; row <= 2; ++row) {
      grid.SetCellText(row, 1, QStringLiteral("断層"));
      grid.SetCellNumber(row, 2, 1.5, 3);
      grid.SetCellText(row, 3, QStringLiteral("A"));
      grid.SetCheck(row, 4, false);
      grid.SetCellColor(row, 5, 0xFF3232);
    }
  }
};

// Values by row and column

TEST_F(Spread7Test, AnEmptyCellReadsAsNoNumberAndStaysEmptyWhenItIsWrittenBack) {
  grid.SetSize(1, 1);
  EXPECT_EQ(grid.GetCellNumber(1, 1), -9e32);
  EXPECT_EQ(grid.GetCellNumberOr(1, 1, 38.5), 38.5);
  grid.SetCellText(1, 1, QStringLiteral("x"));
  grid.SetCellNumber(1, 1, -9e32, 3);
  EXPECT_EQ(grid.GetCellText(1, 1), QString());
}

TEST_F(Spread7Test, NumbersShowTheirDecimals) {
  grid.SetSize(1, 2);
  grid.SetCellNumber(1, 1, 1.5, 3);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("1.500"));
  EXPECT_EQ(grid.GetCellNumberOr(1, 1, 7.0), 1.5);
  grid.SetCellNumber(1, 1, -2147483648.0, 0);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("-2147483648"));
  grid.SetCellInt(1, 2, 42);
  EXPECT_EQ(grid.GetCellText(1, 2), QStringLiteral("42"));
  grid.SetCellInt(1, 2, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(grid.GetCellText(1, 2), QString());
}

TEST_F(MixedGridTest, CheckAndColourCellsHaveValues) {
  grid.SetCheck(1, 4, true);
  EXPECT_EQ(grid.GetCellText(1, 4), QStringLiteral("1"));
  EXPECT_TRUE(grid.GetCheck(1, 4));
  EXPECT_TRUE(grid.GetCheck(1));
  EXPECT_FALSE(grid.GetCheck(2));
  grid.SetCellText(2, 4, QStringLiteral("1,0"));
  EXPECT_TRUE(grid.GetCheck(2));
  EXPECT_EQ(grid.GetCellColor(1, 5), 0xFF3232);
  EXPECT_EQ(grid.GetCellColor(1, 1), 0);
}

TEST_F(Spread7Test, TitlesStandInRowAndColumnZero) {
  grid.SetSize(2, 1);
  grid.SetCellText(0, 1, QStringLiteral("経度"));
  grid.SetCellText(1, 0, QStringLiteral("北緯"));
  EXPECT_EQ(grid.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("経度"));
  EXPECT_EQ(grid.model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("北緯"));
  EXPECT_EQ(grid.model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
}

// The program's own writes

TEST_F(MixedGridTest, FillingSelectingAndClearingByTheProgramTellAndAskNothing) {
  Show();
  grid.SelectCell(1, 1);
  grid.SelectCell(2, 4);
  grid.SetCheck(2, 4, true);
  grid.ClearBlock({1, 1, 2, 2});
  grid.SetSize(5, 6);
  grid.Refresh();
  Settle();
  EXPECT_EQ(grid.GetCellText(1, 1), QString());
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(changed, IsEmpty());
  EXPECT_THAT(clicked, IsEmpty());
  EXPECT_THAT(left, IsEmpty());
}

TEST_F(SampleGridTest, RefreshKeepsSelectionAndScrollPosition) {
  ShowSamples(std::vector<double>(500, 1.0));
  grid.SelectCell(200, 2);
  grid.scrollTo(grid.currentIndex());
  const int scrolled = grid.verticalScrollBar()->value();
  ASSERT_GT(scrolled, 0);
  acc.resize(600, 2.0);
  acc[199] = 5.0;
  grid.Refresh();
  EXPECT_EQ(grid.ActiveRow(), 200);
  EXPECT_EQ(grid.verticalScrollBar()->value(), scrolled);
  EXPECT_EQ(grid.model()->rowCount(), 600);
  EXPECT_EQ(grid.model()->data(grid.currentIndex()).toString(), QStringLiteral("5.000"));
}

TEST_F(SampleGridTest, ARecordThatShrankBehindTheGridIsNotReadPastItsEnd) {
  ShowSamples(std::vector<double>(50, 1.0));
  acc.clear();
  grid.viewport()->repaint();
  grid.Refresh();
  EXPECT_EQ(grid.model()->rowCount(), 0);
}

// Selection

TEST_F(Spread7Test, ABlockOfAllRowsOrColumnsIsToldByMinusOne) {
  grid.SetSize(4, 3);
  grid.SelectBlock({2, 2, 3, 3});
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{2, 2, 3, 3}));
  grid.SelectBlock({-1, 2, -1, 3});
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{1, 2, 4, 3}));
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{-1, 2, -1, 3}));
  grid.SelectBlock({2, -1, 3, -1});
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{2, -1, 3, -1}));
  grid.selectAll();
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{-1, -1, -1, -1}));
}

TEST_F(Spread7Test, ASingleRowOrColumnIsNotTakenForAWholeOne) {
  grid.SetSize(1, 3);
  grid.SelectCell(1, 2);
  EXPECT_EQ(grid.ActiveRow(), 1);
  EXPECT_EQ(grid.ActiveColumn(), 2);
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{1, 2, 1, 2}));
}

TEST_F(SampleGridTest, ShiftExtendsTheSelectionAlsoToTheEdges) {
  ShowSamples(std::vector<double>(1000, 1.0));
  Click(3, 2);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{3, 2, 4, 2}));
  Key(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{3, 2, 1000, 2}));
  Key(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{1, 1, 3, 2}));
}

TEST_F(Spread7Test, TheGridTellsOfTheCellThatWasLeft) {
  grid.SetSize(3, 2);
  Show();
  Click(1, 1);
  left.clear();
  Click(2, 2);
  EXPECT_THAT(left, ElementsAre(std::pair(1, 1)));
  left.clear();
  Key(Qt::Key_Tab);
  EXPECT_TRUE(button.hasFocus());
  EXPECT_THAT(left, ElementsAre(std::pair(2, 2)));
}

TEST_F(Spread7Test, TheGridTellsThatTheFocusHasCome) {
  grid.SetSize(1, 1);
  Show();
  button.setFocus();
  int came = 0;
  QObject::connect(&grid, &CSpread7::FocusCame, [&] { ++came; });
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(grid.hasFocus());
  EXPECT_EQ(came, 1);
  Key(Qt::Key_F2);
  Type("5");
  Key(Qt::Key_Return);
  EXPECT_EQ(came, 1);
}

// Editing

TEST_F(MixedGridTest, TypingReplacesTheTextAndIsOneChange) {
  Show();
  Click(1, 1);
  Type("dam");
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層"));
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_THAT(asked, ElementsAre(GridChange{Action::Edit, {1, 1, 1, 1}}));
  EXPECT_EQ(changed, asked);
}

TEST_F(MixedGridTest, F2EditsAndEnterGoesDown) {
  Show();
  Click(1, 1);
  Key(Qt::Key_F2);
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->text(), QStringLiteral("断層"));
  Key(Qt::Key_End);
  Type("2");
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層2"));
  EXPECT_EQ(grid.ActiveRow(), 2);
  EXPECT_TRUE(grid.hasFocus());
}

TEST_F(MixedGridTest, EscapeLeavesTheCellAsItWas) {
  Show();
  Click(1, 1);
  Type("dam");
  Key(Qt::Key_Escape);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層"));
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(MixedGridTest, AnEditorLeftUntouchedChangesNothing) {
  Show();
  grid.SetCellText(1, 2, QStringLiteral("38.50000"));
  Click(1, 2);
  Key(Qt::Key_F2);
  Key(Qt::Key_Return);
  EXPECT_THAT(changed, IsEmpty());
  EXPECT_EQ(grid.GetCellText(1, 2), QStringLiteral("38.50000"));
}

TEST_F(MixedGridTest, ARefusedEditLeavesTheCellAsItWas) {
  Show();
  answer = false;
  Click(1, 1);
  Type("dam");
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層"));
  EXPECT_EQ(asked.size(), 1U);
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(MixedGridTest, TheGuardIsAskedOnceAlsoWhenItOpensABox) {
  Show();
  int questions = 0;
  grid.SetGuard([&](const GridChange&) {
    ++questions;
    QDialog box(&window);
    QTimer::singleShot(0, &box, &QDialog::accept);
    return box.exec() == QDialog::Accepted;
  });
  Click(1, 1);
  Type("dam");
  button.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(QTest::qWaitFor([&] { return questions > 0; }));
  Settle();
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
}

TEST_F(MixedGridTest, LockedCellsAreNotEdited) {
  Show();
  Click(1, 6);
  Key(Qt::Key_F2);
  EXPECT_FALSE(Editor());
  Type("x");
  EXPECT_FALSE(Editor());
  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, Middle(1, 6));
  EXPECT_FALSE(Editor());
}

TEST_F(SampleGridTest, TypingOnALockedCellMovesNowhere) {
  ShowSamples({1.0, 2.0, 3.0});
  Click(1, 1);
  Type("0.02");
  Settle();
  EXPECT_EQ(grid.ActiveRow(), 1);
  EXPECT_EQ(grid.ActiveColumn(), 1);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 3.0));
}

TEST_F(MixedGridTest, NumberCellsTakeDigitsOfAnyWidthAndDropTheRest) {
  Show();
  Click(1, 2);
  Type("1a2.5.x");
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->text(), QStringLiteral("12.5"));
  QInputMethodEvent input;
  input.setCommitString(QStringLiteral("３４"));
  QApplication::sendEvent(Editor(), &input);
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 2), QStringLiteral("12.534"));
}

TEST_F(MixedGridTest, AnInputMethodStartsAnEdit) {
  Show();
  Click(1, 1);
  QInputMethodEvent typing(QStringLiteral("かつだんそう"), {});
  QApplication::sendEvent(&grid, &typing);
  QInputMethodEvent done;
  done.setCommitString(QStringLiteral("活断層"));
  QApplication::sendEvent(QApplication::focusWidget(), &done);
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->text(), QStringLiteral("活断層"));
  EXPECT_EQ(QApplication::focusWidget(), Editor());
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("活断層"));
}

TEST_F(MixedGridTest, TextThatAnInputMethodCommitsAtOnceStartsAnEditToo) {
  Show();
  Click(1, 2);
  QInputMethodEvent done;
  done.setCommitString(QStringLiteral("５"));
  QApplication::sendEvent(&grid, &done);
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->text(), QStringLiteral("5"));
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 2), QStringLiteral("5"));
}

TEST_F(MixedGridTest, FinishEditTakesAnOpenEditorAtOnce) {
  Show();
  Click(1, 1);
  Type("dam");
  EXPECT_TRUE(grid.FinishEdit());
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_TRUE(grid.hasFocus());
  answer = false;
  Key(Qt::Key_F2);
  Type("lake");
  EXPECT_FALSE(grid.FinishEdit());
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_TRUE(grid.FinishEdit());
}

TEST_F(MixedGridTest, AnEditIsTakenBeforeTheButtonThatLeavesItActs) {
  std::string seen;
  QObject::connect(&button, &QPushButton::clicked, [&] { seen = grid.GetCellText(1, 1).toStdString(); });
  Show();
  Click(1, 1);
  Type("dam");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(seen, "dam");
}

TEST_F(MixedGridTest, AnEditIsTakenBeforeAButtonThatTakesNoFocusActs) {
  button.setFocusPolicy(Qt::NoFocus);
  std::string seen;
  QObject::connect(&button, &QPushButton::clicked, [&] { seen = grid.GetCellText(1, 1).toStdString(); });
  Show();
  Click(1, 1);
  Type("dam");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(seen, "dam");
  answer = false;
  Key(Qt::Key_F2);
  Type("lake");
  seen.clear();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(seen, "");
}

TEST_F(MixedGridTest, AQuestionOfTheGuardTakesThePressThatLedToIt) {
  int presses = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++presses; });
  Show();
  grid.SetGuard([&](const GridChange&) {
    QDialog box(&window);
    QTimer::singleShot(0, &box, &QDialog::accept);
    return box.exec() == QDialog::Accepted;
  });
  Click(1, 1);
  Type("dam");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_EQ(presses, 0);
  EXPECT_FALSE(button.isDown());
  Settle();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(presses, 1);
}

TEST_F(MixedGridTest, EditModeOffDropsTheText) {
  Show();
  Click(1, 1);
  grid.SetEditMode(true);
  ASSERT_TRUE(Editor());
  Type("dam");
  grid.SetEditMode(false);
  Settle();
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層"));
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(MixedGridTest, AListOffersItsChoicesAndTakesOne) {
  Show();
  Click(1, 3);
  auto* const combo = grid.viewport()->findChild<QComboBox*>();
  ASSERT_TRUE(combo);
  ASSERT_TRUE(QTest::qWaitFor([&] { return combo->view()->isVisible(); }));
  EXPECT_EQ(combo->count(), 3);
  EXPECT_EQ(combo->currentText(), QStringLiteral("A"));
  QTest::keyClick(combo->view(), Qt::Key_Down);
  QTest::keyClick(combo->view(), Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !changed.empty(); }));
  EXPECT_EQ(grid.GetCellText(1, 3), QStringLiteral("B"));
  EXPECT_EQ(changed.size(), 1U);
}

TEST_F(MixedGridTest, ClickAndSpaceAndEnterToggleACheckCell) {
  Show();
  Click(1, 4);
  EXPECT_TRUE(grid.GetCheck(1, 4));
  Key(Qt::Key_Space);
  EXPECT_FALSE(grid.GetCheck(1, 4));
  Key(Qt::Key_Return);
  EXPECT_TRUE(grid.GetCheck(1, 4));
  EXPECT_THAT(clicked, ElementsAre(std::pair(1, 4), std::pair(1, 4), std::pair(1, 4)));
  EXPECT_EQ(changed.size(), 3U);
}

TEST_F(MixedGridTest, ALockedCheckCellStaysAndTellsNothing) {
  grid.SetCellFormat(1, 4, Format(CellType::Check, true));
  Show();
  Click(1, 4);
  Key(Qt::Key_Space);
  EXPECT_FALSE(grid.GetCheck(1, 4));
  EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(MixedGridTest, ASlotMayPutTheCheckMarkBack) {
  QObject::connect(&grid, &CSpread7::CellClicked, &grid,
                   [&](int row, int column) { grid.SetCheck(row, column, false); });
  Show();
  Click(2, 4);
  EXPECT_FALSE(grid.GetCheck(2, 4));
  EXPECT_EQ(clicked.size(), 1U);
}

TEST_F(MixedGridTest, AColourCellOffersAChoice) {
  std::int32_t offered = 0;
  grid.SetColorChooser([&](QWidget*, std::int32_t color) {
    offered = color;
    return std::optional<std::int32_t>(0x00FF00);
  });
  Show();
  Click(1, 5);
  EXPECT_EQ(offered, 0xFF3232);
  EXPECT_EQ(grid.GetCellColor(1, 5), 0x00FF00);
  EXPECT_THAT(changed, ElementsAre(GridChange{Action::Edit, {1, 5, 1, 5}}));
  grid.SetColorChooser([](QWidget*, std::int32_t) { return std::optional<std::int32_t>(); });
  Key(Qt::Key_Space);
  EXPECT_EQ(grid.GetCellColor(1, 5), 0x00FF00);
  EXPECT_EQ(changed.size(), 1U);
}

// From cell to cell

/// Two columns of numbers, all of them open.
class SpectrumGridTest : public Spread7Test {
 protected:
  SpectrumGridTest() {
    grid.SetMenu(CSpread7::Menu::FullEdit);
    grid.SetData(std::make_shared<NumberRows>(std::vector<NumberRows::Column>{
        {QStringLiteral("周期 (sec)"), [this] { return &periods; }, nullptr, {}, {}},
        {QStringLiteral("応答値 (gal)"), [this] { return &values; }, nullptr, {}, {}}}));
    // As the screens do: whatever has changed, all of it is shown anew.
    QObject::connect(&grid, &CSpread7::Changed, [this] { grid.Refresh(); });
  }
  void ShowSpectrum(std::vector<double> x, std::vector<double> y) {
    periods = std::move(x);
    values = std::move(y);
    grid.Refresh();
    Show();
  }
  /// Keys as they come typed ahead: one behind the other, without the event loop in between.
  void TypeAhead(std::initializer_list<int> keys) {
    for (const int key : keys) QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
  }

  std::vector<double> periods, values;
};

TEST_F(SpectrumGridTest, TabGoesOnToTheNextCellAndReplacesItsNumber) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 1);
  Type("4");
  Key(Qt::Key_Tab);
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("300"));
  Type("250");
  Key(Qt::Key_Return);
  EXPECT_THAT(periods, ElementsAre(4.0, 2.0));
  EXPECT_THAT(values, ElementsAre(250.0, 400.0));
  EXPECT_EQ(changed.size(), 2U);
}

TEST_F(SpectrumGridTest, ShiftTabGoesBackTheSameWay) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(2, 1);
  Type("4");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("300"));
  Type("250");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  Type("7");
  Key(Qt::Key_Return);
  EXPECT_THAT(periods, ElementsAre(7.0, 4.0));
  EXPECT_THAT(values, ElementsAre(250.0, 400.0));
}

TEST_F(SpectrumGridTest, NumbersTypedAheadGoEachIntoItsCell) {
  ShowSpectrum({1.0, 2.0, 3.0, 4.0}, {300.0, 400.0, 500.0, 600.0});
  Click(1, 2);
  TypeAhead({Qt::Key_1, Qt::Key_3, Qt::Key_Return, Qt::Key_1, Qt::Key_4, Qt::Key_Enter, Qt::Key_1, Qt::Key_5,
             Qt::Key_Return});
  EXPECT_THAT(values, ElementsAre(13.0, 14.0, 15.0, 600.0));
  Settle();
  EXPECT_THAT(values, ElementsAre(13.0, 14.0, 15.0, 600.0));
  EXPECT_EQ(changed.size(), 3U);
  Click(1, 1);
  TypeAhead({Qt::Key_5, Qt::Key_Tab, Qt::Key_6, Qt::Key_Tab, Qt::Key_7, Qt::Key_Tab});
  EXPECT_THAT(periods, ElementsAre(5.0, 7.0, 3.0, 4.0));
  EXPECT_THAT(values, ElementsAre(6.0, 14.0, 15.0, 600.0));
  TypeAhead({Qt::Key_8});
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_THAT(values, ElementsAre(6.0, 8.0, 15.0, 600.0));
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->text(), QStringLiteral("7"));
}

TEST_F(SpectrumGridTest, ARefreshLeavesWhatIsBeingTyped) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 2);
  Type("12345");
  for (int i = 0; i < 2; ++i) QTest::keyClick(Editor(), Qt::Key_Left, Qt::ShiftModifier);
  values[0] = 9.0;
  grid.Refresh();
  EXPECT_EQ(Editor()->text(), QStringLiteral("12345"));
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("45"));
  Key(Qt::Key_Return);
  EXPECT_THAT(values, ElementsAre(12345.0, 400.0));
}

TEST_F(SpectrumGridTest, ARefreshLeavesTheSelectionOfAnUntouchedEditor) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  QTest::keyClick(Editor(), Qt::Key_End);
  QTest::keyClick(Editor(), Qt::Key_Left, Qt::ShiftModifier);
  values[1] = 9.0;
  grid.Refresh();
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("0"));
  EXPECT_EQ(Editor()->cursorPosition(), 2);
}

TEST_F(SpectrumGridTest, AnUntouchedEditorShowsTheNewTextOfItsCell) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  values[0] = 9.5;
  grid.Refresh();
  EXPECT_EQ(Editor()->text(), QStringLiteral("9.5"));
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("9.5"));
  Key(Qt::Key_Return);
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(SpectrumGridTest, TabBehindTheLastCellLeavesTheGrid) {
  ShowSpectrum({1.0}, {300.0});
  Click(1, 1);
  Type("4");
  Key(Qt::Key_Tab);
  Type("5");
  Key(Qt::Key_Tab);
  EXPECT_TRUE(button.hasFocus());
  EXPECT_THAT(periods, ElementsAre(4.0));
  EXPECT_THAT(values, ElementsAre(5.0));
}

TEST_F(SpectrumGridTest, ShiftTabBeforeTheFirstCellLeavesTheGrid) {
  ShowSpectrum({1.0}, {300.0});
  Click(1, 1);
  Type("4");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(button.hasFocus());
  EXPECT_THAT(periods, ElementsAre(4.0));
}

TEST_F(SpectrumGridTest, CtrlTabLeavesTheGridFromAnyCell) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 1);
  Type("4");
  Key(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(button.hasFocus());
  EXPECT_THAT(periods, ElementsAre(4.0, 2.0));
}

TEST_F(SampleGridTest, TabPassesLockedCells) {
  ShowSamples({1.0, 2.0, 3.0});
  Click(1, 2);
  Type("4");
  Key(Qt::Key_Tab);
  Type("5");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  Type("6");
  Key(Qt::Key_Return);
  EXPECT_THAT(acc, ElementsAre(6.0, 5.0, 3.0));
}

TEST_F(MixedGridTest, TabOpensAListThatArrowsChooseFrom) {
  Show();
  Click(1, 2);
  Type("2");
  Key(Qt::Key_Tab);
  auto* const combo = grid.viewport()->findChild<QComboBox*>();
  ASSERT_TRUE(combo);
  EXPECT_FALSE(combo->view()->isVisible());
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(combo->currentText(), QStringLiteral("C"));
  EXPECT_EQ(grid.GetCellText(1, 3), QStringLiteral("A"));
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 3), QStringLiteral("C"));
  EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(MixedGridTest, ARefusedEntryStaysAtItsCell) {
  Show();
  answer = false;
  Click(1, 1);
  Type("dam");
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.ActiveRow(), 1);
  Type("dam");
  Key(Qt::Key_Tab);
  EXPECT_EQ(grid.ActiveColumn(), 1);
  EXPECT_FALSE(Editor());
}

TEST_F(SpectrumGridTest, ANumberTypedAgainInAnotherFormIsNoChange) {
  ShowSpectrum({1.5, 2.0}, {300.0, 400.0});
  Click(1, 1);
  for (const char* text : {"1.50", "1.5", "+1.5", "15e-1", "01.5"}) {
    grid.SelectCell(1, 1);
    Type(text);
    Key(Qt::Key_Return);
  }
  grid.SelectCell(1, 2);
  Type("3e2");
  Key(Qt::Key_Tab);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(SampleGridTest, AnEmptiedCellThatWasEmptyIsNoChange) {
  ShowSamples({kBlank, 1.0});
  Click(1, 2);
  Key(Qt::Key_5);
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Return);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(acc, ElementsAre(kBlank, 1.0));
}

TEST_F(SpectrumGridTest, ANumberWithoutBlankThatIsEmptiedAtZeroIsNoChange) {
  ShowSpectrum({0.0}, {300.0});
  Click(1, 1);
  Key(Qt::Key_F2);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Return);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(periods, ElementsAre(0.0));
}

TEST_F(SampleGridTest, ANumberShownRoundedIsChangedByTheOneThatIsTyped) {
  ShowSamples({1.23456});
  Click(1, 2);
  Type("1.2346");
  Key(Qt::Key_Return);
  EXPECT_THAT(acc, ElementsAre(1.2346));
}

TEST_F(SpectrumGridTest, AClickOnARowNumberTakesTheEntryAndMovesThere) {
  ShowSpectrum({1.0, 2.0, 3.0}, {300.0, 400.0, 500.0});
  Click(1, 1);
  Type("4");
  QHeaderView* const rows = grid.verticalHeader();
  const QPoint spot(5, rows->sectionViewportPosition(1) + 5);
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, spot);
  Settle();
  EXPECT_THAT(periods, ElementsAre(4.0, 2.0, 3.0));
  EXPECT_EQ(grid.GetSelectedBlock(), (GridBlock{2, -1, 2, -1}));
  EXPECT_EQ(grid.ActiveRow(), 2);
  EXPECT_TRUE(grid.hasFocus());
}

TEST_F(SpectrumGridTest, RowsSelectedByTheirNumbersAreRemovedByDel) {
  ShowSpectrum({1.0, 2.0, 3.0, 4.0}, {300.0, 400.0, 500.0, 600.0});
  button.setFocus();
  QHeaderView* const rows = grid.verticalHeader();
  const auto spot = [&](int row) { return QPoint(5, rows->sectionViewportPosition(row - 1) + 5); };
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, spot(3));
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, Qt::ShiftModifier, spot(2));
  Key(Qt::Key_Delete);
  EXPECT_THAT(periods, ElementsAre(1.0, 4.0));
  EXPECT_EQ(changed.size(), 1U);
}

TEST_F(SpectrumGridTest, AnEntryThatIsStillToBeTakenIsTakenBeforeACommand) {
  ShowSpectrum({1.0, 2.0, 3.0}, {300.0, 400.0, 500.0});
  Click(2, 1);
  Type("4");
  // A click on another cell and INS, in one batch.
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Middle(1, 1));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Insert);
  Settle();
  EXPECT_THAT(periods, ElementsAre(0.0, 1.0, 4.0, 3.0));
}

TEST_F(SpectrumGridTest, AListThatShrankUnderAnOpenEditorCanBeTypedInto) {
  ShowSpectrum({1.0, 2.0, 3.0}, {300.0, 400.0, 500.0});
  Click(3, 1);
  Type("4");
  periods.resize(1);
  values.resize(1);
  grid.Refresh();
  Settle();
  EXPECT_TRUE(grid.hasFocus());
  grid.SelectCell(1, 1);
  Type("7");
  Key(Qt::Key_Return);
  EXPECT_THAT(periods, ElementsAre(7.0));
}

TEST_F(MixedGridTest, WhatIsTypedWhileTheGuardAsksIsAskedForAfterIt) {
  Show();
  int depth = 0, deepest = 0, questions = 0;
  grid.SetGuard([&](const GridChange&) {
    ++questions;
    deepest = std::max(deepest, ++depth);
    QDialog box(&window);
    QTimer::singleShot(0, &box, [&] {
      Settle();
      box.accept();
    });
    box.exec();
    --depth;
    return true;
  });
  Click(1, 1);
  Type("dam");
  grid.SelectCell(2, 1);
  grid.SetEditMode(true);
  ASSERT_TRUE(Editor());
  Editor()->selectAll();
  Type("lake");  // its editor closes when the question takes the focus
  ASSERT_TRUE(QTest::qWaitFor([&] { return questions == 2 && depth == 0; }));
  Settle();
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_EQ(grid.GetCellText(2, 1), QStringLiteral("lake"));
}

TEST_F(MixedGridTest, BehindAModalWindowNothingIsChanged) {
  Show();
  grid.SelectCell(1, 1);
  grid.SetMenu(CSpread7::Menu::TextGrid);
  SetClipboard("x");
  QAccessibleTableInterface* const table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  QDialog box(&window);
  QTimer::singleShot(0, &box, [&] {
    grid.model()->setData(grid.model()->index(0, 0), QStringLiteral("dam"));
    grid.model()->setData(grid.model()->index(0, 3), Qt::Checked, Qt::CheckStateRole);
    table->cellAt(0, 0)->setText(QAccessible::Value, QStringLiteral("dam"));
    table->cellAt(0, 3)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    for (QAction* action : grid.actions()) action->trigger();
    Settle();
    box.accept();
  });
  box.exec();
  Settle();
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("断層"));
  EXPECT_FALSE(grid.GetCheck(1, 4));
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(MixedGridTest, AnEntryThatAModalWindowInterruptsIsTakenBehindIt) {
  Show();
  Click(1, 1);
  Type("dam");
  QDialog box(&window);
  std::string during;
  QTimer::singleShot(0, &box, [&] {
    Settle();
    during = grid.GetCellText(1, 1).toStdString();
    box.accept();
  });
  box.exec();
  Settle();
  EXPECT_EQ(during, "断層");
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_EQ(changed.size(), 1U);
}

TEST_F(MixedGridTest, TheWheelOverAnOpenListChoosesNothing) {
  Show();
  Click(1, 3);
  auto* const combo = grid.viewport()->findChild<QComboBox*>();
  ASSERT_TRUE(combo);
  QWheelEvent turn({5, 5}, combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(combo, &turn);
  Settle();
  EXPECT_EQ(grid.GetCellText(1, 3), QStringLiteral("A"));
  EXPECT_EQ(combo->currentText(), QStringLiteral("A"));
}

TEST_F(SpectrumGridTest, AKeyHeldDownWritesIntoOneCell) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 1);
  for (int i = 0; i < 5; ++i) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, QStringLiteral("5"), i > 0);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
  }
  Key(Qt::Key_Return);
  EXPECT_THAT(periods, ElementsAre(55555.0, 2.0));
}

TEST_F(SpectrumGridTest, HomeAndEndStayInTheRowAndInTheText) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(2, 1);
  Key(Qt::Key_End);
  EXPECT_EQ(std::pair(grid.ActiveRow(), grid.ActiveColumn()), std::pair(2, 2));
  Key(Qt::Key_Home);
  EXPECT_EQ(std::pair(grid.ActiveRow(), grid.ActiveColumn()), std::pair(2, 1));
  Key(Qt::Key_F2);
  Key(Qt::Key_End);
  Type("5");
  Key(Qt::Key_Home);
  Type("1");
  Key(Qt::Key_Return);
  EXPECT_THAT(periods, ElementsAre(1.0, 125.0));
}

TEST_F(SpectrumGridTest, EscDropsWhatWasTypedAndTabThenLeavesTheGrid) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 1);
  Type("4");
  Key(Qt::Key_Tab);
  Type("5");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Editor());
  EXPECT_TRUE(grid.hasFocus());
  Key(Qt::Key_Tab);
  EXPECT_TRUE(button.hasFocus());
  EXPECT_THAT(periods, ElementsAre(4.0, 2.0));
  EXPECT_THAT(values, ElementsAre(300.0, 400.0));
}

TEST_F(SpectrumGridTest, ADraggedSelectionIsCutAndPasted) {
  ShowSpectrum({1.0, 2.0, 3.0}, {300.0, 400.0, 500.0});
  QWidget* const cells = grid.viewport();
  QTest::mousePress(cells, Qt::LeftButton, {}, Middle(3, 2));
  QMouseEvent move(QEvent::MouseMove, Middle(2, 1), cells->mapToGlobal(Middle(2, 1)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(cells, &move);
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Middle(2, 1));
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{2, 1, 3, 2}));
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_THAT(periods, ElementsAre(1.0, 0.0, 0.0));
  EXPECT_EQ(Clipboard(), "2\t400\n3\t500\n");
  Click(1, 1);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(periods, ElementsAre(2.0, 3.0, 0.0));
  EXPECT_THAT(values, ElementsAre(400.0, 500.0, 0.0));
}

TEST_F(SpectrumGridTest, AllIsCopiedAndPastedOverItselfUnchanged) {
  ShowSpectrum({0.1 + 0.2, 1e-300}, {-1.5e300, 400.0});
  const std::vector<double> x = periods, y = values;
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(periods, x);
  EXPECT_EQ(values, y);
}

TEST_F(SpectrumGridTest, DelRemovesRowsSelectedUpwardsAndInsActsOnTheActiveOne) {
  ShowSpectrum({1.0, 2.0, 3.0, 4.0}, {300.0, 400.0, 500.0, 600.0});
  Click(3, 2);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  Key(Qt::Key_Insert);
  EXPECT_THAT(periods, ElementsAre(1.0, 0.0, 2.0, 3.0, 4.0));
  Click(4, 1);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  Key(Qt::Key_Delete);
  EXPECT_THAT(periods, ElementsAre(1.0, 4.0));
}

TEST_F(SpectrumGridTest, ADoubleClickEditsTheCellWithItsTextSelected) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Middle(1, 2));
  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, Middle(1, 2));
  ASSERT_TRUE(Editor());
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("300"));
  Type("7");
  Click(2, 2);
  EXPECT_THAT(values, ElementsAre(7.0, 400.0));
}

TEST_F(SpectrumGridTest, ACommandOfTheMenuTakesTheOpenEntryFirst) {
  ShowSpectrum({1.0, 2.0, 3.0}, {300.0, 400.0, 500.0});
  Click(1, 1);
  Type("4");
  grid.RemoveRows();
  EXPECT_THAT(periods, ElementsAre(2.0, 3.0));
  EXPECT_EQ(changed.size(), 2U);
  Type("5");
  SetClipboard("9");
  grid.Paste();
  EXPECT_THAT(periods, ElementsAre(9.0, 3.0));
  EXPECT_EQ(changed.size(), 4U);
}

TEST_F(MixedGridTest, AnEntryIsTakenBeforeTheCheckCellThatIsClickedBehindIt) {
  Show();
  Click(1, 1);
  Type("dam");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Middle(2, 4));
  const std::vector<GridChange> expected{{Action::Edit, {1, 1, 1, 1}}, {Action::Edit, {2, 4, 2, 4}}};
  EXPECT_EQ(changed, expected);
  answer = false;
  Click(1, 1);
  Type("lake");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Middle(2, 4));
  Settle();
  EXPECT_TRUE(grid.GetCheck(2, 4));
  EXPECT_EQ(asked.size(), 3U);
}

TEST_F(MixedGridTest, ATextCellHoldsOneLineWhateverIsPastedIntoItsEditor) {
  Show();
  Click(1, 1);
  Key(Qt::Key_F2);
  SetClipboard("上の\r\nダム\r\n");
  QTest::keyClick(Editor(), Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_Return);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("上の ダム"));
}

// Paste, as spreadsheets and browsers put it

/// The boxes that came up during an action, each answered with OK.
std::vector<std::string> BoxesDuring(const std::function<void()>& action) {
  std::vector<std::string> boxes;
  QTimer answering;
  QObject::connect(&answering, &QTimer::timeout, [&] {
    if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      boxes.push_back(box->text().toStdString());
      box->buttons().front()->click();
    }
  });
  answering.start(0);
  QWidget* const window = QApplication::activeWindow();
  action();
  window->activateWindow();  // without a window manager nobody else does
  EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  Settle();
  return boxes;
}

TEST_F(SpectrumGridTest, ThousandsSeparatorsDoNotCutANumber) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  const auto paste = [&](int row, int column, const char* text) {
    SetClipboard(text);
    grid.SelectCell(row, column);
    return BoxesDuring([&] { Key(Qt::Key_V, Qt::ControlModifier); });
  };
  EXPECT_THAT(paste(1, 2, "1,234.5"), IsEmpty());
  EXPECT_THAT(values, ElementsAre(1234.5, 400.0));
  EXPECT_THAT(paste(1, 1, "0.5\t2,345,678.25\r\n-1.5\t−1,000\r\n"), IsEmpty());
  EXPECT_THAT(periods, ElementsAre(0.5, -1.5));
  EXPECT_THAT(values, ElementsAre(2345678.25, -1000.0));
  EXPECT_THAT(paste(1, 2, "１，２３４．５"), IsEmpty());
  EXPECT_EQ(values[0], 1234.5);
  changed.clear();
  asked.clear();
  const std::vector<double> before = values;
  EXPECT_EQ(paste(1, 2, "0.1,7").size(), 1U);
  EXPECT_EQ(paste(1, 1, "0.1,1,234.5").size(), 1U);
  EXPECT_EQ(paste(1, 1, "1,234.5").size(), 1U);
  EXPECT_EQ(paste(1, 1, "1\t2\t3").size(), 1U);
  EXPECT_EQ(paste(1, 2, "1,23").size(), 1U);
  EXPECT_THAT(changed, IsEmpty());
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_EQ(values, before);
}

TEST_F(SpectrumGridTest, ANumberBeyondTheDoublesIsToldAndChangesNothing) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  grid.SelectCell(2, 2);
  const auto typed = BoxesDuring([&] {
    Type("1e400");
    Key(Qt::Key_Return);
  });
  EXPECT_THAT(typed, ElementsAre("数値が大きすぎます。\n\n行：2\n列：応答値 (gal)\n内容：1e400"));
  EXPECT_EQ(grid.ActiveRow(), 2);
  SetClipboard("5\t6\n7\t-1e400");
  grid.SelectCell(1, 1);
  const auto pasted = BoxesDuring([&] { Key(Qt::Key_V, Qt::ControlModifier); });
  EXPECT_THAT(pasted, ElementsAre("数値が大きすぎます。\n\n行：2\n列：応答値 (gal)\n内容：-1e400"));
  EXPECT_THAT(periods, ElementsAre(1.0, 2.0));
  EXPECT_THAT(values, ElementsAre(300.0, 400.0));
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(SampleGridTest, TheTextInfStaysABlank) {
  ShowSamples({1.0, 2.0});
  SetClipboard("inf\n5");
  Click(1, 2);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(kBlank, 5.0));
}

TEST_F(SpectrumGridTest, AHeadingCountsAsZero) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  SetClipboard("周期\t応答値\r\n\"0.5\"\t\"1,250\"\r\n");
  Click(1, 1);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(periods, ElementsAre(0.0, 0.5));
  EXPECT_THAT(values, ElementsAre(0.0, 1250.0));
  EXPECT_EQ(asked.size(), 1U);
}

TEST_F(MixedGridTest, APasteThatDoesNotFitIntoATableIsToldAndChangesNothing) {
  grid.SetMenu(CSpread7::Menu::TextGrid);
  Show();
  SetClipboard("a\nb\nc\nd");
  Click(2, 1);
  EXPECT_THAT(BoxesDuring([&] { Key(Qt::Key_V, Qt::ControlModifier); }),
              ElementsAre("貼り付ける行が表に入りきりません。\n\n行：3\n内容：b"));
  EXPECT_EQ(grid.GetCellText(2, 1), QStringLiteral("断層"));
  EXPECT_THAT(asked, IsEmpty());
  SetClipboard("a\r\n\r\n\r\n");
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(grid.GetCellText(2, 1), QStringLiteral("a"));
  SetClipboard("b\t7\tD");
  EXPECT_THAT(BoxesDuring([&] { Key(Qt::Key_V, Qt::ControlModifier); }),
              ElementsAre("選択肢にない値です。\n\n行：2\n列：3\n内容：D"));
  EXPECT_EQ(grid.GetCellText(2, 1), QStringLiteral("a"));
}

TEST_F(SpectrumGridTest, APasteIntoAnOpenEditorReadsThousandsToo) {
  ShowSpectrum({1.0, 2.0}, {300.0, 400.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  SetClipboard("1,234.5\r\n");
  QTest::keyClick(Editor(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Editor()->text(), QStringLiteral("1234.5"));
  Key(Qt::Key_Return);
  EXPECT_EQ(values[0], 1234.5);
}

// Rows

TEST_F(SampleGridTest, InsPutsARowBeforeTheActiveOne) {
  ShowSamples({1.0, 2.0});
  Click(2, 2);
  Key(Qt::Key_Insert);
  EXPECT_THAT(acc, ElementsAre(1.0, 0.0, 2.0));
  EXPECT_EQ(grid.ActiveRow(), 2);
  EXPECT_THAT(asked, ElementsAre(GridChange{Action::InsertRow, {2, 1, 2, 2}}));
  EXPECT_EQ(changed, asked);
}

TEST_F(SampleGridTest, InsOnABlockPutsARowBeforeItsActiveOne) {
  ShowSamples({1.0, 2.0, 3.0, 4.0});
  Click(2, 2);
  Click(4, 2, Qt::ShiftModifier);
  Key(Qt::Key_Insert);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 3.0, 0.0, 4.0));
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{4, 2, 4, 2}));
  Click(3, 2);
  Click(2, 2, Qt::ShiftModifier);
  Key(Qt::Key_Insert);
  EXPECT_THAT(acc, ElementsAre(1.0, 0.0, 2.0, 3.0, 0.0, 4.0));
}

TEST_F(SampleGridTest, CtrlInsPutsARowAtTheEnd) {
  ShowSamples({1.0, 2.0});
  Click(1, 2);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 0.0));
  EXPECT_EQ(grid.ActiveRow(), 3);
  EXPECT_THAT(changed, ElementsAre(GridChange{Action::AppendRow, {3, 1, 3, 2}}));
}

TEST_F(SampleGridTest, AfterCtrlInsTheNewCellAloneIsSelected) {
  ShowSamples({1.0, 2.0, 3.0, 4.0});
  Click(2, 2);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{5, 2, 5, 2}));
  Key(Qt::Key_Delete);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 3.0, 4.0));
}

TEST_F(SampleGridTest, ShiftExtendsFromTheCellThatTheProgramSelected) {
  ShowSamples(std::vector<double>(20, 1.0));
  Click(2, 2);
  grid.SelectCell(10, 2);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{10, 2, 11, 2}));
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{10, 2, 12, 2}));
  grid.SelectCell(15, 2);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{15, 2, 15, 2}));
}

TEST_F(SampleGridTest, DelRemovesTheSelectedRows) {
  ShowSamples({1.0, 2.0, 3.0, 4.0});
  Click(2, 2);
  Click(3, 2, Qt::ShiftModifier);
  Key(Qt::Key_Delete);
  EXPECT_THAT(acc, ElementsAre(1.0, 4.0));
  EXPECT_EQ(grid.ActiveRow(), 2);
  EXPECT_THAT(changed, ElementsAre(GridChange{Action::RemoveRows, {2, 1, 3, 2}}));
}

TEST_F(SampleGridTest, AllRowsCanGoAndComeBack) {
  ShowSamples({1.0, 2.0});
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  EXPECT_THAT(acc, IsEmpty());
  EXPECT_EQ(grid.ActiveRow(), 0);
  Key(Qt::Key_Delete);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(changed.size(), 1U);
  Key(Qt::Key_Insert);
  EXPECT_THAT(acc, ElementsAre(0.0));
  EXPECT_EQ(grid.ActiveColumn(), 2);
}

TEST_F(SampleGridTest, AnEmptyListTakesAPaste) {
  ShowSamples({});
  SetClipboard("5\n6\n");
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(5.0, 6.0));
}

TEST_F(SampleGridTest, ARefusedCommandLeavesTheList) {
  ShowSamples({1.0, 2.0});
  answer = false;
  SetClipboard("9\n9\n9");
  Click(1, 2);
  Key(Qt::Key_Insert);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  Key(Qt::Key_X, Qt::ControlModifier);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0));
  EXPECT_EQ(asked.size(), 5U);
  EXPECT_THAT(changed, IsEmpty());
  EXPECT_EQ(Clipboard(), "9\n9\n9");
}

TEST_F(SampleGridTest, DelInAnOpenEditorDeletesACharacter) {
  ShowSamples({125.0, 2.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  ASSERT_TRUE(Editor());
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Editor()->text(), QStringLiteral("25.000"));
  Key(Qt::Key_Return);
  EXPECT_THAT(acc, ElementsAre(25.0, 2.0));
}

TEST_F(SampleGridTest, InsInAnOpenEditorInsertsNoRow) {
  ShowSamples({125.0, 2.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  Key(Qt::Key_Insert);
  EXPECT_EQ(acc.size(), 2U);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SampleGridTest, CopyInAnOpenEditorTakesItsText) {
  ShowSamples({125.0, 2.0});
  Click(1, 2);
  Key(Qt::Key_F2);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "125.000");
}

// Clipboard

TEST_F(SampleGridTest, CopyTakesTheSelectedBlockWithAllDigits) {
  ShowSamples({1.23456, kBlank, 3.0});
  Click(1, 1);
  Click(3, 2, Qt::ShiftModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "0.00\t1.23456\n0.01\t\n0.02\t3\n");
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SampleGridTest, CutBlanksTheCellsAndKeepsTheirCount) {
  ShowSamples({1.0, 2.0, 3.0});
  Click(2, 2);
  Click(3, 2, Qt::ShiftModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, kBlank, kBlank));
  EXPECT_EQ(Clipboard(), "2\n3\n");
  EXPECT_THAT(asked, ElementsAre(GridChange{Action::Cut, {2, 2, 3, 2}}));
  EXPECT_EQ(changed, asked);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 3.0));
}

TEST_F(SampleGridTest, PasteOverwritesFromTheActiveCellAndAppends) {
  ShowSamples({1.0, 2.0, 3.0});
  SetClipboard("7\r\n\r\nabc\r\n１．５\r\n");
  Click(2, 2);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 7.0, kBlank, 0.0, 1.5));
  EXPECT_THAT(asked, ElementsAre(GridChange{Action::Paste, {2, 2, 5, 2}}));
  EXPECT_EQ(changed, asked);
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{2, 2, 5, 2}));
}

TEST_F(SampleGridTest, PasteTakesTwoColumnsSeparatedByCommas) {
  ShowSamples({1.0, 2.0});
  SetClipboard("0.00,5\n0.01,6\n");
  Click(1, 1);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(5.0, 6.0));
}

TEST_F(SampleGridTest, PasteStartsAtTheTopOfABlockThatWasSelectedUpwards) {
  ShowSamples({1.0, 2.0, 3.0});
  SetClipboard("9");
  Click(3, 2);
  Click(2, 2, Qt::ShiftModifier);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 9.0, 3.0));
}

TEST_F(SampleGridTest, PasteOfNothingAndPasteOnTheTimesAskNothing) {
  ShowSamples({1.0});
  Click(1, 2);
  Key(Qt::Key_V, Qt::ControlModifier);
  SetClipboard("7");
  Click(1, 1);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(asked, IsEmpty());
  EXPECT_THAT(acc, ElementsAre(1.0));
}

TEST_F(SampleGridTest, APasteOfSixtyThousandCellsIsOneChange) {
  ShowSamples({1.0});
  QString text;
  for (int i = 0; i < 60000; ++i) text += QString::number(i) + QLatin1Char('\n');
  QApplication::clipboard()->setText(text);
  Click(1, 2);
  Key(Qt::Key_V, Qt::ControlModifier);
  ASSERT_EQ(acc.size(), 60000U);
  EXPECT_EQ(acc.back(), 59999.0);
  EXPECT_EQ(asked.size(), 1U);
  EXPECT_EQ(changed.size(), 1U);
  EXPECT_EQ(grid.model()->rowCount(), 60000);
}

TEST_F(MixedGridTest, TextGridsDoNotSplitAtCommas) {
  grid.SetMenu(CSpread7::Menu::TextGrid);
  Show();
  SetClipboard("東京, 大手町");
  Click(1, 1);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("東京, 大手町"));
}

// Menus

std::vector<std::string> MenuTexts(const QWidget& grid) {
  std::vector<std::string> texts;
  for (const QAction* action : grid.findChild<QMenu*>()->actions())
    texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
  return texts;
}

TEST_F(Spread7Test, TheMenuHasFourForms) {
  grid.SetMenu(CSpread7::Menu::FullEdit);
  EXPECT_THAT(MenuTexts(grid), ElementsAre("挿入\tINS", "末尾に挿入\tCtrl+INS", "削除\tDEL", "-",
                                           "切り取り\tCtrl+X", "コピー\tCtrl+C", "貼り付け\tCtrl+V"));
  grid.SetMenu(CSpread7::Menu::TextGrid);
  EXPECT_THAT(MenuTexts(grid), ElementsAre("切り取り\tCtrl+X", "コピー\tCtrl+C", "貼り付け\tCtrl+V"));
  grid.SetMenu(CSpread7::Menu::NumberGrid);
  EXPECT_THAT(MenuTexts(grid), ElementsAre("コピー\tCtrl+C", "貼り付け\tCtrl+V"));
  grid.SetMenu(CSpread7::Menu::ReadOnly);
  EXPECT_THAT(MenuTexts(grid), ElementsAre("コピー\tCtrl+C"));
  EXPECT_EQ(grid.findChild<QMenu*>()->title(), QStringLiteral("値編集"));
  EXPECT_EQ(grid.actions().size(), 1);
}

TEST_F(SampleGridTest, AReadOnlyMenuHasNoKeysThatChange) {
  grid.SetMenu(CSpread7::Menu::ReadOnly);
  ShowSamples({1.0, 2.0});
  SetClipboard("7");
  Click(1, 2);
  Key(Qt::Key_Insert);
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0));
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SampleGridTest, TheMenuOpensUnderTheMouseAndByItsKey) {
  ShowSamples({1.0, 2.0});
  Click(2, 2);
  QMenu* const menu = grid.findChild<QMenu*>();
  std::vector<std::pair<int, int>> rightClicked;
  QObject::connect(&grid, &CSpread7::RightClicked,
                   [&](int row, int column) { rightClicked.emplace_back(row, column); });

  const QPoint spot = Middle(1, 2);
  QContextMenuEvent byMouse(QContextMenuEvent::Mouse, spot, grid.viewport()->mapToGlobal(spot));
  QApplication::sendEvent(grid.viewport(), &byMouse);
  EXPECT_TRUE(menu->isVisible());
  menu->hide();

  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(&grid, &byKey);
  ASSERT_TRUE(menu->isVisible());
  EXPECT_THAT(rightClicked, ElementsAre(std::pair(1, 2), std::pair(2, 2)));
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_THAT(acc, ElementsAre(1.0, 0.0, 2.0));
}

TEST_F(SampleGridTest, TheMenuOpensOverTheHeadersToo) {
  ShowSamples({1.0, 2.0, 3.0});
  QMenu* const menu = grid.findChild<QMenu*>();
  std::vector<std::pair<int, int>> rightClicked;
  QObject::connect(&grid, &CSpread7::RightClicked,
                   [&](int row, int column) { rightClicked.emplace_back(row, column); });
  const auto rightClick = [&](QHeaderView* header, int section) {
    const int along = header->sectionViewportPosition(section) + 5;
    const QPoint spot = header->orientation() == Qt::Vertical ? QPoint(5, along) : QPoint(along, 5);
    QTest::mousePress(header->viewport(), Qt::RightButton, {}, spot);
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, header->viewport()->mapToGlobal(spot));
    QApplication::sendEvent(header->viewport(), &event);
    QTest::mouseRelease(header->viewport(), Qt::RightButton, {}, spot);
    const bool opened = menu->isVisible();
    menu->hide();
    return opened;
  };
  // Rows that are selected stay so; another row is selected first, since the commands act on the selection.
  Click(1, 1);
  Click(2, 2, Qt::ShiftModifier);
  EXPECT_TRUE(rightClick(grid.verticalHeader(), 1));
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{1, 1, 2, 2}));
  EXPECT_TRUE(rightClick(grid.verticalHeader(), 2));
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{3, 1, 3, 2}));
  EXPECT_TRUE(rightClick(grid.horizontalHeader(), 1));
  EXPECT_EQ(grid.SelectedCells(), (GridBlock{1, 2, 3, 2}));
  EXPECT_THAT(rightClicked, ElementsAre(std::pair(2, 0), std::pair(3, 0), std::pair(0, 2)));
  EXPECT_TRUE(grid.hasFocus());
}

// Moving about

TEST_F(SampleGridTest, PagesAndEndsAreReachedByKeys) {
  ShowSamples(std::vector<double>(1000, 1.0));
  Click(1, 2);
  Key(Qt::Key_PageDown);
  const int page = grid.ActiveRow();
  EXPECT_GT(page, 2);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(grid.ActiveRow(), 1);
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid.ActiveRow(), 1000);
  EXPECT_EQ(grid.ActiveColumn(), 2);
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(grid.ActiveRow(), 1);
  EXPECT_EQ(grid.ActiveColumn(), 1);
}

TEST_F(SampleGridTest, RowsAreNeverSizedToTheirContents) {
  ShowSamples({1.0});
  EXPECT_EQ(grid.verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
}

// Long lists

/// 65,536 samples that count how often one is read.
class CountedRows : public NumberRows {
 public:
  using NumberRows::NumberRows;
  QString Text(int row, int column) const override {
    ++reads;
    return NumberRows::Text(row, column);
  }
  mutable int reads = 0;
};

TEST_F(Spread7Test, NothingButACommandForAllRowsReadsMoreThanTheVisibleOnes) {
  constexpr int kRows = 65536;
  constexpr int kMost = 1000;  // some twenty rows of two columns, painted a few times
  std::vector<double> acc(kRows, 1.5);
  const auto rows = std::make_shared<CountedRows>(std::vector<NumberRows::Column>{
      {QStringLiteral("時間"), nullptr, [](int index) { return 0.01 * index; }, 2, {}},
      {QStringLiteral("加速度"), [&] { return &acc; }, nullptr, 3, kBlank}});
  grid.SetMenu(CSpread7::Menu::FullEdit);
  Show();
  const auto expectFew = [&](const char* what, const auto& action) {
    rows->reads = 0;
    action();
    Settle();
    grid.repaint();
    EXPECT_LT(rows->reads, kMost) << what;
    EXPECT_GT(rows->reads, 0) << what;
  };
  expectFew("open", [&] { grid.SetData(rows); });
  grid.SelectCell(kRows / 2, 2);
  expectFew("down", [&] { Key(Qt::Key_Down); });
  expectFew("page", [&] { Key(Qt::Key_PageDown); });
  expectFew("last row", [&] { Key(Qt::Key_End, Qt::ControlModifier); });
  expectFew("scroll", [&] { grid.verticalScrollBar()->setValue(kRows / 3); });
  expectFew("edit", [&] {
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Return}) Key(key);
  });
  expectFew("insert", [&] { Key(Qt::Key_Insert); });
  expectFew("append", [&] { Key(Qt::Key_Insert, Qt::ControlModifier); });
  expectFew("delete", [&] { Key(Qt::Key_Delete); });
  expectFew("typing on a locked cell", [&] {
    grid.SelectCell(kRows / 2, 1);
    Key(Qt::Key_7);
  });
  expectFew("select all", [&] { Key(Qt::Key_A, Qt::ControlModifier); });
  expectFew("refresh", [&] { grid.Refresh(); });
  expectFew("delete all", [&] { Key(Qt::Key_Delete); });
  EXPECT_THAT(acc, IsEmpty());
}

// What others see of it

TEST_F(MixedGridTest, ScreenReadersHearColoursAndChecks) {
  grid.SetCheck(2, 4, true);
  QAccessibleInterface* const table = QAccessible::queryAccessibleInterface(&grid);
  ASSERT_TRUE(table && table->tableInterface());
  const auto cell = [&](int row, int column) { return table->tableInterface()->cellAt(row - 1, column - 1); };
  EXPECT_EQ(cell(1, 5)->text(QAccessible::Name), QStringLiteral("色 赤50 緑50 青255"));
  EXPECT_EQ(cell(1, 1)->text(QAccessible::Name), QStringLiteral("断層"));
  EXPECT_TRUE(cell(1, 4)->state().checkable);
  EXPECT_FALSE(cell(1, 4)->state().checked);
  EXPECT_TRUE(cell(2, 4)->state().checked);
}

TEST_F(MixedGridTest, ScreenReadersHearTheColumnAndStateOfACheckCell) {
  grid.SetCellText(0, 4, QStringLiteral("表示"));
  grid.SetCheck(2, 4, true);
  QAccessibleTableInterface* const table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  EXPECT_EQ(table->cellAt(0, 3)->text(QAccessible::Name), QStringLiteral("表示 オフ"));
  EXPECT_EQ(table->cellAt(1, 3)->text(QAccessible::Name), QStringLiteral("表示 オン"));
}

TEST_F(MixedGridTest, TheAccessibleActionOfACheckCellIsAClick) {
  grid.SetCellFormat(2, 4, Format(CellType::Check, true));
  Show();
  QAccessibleTableInterface* const table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  QAccessibleActionInterface* const cell = table->cellAt(0, 3)->actionInterface();
  ASSERT_TRUE(cell);
  for (const QString& action :
       {QAccessibleActionInterface::toggleAction(), QAccessibleActionInterface::pressAction()}) {
    ASSERT_TRUE(cell->actionNames().contains(action)) << action.toStdString();
    const bool before = grid.GetCheck(1, 4);
    cell->doAction(action);
    Settle();
    EXPECT_EQ(grid.GetCheck(1, 4), !before) << action.toStdString();
    EXPECT_EQ(table->cellAt(0, 3)->state().checked, !before);
  }
  EXPECT_THAT(clicked, ElementsAre(std::pair(1, 4), std::pair(1, 4)));
  EXPECT_THAT(asked,
              ElementsAre(GridChange{Action::Edit, {1, 4, 1, 4}}, GridChange{Action::Edit, {1, 4, 1, 4}}));
  EXPECT_EQ(changed, asked);
  answer = false;
  cell->doAction(QAccessibleActionInterface::toggleAction());
  Settle();
  EXPECT_FALSE(grid.GetCheck(1, 4));
  EXPECT_EQ(clicked.size(), 2U);

  QAccessibleActionInterface* const locked = table->cellAt(1, 3)->actionInterface();
  answer = true;
  locked->doAction(QAccessibleActionInterface::toggleAction());
  Settle();
  EXPECT_FALSE(grid.GetCheck(2, 4));
  EXPECT_EQ(clicked.size(), 2U);
}

TEST_F(MixedGridTest, PressedSwitchesAreCommandsWhereTheGridHasAGate) {
  test::ScriptedPrompt prompt;
  CommandGate gate(prompt);
  grid.SetCommandGate(gate);
  int dialogs = 0;
  grid.SetColorChooser([&](QWidget*, std::int32_t) {
    ++dialogs;
    return std::optional<std::int32_t>(0x00FF00);
  });
  Show();
  QAccessibleTableInterface* const table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  const auto press = [&](int row, int column) {
    table->cellAt(row - 1, column - 1)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
  };
  // Two that arrive together are two commands, one after the other.
  press(1, 4);
  press(2, 4);
  press(1, 5);
  Settle();
  EXPECT_TRUE(grid.GetCheck(1, 4));
  EXPECT_TRUE(grid.GetCheck(2, 4));
  EXPECT_EQ(grid.GetCellColor(1, 5), 0x00FF00);
  EXPECT_EQ(dialogs, 1);

  changed.clear();
  ASSERT_TRUE(gate.Run([&] {
    press(1, 4);
    Click(2, 4);
    Click(1, 5);
    grid.SelectCell(2, 4);
    Key(Qt::Key_Space);
  }));
  EXPECT_TRUE(grid.GetCheck(1, 4));
  EXPECT_TRUE(grid.GetCheck(2, 4));
  EXPECT_EQ(dialogs, 1);
  EXPECT_THAT(changed, IsEmpty());

  // A command takes the open entry first.
  grid.SelectCell(1, 1);
  Type("dam");
  ASSERT_TRUE(Editor());
  press(1, 4);
  Settle();
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
  EXPECT_FALSE(grid.GetCheck(1, 4));
}

TEST_F(MixedGridTest, EditorsAndMenuHaveNames) {
  Show();
  for (const int column : {1, 2, 3}) {
    grid.SetCellText(0, column, QStringLiteral("列%1").arg(column));
    grid.SelectCell(1, column);
    grid.SetEditMode(true);
    const auto* const editor = grid.viewport()->findChild<QWidget*>(QStringLiteral("cellEditor"));
    ASSERT_TRUE(editor) << column;
    EXPECT_EQ(editor->accessibleName(), QStringLiteral("列%1").arg(column));
    grid.SetEditMode(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  EXPECT_EQ(grid.findChild<QMenu*>()->objectName(), QStringLiteral("menu"));
  EXPECT_EQ(grid.findChild<QMenu*>()->accessibleName(), QStringLiteral("値編集"));
}

TEST_F(MixedGridTest, NoCellHoldsAWidgetUntilItIsEdited) {
  Show();
  for (int row = 1; row <= 2; ++row)
    for (int column = 1; column <= 6; ++column)
      EXPECT_EQ(grid.indexWidget(grid.model()->index(row - 1, column - 1)), nullptr) << row << ' ' << column;
  EXPECT_TRUE(grid.viewport()->findChildren<QWidget*>().isEmpty());
}

/// How much darker or lighter than its surroundings the darkest and lightest pixel of a cell's part is.
int ContrastIn(const QImage& image, const QRect& part) {
  int darkest = 255;
  int lightest = 0;
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x) {
      darkest = std::min(darkest, image.pixelColor(x, y).lightness());
      lightest = std::max(lightest, image.pixelColor(x, y).lightness());
    }
  return lightest - darkest;
}

TEST_F(MixedGridTest, TextAndArrowAreReadableOnEveryBackground) {
  const QPalette before = QApplication::palette();
  for (const QColor& back : {QColor(240, 240, 240), QColor(40, 40, 40)}) {
    QApplication::setPalette(QPalette(back));
    for (const bool ownSelection : {false, true}) {
      CSpread7 list;
      CellFormat format = Format(CellType::List);
      format.choices = {QStringLiteral("A")};
      list.SetSize(3, 1);
      list.SetColumnFormat(1, format);
      for (int row = 1; row <= 3; ++row) list.SetCellText(row, 1, QStringLiteral("A"));
      list.SetBackColor({3, 1, 3, 1}, 0xCFFFFF);
      if (ownSelection) list.SetSelectionColor(0xCFFFFF);
      list.SelectCell(2, 1);
      const QImage image = list.viewport()->grab().toImage();
      for (int row = 1; row <= 3; ++row) {
        const QRect cell = list.visualRect(list.model()->index(row - 1, 0)).adjusted(3, 3, -3, -3);
        EXPECT_GT(ContrastIn(image, QRect(cell.topLeft(), QSize(12, cell.height()))), 80)
            << row << ownSelection;
        EXPECT_GT(ContrastIn(image, QRect(cell.right() - 10, cell.top(), 10, cell.height())), 80)
            << back.name().toStdString() << ' ' << row << ownSelection;
      }
    }
  }
  QApplication::setPalette(before);
}

TEST_F(MixedGridTest, ColoursOfCellsAreSetByBlock) {
  grid.SetBackColor({1, 1, 2, 1}, 0x000000);
  grid.SetTextColor({1, 2, 1, 2}, 0x8000FF);
  const auto role = [&](int row, int column, Qt::ItemDataRole which) {
    return grid.model()->index(row - 1, column - 1).data(which).value<QColor>();
  };
  EXPECT_EQ(role(2, 1, Qt::BackgroundRole), QColor(Qt::black));
  EXPECT_EQ(role(2, 1, Qt::ForegroundRole), QColor(Qt::white));
  EXPECT_EQ(role(1, 2, Qt::ForegroundRole), QColor(255, 0, 128));
  EXPECT_FALSE(role(2, 2, Qt::ForegroundRole).isValid());
  grid.SetBackColor({-1, 1, -1, 1}, std::nullopt);
  EXPECT_FALSE(role(2, 1, Qt::BackgroundRole).isValid());
}

TEST_F(MixedGridTest, ACutOffTextIsToldByATip) {
  grid.SetCellText(1, 1, QStringLiteral("糸魚川－静岡構造線断層帯 <中北部>"));
  Show();
  const auto tip = [&](int row, int column) {
    QHelpEvent event(QEvent::ToolTip, Middle(row, column), grid.viewport()->mapToGlobal(Middle(row, column)));
    QApplication::sendEvent(grid.viewport(), &event);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(tip(1, 1), "<qt>糸魚川－静岡構造線断層帯 &lt;中北部&gt;</qt>");
  tip(2, 1);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
  EXPECT_EQ(tip(1, 5), "色 赤50 緑50 青255");
}

TEST_F(SampleGridTest, ACutOffTitleIsToldByATip) {
  ShowSamples({1.0, 2.0});
  grid.SetColumnWidth(2, 30);
  const auto tip = [&](int column) {
    const QHeaderView* const titles = grid.horizontalHeader();
    const QPoint spot(titles->sectionViewportPosition(column - 1) + 5, 5);
    QHelpEvent event(QEvent::ToolTip, spot, titles->viewport()->mapToGlobal(spot));
    QApplication::sendEvent(titles->viewport(), &event);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(tip(2), "<qt>加速度</qt>");
  tip(1);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(Spread7Test, ACutOffRowTitleIsToldByATip) {
  grid.SetSize(2, 1);
  grid.SetCellText(1, 0, QStringLiteral("(水平)H20ダム距離減衰"));
  grid.SetColumnWidth(0, 40);
  Show();
  QWidget* const rows = grid.verticalHeader()->viewport();
  QHelpEvent event(QEvent::ToolTip, {5, 5}, rows->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(rows, &event);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("<qt>(水平)H20ダム距離減衰</qt>"));
}

QStringList& Warnings() {
  static QStringList warnings;
  return warnings;
}

TEST_F(Spread7Test, CellsSpanAndSpansCanBeCleared) {
  Warnings().clear();
  const QtMessageHandler before = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& text) { Warnings() << text; });
  grid.SetSize(4, 3);
  grid.SetSpan(2, 1, 3, 1);
  grid.SetSpan(1, 1, 1, 1);
  EXPECT_EQ(grid.rowSpan(1, 0), 3);
  EXPECT_EQ(grid.rowSpan(0, 0), 1);
  grid.SetSpan(2, 1, 1, 1);
  EXPECT_EQ(grid.rowSpan(1, 0), 1);
  grid.SetSpan(2, 1, 3, 1);
  grid.SetSpan(1, 2, 2, 2);
  grid.clearSpans();
  EXPECT_EQ(grid.rowSpan(1, 0), 1);
  EXPECT_EQ(grid.columnSpan(0, 1), 1);
  grid.clearSpans();
  qInstallMessageHandler(before);
  EXPECT_TRUE(Warnings().isEmpty()) << Warnings().join(u'\n').toStdString();
}

}  // namespace
}  // namespace tremlo
