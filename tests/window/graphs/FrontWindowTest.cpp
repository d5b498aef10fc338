#include "window/graphs/FrontWindow.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class FrontWindowTest : public testing::Test {
 protected:
  void ShowFrame() { Activate(frame); }
  static void Activate(QWidget& window) {
    window.show();
    QApplication::setActiveWindow(&window);
    ASSERT_EQ(QApplication::activeWindow(), &window);
  }
  static void BringAnotherProgramToTheFront() {
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
  }

  QMainWindow frame;
};

TEST_F(FrontWindowTest, ThereIsNoneBeforeTheFirstWindow) {
  EXPECT_EQ(FrontWindow(), nullptr);
}

TEST_F(FrontWindowTest, WindowInUse) {
  QDialog palette(&frame);
  ShowFrame();
  EXPECT_EQ(FrontWindow(), &frame);
  Activate(palette);
  EXPECT_EQ(FrontWindow(), &palette);
}

TEST_F(FrontWindowTest, MainWindowWhileAnotherProgramIsInFront) {
  QDialog palette(&frame);
  ShowFrame();
  Activate(palette);
  BringAnotherProgramToTheFront();
  EXPECT_EQ(FrontWindow(), &frame);
  frame.hide();
  EXPECT_EQ(FrontWindow(), nullptr);
}

TEST_F(FrontWindowTest, DialogThatIsUpComesBeforeBoth) {
  ShowFrame();
  QDialog dialog(&frame);
  dialog.setModal(true);
  Activate(dialog);
  BringAnotherProgramToTheFront();
  EXPECT_EQ(FrontWindow(), &dialog);
}

}  // namespace
}  // namespace tremlo
