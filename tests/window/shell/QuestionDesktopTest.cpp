// The dialogs of the questions on a desktop whose window manager puts a frame around every window.

#include "core/project/ChangeQuestions.h"
#include "window/graphs/FrontWindow.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/MessageBox.h"
#include "window/shell/PropertyQa.h"

#include <QAbstractButton>
#include <QApplication>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class QuestionDesktopTest : public testing::Test {
 protected:
  void SetUp() override {
    InstallJapaneseFonts();
    m_manager.start(
        QStringLiteral(TREMLO_OPENBOX),
        {QStringLiteral("--sm-disable"), QStringLiteral("--startup"), QStringLiteral("/bin/echo ready")});
    ASSERT_TRUE(m_manager.waitForReadyRead());
    m_window.resize(600, 400);
    // What is shown before the manager is ready gets no frame.
    for (int i = 0; i < 50 && !HasFrame(m_window); ++i) {
      m_window.hide();
      m_window.show();
      static_cast<void>(QTest::qWaitFor([this] { return HasFrame(m_window); }, 500));
    }
    ASSERT_TRUE(HasFrame(m_window));
  }
  void TearDown() override {
    m_window.hide();
    m_manager.terminate();
    EXPECT_TRUE(m_manager.waitForFinished());
  }

  static bool HasFrame(const QWidget& window) {
    return window.frameGeometry().top() < window.geometry().top();
  }

  /// Shows a dialog at `place` until it has its frame, then does something in it and presses YES.
  void Show(ChartQuestion question, QPoint& place, const std::function<void(QWidget&)>& act) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
      QWidget* const dialog = QApplication::activeModalWidget();
      if (!dialog || !dialog->isActiveWindow() || !HasFrame(*dialog)) return;
      poll.stop();
      act(*dialog);
      QTest::mouseClick(dialog->findChild<QAbstractButton*>(QStringLiteral("yesButton")), Qt::LeftButton);
    });
    poll.start(1);
    EXPECT_EQ(CPropertyQa::Ask(
                  question, [] { return true; }, place, &m_window),
              QuestionEnd::Yes);
  }

  QWidget m_window;

 private:
  QProcess m_manager;
};

TEST_F(QuestionDesktopTest, ADialogStandsWhereTheLastOneWasLeftThroughTenQuestions) {
  const QPoint stated(426, 298);
  QPoint place = stated;
  for (int i = 0; i < 3; ++i) {
    Show(kChartQuestions[static_cast<std::size_t>(i)], place, [&](QWidget& dialog) {
      EXPECT_EQ(dialog.frameGeometry().topLeft(), stated);
      EXPECT_EQ(dialog.size(), CPropertyQa::DialogSize());
    });
    EXPECT_EQ(place, stated);
  }
  const QPoint left(211, 157);
  Show(ChartQuestion::PhaseQ4, place, [&](QWidget& dialog) {
    dialog.move(left);
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.frameGeometry().topLeft() == left; }));
  });
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(place, left) << i;
    Show(kChartQuestions[static_cast<std::size_t>(i % 8)], place,
         [&](QWidget& dialog) { EXPECT_EQ(dialog.frameGeometry().topLeft(), left) << i; });
  }
}

TEST_F(QuestionDesktopTest, TheWindowIsActiveAgainBehindACancelledQuestion) {
  for (int i = 0; i < 3; ++i) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
      QWidget* const front = QApplication::activeModalWidget();
      if (!front || !front->isActiveWindow()) return;
      poll.stop();
      if (front->inherits("QMessageBox")) {
        QTest::mouseClick(front->findChild<QAbstractButton*>(QStringLiteral("yes")), Qt::LeftButton);
        return;
      }
      poll.start(1);
      QTest::keyClick(front, Qt::Key_Escape);
    });
    poll.start(1);
    const auto mayCancel = [] {
      return ShowMessageBox(FrontWindow(), {.text = LeaveFlowCheckQuestion(),
                                            .buttons = PromptButtons::YesNo}) == PromptAnswer::Yes;
    };
    QPoint place(426, 298);
    EXPECT_EQ(CPropertyQa::Ask(ChartQuestion::PhaseQ1, mayCancel, place, &m_window), QuestionEnd::Cancelled);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
  }
}

}  // namespace
}  // namespace tremlo
