#include "FaultScreenParts.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

namespace tremlo {
namespace {

using test::DocumentState;
using test::Settle;
using testing::ElementsAre;
using testing::IsEmpty;

class FaultExplorationDialogTest : public testing::Test {
 protected:
  FaultExplorationDialogTest() { InstallJapaneseFonts(); }
  ~FaultExplorationDialogTest() override { dialog.reset(); }

  void Open() {
    doc.SetModified(false);
    dialog = std::make_unique<CDlgFaultExploration>(doc, prompt, nullptr);
    dialog->setModal(true);
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  template <class Control>
  Control& Find(const char* name) {
    auto* const control = dialog->findChild<Control*>(QLatin1String(name));
    if (!control) throw std::invalid_argument(name);
    return *control;
  }
  QAbstractButton& Button(const char* name) { return Find<QAbstractButton>(name); }
  QComboBox& Combo(const char* name) { return Find<QComboBox>(name); }
  CExpEdit& Weight() { return Find<CExpEdit>("weightEdit"); }
  void Press(const char* name) {
    QTest::mouseClick(&Button(name), Qt::LeftButton, {}, {8, Button(name).height() / 2});
    Settle();
  }
  void Type(const char* text) {
    QTest::mouseClick(&Weight(), Qt::LeftButton);
    Weight().selectAll();
    QTest::keyClick(&Weight(), Qt::Key_Delete);
    QTest::keyClicks(&Weight(), QLatin1String(text));
  }
  QStringList Checked() {
    QStringList names;
    for (const QRadioButton* radio : dialog->findChildren<QRadioButton*>())
      if (radio->isChecked()) names << radio->objectName();
    return names;
  }
  bool IsOpen() const { return dialog->isVisible(); }

  CMorvaneDoc doc{QString()};
  test::ScriptedPrompt prompt;
  std::unique_ptr<CDlgFaultExploration> dialog;
};

TEST_F(FaultExplorationDialogTest, ShowsTheValuesOfTheDocument) {
  doc.apiParameters = {1, -0.5, 1, 0, 14, 1, 1};
  Open();
  EXPECT_EQ(dialog->windowTitle(), QStringLiteral("断層APIパラメータ設定"));
  EXPECT_THAT(Checked(), ElementsAre("intensity1", "mode1", "case1", "period1"));
  EXPECT_EQ(Weight().text(), QStringLiteral("-0.5000000"));
  EXPECT_EQ(Combo("searchVersionCombo").currentText(), QStringLiteral("2014年版"));
  EXPECT_EQ(Combo("activityVersionCombo").currentText(), QStringLiteral("2020年版"));
  Press("okButton");
  EXPECT_EQ(doc.apiParameters, (ApiParameterSet{1, -0.5, 1, 0, 14, 1, 1}));
  EXPECT_TRUE(doc.IsModified());
  EXPECT_FALSE(IsOpen());
}

TEST_F(FaultExplorationDialogTest, VersionsAreOfferedNewestFirstAndStoredByTheirNumber) {
  Open();
  QComboBox& search = Combo("searchVersionCombo");
  QComboBox& activity = Combo("activityVersionCombo");
  EXPECT_EQ(search.count(), 14);
  EXPECT_EQ(activity.count(), 16);
  EXPECT_EQ(search.itemText(0), QStringLiteral("2019年版"));
  EXPECT_EQ(activity.itemText(0), QStringLiteral("2021年版"));
  EXPECT_EQ(activity.itemText(1), QStringLiteral("2020年版"));
  EXPECT_EQ(search.itemText(13), QStringLiteral("2008年版"));
  search.setFocus();
  QTest::keyClick(&search, Qt::Key_Down);
  activity.setFocus();
  QTest::keyClick(&activity, Qt::Key_End);
  Press("okButton");
  EXPECT_EQ(doc.apiParameters.versionIndex, 12);
  EXPECT_EQ(doc.apiParameters.activityVersionIndex, 9);
}

TEST_F(FaultExplorationDialogTest, EveryRadioButtonStoresItsIndex) {
  const std::vector<std::pair<const char*, std::int32_t ApiParameterSet::*>> groups{
      {"intensity", &ApiParameterSet::intensityIndex},
      {"mode", &ApiParameterSet::modeIndex},
      {"case", &ApiParameterSet::caseIndex},
      {"period", &ApiParameterSet::periodIndex}};
  for (const auto& [name, value] : groups) {
    const int count = std::string(name) == "intensity" ? 4 : 2;
    for (int i = count - 1; i >= 0; --i) {
      Open();
      Press((std::string(name) + std::to_string(i)).c_str());
      Press("okButton");
      EXPECT_EQ(doc.apiParameters.*value, i) << name;
    }
  }
}

TEST_F(FaultExplorationDialogTest, TheArrowKeysChooseWithinAGroup) {
  Open();
  Button("intensity2").setFocus();
  QTest::keyClick(&Button("intensity2"), Qt::Key_Right);
  EXPECT_TRUE(Button("intensity3").isChecked());
  EXPECT_TRUE(Button("mode0").isChecked());
  Press("okButton");
  EXPECT_EQ(doc.apiParameters.intensityIndex, 3);
}

TEST_F(FaultExplorationDialogTest, CancelAndEscapeChangeNothing) {
  for (const bool escape : {false, true}) {
    Open();
    const DocumentState before(doc);
    Press("intensity0");
    Type("0.1");
    if (escape) {
      QTest::keyClick(dialog.get(), Qt::Key_Escape);
      Settle();
    } else {
      Press("cancelButton");
    }
    EXPECT_FALSE(IsOpen());
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  }
}

TEST_F(FaultExplorationDialogTest, TheInitialValuesAreStoredAtOnce) {
  doc.apiParameters = {0, 1.0, 1, 3, 3, 1, 1};
  Open();
  Press("resetButton");
  EXPECT_EQ(doc.apiParameters, ApiParameterSet{});
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(Checked(), ElementsAre("intensity2", "mode0", "case0", "period0"));
  EXPECT_EQ(Weight().text(), QStringLiteral("0.6000000"));
  EXPECT_EQ(Combo("searchVersionCombo").currentIndex(), 0);
  EXPECT_EQ(Combo("activityVersionCombo").currentIndex(), 0);
  EXPECT_TRUE(IsOpen());
  Press("cancelButton");
  EXPECT_EQ(doc.apiParameters, ApiParameterSet{}) << "a cancel does not take them back";
}

TEST_F(FaultExplorationDialogTest, TheWeightIsTakenWithinItsRange) {
  for (const double value : {-1.0, 1.0, 0.0, 0.1234567}) {
    Open();
    Type(QByteArray::number(value, 'f', 7).constData());
    Press("okButton");
    EXPECT_EQ(doc.apiParameters.catastropheWeight, value);
  }
}

TEST_F(FaultExplorationDialogTest, AWeightOutsideIsRefusedAndTheDialogStays) {
  Open();
  prompt.ExpectBox(
      {.text = "数値が範囲外です。\n\n（-1.0000000 ～ 1.0000000 までの範囲で入力してください。）",
       .title = QStringLiteral("入力確認")},
      PromptAnswer::Ok);
  Type("1.5");
  Press("okButton");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Weight().text(), QStringLiteral("0.6000000"));
  EXPECT_TRUE(Weight().hasFocus());
  EXPECT_EQ(doc.apiParameters, ApiParameterSet{});
}

TEST_F(FaultExplorationDialogTest, ABadWeightDoesNotHoldTheCancel) {
  Open();
  Type("9");
  Press("cancelButton");
  EXPECT_FALSE(IsOpen());
}

TEST_F(FaultExplorationDialogTest, AnEmptiedWeightStandsForTheStoredOne) {
  Open();
  Type("");
  QTest::keyClick(&Weight(), Qt::Key_Tab);
  EXPECT_EQ(Weight().text(), QStringLiteral("0.6000000"));
  Press("okButton");
  EXPECT_EQ(doc.apiParameters.catastropheWeight, 0.6);
}

TEST_F(FaultExplorationDialogTest, ReturnInTheFieldIsOk) {
  Open();
  Type("0.25");
  QTest::keyClick(&Weight(), Qt::Key_Return);
  Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(doc.apiParameters.catastropheWeight, 0.25);
}

TEST_F(FaultExplorationDialogTest, OddNumbersOfAFileStayUnlessTouched) {
  const ApiParameterSet odd{-1, 0.123456789, 7, 99, -5, 2, 1000};
  doc.apiParameters = odd;
  Open();
  EXPECT_THAT(Checked(), IsEmpty());
  EXPECT_EQ(Combo("searchVersionCombo").currentIndex(), -1);
  EXPECT_EQ(Combo("activityVersionCombo").currentIndex(), -1);
  EXPECT_EQ(Weight().text(), QStringLiteral("0.1234568"));
  QTest::mouseClick(&Weight(), Qt::LeftButton);
  Press("period1");
  Press("okButton");
  ApiParameterSet expected = odd;
  expected.periodIndex = 1;
  EXPECT_EQ(doc.apiParameters, expected);
}

TEST_F(FaultExplorationDialogTest, TheTabKeyReachesAllInTheOrderOfReading) {
  Open();
  QStringList order;
  Button("intensity2").setFocus();
  for (int i = 0; i < 10; ++i) {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              ElementsAre("intensity2", "weightEdit", "mode0", "searchVersionCombo", "activityVersionCombo",
                          "case0", "period0", "resetButton", "okButton", "cancelButton"));
}

TEST_F(FaultExplorationDialogTest, TheChosenRadioButtonIsTheStopOfItsGroup) {
  doc.apiParameters = {1, 0.6, 1, 13, 15, 1, 1};
  Open();
  QStringList order;
  for (int i = 0; i < 10; ++i) {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              ElementsAre("intensity1", "weightEdit", "mode1", "searchVersionCombo", "activityVersionCombo",
                          "case1", "period1", "resetButton", "okButton", "cancelButton"));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "intensity1");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_TRUE(Button("intensity2").isChecked()) << "the neighbour of the chosen one";
  // Chosen without the focus, as over the accessibility bus.
  Button("intensity3").toggle();
  Weight().setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "intensity3");
}

