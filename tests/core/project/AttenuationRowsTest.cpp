#include "core/project/AttenuationRows.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/DocumentAcquisition.h"
#include "core/project/RelationRows.h"
#include "support/DocumentState.h"
#include "support/GridPress.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::ColumnTexts;
using test::DocumentState;
using test::GiveText;
using test::PressCheck;
using test::RowTexts;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kClass = 3, kColor = 8, kShown = 9, kUse = 10;
constexpr PromptAnswer kYes = PromptAnswer::Yes;
constexpr PromptAnswer kNo = PromptAnswer::No;

/// Both grids over the faults "南" (row 1) and "北" (rows 2 and 3). A calculation counts and marks, as the
/// real one does.
struct Grids : test::ProcedureParts {
  explicit Grids(const char16_t* baseLabel = nullptr) {
    test::FillProject(doc);
    if (baseLabel) test::ChooseBase(doc, baseLabel);
  }
  void ExpectQuestion(PromptAnswer answer) {
    prompt.ExpectQuestion(BaseChangeQuestion(doc.baseSpectrumName), answer);
  }
  CalculatePlanes Calculate() {
    return [this] {
      ++calculations;
      doc.SetModified(true);
    };
  }

  int calculations = 0;
  AttenuationRows planes{doc, rules, Calculate()};
  RelationRows relations{doc, rules, Calculate()};
};

/// `action` is declined: the document stays bit for bit as it was, and nothing is computed.
template <class Action>
void ExpectDeclined(Grids& grids, Action action) {
  grids.ExpectQuestion(kNo);
  const DocumentState before(grids.doc);
  action();
  EXPECT_THAT(before.DifferencesTo(DocumentState(grids.doc)), IsEmpty());
  EXPECT_EQ(grids.calculations, 0);
  grids.prompt.CheckUsedUp();
}

TEST(AttenuationRows, ARowForEachPlane) {
  Grids grids;
  EXPECT_EQ(grids.planes.RowCount(), 3);
  grids.doc.faults[1].ijma = "6.1";
  EXPECT_THAT(RowTexts(grids.planes, 1),
              ElementsAre("1", "南", "A", "7.2", "-", "12.5000", "nan", "#302010", "1", "1"));
  EXPECT_THAT(RowTexts(grids.planes, 3),
              ElementsAre("2", "(2)北", "A", "7.2", "6.1", "12.5000", "nan", "#302010", "1", "1"));
}

TEST(AttenuationRows, AnotherClassIsStoredAndComputed) {
  Grids grids(test::kLowerLabel);
  GiveText(grids.planes, 3, kClass, "D");
  EXPECT_EQ(grids.doc.faults[1].groundClass, (std::vector<QString>{"A", "D"}));
  EXPECT_EQ(grids.calculations, 1);
  EXPECT_TRUE(grids.doc.IsModified());
  EXPECT_EQ(grids.doc.baseSpectrumName, QString::fromUtf16(test::kLowerLabel));
}

TEST(AttenuationRows, TheListHasFourClassesAndTakesNoOther) {
  Grids grids;
  EXPECT_EQ(grids.planes.Format(1, kClass).choices, QStringList({"A", "B", "C", "D"}));
  GiveText(grids.planes, 1, kClass, "E");
  EXPECT_EQ(grids.doc.faults[0].groundClass.front(), QString("A"));
  EXPECT_EQ(grids.calculations, 0);
}

TEST(AttenuationRows, TheSameClassComputesNothing) {
  Grids grids(test::kPlaneLabel);
  grids.planes.SetText(3, kClass, "A");
  EXPECT_EQ(grids.calculations, 0);
  EXPECT_FALSE(grids.doc.IsModified());
}

