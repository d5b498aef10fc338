#include "support/DocumentState.h"
#include "support/TestFolder.h"
#include "window/waves/DlgAdjustSetting.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AdjustSettingTest : public testing::Test {
 protected:
  void Open() {
    dialog = std::make_unique<CDlgAdjustSetting>(doc, nullptr);
    iterations = Child<CExpEdit>("m_iterationsEdit");
    tolerance = Child<CExpEdit>("m_toleranceEdit");
    for (CExpEdit* edit : {iterations, tolerance})
      edit->SetShowWarning([this](QWidget*, const QString& title, const QString& text) {
        boxes.push_back((title + QStringLiteral(": ") + text).toStdString());
      });
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    iterations->setFocus();
    ASSERT_TRUE(iterations->hasFocus());
  }

  template <class T>
  T* Child(const char* name) const {
    return dialog->findChild<T*>(QString::fromLatin1(name));
  }

  /// Types over what stands in the field.
  void Type(CExpEdit* edit, const char* text) {
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, QString::fromLatin1(text));
  }

  void Key(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }

  void Click(const char* button) {
    QTest::mouseClick(Child<QPushButton>(button), Qt::LeftButton);
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }

  CMorvaneDoc doc{QString()};
  std::unique_ptr<CDlgAdjustSetting> dialog;
  CExpEdit* iterations = nullptr;
  CExpEdit* tolerance = nullptr;
  std::vector<std::string> boxes;
};

TEST_F(AdjustSettingTest, ReturnIsOkAgainBehindAWalkOverTheCancelButton) {
  Open();
  Child<QPushButton>("m_cancel")->setFocus();
  Type(iterations, "50");
  Key(Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(doc.adjustMaxIterations, 50);
}

TEST_F(AdjustSettingTest, ShowsTheToleranceInPercent) {
  Open();
  EXPECT_EQ(dialog->windowTitle(), QStringLiteral("振幅調整の設定"));
  EXPECT_EQ(iterations->GetText(), QStringLiteral("100"));
  EXPECT_EQ(tolerance->GetText(), QStringLiteral("5.00"));
  std::vector<QString> labels;
  for (const QLabel* label : dialog->findChildren<QLabel*>()) labels.push_back(label->text());
  EXPECT_THAT(labels, testing::UnorderedElementsAre(QStringLiteral("繰り返し回数"), QStringLiteral("回"),
                                                    QStringLiteral("収束判定"), QStringLiteral("%")));
  EXPECT_EQ(iterations->accessibleName(), QStringLiteral("繰り返し回数"));
  EXPECT_EQ(tolerance->accessibleName(), QStringLiteral("収束判定"));
}

TEST_F(AdjustSettingTest, OkStoresBothAndMarksTheDocument) {
  Open();
  Type(iterations, "250");
  Type(tolerance, "7.25");
  Click("m_ok");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(doc.adjustMaxIterations, 250);
  EXPECT_DOUBLE_EQ(doc.adjustTolerancePercent, 0.0725);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(AdjustSettingTest, EnterInAFieldIsOk) {
  Open();
  Type(tolerance, "1");
  Key(Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_DOUBLE_EQ(doc.adjustTolerancePercent, 0.01);
}

TEST_F(AdjustSettingTest, OkWithoutAChangeMarksTheDocumentAndKeepsAllDigits) {
  doc.adjustTolerancePercent = 0.0512345;
  doc.adjustMaxIterations = 20000;
  Open();
  EXPECT_EQ(tolerance->GetText(), QStringLiteral("5.12"));
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  Click("m_ok");
  EXPECT_EQ(doc.adjustTolerancePercent, 0.0512345);
  EXPECT_EQ(doc.adjustMaxIterations, 20000);
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(AdjustSettingTest, CancelAndEscapeStoreNothing) {
  for (const bool escape : {false, true}) {
    const test::DocumentState before(doc);
    Open();
    Type(iterations, "250");
    if (escape)
      Key(Qt::Key_Escape);
    else
      Click("m_cancel");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(test::DocumentState(doc) == before);
  }
  EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(AdjustSettingTest, AnEmptyFieldIsToldAndGetsItsTextAndTheFocusBack) {
  Open();
  for (CExpEdit* edit : {iterations, tolerance}) {
    boxes.clear();
    const QString text = edit->GetText();
    Type(edit, "");
    Key(Qt::Key_Tab);
    EXPECT_THAT(boxes, ElementsAre("Tremlo: 入力エラーです。"));
    EXPECT_EQ(edit->GetText(), text);
    EXPECT_TRUE(edit->hasFocus());
  }
}

TEST_F(AdjustSettingTest, OkOnABadEntryKeepsTheDialogOpen) {
  Open();
  for (const char* text : {"", "0", "10001"}) {
    boxes.clear();
    Type(iterations, text);
    Click("m_ok");
    EXPECT_EQ(boxes.size(), 1U) << text;
    EXPECT_TRUE(dialog->isVisible()) << text;
    EXPECT_EQ(iterations->GetText(), QStringLiteral("100")) << text;
  }
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(AdjustSettingTest, OkByAProgramChecksTheFieldToo) {
  Open();
  Type(iterations, "0");
  dialog->accept();
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.size() == 1; }));
  EXPECT_EQ(doc.adjustMaxIterations, 100);
}

TEST_F(AdjustSettingTest, TheLimitsBelongToTheRanges) {
  const auto accepts = [this](const char* name, const char* text) {
    boxes.clear();
    Open();
    Type(Child<CExpEdit>(name), text);
    Click("m_ok");
    return boxes.empty() && !dialog->isVisible();
  };
  EXPECT_TRUE(accepts("m_iterationsEdit", "1"));
  EXPECT_TRUE(accepts("m_iterationsEdit", "10000"));
  EXPECT_FALSE(accepts("m_iterationsEdit", "10001"));
  EXPECT_FALSE(accepts("m_iterationsEdit", "-1"));
  EXPECT_TRUE(accepts("m_toleranceEdit", "0"));
  EXPECT_EQ(doc.adjustTolerancePercent, 0.0);
  EXPECT_TRUE(accepts("m_toleranceEdit", "99.99"));
  EXPECT_FALSE(accepts("m_toleranceEdit", "100"));
  EXPECT_FALSE(accepts("m_toleranceEdit", "-0.01"));
  EXPECT_FALSE(accepts("m_toleranceEdit", "1.234"));
}

TEST_F(AdjustSettingTest, ResultsOfAnAdjustmentStay) {
  doc.seedWaves.Add("a");
  doc.seedWaves.At(0).adjusted = true;
  doc.seedWaves.At(0).adjustedAcc = {1.0};
  const CSeismicWave before = doc.seedWaves.At(0);
  Open();
  Type(iterations, "5");
  Click("m_ok");
  EXPECT_EQ(doc.adjustMaxIterations, 5);
  EXPECT_TRUE(doc.seedWaves.At(0) == before);
}

}  // namespace
}  // namespace tremlo
