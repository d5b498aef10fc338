#include "support/PaletteChange.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/PendingEntry.h"
#include "window/graphs/Spread7.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

/// A dialog with two fields, a tool button that takes no focus, and OK and Cancel.
class ExpEditTest : public testing::Test {
 protected:
  ExpEditTest() {
    auto* const layout = new QVBoxLayout(&dialog);
    for (QWidget* widget : std::initializer_list<QWidget*>{&edit, &next, &tool, &buttons})
      layout->addWidget(widget);
    ok = buttons.addButton(QStringLiteral("OK(&O)"), QDialogButtonBox::AcceptRole);
    cancel = buttons.addButton(QStringLiteral("キャンセル(&C)"), QDialogButtonBox::RejectRole);
    QObject::connect(&buttons, &QDialogButtonBox::accepted, [this] { ++accepted; });
    QObject::connect(&buttons, &QDialogButtonBox::rejected, [this] { ++rejected; });
    QObject::connect(&tool, &QToolButton::clicked, [this] { ++toolClicks; });
    QObject::connect(&edit, &CExpEdit::Entered, [this] { entered.push_back(edit.GetText().toStdString()); });
    QObject::connect(&edit, &CExpEdit::Abandoned, [this] { ++abandoned; });
    edit.SetShowWarning([this](QWidget*, const QString& title, const QString& text) {
      boxes.push_back(title.toStdString() + ": " + text.toStdString());
    });
    QApplication::clipboard()->clear();
  }

  void Show(EntryKind kind, double low, double high, std::int32_t decimals = 0) {
    edit.SetKind(kind);
    edit.SetLimits(low, high);
    edit.SetDecimals(decimals);
    Show();
  }
  void Show() {
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    next.setFocus();
    edit.setFocus();
    ASSERT_TRUE(edit.hasFocus());
  }
  void Type(const char* text) { QTest::keyClicks(&edit, QString::fromUtf8(text)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, keys);
    Settle();
  }
  void Click(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton);
    Settle();
  }
  void Commit(const char* text) {
    QInputMethodEvent input;
    input.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&edit, &input);
  }
  std::string Text() const { return edit.GetText().toStdString(); }

  QDialog dialog;
  CExpEdit edit, next;
  QToolButton tool;
  QDialogButtonBox buttons;
  QPushButton* ok = nullptr;
  QPushButton* cancel = nullptr;
  int accepted = 0, rejected = 0, toolClicks = 0, abandoned = 0;
  std::vector<std::string> entered, boxes;
};

const std::string kNoNumberBox = "入力確認: 値が正しくありません。\n\n（数値を入力してください。）";

// Typing

TEST_F(ExpEditTest, KeysThatAreNoPartOfTheNumberAreDropped) {
  Show(EntryKind::Decimal, kNoNumber, kNoNumber, 2);
  Type("a-1b.2.3-");
  EXPECT_EQ(Text(), "-1.23");
}

TEST_F(ExpEditTest, EditingKeysWorkInANumberField) {
  Show(EntryKind::Integer, kNoIntegerLimit, kNoIntegerLimit);
  Type("123");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Text(), "12");
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("12"));
  Type("-");
  EXPECT_EQ(Text(), "-");
}

TEST_F(ExpEditTest, AnInputMethodIsFilteredToo) {
  Show(EntryKind::Integer, kNoIntegerLimit, kNoIntegerLimit);
  Commit("１２断３");
  EXPECT_EQ(Text(), "123");
  edit.SetKind(EntryKind::Text);
  edit.SetMaxBytes(6);
  Commit("断層");
  EXPECT_EQ(Text(), "123断");
}

TEST_F(ExpEditTest, TwoBytesHoldOneDoubleByteCharacterOrTwoSingleOnes) {
  edit.SetMaxBytes(2);
  Show();
  Commit("断層");
  EXPECT_EQ(Text(), "断");
  Key(Qt::Key_A, Qt::ControlModifier);
  Type("abc");
  EXPECT_EQ(Text(), "ab");
}

