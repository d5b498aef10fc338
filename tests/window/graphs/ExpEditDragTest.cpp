// Drags of text take a platform that has them.

#include "window/graphs/ExpEdit.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class ExpEditDrag : public testing::Test {
 protected:
  ExpEditDrag() {
    layout.addWidget(&edit);
    edit.SetMaxBytes(8);
    edit.SetText(QStringLiteral("abcdefgh"));
    edit.setDragEnabled(true);
    edit.setFixedWidth(200);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    edit.setFocus();
    QApplication::setStartDragTime(1);
  }
  /// Drags what stands under the pointer, being selected, to another place in the field.
  void Drag(int from, int to, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QWindow* const handle = window.windowHandle();
    const auto place = [&](int x) { return edit.mapTo(&window, QPoint(x, edit.height() / 2)); };
    // A drag runs an event loop of its own, in which the mouse goes on.
    int step = 0;
    QTimer moving;
    QObject::connect(&moving, &QTimer::timeout, [&] {
      ++step;
      if (step <= 3) QTest::mouseMove(handle, place(to - step));
      if (step == 4) QTest::mouseRelease(handle, Qt::LeftButton, keys, place(to));
    });
    QTest::mousePress(handle, Qt::LeftButton, keys, place(from));
    moving.start(20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return step > 5; }));
  }
  std::string Text() const { return edit.GetText().toStdString(); }

  QWidget window;
  QVBoxLayout layout{&window};
  CExpEdit edit;
};

TEST_F(ExpEditDrag, TextDraggedWithinItsFieldIsMovedAndCountsOnce) {
  edit.setSelection(0, 3);
  Drag(10, 190);
  EXPECT_EQ(Text(), "defghabc");
  EXPECT_EQ(edit.selectedText(), QStringLiteral("abc"));
  EXPECT_TRUE(edit.IsDirty());
  edit.setSelection(3, 5);
  Drag(edit.fontMetrics().horizontalAdvance(QStringLiteral("defgha")), 1);
  EXPECT_EQ(Text(), "ghabcdef");
}

TEST_F(ExpEditDrag, TextDroppedOnItselfStays) {
  edit.setSelection(0, 3);
  Drag(10, 12);
  EXPECT_EQ(Text(), "abcdefgh");
}

}  // namespace
}  // namespace tremlo
