#include "core/graphs/ColorRows.h"
#include "core/graphs/RangeRows.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class RangeRowsTest : public testing::Test {
 protected:
  RangeRowsTest() { block.autoRange = block.specLog = 0; }

  static std::string Listed(const GridData& rows, bool locks = false) {
    QStringList lines;
    for (int row = locks ? 1 : 0; row <= rows.RowCount(); ++row) {
      QStringList cells;
      for (int column = 1; column <= rows.ColumnCount(); ++column)
        cells << (locks ? QString(rows.Format(row, column).locked ? "-" : "o") : rows.Text(row, column));
      lines << cells.join(locks ? "" : "|");
    }
    return lines.join('\n').toStdString();
  }

  WaveGraphSetting block;
  RangeRows time{GraphKind::Time, "時間-加速度", block};
  RangeRows spectrum{GraphKind::Spectrum, "周期-加速度応答スペクトル", block};
  RangeRows fourier{GraphKind::Fourier, "フーリエスペクトル", block};
};

TEST_F(RangeRowsTest, ALinearGraphShowsMinimumMaximumAndStepOfEitherAxis) {
  EXPECT_EQ(Listed(time),
            "時間-加速度|最小値|最大値|間隔\n"
            "時間 (sec)|0|30|5\n"
            "加速度 (gal)|-500|500|100");
  EXPECT_EQ(Listed(spectrum),
            "周期-加速度応答スペクトル|最小値|最大値|間隔\n"
            "周期T (sec)|0|50|5\n"
            "加速度応答スペクトルS (gal)|0|1200|200");
  EXPECT_EQ(Listed(fourier),
            "フーリエスペクトル|最小値|最大値|間隔\n"
            "周期T (sec)|0|10|2\n"
            "フーリエスペクトル (gal・sec)|0|500|50");
}

TEST_F(RangeRowsTest, ALogarithmicGraphChangesItsTitleAndTheTextsOfItsXRow) {
  block.specLog = block.fourierLog = 1;
  EXPECT_EQ(time.Title(), "時間-加速度");
  EXPECT_EQ(Listed(spectrum),
            "周期-加速度応答スペクトル(対数)|最小値|最大値|間隔\n"
            "周期T (sec) (×10^n)|0.01|10|対数\n"
            "加速度応答スペクトルS (gal)|0|1200|200");
  EXPECT_EQ(Listed(fourier),
            "フーリエスペクトル(対数)|最小値|最大値|間隔\n"
            "周期T (sec) (×10^n)|0.1|10|対数\n"
            "フーリエスペクトル (gal・sec)|0|500|50");
}

TEST_F(RangeRowsTest, TheBlockOfALowerLimitSpectrumShowsItsShorterAxis) {
  block = DefaultLowerGraph();
  block.specLog = 0;
  EXPECT_EQ(spectrum.Text(1, 2) + ' ' + spectrum.Text(1, 3) + ' ' + spectrum.Text(1, 4), "0 5 1");
}

TEST_F(RangeRowsTest, ACellWritesTheFieldThatItShowsAndNoOther) {
  struct Cell {
    GridData& rows;
    int row, column;
    double WaveGraphSetting::*field;
  };
  using Block = WaveGraphSetting;
  const auto expectWrites = [this](const Cell& cell) {
    WaveGraphSetting expected = block;
    expected.*cell.field = 12.5;
    cell.rows.SetText(cell.row, cell.column, "12.5");
    EXPECT_EQ(block, expected) << cell.row << ',' << cell.column;
    EXPECT_EQ(cell.rows.Text(cell.row, cell.column), "12.5");
  };
  for (const Cell& cell : std::initializer_list<Cell>{{time, 1, 2, &Block::timeXMin},
                                                      {time, 1, 3, &Block::timeXMax},
                                                      {time, 1, 4, &Block::timeXStep},
                                                      {time, 2, 2, &Block::timeYMin},
                                                      {time, 2, 3, &Block::timeYMax},
                                                      {time, 2, 4, &Block::timeYStep},
                                                      {spectrum, 1, 2, &Block::specXMin},
                                                      {spectrum, 1, 3, &Block::specXMax},
                                                      {spectrum, 1, 4, &Block::specXStep},
                                                      {spectrum, 2, 2, &Block::specYMin},
                                                      {spectrum, 2, 3, &Block::specYMax},
                                                      {spectrum, 2, 4, &Block::specYStep},
                                                      {fourier, 1, 2, &Block::fourierXMin},
                                                      {fourier, 1, 3, &Block::fourierXMax},
                                                      {fourier, 1, 4, &Block::fourierXStep},
                                                      {fourier, 2, 2, &Block::fourierYMin},
                                                      {fourier, 2, 3, &Block::fourierYMax},
                                                      {fourier, 2, 4, &Block::fourierYStep}})
    expectWrites(cell);
  block.specLog = block.fourierLog = 1;
  for (const Cell& cell : std::initializer_list<Cell>{{spectrum, 1, 2, &Block::specLogXMin},
                                                      {spectrum, 1, 3, &Block::specLogXMax},
                                                      {fourier, 1, 2, &Block::fourierLogXMin},
                                                      {fourier, 1, 3, &Block::fourierLogXMax}})
    expectWrites(cell);
}

