// What a scroll area answers assistive technology.

#include "support/ScreenDriver.h"
#include "window/shell/ShellParts.h"

#include <QAccessible>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

/// In the program, since it is the program that sees to the answers.
class ScrollAreaAccessTest : public test::ShellTest {
 protected:
  void SetUp() override {
    Make();
    StartNew(TopChoice::ResponseRoute);
    area.setWidget(new QLabel(QStringLiteral("content")));
    area.widget()->setFixedSize(400, 400);
    area.resize(600, 600);
    area.show();
    test::Settle();
  }
  static QAccessibleInterface* AccessOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
  }

  QScrollArea area;
};

TEST_F(ScrollAreaAccessTest, AChildThatHasGoneIsNoLongerThere) {
  area.resize(200, 200);
  test::Settle();
  ASSERT_TRUE(area.verticalScrollBar()->isVisible());
  const int counted = AccessOf(&area)->childCount();
  area.resize(600, 600);
  test::Settle();
  ASSERT_FALSE(area.verticalScrollBar()->isVisible());
  for (int i = 0; i < counted; ++i) AccessOf(&area)->child(i);  // may be there or not
  EXPECT_EQ(AccessOf(&area)->child(-1), nullptr);
  EXPECT_EQ(AccessOf(&area)->child(1'000'000), nullptr);
}

TEST_F(ScrollAreaAccessTest, ContentAndBarsAreFoundBelowIt) {
  area.resize(200, 200);
  test::Settle();
  const auto isBelow = [this](QWidget* widget) {
    for (QAccessibleInterface* node = AccessOf(widget); node; node = node->parent())
      if (node->object() == &area) return true;
    return false;
  };
  EXPECT_TRUE(isBelow(area.widget()));
  EXPECT_TRUE(isBelow(area.verticalScrollBar()));
  QAccessibleInterface* const access = AccessOf(&area);
  EXPECT_EQ(access->role(), QAccessible::Client);
  for (int i = 0; i < access->childCount(); ++i) {
    ASSERT_NE(access->child(i), nullptr) << i;
    EXPECT_EQ(access->indexOfChild(access->child(i)), i);
  }
  // A bar that is not needed does not show.
  area.resize(600, 600);
  test::Settle();
  EXPECT_TRUE(AccessOf(area.verticalScrollBar())->state().invisible);
  EXPECT_FALSE(AccessOf(area.widget())->state().invisible);
}

}  // namespace
}  // namespace tremlo
