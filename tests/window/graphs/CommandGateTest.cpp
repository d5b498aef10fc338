#include "support/ScreenDriver.h"
#include "support/ScriptedPrompt.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/ModalWindow.h"
#include "window/graphs/Screen.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QMainWindow>
#include <QPushButton>

#include <new>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NotingScreen : public Screen {
 public:
  explicit NotingScreen(QStringList& log) : m_log(log) {}
  void CommandBegins() override { m_log << "begins"; }
  void CommandEnded() override { m_log << "ended"; }
  void Refresh() override {}

 private:
  QStringList& m_log;
};

class CommandGateTest : public testing::Test {
 protected:
  CommandGateTest() {
    gate.SetScreenOnDisplay([this] { return onDisplay; });
  }
  bool Run(const QString& name = "command") {
    return gate.Run([this, name] { log << name; });
  }

  QStringList log;
  ScriptedPrompt prompt{&log};
  NotingScreen screen{log};
  NotingScreen other{log};
  Screen* onDisplay = &screen;
  CommandGate gate{prompt};
};

TEST_F(CommandGateTest, TheScreenIsToldBeforeACommandAndAfterIt) {
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("begins", "command", "ended"));
}

TEST_F(CommandGateTest, AScreenThatHasLeftTheDisplayIsNotToldOfTheEnd) {
  EXPECT_TRUE(gate.Run([this] { onDisplay = &other; }));
  EXPECT_THAT(log, ElementsAre("begins"));
}

class BusPressTest : public CommandGateTest {
 protected:
  BusPressTest() {
    QObject::connect(&button, &QPushButton::clicked, &window, [this] {
      ++clicks;
      Run();
    });
    window.show();
  }
  void Press() {
    QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
  }
  bool Clicks(int count) {
    return QTest::qWaitFor([&] { return clicks == count; });
  }

  QMainWindow window;
  QPushButton button{&window};
  int clicks = 0;
};

TEST_F(BusPressTest, BehindADialogDoesNothingOnceTheDialogHasGone) {
  {
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    Press();
  }
  EXPECT_TRUE(Clicks(1));
  EXPECT_THAT(log, IsEmpty());
  Press();
  EXPECT_TRUE(Clicks(2));
  EXPECT_THAT(log, ElementsAre("begins", "command", "ended"));
}

TEST_F(BusPressTest, DoesNothingOnceTheButtonHasLeftTheDisplay) {
  Press();
  button.hide();
  EXPECT_TRUE(Clicks(1));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CommandGateTest, WithoutAScreenACommandRunsToo) {
  onDisplay = nullptr;
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("command"));
}

TEST_F(CommandGateTest, NoCommandRunsWithinAnother) {
  EXPECT_TRUE(gate.Run([this] { EXPECT_FALSE(Run("inner")); }));
  EXPECT_THAT(log, ElementsAre("begins", "ended"));
  EXPECT_TRUE(Run("next"));
}

TEST_F(CommandGateTest, NoCommandRunsBehindADialog) {
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  EXPECT_FALSE(Run());
  EXPECT_THAT(log, IsEmpty());
  dialog.hide();
  EXPECT_TRUE(Run());
}

/// The program's event loop, and in it a dialog that is answered while a command waits in the same batch.
TEST_F(CommandGateTest, ACommandThatComesWithTheAnswerOfADialogIsRefused) {
  QEventLoop program;
  QTimer::singleShot(0, &program, [&] {
    QDialog dialog;
    QTimer::singleShot(0, &dialog, [&] {
      QMetaObject::invokeMethod(
          &dialog, [&] { log << (Run() ? "ran" : "refused"); }, Qt::QueuedConnection);
      dialog.accept();
      EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
      QCoreApplication::sendPostedEvents(&dialog);
    });
    dialog.exec();
    log << "answered";
    EXPECT_TRUE(Run("next"));
    program.quit();
  });
  program.exec();
  EXPECT_THAT(log, ElementsAre("refused", "answered", "begins", "next", "ended"));
}

