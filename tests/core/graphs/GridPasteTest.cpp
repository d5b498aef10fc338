#include "core/graphs/GridPaste.h"
#include "core/graphs/GridTable.h"
#include "core/graphs/NumberRows.h"

#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Reason = GridRefusal::Reason;

constexpr double kBlank = std::numeric_limits<double>::infinity();

/// Pastes as a grid does, and says what came of it: "" or the reason, the place and the text of a refusal.
std::string Paste(GridData& data, int row, int column, const char* text) {
  const GridPaste paste = ReadPaste(data, row, column, QString::fromUtf8(text));
  if (paste.refusal) {
    EXPECT_TRUE(paste.block.IsEmpty());
    constexpr const char* kNames[] = {"large", "number", "choice", "columns", "rows", "comma"};
    return std::string(kNames[static_cast<int>(paste.refusal->reason)]) + ' ' +
           std::to_string(paste.refusal->row) + ',' + std::to_string(paste.refusal->column) + ' ' +
           paste.refusal->text.toStdString();
  }
  data.InsertRows(data.RowCount() + 1, paste.block.bottom - data.RowCount());
  PasteCells(data, paste);
  return {};
}

/// A growing list of two open columns.
class PasteIntoSpectrum : public testing::Test {
 protected:
  std::string At(int row, int column, const char* text) { return Paste(rows, row, column, text); }

  std::vector<double> periods{1.0, 2.0};
  std::vector<double> values{10.0, 20.0};
  NumberRows rows{{{QString(), [this] { return &periods; }, nullptr, {}, {}},
                   {QString(), [this] { return &values; }, nullptr, {}, {}}}};
};

/// A growing list of samples beside their times, which are locked.
class PasteIntoSamples : public testing::Test {
 protected:
  std::string At(int row, int column, const char* text) { return Paste(rows, row, column, text); }

  std::vector<double> acc{1.0, 2.0, 3.0};
  NumberRows rows{{{QString(), nullptr, [](int index) { return 1.0 * index; }, 0, {}},
                   {QString(), [this] { return &acc; }, nullptr, {}, kBlank}}};
};

/// Three rows of one column of each type: text, number, list of A and B, check, colour.
class PasteIntoTable : public testing::Test {
 protected:
  PasteIntoTable() {
    table.SetSize(3, 5);
    int column = 0;
    for (const CellType type :
         {CellType::Text, CellType::Number, CellType::List, CellType::Check, CellType::Color}) {
      CellFormat format;
      format.type = type;
      format.choices = {QStringLiteral("A"), QStringLiteral("B")};
      table.SetColumnFormat(++column, format);
    }
  }
  std::string At(int row, int column, const char* text) { return Paste(table, row, column, text); }
  std::string Cell(int row, int column) const { return table.Text(row, column).toStdString(); }

  GridTable table;
};

TEST_F(PasteIntoSpectrum, FieldsBetweenTabsKeepTheirCommas) {
  EXPECT_EQ(At(1, 1, "0.5\t1,234.5\r\n1,000\t-12,345,678\r\n"), "");
  EXPECT_THAT(periods, ElementsAre(0.5, 1000.0));
  EXPECT_THAT(values, ElementsAre(1234.5, -12345678.0));
}

TEST_F(PasteIntoSpectrum, BeforeTheLastColumnCommasAreThoseOfThousands) {
  EXPECT_EQ(At(1, 2, "1,234.5\n999\n1,000\n"), "");
  EXPECT_THAT(values, ElementsAre(1234.5, 999.0, 1000.0));
  EXPECT_EQ(At(1, 2, "0.01,5"), "columns 1,0 0.01,5");
  EXPECT_EQ(At(1, 2, "7\n1,23\n"), "columns 2,0 1,23");
  EXPECT_EQ(At(1, 2, "0,123"), "columns 1,0 0,123");
  EXPECT_THAT(values, ElementsAre(1234.5, 999.0, 1000.0));
}

TEST_F(PasteIntoSpectrum, CommasSeparateTheColumnsOfATable) {
  EXPECT_EQ(At(1, 1, "0.1,100\r\n0.2,200,\r\n"), "");
  EXPECT_THAT(periods, ElementsAre(0.1, 0.2));
  EXPECT_THAT(values, ElementsAre(100.0, 200.0));
  EXPECT_EQ(At(1, 1, "1,100\n2,200"), "");
  EXPECT_THAT(periods, ElementsAre(1.0, 2.0));
  EXPECT_EQ(At(1, 1, "T,Sa\n\"3\",\"1,300\""), "");
  EXPECT_THAT(periods, ElementsAre(0.0, 3.0));
  EXPECT_THAT(values, ElementsAre(0.0, 1300.0));
}

TEST_F(PasteIntoSpectrum, CommasThatMayMeanEitherAreRefused) {
  EXPECT_EQ(At(1, 1, "1,234.5"), "comma 1,0 1,234.5");
  EXPECT_EQ(At(2, 1, "999\n1,000\n1,001"), "comma 3,0 1,000");
  EXPECT_EQ(At(1, 1, "0.1,5\n1,234,567"), "comma 2,0 1,234,567");
  EXPECT_EQ(At(1, 1, "0.1,1,234.5"), "columns 1,0 0.1,1,234.5");
  EXPECT_THAT(periods, ElementsAre(1.0, 2.0));
  EXPECT_THAT(values, ElementsAre(10.0, 20.0));
}

