#include "core/shell/QuestionPlace.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(QuestionPlace, FirstDialogStandsByTheMonitorsSize) {
  EXPECT_EQ(FirstQuestionPlace({1920, 1080}), QPoint(640, 220));
  EXPECT_EQ(FirstQuestionPlace({1280, 1024}), QPoint(426, 298));
  EXPECT_EQ(FirstQuestionPlace({1024, 768}), QPoint(341, 213));
  EXPECT_EQ(FirstQuestionPlace({3840, 2160}), QPoint(1280, 440));
}

TEST(QuestionPlace, DivisionsAreThoseOfWholeNumbers) {
  // 1366 / 3 = 455; 769 / 3 * 3 = 768; (768 - 455) / 2 = 156
  EXPECT_EQ(FirstQuestionPlace({1366, 769}), QPoint(455, 156));
  EXPECT_EQ(FirstQuestionPlace({1367, 770}), QPoint(455, 156));
  EXPECT_EQ(FirstQuestionPlace({1368, 771}), QPoint(456, 157));
}

TEST(QuestionPlace, OnAWideMonitorItLiesAboveIt) {
  // (1440 - 1706) / 2
  EXPECT_EQ(FirstQuestionPlace({5120, 1440}), QPoint(1706, -133));
  // Towards zero: (360 - 853) / 2
  EXPECT_EQ(FirstQuestionPlace({2560, 360}), QPoint(853, -246));
}

TEST(QuestionPlace, ADialogOutsideIsMovedOntoTheMonitor) {
  const QRect wide(0, 0, 5120, 1440);
  EXPECT_EQ(MovedOnto(wide, {1706, -133}, {520, 300}), QPoint(1706, 0));
  EXPECT_EQ(MovedOnto(wide, {-20, 40}, {520, 300}), QPoint(0, 40));
  EXPECT_EQ(MovedOnto(wide, {5000, 1439}, {520, 300}), QPoint(4600, 1140));
}

TEST(QuestionPlace, ADialogInsideStaysToThePixel) {
  const QRect second(1920, 120, 1280, 1024);
  for (const QPoint place : {QPoint(1920, 120), QPoint(2346, 418), QPoint(2680, 844)})
    EXPECT_EQ(MovedOnto(second, place, {520, 300}), place);
  EXPECT_EQ(MovedOnto(second, {1919, 119}, {520, 300}), QPoint(1920, 120));
  EXPECT_EQ(MovedOnto(second, {2681, 845}, {520, 300}), QPoint(2680, 844));
}

TEST(QuestionPlace, ADialogLargerThanTheMonitorShowsItsCaption) {
  EXPECT_EQ(MovedOnto({0, 0, 400, 200}, {213, -30}, {520, 300}), QPoint(0, 0));
}

}  // namespace
}  // namespace tremlo