TEST_F(ExpEditTest, APasteIsTakenWholeOrNotAtAll) {
  edit.SetMaxBytes(4);
  Show();
  QApplication::clipboard()->setText(QStringLiteral("abcde"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Text(), "");
  QApplication::clipboard()->setText(QStringLiteral("abcd\nnext line"));
  Key(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(Text(), "abcd");
}

TEST_F(ExpEditTest, TheContextMenuPastesByTheSameRule) {
  edit.SetMaxBytes(4);
  Show();
  QApplication::clipboard()->setText(QStringLiteral("abcde"));
  const auto pasteByMenu = [&] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&edit, &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_P);
    Settle();
  };
  pasteByMenu();
  EXPECT_EQ(Text(), "");
  QApplication::clipboard()->setText(QStringLiteral("abcd"));
  pasteByMenu();
  EXPECT_EQ(Text(), "abcd");
}

TEST_F(ExpEditTest, ADropIsTakenByTheSameRuleAndBringsTheFocus) {
  edit.SetMaxBytes(4);
  Show();
  next.setFocus();
  const auto drop = [&](const char* text) {
    QMimeData data;
    data.setText(QString::fromUtf8(text));
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &enter);
    QDropEvent event(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &event);
  };
  drop("abcde");
  EXPECT_EQ(Text(), "");
  drop("abcd");
  EXPECT_EQ(Text(), "abcd");
  EXPECT_TRUE(edit.hasFocus());
  Key(Qt::Key_Tab);
  EXPECT_THAT(entered, ElementsAre("abcd"));
}

TEST_F(ExpEditTest, AReadOnlyFieldFollowsAChangeOfThePalette) {
  const QPalette before = QApplication::palette();
  Show();
  edit.setReadOnly(true);
  QApplication::setPalette(QPalette(QColor(40, 40, 40)));
  Settle();
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
  EXPECT_EQ(edit.palette().color(QPalette::Text), QApplication::palette().color(QPalette::WindowText));
  QApplication::setPalette(before);
  Settle();
  EXPECT_EQ(edit.palette().color(QPalette::Base), before.color(QPalette::Window));
}

TEST_F(ExpEditTest, ADecimalFieldRefusesANumberBeyondTheDoubles) {
  Show(EntryKind::Decimal, kNoNumber, kNoNumber, 2);
  edit.SetNumber(1.5);
  edit.setFocus();
  edit.selectAll();
  Type(std::string(400, '9').c_str());
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes, ElementsAre("入力確認: 値が正しくありません。\n\n（数値を入力してください。）"));
  EXPECT_EQ(Text(), "1.50");
}

// Focus

TEST_F(ExpEditTest, AllIsSelectedWhenTheFocusComes) {
  edit.SetText(QStringLiteral("0.01"));
  Show();
  EXPECT_EQ(edit.selectedText(), QStringLiteral("0.01"));
  next.setFocus();
  Click(&edit);
  EXPECT_EQ(edit.selectedText(), QStringLiteral("0.01"));
  Click(&edit);
  EXPECT_EQ(edit.selectedText(), QString());
}

TEST_F(ExpEditTest, NothingIsSelectedWhereThatIsOff) {
  edit.SetSelectAllOnFocus(false);
  edit.SetText(QStringLiteral("0.01"));
  Show();
  next.setFocus();
  Click(&edit);
  EXPECT_EQ(edit.selectedText(), QString());
}

TEST_F(ExpEditTest, TheAccessibilityBusCannotWriteIntoAReadOnlyField) {
  edit.setReadOnly(true);
  edit.SetText(QStringLiteral("512"));
  QAccessible::queryAccessibleInterface(&edit)->setText(QAccessible::Value, QStringLiteral("8"));
  EXPECT_EQ(edit.text(), "512");
  edit.SetText(QStringLiteral("64"));
  EXPECT_EQ(edit.text(), "64");
}