TEST(AttenuationRows, TheClassOfTheBaseIsGuarded) {
  Grids grids(test::kPlaneLabel);  // row 3
  ExpectDeclined(grids, [&] { GiveText(grids.planes, 3, kClass, "B"); });
  EXPECT_EQ(grids.planes.Text(3, kClass), QString("A"));
  grids.ExpectQuestion(kYes);
  GiveText(grids.planes, 3, kClass, "B");
  EXPECT_EQ(grids.planes.Text(3, kClass), QString("B"));
  EXPECT_EQ(grids.calculations, 1);
  EXPECT_EQ(grids.doc.baseSpectrumName, QString());
  EXPECT_FALSE(grids.doc.seedAdopted);
}

TEST(AttenuationRows, ColourAndShownAreThePlanesOwn) {
  Grids grids(test::kPlaneLabel);
  GiveText(grids.planes, 2, kColor, "#0A141E");
  PressCheck(grids.planes, 2, kShown);
  EXPECT_EQ(grids.doc.faults[1].attenColor, (std::vector<std::int32_t>{0x1E140A, 0x102030}));
  EXPECT_EQ(grids.doc.faults[1].attenShow, (std::vector<bool>{false, true}));
  EXPECT_TRUE(grids.doc.IsModified());
  EXPECT_EQ(grids.calculations, 0);
  EXPECT_EQ(grids.doc.baseSpectrumName, QString::fromUtf16(test::kPlaneLabel));
}

TEST(AttenuationRows, TheBaseIsGuardedWhenItGoesOutOfUse) {
  Grids grids(test::kEquivalentLabel);  // row 1
  PressCheck(grids.planes, 2, kUse);
  EXPECT_EQ(grids.doc.faults[1].attenUse, (std::vector<bool>{false, true}));
  ExpectDeclined(grids, [&] { PressCheck(grids.planes, 1, kUse); });
  EXPECT_EQ(grids.planes.Text(1, kUse), QString("1"));
  grids.ExpectQuestion(kYes);
  PressCheck(grids.planes, 1, kUse);
  EXPECT_EQ(grids.planes.Text(1, kUse), QString("0"));
  EXPECT_EQ(MarkedBase(grids.doc), std::nullopt);
}

TEST(AttenuationRows, TheButtonsReachEveryPlane) {
  Grids grids(test::kLowerLabel);
  grids.planes.ShowAll(false);
  EXPECT_THAT(ColumnTexts(grids.planes, kShown), ElementsAre("0", "0", "0"));
  EXPECT_TRUE(grids.doc.IsModified());
  grids.planes.ShowAll(true);
  EXPECT_THAT(ColumnTexts(grids.planes, kShown), ElementsAre("1", "1", "1"));
  EXPECT_TRUE(grids.planes.UseAll(false));
  EXPECT_THAT(ColumnTexts(grids.planes, kUse), ElementsAre("0", "0", "0"));
  EXPECT_TRUE(grids.planes.UseAll(true));
  EXPECT_THAT(ColumnTexts(grids.planes, kUse), ElementsAre("1", "1", "1"));
}

TEST(AttenuationRows, TheColoursAreThoseOfTheRecordUnderTheNamesOfTheRows) {
  Grids grids;
  const std::vector<CurveColor> colors = grids.planes.Colors();
  ASSERT_EQ(colors.size(), 3U);
  EXPECT_EQ(colors[0].name, "南");
  EXPECT_EQ(colors[2].name, "(2)北");
  *colors[2].color = 7;
  EXPECT_EQ(grids.doc.faults[1].attenColor, (std::vector<std::int32_t>{0x102030, 7}));
}

TEST(AttenuationRows, AResetGivesEveryPlaneTheColourOfItsAcquisition) {
  Grids grids(test::kPlaneLabel);
  const std::vector<FaultInfo> before = grids.doc.faults;
  FaultAcquisitionResult result;
  result.changed = true;
  StoreAcquisition(grids.doc, {}, result, before);
  const std::vector<FaultInfo> acquired = grids.doc.faults;
  for (const CurveColor& color : grids.planes.Colors()) *color.color = 0;
  grids.doc.faults[0].shortBaseColor[0] = 5;
  grids.doc.SetModified(false);
  grids.planes.ResetColors();
  for (const std::size_t i : {0U, 1U}) EXPECT_EQ(grids.doc.faults[i].attenColor, acquired[i].attenColor);
  EXPECT_EQ(grids.doc.faults[0].shortBaseColor[0], 5);  // not of this screen
  EXPECT_NE(grids.doc.faults[1].attenColor[0], grids.doc.faults[1].attenColor[1]);
  EXPECT_TRUE(grids.doc.IsModified());
}

