#include "support/ScreenDriver.h"
#include "support/ScriptedPrompt.h"
#include "window/graphs/InfoButton.h"

#include <QTest>

namespace tremlo::test {
namespace {

class InfoButtonTest : public testing::Test {
 protected:
  ScriptedPrompt prompt;
  CommandGate gate{prompt};
  QWidget window;
  InfoButton button{"infoButton", QStringLiteral("この画面について"), QStringLiteral("説明"), prompt, gate,
                    &window};
};

TEST_F(InfoButtonTest, AClickTellsItsTextWithTheIconOfInformation) {
  prompt.ExpectMessage(QStringLiteral("説明"), PromptIcon::Information);
  QTest::mouseClick(&button, Qt::LeftButton);
}

TEST_F(InfoButtonTest, WithinACommandItTellsNothing) {
  EXPECT_TRUE(gate.Run([this] { button.click(); }));
}

TEST_F(InfoButtonTest, TheKeyboardPressesIt) {
  prompt.ExpectMessage(QStringLiteral("説明"), PromptIcon::Information);
  window.show();
  button.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&button, Qt::Key_Space);
}

TEST_F(InfoButtonTest, AScreenReaderSaysItsName) {
  EXPECT_EQ(button.objectName(), "infoButton");
  EXPECT_EQ(button.accessibleName(), QStringLiteral("この画面について"));
}

}  // namespace
}  // namespace tremlo::test