TEST_F(ExpEditTest, WhatTheAccessibilityBusWritesWithoutTheFocusIsEntered) {
  edit.SetText(QStringLiteral("4"));
  Show(EntryKind::Integer, 0, 10);
  next.setFocus();
  QAccessible::queryAccessibleInterface(&edit)->setText(QAccessible::Value, QStringLiteral("8"));
  Settle();
  EXPECT_THAT(entered, ElementsAre("8"));
  QAccessible::queryAccessibleInterface(&edit)->setText(QAccessible::Value, QStringLiteral("88"));
  Settle();
  EXPECT_THAT(entered, ElementsAre("8"));
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_EQ(edit.text(), "8");
}

TEST_F(ExpEditTest, WhatTheAccessibilityBusWritesJustBeforeAQuestionIsNotEnteredBehindIt) {
  edit.SetText(QStringLiteral("4"));
  Show(EntryKind::Integer, 0, 10);
  next.setFocus();
  QAccessible::queryAccessibleInterface(&edit)->setText(QAccessible::Value, QStringLiteral("8"));
  EXPECT_EQ(edit.text(), "8");
  QDialog question(&dialog);
  QTimer::singleShot(0, &question, &QDialog::accept);
  question.exec();
  Settle();
  EXPECT_EQ(edit.text(), "4");
  EXPECT_THAT(entered, IsEmpty());
}

TEST_F(ExpEditTest, WhatTheAccessibilityBusWritesIntoTheOpenFieldWaitsUntilItIsLeft) {
  Show(EntryKind::Integer, 0, 10);
  Click(&edit);
  QAccessible::queryAccessibleInterface(&edit)->setText(QAccessible::Value, QStringLiteral("8"));
  Settle();
  EXPECT_THAT(entered, IsEmpty());
  next.setFocus();
  EXPECT_THAT(entered, ElementsAre("8"));
}