TEST_F(PasteIntoSamples, OneOpenColumnMayStandForAList) {
  EXPECT_EQ(At(1, 1, "0.00,5\n0.01,6"), "");
  EXPECT_THAT(acc, ElementsAre(5.0, 6.0, 3.0));
  EXPECT_EQ(At(1, 1, "1,456\n2,789"), "comma 1,0 1,456");
  EXPECT_EQ(At(1, 1, "100\t7\n100\t8"), "");
  EXPECT_THAT(acc, ElementsAre(7.0, 8.0, 3.0));
}

TEST_F(PasteIntoSpectrum, FullWidthDigitsSignsAndSeparatorsAreRead) {
  EXPECT_EQ(At(1, 1, "０．５\t１，２３４．５\n\t−２\n　３　\t–4"), "");
  EXPECT_THAT(periods, ElementsAre(0.5, 0.0, 3.0));
  EXPECT_THAT(values, ElementsAre(1234.5, -2.0, -4.0));
}

TEST_F(PasteIntoSpectrum, MoreFieldsThanColumnsAreRefusedUnlessTheyAreBlank) {
  EXPECT_EQ(At(1, 1, "1\t2\t \t\n"), "");
  EXPECT_THAT(values, ElementsAre(2.0, 20.0));
  EXPECT_EQ(At(1, 1, "5\t6\n1\t2\t3"), "columns 2,0 1 2 3");
  EXPECT_THAT(values, ElementsAre(2.0, 20.0));
}

TEST_F(PasteIntoSpectrum, NothingThatIsNoNumberIsCutDownToOne) {
  for (const char* text : {"12 gal", "1.234,5", "1,23", "1 234", "1/2", "50%", "5-", "1e", "0x10", "▲5",
                           "(5)", "¥5", "--5", "5,"}) {
    const std::string line = std::string("7\t") + text;
    EXPECT_EQ(At(1, 1, line.c_str()), std::string("number 1,2 ") + text);
  }
  EXPECT_EQ(At(1, 1, "1\t2\n3\t1e400"), "large 2,2 1e400");
  EXPECT_EQ(At(1, 1, (std::string(400, '9') + "\t1").c_str()), "large 1,1 " + std::string(400, '9'));
  EXPECT_THAT(periods, ElementsAre(1.0, 2.0));
  EXPECT_THAT(values, ElementsAre(10.0, 20.0));
}

TEST_F(PasteIntoSpectrum, WordsCountAsZeroAndBlanksToo) {
  EXPECT_EQ(At(1, 1, "周期T\t情報 inf\n-\tinformation\n\tnan"), "");
  EXPECT_THAT(periods, ElementsAre(0.0, 0.0, 0.0));
  EXPECT_THAT(values, ElementsAre(0.0, 0.0, 0.0));
}

TEST_F(PasteIntoSamples, BlanksAndTheirExportAreBlanks) {
  EXPECT_EQ(At(1, 2, "\ninf\n+INF\n-inf\n-infinity"), "");
  EXPECT_THAT(acc, ElementsAre(kBlank, kBlank, kBlank, 0.0, 0.0));
}

TEST_F(PasteIntoSamples, AListGrowsAndCellsBehindAShortLineStay) {
  const GridPaste paste = ReadPaste(rows, 3, 2, QStringLiteral("7\n8\n9"));
  EXPECT_EQ(paste.block, (GridBlock{3, 2, 5, 2}));
  EXPECT_EQ(At(3, 2, "7\n8\n9"), "");
  EXPECT_THAT(acc, ElementsAre(1.0, 2.0, 7.0, 8.0, 9.0));
  EXPECT_EQ(At(1, 1, "0\n0\t5"), "");
  EXPECT_THAT(acc, ElementsAre(1.0, 5.0, 7.0, 8.0, 9.0));
}

TEST_F(PasteIntoTable, LinesBehindTheLastRowAreRefusedUnlessTheyAreBlank) {
  EXPECT_EQ(At(2, 1, "a\nb\n\n \t\n"), "");
  EXPECT_EQ(Cell(2, 1) + Cell(3, 1), "ab");
  EXPECT_EQ(At(2, 1, "c\nd\ne\tf\n"), "rows 4,0 e f");
  EXPECT_EQ(Cell(2, 1) + Cell(3, 1), "ab");
}

TEST_F(PasteIntoTable, EachTypeTakesItsOwnTextsOrRefusesThem) {
  EXPECT_EQ(At(1, 1, "a,b\t1\tB\t1\t#000000"), "");
  EXPECT_EQ(Cell(1, 1) + Cell(1, 2) + Cell(1, 3) + Cell(1, 4) + Cell(1, 5), "a,b1B1#000000");
  EXPECT_EQ(At(1, 1, "c\t2\tC"), "choice 1,3 C");
  EXPECT_EQ(At(1, 4, "7"), "choice 1,4 7");
  EXPECT_EQ(At(1, 1, "c\t2\t\t\t"), "");
  EXPECT_EQ(Cell(1, 1) + Cell(1, 2) + Cell(1, 3) + Cell(1, 4) + Cell(1, 5), "c2B1#000000");
}

TEST_F(PasteIntoTable, APasteThatNoCellTakesIsNone) {
  CellFormat locked;
  locked.locked = true;
  table.SetCellFormat(2, 1, locked);
  for (const char* text : {"7", ""}) {
    EXPECT_TRUE(ReadPaste(table, 2, 1, QString::fromUtf8(text)).block.IsEmpty());
    EXPECT_TRUE(ReadPaste(table, 0, 0, QString::fromUtf8(text)).block.IsEmpty());
    EXPECT_TRUE(ReadPaste(table, 1, 6, QString::fromUtf8(text)).block.IsEmpty());
  }
  EXPECT_EQ(At(4, 1, "7"), "rows 4,0 7");
}

}  // namespace
}  // namespace tremlo