TEST_F(RangeRowsTest, AnEmptiedCellAndAnEndlessNumberLeaveTheBlock) {
  const WaveGraphSetting before = block;
  for (const char* text : {"", "inf", "-inf", "nan", "1e400"}) time.SetText(2, 3, text);
  EXPECT_EQ(block, before);
  time.SetText(2, 3, "abc");
  EXPECT_EQ(block.timeYMax, 0.0);
}

TEST_F(RangeRowsTest, OnlyAnotherNumberWouldChangeTheBlock) {
  block.timeYMax = 1.5;
  for (const char* text : {"1.5", "1.50", "", "1e400"})
    EXPECT_FALSE(time.WouldChange(2, 3, QString::fromLatin1(text))) << text;
  EXPECT_TRUE(time.WouldChange(2, 3, "1.6"));
  EXPECT_FALSE(time.WouldChange(1, 1, "7"));
}

TEST_F(RangeRowsTest, TextsAndWordsAreNoNumbers) {
  block.specLog = 1;
  const WaveGraphSetting before = block;
  for (int row = -1; row <= 3; ++row)
    for (const int column : {0, 1, 5}) spectrum.SetText(row, column, "7");
  spectrum.SetText(1, 4, "7");
  spectrum.SetText(0, 2, "7");
  EXPECT_EQ(block, before);
  EXPECT_EQ(spectrum.Text(3, 2), "");
}

TEST_F(RangeRowsTest, NumbersAreShownWithoutBeingRounded) {
  block.timeXMax = 0.1 + 0.2;
  EXPECT_EQ(time.Text(1, 3), "0.30000000000000004");
}

TEST_F(RangeRowsTest, ACellIsOpenWhereTheDrawingReadsIt) {
  EXPECT_EQ(Listed(spectrum, true), "-ooo\n-ooo");
  block.autoRange = 1;
  EXPECT_EQ(Listed(time, true), "---o\n---o");
  EXPECT_EQ(Listed(spectrum, true), "---o\n---o");
  block.specLog = 1;
  EXPECT_EQ(Listed(spectrum, true), "-oo-\n---o");
  block.autoRange = 0;
  EXPECT_EQ(Listed(spectrum, true), "-oo-\n-ooo");
}

TEST(ColorRowsTest, ACurveHasItsNameAndItsColour) {
  WaveGraphSetting block;
  block.specColor = 0x0000FF;
  ColorRows rows(ColorsOf(block));
  ASSERT_EQ(rows.RowCount(), 3);
  EXPECT_EQ(rows.Text(0, 1) + ' ' + rows.Text(0, 2), "名称 色");
  EXPECT_EQ(rows.Text(1, 1) + ' ' + rows.Text(1, 2), "時間-加速度 #3232FF");
  EXPECT_EQ(rows.Text(2, 1) + ' ' + rows.Text(2, 2), "周期-加速度応答スペクトル #FF0000");
  EXPECT_EQ(rows.Text(3, 1) + ' ' + rows.Text(3, 2), "フーリエスペクトル #3232FF");
  EXPECT_TRUE(rows.Format(1, 1).locked);
  EXPECT_EQ(rows.Format(1, 2).type, CellType::Color);
  EXPECT_FALSE(rows.Format(1, 2).locked);
}

TEST(ColorRowsTest, AColourIsWrittenWhereItIsKept) {
  WaveGraphSetting block;
  ColorRows rows(ColorsOf(block));
  rows.SetText(3, 2, "#00FF10");
  EXPECT_EQ(block.fourierColor, 0x10FF00);
  const WaveGraphSetting before = block;
  rows.SetText(1, 2, "");
  rows.SetText(1, 2, "red");
  rows.SetText(1, 1, "#00FF10");
  rows.SetText(4, 2, "#00FF10");
  rows.SetText(0, 2, "#00FF10");
  EXPECT_EQ(block, before);
}

}  // namespace
}  // namespace tremlo