TEST(AttenuationRows, AColourThatIsMissingMovesNoOther) {
  Grids grids;
  FaultAcquisitionResult result;
  result.changed = true;
  StoreAcquisition(grids.doc, {}, result, std::vector<FaultInfo>(grids.doc.faults));
  const std::vector<std::int32_t> acquired = grids.doc.faults[1].attenColor;
  grids.doc.faults[0].attenColor.clear();
  EXPECT_EQ(grids.planes.Colors().size(), 2U);
  grids.planes.ResetColors();
  EXPECT_EQ(grids.doc.faults[1].attenColor, acquired);
}

TEST(AttenuationRows, AllOutOfUseIsGuarded) {
  Grids grids(test::kPlaneLabel);
  ExpectDeclined(grids, [&] { EXPECT_FALSE(grids.planes.UseAll(false)); });
  grids.ExpectQuestion(kYes);
  EXPECT_TRUE(grids.planes.UseAll(false));
  EXPECT_EQ(grids.doc.baseSpectrumName, QString());
}

TEST(AttenuationRows, ARecordWithVectorsCutShortSurvivesEveryClick) {
  Grids grids;
  FaultInfo& fault = grids.doc.faults[1];
  fault.groundClass.clear();
  fault.attenColor.clear();
  fault.attenShow.clear();
  EXPECT_THAT(RowTexts(grids.planes, 2),
              ElementsAre("2", "(1)北", "", "7.2", "-", "12.5000", "nan", "#000000", "0", "1"));
  GiveText(grids.planes, 2, kClass, "B");
  GiveText(grids.planes, 2, kColor, "#FFFFFF");
  PressCheck(grids.planes, 2, kShown);
  EXPECT_EQ(grids.planes.Text(2, kShown), QString("0"));
  EXPECT_FALSE(grids.doc.IsModified());
}

TEST(RelationRows, TheRelationInUseIsChecked) {
  Grids grids;
  EXPECT_THAT(ColumnTexts(grids.relations, 1), ElementsAre("(水平)H20ダム距離減衰", "(鉛直)H20ダム距離減衰"));
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("1", "0"));
  grids.doc.attenuationMethod = "another";
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("0", "0"));
}

TEST(RelationRows, TheCheckedRelationStaysChecked) {
  Grids grids(test::kPlaneLabel);
  PressCheck(grids.relations, 1, 2);
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("1", "0"));
  EXPECT_EQ(grids.calculations, 0);
  EXPECT_FALSE(grids.doc.IsModified());
}

TEST(RelationRows, TheOtherRelationIsStoredAndComputed) {
  Grids grids(test::kWaveLabel);
  PressCheck(grids.relations, 2, 2);
  EXPECT_EQ(grids.doc.attenuationMethod, QString("(鉛直)H20ダム距離減衰"));
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("0", "1"));
  EXPECT_EQ(grids.calculations, 1);
}

TEST(RelationRows, TheOtherRelationIsGuardedWhileAPlaneIsTheBase) {
  Grids grids(test::kPlaneLabel);
  ExpectDeclined(grids, [&] { PressCheck(grids.relations, 2, 2); });
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("1", "0"));
  grids.ExpectQuestion(kYes);
  PressCheck(grids.relations, 2, 2);
  EXPECT_THAT(ColumnTexts(grids.relations, 2), ElementsAre("0", "1"));
  EXPECT_EQ(grids.calculations, 1);
  EXPECT_EQ(grids.doc.baseSpectrumName, QString());
}

}  // namespace
}  // namespace tremlo
