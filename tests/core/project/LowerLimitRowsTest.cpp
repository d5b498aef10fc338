#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/LowerLimitRows.h"
#include "support/DocumentState.h"
#include "support/GridPress.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::ColumnTexts;
using test::DocumentState;
using test::PressCheck;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kSelected = 3;

/// The three lower limits of the project, of which the first is selected.
struct Grid : test::ProcedureParts {
  explicit Grid(const char16_t* baseLabel = nullptr) {
    test::FillProject(doc);
    if (baseLabel) test::ChooseBase(doc, baseLabel);
  }
  QStringList Marks() const { return ColumnTexts(rows, kSelected); }

  LowerLimitRows rows{doc, rules};
};

TEST(LowerLimitRows, ARowForEachSpectrum) {
  const Grid grid;
  EXPECT_THAT(ColumnTexts(grid.rows, 1), ElementsAre("1", "2", "3"));
  EXPECT_THAT(ColumnTexts(grid.rows, 2), ElementsAre("下限1", "H20大規模地震", "下限3"));
  EXPECT_THAT(grid.Marks(), ElementsAre("1", "0", "0"));
}

TEST(LowerLimitRows, ANewProjectStartsWithTheGuidelinesHorizontalSpectrum) {
  CMorvaneDoc doc(test::SourcePath(QStringLiteral("data")));
  EXPECT_FALSE(doc.ResetDocument());
  Grid parts;
  const LowerLimitRows rows(doc, parts.rules);
  EXPECT_EQ(rows.Text(1, 2), QString("H20大規模地震に対するダム耐震性能照査指針（案）・同解説（水平版）"));
  EXPECT_THAT(ColumnTexts(rows, kSelected), ElementsAre("1", "0", "0"));
}

TEST(LowerLimitRows, AClickMovesTheSelection) {
  for (const char16_t* base : {test::kPlaneLabel, test::kWaveLabel}) {
    Grid grid(base);
    PressCheck(grid.rows, 3, kSelected);
    EXPECT_THAT(grid.Marks(), ElementsAre("0", "0", "1"));
    EXPECT_TRUE(grid.doc.IsModified());
    EXPECT_EQ(grid.doc.baseSpectrumName, QString::fromUtf16(base));
  }
}

TEST(LowerLimitRows, TheSelectedRowStaysSelected) {
  Grid grid;
  PressCheck(grid.rows, 1, kSelected);
  EXPECT_THAT(grid.Marks(), ElementsAre("1", "0", "0"));
  Grid base(test::kLowerLabel);
  PressCheck(base.rows, 1, kSelected);
  EXPECT_THAT(base.Marks(), ElementsAre("1", "0", "0"));
  EXPECT_FALSE(base.doc.IsModified());
}

TEST(LowerLimitRows, AnotherRowIsGuardedWhileTheLowerLimitIsTheBase) {
  Grid grid(test::kLowerLabel);
  const DocumentState before(grid.doc);
  grid.prompt.ExpectQuestion(BaseChangeQuestion("下限1"), PromptAnswer::No);
  PressCheck(grid.rows, 2, kSelected);
  EXPECT_THAT(grid.Marks(), ElementsAre("1", "0", "0"));
  EXPECT_THAT(before.DifferencesTo(DocumentState(grid.doc)), IsEmpty());
  grid.prompt.ExpectQuestion(BaseChangeQuestion("下限1"), PromptAnswer::Yes);
  PressCheck(grid.rows, 2, kSelected);
  EXPECT_THAT(grid.Marks(), ElementsAre("0", "1", "0"));
  EXPECT_EQ(grid.doc.baseSpectrumName, QString());
  EXPECT_EQ(MarkedBase(grid.doc), std::nullopt);
}

TEST(LowerLimitRows, OfTwoSelectedTheFirstIsShownAndAClickLeavesOne) {
  Grid grid;
  grid.doc.lowerSpectra.At(1).lowerSelected = true;
  EXPECT_THAT(grid.Marks(), ElementsAre("1", "0", "0"));
  PressCheck(grid.rows, 2, kSelected);
  EXPECT_THAT(grid.Marks(), ElementsAre("0", "1", "0"));
  EXPECT_FALSE(grid.doc.lowerSpectra.At(0).lowerSelected);
}

TEST(LowerLimitRows, WithNothingSelectedNoRowIsMarked) {
  Grid grid;
  grid.doc.lowerSpectra.At(0).lowerSelected = false;
  grid.doc.lowerSpectra.At(1).name.clear();
  EXPECT_THAT(grid.Marks(), ElementsAre("0", "0", "0"));
}

TEST(LowerLimitRows, ARowThatIsNotThereChangesNothing) {
  Grid grid;
  EXPECT_EQ(grid.rules.SelectLowerSpectrum(3), ChoiceOutcome::Declined);
  grid.rows.SetText(4, kSelected, "1");
  EXPECT_FALSE(grid.doc.IsModified());
}

}  // namespace
}  // namespace tremlo
