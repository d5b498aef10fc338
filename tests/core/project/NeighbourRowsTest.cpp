#include "core/graphs/CurvePalette.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/NeighbourRows.h"
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
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kColor = 3, kShown = 4, kUse = 5;

/// The waves "A" (in use), "B" and "C".
struct Grid : test::ProcedureParts {
  explicit Grid(const char16_t* baseLabel = nullptr) {
    test::FillProject(doc);
    doc.seedWaves.At(1).siteColor = 0x112233;
    if (baseLabel) test::ChooseBase(doc, baseLabel);
  }
  template <class Action>
  void ExpectDeclined(Action action) {
    const DocumentState before(doc);
    prompt.ExpectQuestion(BaseChangeQuestion(doc.baseSpectrumName), PromptAnswer::No);
    action();
    EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), IsEmpty());
    prompt.CheckUsedUp();
  }

  NeighbourRows rows{doc, rules};
};

TEST(NeighbourRows, ARowForEachWave) {
  const Grid grid;
  EXPECT_THAT(test::RowTexts(grid.rows, 1), ElementsAre("1", "A", "#000000", "1", "1"));
  EXPECT_THAT(test::RowTexts(grid.rows, 2), ElementsAre("2", "B", "#332211", "1", "0"));
  EXPECT_EQ(grid.rows.RowCount(), 3);
}

TEST(NeighbourRows, ColourAndShownAskNothing) {
  Grid grid(test::kWaveLabel);
  GiveText(grid.rows, 1, kColor, "#FF0000");
  EXPECT_EQ(grid.doc.seedWaves.At(0).siteColor, 0x0000FF);
  PressCheck(grid.rows, 1, kShown);
  EXPECT_FALSE(grid.doc.seedWaves.At(0).siteShow);
  EXPECT_TRUE(grid.doc.IsModified());
  EXPECT_EQ(grid.doc.baseSpectrumName, QString("A"));
  EXPECT_TRUE(grid.doc.seedWaves.At(1).siteShow);
}

TEST(NeighbourRows, AWaveGoesInAndOutOfUse) {
  Grid grid(test::kPlaneLabel);
  PressCheck(grid.rows, 2, kUse);
  PressCheck(grid.rows, 1, kUse);
  EXPECT_THAT(ColumnTexts(grid.rows, kUse), ElementsAre("0", "1", "0"));
  EXPECT_TRUE(grid.doc.IsModified());
}

TEST(NeighbourRows, TheBaseIsGuardedWhenItGoesOutOfUse) {
  Grid grid(test::kWaveLabel);
  grid.ExpectDeclined([&] { PressCheck(grid.rows, 1, kUse); });
  EXPECT_EQ(grid.rows.Text(1, kUse), QString("1"));
  grid.prompt.ExpectQuestion(BaseChangeQuestion("A"), PromptAnswer::Yes);
  PressCheck(grid.rows, 1, kUse);
  EXPECT_EQ(grid.rows.Text(1, kUse), QString("0"));
  EXPECT_EQ(MarkedBase(grid.doc), std::nullopt);
  EXPECT_FALSE(grid.doc.seedAdopted);
}

TEST(NeighbourRows, TheButtonsReachEveryWave) {
  Grid grid;
  grid.rows.ShowAll(false);
  EXPECT_THAT(ColumnTexts(grid.rows, kShown), ElementsAre("0", "0", "0"));
  EXPECT_TRUE(grid.doc.IsModified());
  grid.rows.ShowAll(true);
  EXPECT_THAT(ColumnTexts(grid.rows, kShown), ElementsAre("1", "1", "1"));
  EXPECT_TRUE(grid.rows.UseAll(true));
  EXPECT_THAT(ColumnTexts(grid.rows, kUse), ElementsAre("1", "1", "1"));
  EXPECT_TRUE(grid.rows.UseAll(false));
  EXPECT_THAT(ColumnTexts(grid.rows, kUse), ElementsAre("0", "0", "0"));
}

TEST(NeighbourRows, AllOutOfUseIsGuardedWhenOneIsTheBase) {
  Grid grid(test::kWaveLabel);
  grid.ExpectDeclined([&] { EXPECT_FALSE(grid.rows.UseAll(false)); });
  grid.prompt.ExpectQuestion(BaseChangeQuestion("A"), PromptAnswer::Yes);
  EXPECT_TRUE(grid.rows.UseAll(false));
  EXPECT_THAT(ColumnTexts(grid.rows, kUse), ElementsAre("0", "0", "0"));
  EXPECT_EQ(grid.doc.baseSpectrumName, QString());
}

TEST(NeighbourRows, TheColoursOfTheGraphAreThoseOfTheWaves) {
  Grid grid;
  grid.doc.seedWaves.At(2).name = QStringLiteral("A");
  const std::vector<CurveColor> colors = grid.rows.Colors();
  ASSERT_EQ(colors.size(), 3U);
  EXPECT_EQ(colors[1].name, QString("B"));
  *colors[2].color = 0x445566;
  EXPECT_THAT(ColumnTexts(grid.rows, kColor), ElementsAre("#000000", "#332211", "#665544"));
}

TEST(NeighbourRows, ResetColoursAreThoseOfThePalette) {
  Grid grid;
  for (int i = 0; i < 6; ++i) grid.doc.seedWaves.Add(QString::number(i));
  grid.rows.ResetColors();
  for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(grid.doc.seedWaves.At(i).siteColor, PaletteColor(i));
  EXPECT_NE(grid.doc.seedWaves.At(0).siteColor, grid.doc.seedWaves.At(1).siteColor);
  EXPECT_TRUE(grid.doc.IsModified());
}

TEST(NeighbourRows, AProjectWithoutWavesHasNoRows) {
  Grid grid;
  grid.doc.seedWaves.Clear();
  EXPECT_EQ(grid.rows.RowCount(), 0);
  EXPECT_EQ(grid.rows.Text(1, 2), QString());
  grid.rows.SetText(1, kUse, "1");
  grid.rows.ShowAll(true);
  grid.rows.ResetColors();
  EXPECT_THAT(grid.rows.Colors(), IsEmpty());
}

}  // namespace
}  // namespace tremlo
