#include "window/shell/LockKeyPanes.h"

#include <QApplication>
#include <QLabel>
#include <QStatusBar>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;

class LockKeyPanesTest : public testing::Test {
 protected:
  LockKeyPanesTest() {
    auto* column = new QVBoxLayout(&window);
    panes = new LockKeyPanes([this] {
      ++asked;
      return keys;
    });
    column->addWidget(panes);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QCoreApplication::processEvents();
  }
  QLabel* Pane(const char* name) { return panes->findChild<QLabel*>(QLatin1String(name)); }
  QStringList Texts() {
    return {Pane("capsPane")->text(), Pane("numPane")->text(), Pane("scrollPane")->text()};
  }
  void Press(Qt::Key key) {
    QTest::keyClick(&window, key);
    QCoreApplication::processEvents();
  }

  std::optional<LockKeys> keys = LockKeys{};
  int asked = 0;
  QWidget window;
  LockKeyPanes* panes;
};

TEST_F(LockKeyPanesTest, KeysThatAreOffLeaveTheirPanesBlank) {
  EXPECT_THAT(Texts(), ElementsAre("", "", ""));
  EXPECT_EQ(Pane("capsPane")->accessibleDescription(), QStringLiteral("オフ"));
}

TEST_F(LockKeyPanesTest, EachKeyHasItsOwnPane) {
  keys = LockKeys{.caps = true};
  Press(Qt::Key_CapsLock);
  EXPECT_THAT(Texts(), ElementsAre("CAP", "", ""));
  keys = LockKeys{.num = true};
  Press(Qt::Key_NumLock);
  EXPECT_THAT(Texts(), ElementsAre("", "NUM", ""));
  keys = LockKeys{.scroll = true};
  Press(Qt::Key_ScrollLock);
  EXPECT_THAT(Texts(), ElementsAre("", "", "SCRL"));
  EXPECT_EQ(Pane("scrollPane")->accessibleDescription(), QStringLiteral("オン"));
}

TEST_F(LockKeyPanesTest, KeyInADialogCountsToo) {
  QWidget dialog;
  dialog.show();
  keys = LockKeys{.caps = true};
  QTest::keyClick(&dialog, Qt::Key_CapsLock);
  QCoreApplication::processEvents();
  EXPECT_THAT(Texts(), ElementsAre("CAP", "", ""));
}

TEST_F(LockKeyPanesTest, ReturnToTheWindowAsksAnew) {
  keys = LockKeys{.num = true};
  QEvent back(QEvent::WindowActivate);
  QCoreApplication::sendEvent(&window, &back);
  QCoreApplication::processEvents();
  EXPECT_THAT(Texts(), ElementsAre("", "NUM", ""));
}

TEST_F(LockKeyPanesTest, OtherKeysAskNothing) {
  asked = 0;
  Press(Qt::Key_A);
  EXPECT_EQ(asked, 0);
  Press(Qt::Key_CapsLock);
  EXPECT_EQ(asked, 1) << "press and release are one question";
}

TEST_F(LockKeyPanesTest, UnknownStateIsShownAsNone) {
  keys = LockKeys{.caps = true, .num = true, .scroll = true};
  Press(Qt::Key_CapsLock);
  keys.reset();
  Press(Qt::Key_CapsLock);
  EXPECT_THAT(Texts(), ElementsAre("", "", ""));
  EXPECT_TRUE(Pane("capsPane")->accessibleDescription().isEmpty());
}

TEST_F(LockKeyPanesTest, PaneKeepsItsWidth) {
  const int blank = Pane("scrollPane")->width();
  keys = LockKeys{.caps = true, .num = true, .scroll = true};
  Press(Qt::Key_CapsLock);
  EXPECT_EQ(Pane("scrollPane")->width(), blank);
  EXPECT_GE(blank, Pane("scrollPane")->sizeHint().width());
}

}  // namespace
}  // namespace tremlo