TEST_F(CommandGateTest, AClosedGateLetsNothingThrough) {
  gate.Close();
  EXPECT_FALSE(Run());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CommandGateTest, MemoryThatRunsShortIsToldAndTheNextCommandRuns) {
  for (const bool length : {false, true}) {
    prompt.ExpectMessage("メモリが不足しているため、処理を中止しました。");
    EXPECT_TRUE(gate.Run([&] { length ? throw std::length_error("vector") : throw std::bad_alloc(); }));
    EXPECT_THAT(log, ElementsAre("begins", "box", "ended"));
    log.clear();
  }
  prompt.ExpectMessage("予期せぬエラーが発生したため、処理を中止しました。");
  EXPECT_TRUE(gate.Run([] { throw std::out_of_range("map"); }));
  log.clear();
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("begins", "command", "ended"));
}

/// A field with text that has not been taken yet.
class OpenEntry : public CommandGateTest {
 protected:
  OpenEntry() {
    field.SetOwnerCheck([](const QString& text) { return text == "bad" ? QString("wrong") : QString(); });
    field.SetShowWarning([this](QWidget*, const QString&, const QString&) { log << "told"; });
    QObject::connect(&field, &CExpEdit::Entered, &field, [this] { log << field.GetText(); });
    window.resize(200, 60);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
  }

  QWidget window;
  CExpEdit field{&window};
};

TEST_F(OpenEntry, IsTakenBeforeTheCommandBegins) {
  QTest::keyClicks(&field, "dam");
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("dam", "begins", "command", "ended"));
}

TEST_F(OpenEntry, ThatIsRefusedStopsTheCommand) {
  QTest::keyClicks(&field, "bad");
  EXPECT_FALSE(Run());
  Settle();
  EXPECT_THAT(log, ElementsAre("told"));
}

TEST_F(OpenEntry, LetsNoOtherCommandThroughWhileItIsTaken) {
  QObject::connect(&field, &CExpEdit::Entered, &field, [this] { EXPECT_FALSE(Run("inner")); });
  QTest::keyClicks(&field, "dam");
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("dam", "begins", "command", "ended"));
}

TEST_F(OpenEntry, IsTakenThoughAnotherProgramIsInFront) {
  QMainWindow frame;
  frame.setCentralWidget(new QWidget);
  field.setParent(frame.centralWidget());
  frame.show();
  frame.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
  field.setFocus();
  QApplication::setActiveWindow(nullptr);
  field.setText("by the bus");
  EXPECT_TRUE(Run());
  EXPECT_THAT(log, ElementsAre("by the bus", "begins", "command", "ended"));
  field.setParent(&window);
}

// --- Behind a dialog ---

TEST(ModalWindow, ControlsOfOtherWindowsAreBehindTheDialogAndItsOwnAreNot) {
  QWidget frame;
  QLineEdit behind(&frame);
  EXPECT_FALSE(IsBehindModalWindow(&behind));
  QDialog dialog(&frame);
  QComboBox own(&dialog);
  dialog.setModal(true);
  dialog.show();
  EXPECT_TRUE(IsBehindModalWindow(&behind));
  EXPECT_FALSE(IsBehindModalWindow(&own));
  EXPECT_FALSE(IsBehindModalWindow(own.view())) << "a list that opens is a window of its own";
  QDialog box(&dialog);
  box.setModal(true);
  box.show();
  EXPECT_TRUE(IsBehindModalWindow(&own));
  box.hide();
  dialog.hide();
  EXPECT_FALSE(IsBehindModalWindow(&behind));
}

TEST(ModalWindow, TextThatTheBusPutsIntoAFieldBehindADialogIsPutBack) {
  QWidget frame;
  CExpEdit field(&frame);
  int entered = 0;
  QObject::connect(&field, &CExpEdit::Entered, &field, [&] { ++entered; });
  field.SetText("0.01");
  frame.show();
  QDialog dialog(&frame);
  dialog.setModal(true);
  dialog.show();
  field.setText("9");  // as the bus does
  EXPECT_EQ(field.text(), "0.01");
  EXPECT_TRUE(field.FinishEntry());
  EXPECT_EQ(entered, 0);
  field.SetText("0.02");  // as the program does
  EXPECT_EQ(field.text(), "0.02");
  dialog.hide();
  field.setText("9");
  EXPECT_EQ(field.text(), "9");
}

}  // namespace
}  // namespace tremlo::test