TEST_F(ExpEditTest, AReadOnlyFieldPassesTheFocusOn) {
  edit.setReadOnly(true);
  dialog.show();
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  edit.setFocus();
  EXPECT_TRUE(next.hasFocus());
  Click(&edit);
  EXPECT_TRUE(next.hasFocus());
  EXPECT_EQ(edit.cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
  edit.setReadOnly(false);
  EXPECT_EQ(edit.cursor().shape(), Qt::IBeamCursor);
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
  Click(&edit);
  EXPECT_TRUE(edit.hasFocus());
}

TEST_F(ExpEditTest, ALongTextIsShownFromItsBeginning) {
  edit.setFixedWidth(60);
  Show();
  const auto firstShown = [this] {
    edit.grab();  // a field scrolls as it is painted
    return edit.cursorPositionAt({0, edit.height() / 2});
  };
  edit.SetText(QStringLiteral("0.0033333333333333335"));
  EXPECT_EQ(firstShown(), 0) << "its end would be another number";
  edit.setReadOnly(true);
  edit.SetText(QStringLiteral("0.0016666666666666668"));
  EXPECT_EQ(firstShown(), 0);
}

TEST_F(ExpEditTest, ColoursAreThoseSet) {
  edit.SetColors(Qt::red, Qt::yellow);
  EXPECT_EQ(edit.palette().color(QPalette::Text), QColor(Qt::red));
  EXPECT_EQ(edit.palette().color(QPalette::Base), QColor(Qt::yellow));
  edit.SetColors({}, {});
  EXPECT_EQ(edit.palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
}

TEST_F(ExpEditTest, AReadOnlyFieldFollowsThePalette) {
  test::PaletteChange palette;
  edit.setReadOnly(true);
  palette.ToDark();
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
  EXPECT_EQ(edit.palette().color(QPalette::Text), QApplication::palette().color(QPalette::WindowText));
  palette.Back();
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
  edit.setReadOnly(false);
  palette.ToDark();
  EXPECT_EQ(edit.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
}

// Leaving

TEST_F(ExpEditTest, AGoodEntryIsToldOnceWithItsDecimals) {
  Show(EntryKind::Decimal, 0.0, 100.0, 2);
  Type("5");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text(), "5.00");
  EXPECT_THAT(entered, ElementsAre("5.00"));
  EXPECT_TRUE(next.hasFocus());
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ExpEditTest, AFieldLeftUnchangedTellsNothing) {
  edit.SetText(QStringLiteral("abc"));
  Show();
  Key(Qt::Key_Tab);
  EXPECT_THAT(entered, IsEmpty());
}

TEST_F(ExpEditTest, WhatTheProgramSetsIsNotCheckedAndTellsNothing) {
  Show(EntryKind::Integer, 0.0, 10.0);
  edit.SetNumber(99.0);
  EXPECT_FALSE(edit.IsDirty());
  Key(Qt::Key_Tab);
  EXPECT_THAT(entered, IsEmpty());
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ExpEditTest, AnEmptyFieldReadsAsItsEmptyValueAndShowsEmptyAgain) {
  Show(EntryKind::Decimal, 0.0, 100.0, 2);
  Type("5");
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Tab);
  EXPECT_EQ(edit.GetNumber(), -9e32);
  EXPECT_EQ(Text(), "");
  EXPECT_THAT(boxes, IsEmpty());
  edit.SetNumber(-9e32);
  EXPECT_EQ(Text(), "");
}

TEST_F(ExpEditTest, ABadEntryIsToldOnceAndTextAndFocusComeBack) {
  edit.SetText(QStringLiteral("5.00"));
  Show(EntryKind::Decimal, 0.0, 100.0, 2);
  Type("3.14159");
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes,
              ElementsAre("入力確認: 少数桁がオーバーしています。\n\n（少数 2桁 以内で入力してください。）"));
  EXPECT_EQ(Text(), "5.00");
  EXPECT_TRUE(edit.hasFocus());
  EXPECT_THAT(entered, IsEmpty());
  Key(Qt::Key_Tab);
  EXPECT_TRUE(next.hasFocus());
  EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(ExpEditTest, LimitsStandInTheMessageWithTheFieldsDecimals) {
  Show(EntryKind::Decimal, 0.0, 100.0, 1);
  Type("101");
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes,
              ElementsAre("入力確認: 数値が範囲外です。\n\n（0.0 ～ 100.0 までの範囲で入力してください。）"));
}

TEST_F(ExpEditTest, ThousandsAreAskedForByNegativeDecimals) {
  Show(EntryKind::Decimal, kNoNumber, kNoNumber, -3);
  Type("12345");
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes, ElementsAre("入力確認: 整数部下 3桁 はゼロで入力してください。"));
  Type("12000");
  Key(Qt::Key_Tab);
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_THAT(entered, ElementsAre("12000"));
}

TEST_F(ExpEditTest, APastedTextIsCheckedWhenTheFieldIsLeft) {
  Show(EntryKind::Integer, kNoIntegerLimit, kNoIntegerLimit);
  QApplication::clipboard()->setText(QStringLiteral("1-2"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Text(), "1-2");
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes, ElementsAre(kNoNumberBox));
}

TEST_F(ExpEditTest, ALoneMinusReadsAsZero) {
  Show(EntryKind::Decimal, -1.0, 1.0, 1);
  Type("-");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text(), "0.0");
  EXPECT_THAT(entered, ElementsAre("0.0"));
}

