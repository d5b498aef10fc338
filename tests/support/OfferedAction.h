#pragma once

#include <QAccessible>
#include <QCoreApplication>
#include <QWidget>

#include <gtest/gtest.h>

namespace tremlo::test {

/// Does what a screen reader makes of a control: the first of the actions that the accessibility bus offers.
inline void DoOfferedAction(QWidget& control) {
  QAccessibleInterface* const heard = QAccessible::queryAccessibleInterface(&control);
  QAccessibleActionInterface* const actions = heard ? heard->actionInterface() : nullptr;
  ASSERT_NE(actions, nullptr);
  ASSERT_FALSE(actions->actionNames().isEmpty());
  actions->doAction(actions->actionNames().first());
  for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
}

}  // namespace tremlo::test
