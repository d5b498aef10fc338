#include "support/ScreenDriver.h"
#include "window/graphs/ExpButton.h"
#include "window/shell/PropertyQa.h"

#include <QAccessible>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

bool Always() {
  return true;
}

class PropertyQaTest : public testing::TestWithParam<ChartQuestion> {
 protected:
  PropertyQaTest() {
    InstallJapaneseFonts();
    dialog = std::make_unique<CPropertyQa>(GetParam(), Always);
  }
  const ChartQuestionRow& Row() { return RowOf(GetParam()); }
  QString LabelText(const char* name) { return dialog->findChild<QLabel*>(QLatin1String(name))->text(); }
  QAbstractButton* Button(const char* name) {
    return dialog->findChild<QAbstractButton*>(QLatin1String(name));
  }

  std::unique_ptr<CPropertyQa> dialog;
};

TEST_P(PropertyQaTest, ShowsItsTextsAndItsPicture) {
  EXPECT_TRUE(dialog->CanBeShown());
  EXPECT_EQ(dialog->windowTitle(), QString::fromUtf16(Row().title));
  EXPECT_EQ(LabelText("caption"), QString::fromUtf16(Row().title));
  EXPECT_EQ(LabelText("text"), QString::fromUtf16(Row().text));
  EXPECT_EQ(LabelText("reference"), QString::fromUtf16(Row().reference));
  EXPECT_EQ(LabelText("questionMark"), "？");
  for (const char* name : {"caption", "questionMark", "text"})
    EXPECT_EQ(dialog->findChild<QLabel*>(QLatin1String(name))->font().family(), "MS ゴシック") << name;
}

TEST_P(PropertyQaTest, HasTheButtonsOfItsQuestion) {
  EXPECT_EQ(Button("yesButton")->text(), QString::fromUtf16(Row().yes));
  ASSERT_EQ(Button("noButton") != nullptr, Row().no != nullptr);
  ASSERT_EQ(Button("backButton") != nullptr, Row().back != nullptr);
  for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
    EXPECT_NE(qobject_cast<CExpButton*>(button), nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), button->text());
  }
}

TEST_P(PropertyQaTest, NoTextIsCutOff) {
  dialog->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
  for (const QLabel* label : dialog->findChildren<QLabel*>()) {
    const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_GE(label->height(), needed) << label->objectName().toStdString();
    if (!label->wordWrap()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
    }
  }
  for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
    EXPECT_GE(button->width() - 8, button->fontMetrics().horizontalAdvance(button->text()));
}

TEST_P(PropertyQaTest, AllHaveOneSizeAndKeepIt) {
  dialog->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
  EXPECT_EQ(dialog->size(), CPropertyQa::DialogSize());
  EXPECT_EQ(dialog->minimumSize(), dialog->maximumSize());
}

TEST_P(PropertyQaTest, EachButtonGivesItsEnd) {
  const std::vector<std::pair<const char*, QuestionEnd>> buttons = {
      {"yesButton", QuestionEnd::Yes}, {"noButton", QuestionEnd::No}, {"backButton", QuestionEnd::Back}};
  for (const auto& [name, end] : buttons) {
    if (!Button(name)) continue;
    CPropertyQa asked(GetParam(), Always);
    asked.show();
    QTest::mouseClick(asked.findChild<QAbstractButton*>(QLatin1String(name)), Qt::LeftButton);
    EXPECT_FALSE(asked.isVisible()) << name;
    EXPECT_EQ(asked.result(), QDialog::Accepted);
    EXPECT_EQ(asked.End(), end) << name;
  }
}

TEST_P(PropertyQaTest, CancellingAsksAndHolds) {
  int asked = 0;
  bool answer = false;
  CPropertyQa cancelled(GetParam(), [&] {
    ++asked;
    return answer;
  });
  cancelled.show();
  QTest::keyClick(&cancelled, Qt::Key_Escape);
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(cancelled.close());
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(cancelled.isVisible());
  answer = true;
  EXPECT_TRUE(cancelled.close());
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(cancelled.End(), QuestionEnd::Cancelled);
}

TEST_P(PropertyQaTest, AppearsAtAPlaceAndTellsWhereItWasLeft) {
  QPoint place(123, 77);
  test::ScreenDriver::InDialog([](QWidget& shown) {
    EXPECT_EQ(shown.pos(), QPoint(123, 77));
    shown.move(31, 45);
    test::PressIn(shown, "yesButton");
  });
  EXPECT_EQ(CPropertyQa::Ask(GetParam(), Always, place, nullptr), QuestionEnd::Yes);
  EXPECT_EQ(place, QPoint(31, 45));
}

INSTANTIATE_TEST_SUITE_P(AllQuestions, PropertyQaTest, testing::ValuesIn(kChartQuestions),
                         [](const auto& question) { return std::string(RowOf(question.param).dialog); });

}  // namespace
}  // namespace tremlo