TEST_F(FaultExplorationDialogTest, ReturnIsOkAgainBehindAWalkOverTheCancelButton) {
  Open();
  Button("cancelButton").setFocus();
  Weight().setFocus();
  Weight().selectAll();
  QTest::keyClicks(&Weight(), "1");
  QTest::keyClick(&Weight(), Qt::Key_Return);
  Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(doc.apiParameters.catastropheWeight, 1.0);
}

TEST_F(FaultExplorationDialogTest, ReadersHearWhatAListIsFor) {
  Open();
  // On some platforms the text that is chosen stands for the name of a list: its label is told by the
  // relation.
  for (const auto& [name, text] : {std::pair("searchVersionCombo", u"地図バージョン (被害地検索)"),
                                   std::pair("activityVersionCombo", u"地図バージョン (地震活動モデル)")}) {
    const auto labels = QAccessible::queryAccessibleInterface(&Combo(name))->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1) << name;
    EXPECT_EQ(labels.front().first->text(QAccessible::Name), QString::fromUtf16(text));
  }
}

TEST_F(FaultExplorationDialogTest, EveryControlHasItsNames) {
  Open();
  int controls = 0;
  for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->window() != dialog.get()) continue;
    EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    ++controls;
  }
  EXPECT_EQ(controls, 16);
}

}  // namespace
}  // namespace tremlo