TEST_F(ExpEditTest, TheContextMenuDoesNotLeaveTheField) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(&edit, &event);
  ASSERT_TRUE(QApplication::activePopupWidget());
  Settle();
  EXPECT_THAT(boxes, IsEmpty());
  QApplication::activePopupWidget()->close();
  Settle();
  EXPECT_TRUE(edit.IsDirty());
  Key(Qt::Key_Tab);
  EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(ExpEditTest, TheOwnerMayRefuse) {
  edit.SetOwnerCheck([](const QString& text) {
    return text.isEmpty() ? QStringLiteral("時間間隔の入力エラーです。") : QString();
  });
  edit.SetText(QStringLiteral("0.01"));
  Show();
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Tab);
  EXPECT_THAT(boxes, ElementsAre("Tremlo: 時間間隔の入力エラーです。"));
  EXPECT_EQ(Text(), "0.01");
  EXPECT_TRUE(edit.hasFocus());
  Type("0.02");
  Key(Qt::Key_Tab);
  EXPECT_THAT(entered, ElementsAre("0.02"));
}

TEST_F(ExpEditTest, TheStandardBoxShowsTheTextAsItStands) {
  edit.SetShowWarning(ShowWarningBox);
  Show(EntryKind::Integer, kNoIntegerLimit, kNoIntegerLimit);
  QApplication::clipboard()->setText(QStringLiteral("1-2"));
  QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
  std::vector<std::string> seen;
  // The box runs an event loop of its own.
  QTimer watcher;
  QObject::connect(&watcher, &QTimer::timeout, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    seen = {box->windowTitle().toStdString(), box->text().toStdString()};
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    watcher.stop();
    QTest::keyClick(box, Qt::Key_Return);
  });
  watcher.start(1);
  QTest::keyClick(&edit, Qt::Key_Tab);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !seen.empty() && Text().empty(); }));
  EXPECT_THAT(seen, ElementsAre("入力確認", "値が正しくありません。\n\n（数値を入力してください。）"));
  EXPECT_EQ(dialog.focusWidget(), &edit);
}

// Buttons

TEST_F(ExpEditTest, AButtonPressedWhileTheFieldIsBadDoesNotAct) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Click(ok);
  EXPECT_EQ(accepted, 0);
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_FALSE(ok->isDown());
  EXPECT_TRUE(edit.hasFocus());
  Type("9");
  Click(ok);
  EXPECT_EQ(accepted, 1);
  EXPECT_THAT(entered, ElementsAre("9"));
}

TEST_F(ExpEditTest, AButtonThatTakesNoFocusDoesNotActEither) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Click(&tool);
  EXPECT_EQ(toolClicks, 0);
  EXPECT_EQ(boxes.size(), 1U);
  Type("9");
  Click(&tool);
  EXPECT_EQ(toolClicks, 1);
  EXPECT_THAT(entered, ElementsAre("9"));
}

TEST_F(ExpEditTest, AButtonsKeyDoesNotActEither) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Key(Qt::Key_O, Qt::AltModifier);
  EXPECT_EQ(accepted, 0);
  EXPECT_EQ(boxes.size(), 1U);
  Type("9");
  Key(Qt::Key_O, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return accepted == 1; }));
  EXPECT_THAT(entered, ElementsAre("9"));
}

TEST_F(ExpEditTest, ReturnDoesNotPressTheDefaultButtonOfABadField) {
  ok->setDefault(true);
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Key(Qt::Key_Return);
  EXPECT_EQ(accepted, 0);
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(edit.EnterPressed());
  EXPECT_TRUE(edit.hasFocus());
  Type("9");
  Key(Qt::Key_Return);
  EXPECT_EQ(accepted, 1);
  EXPECT_THAT(entered, ElementsAre("9"));
  Key(Qt::Key_Tab);
  EXPECT_EQ(entered.size(), 1U);
}

TEST_F(ExpEditTest, TheCancelButtonActsAndLeavesABadValueWithoutComplaint) {
  Show(EntryKind::Text, kNoNumber, kNoNumber);
  edit.SetOwnerCheck([](const QString&) { return QStringLiteral("入力エラーです。"); });
  Type("99");
  Click(cancel);
  EXPECT_EQ(rejected, 1);
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_EQ(Text(), "99");
  EXPECT_THAT(entered, IsEmpty());
  EXPECT_EQ(abandoned, 1);
}

TEST_F(ExpEditTest, TabbingToTheCancelButtonIsNoComplaintEither) {
  QWidget::setTabOrder(&edit, cancel);
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Key(Qt::Key_Tab);
  EXPECT_TRUE(cancel->hasFocus());
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_EQ(Text(), "99");
}

TEST_F(ExpEditTest, TheCancelButtonsKeyActs) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Key(Qt::Key_C, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return rejected == 1; }));
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ExpEditTest, AnyButtonCanBeTheCancelButton) {
  tool.setFocusPolicy(Qt::StrongFocus);
  edit.SetCancelButton(&tool);
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  Click(&tool);
  EXPECT_EQ(toolClicks, 1);
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ExpEditTest, EscapeLeavesTheFieldWithoutACheck) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  QTest::keyClick(&edit, Qt::Key_Escape);
  Settle();
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_THAT(entered, IsEmpty());
  EXPECT_EQ(abandoned, 1);
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(ExpEdit, WhatIsTypedBehindEscapeIsAnEntryAgain) {
  QWidget screen;  // Escape closes no screen
  CExpEdit edit(&screen);
  CExpEdit next(&screen);
  int entered = 0;
  int abandoned = 0;
  QObject::connect(&edit, &CExpEdit::Entered, [&] { ++entered; });
  QObject::connect(&edit, &CExpEdit::Abandoned, [&] { ++abandoned; });
  screen.show();
  screen.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
  edit.setFocus();
  QTest::keyClicks(&edit, QStringLiteral("8"));
  QTest::keyClick(&edit, Qt::Key_Escape);
  QTest::keyClicks(&edit, QStringLiteral("9"));
  QTest::keyClick(&edit, Qt::Key_Tab);
  EXPECT_EQ(entered, 1);
  edit.setFocus();
  QTest::keyClicks(&edit, QStringLiteral("7"));
  QTest::keyClick(&edit, Qt::Key_Escape);
  QTest::keyClick(&edit, Qt::Key_Tab);
  EXPECT_EQ(entered, 1);
  EXPECT_EQ(abandoned, 1);
}

TEST_F(ExpEditTest, ADialogThatClosesOnABadFieldShowsNoBox) {
  Show(EntryKind::Integer, 0.0, 10.0);
  Type("99");
  dialog.close();
  Settle();
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_THAT(entered, IsEmpty());
}

TEST_F(ExpEditTest, ABoxThatTheOwnerOpensTakesThePressThatLedToIt) {
  Show(EntryKind::Integer, 0.0, 10.0);
  int questions = 0;
  QObject::connect(&edit, &CExpEdit::Entered, [&] {
    ++questions;
    QDialog question(&dialog);
    QTimer::singleShot(0, &question, &QDialog::accept);
    question.exec();
  });
  Type("9");
  Click(ok);
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(accepted, 0);
  EXPECT_FALSE(ok->isDown());
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  Click(ok);
  EXPECT_EQ(accepted, 1);
}

// Commands that come without the focus moving

TEST_F(ExpEditTest, APendingEntryIsTakenBeforeACommand) {
  Show(EntryKind::Integer, 0.0, 10.0);
  EXPECT_TRUE(FinishPendingEntry());
  Type("9");
  EXPECT_TRUE(FinishPendingEntry());
  EXPECT_THAT(entered, ElementsAre("9"));
  Type("9");
  EXPECT_FALSE(FinishPendingEntry());
  Settle();
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_EQ(Text(), "9");
}

TEST(PendingEntry, AnOpenCellEditorIsTakenToo) {
  CSpread7 grid;
  grid.SetSize(1, 1);
  grid.show();
  grid.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
  grid.SelectCell(1, 1);
  grid.setFocus();
  QTest::keyClick(&grid, Qt::Key_F2);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("dam"));
  EXPECT_TRUE(FinishPendingEntry());
  EXPECT_EQ(grid.GetCellText(1, 1), QStringLiteral("dam"));
}

}  // namespace
}  // namespace tremlo
