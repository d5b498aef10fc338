#include "core/graphs/GridActions.h"
#include "core/graphs/GridTable.h"
#include "core/graphs/NumberRows.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;

/// Three rows of one column of each type: text, number, list of A and B, check, colour.
struct Mixed {
  GridTable table;
  Mixed() {
    table.SetSize(3, 5);
    const CellType types[] = {CellType::Text, CellType::Number, CellType::List, CellType::Check,
                              CellType::Color};
    for (int column = 1; column <= 5; ++column) {
      CellFormat format;
      format.type = types[column - 1];
      format.choices = {QStringLiteral("A"), QStringLiteral("B")};
      table.SetColumnFormat(column, format);
    }
  }
  bool Takes(int column, const char* text) const {
    return AcceptedText(table, 1, column, QString::fromUtf8(text)).has_value();
  }
  void Lock(int row, int column) {
    CellFormat format = table.Format(row, column);
    format.locked = true;
    table.SetCellFormat(row, column, format);
  }
};

/// A growing list of one open column beside a locked one.
struct List {
  std::vector<double> values{1.0, 2.0, 3.0};
  NumberRows rows{{{QString(), nullptr, [](int index) { return 1.0 * index; }, 0, {}},
                   {QString(), [this] { return &values; }, nullptr, {}, {}}}};
};

GridText Lines(const char* text) {
  return ParseGridText(QString::fromUtf8(text), FieldSeparator::TabOrComma);
}

TEST(GridActions, EachTypeTakesItsOwnTexts) {
  const Mixed mixed;
  EXPECT_TRUE(mixed.Takes(1, "どんな文字でも"));
  EXPECT_TRUE(mixed.Takes(2, "abc"));
  EXPECT_TRUE(mixed.Takes(3, "B"));
  EXPECT_FALSE(mixed.Takes(3, "C"));
  EXPECT_TRUE(mixed.Takes(4, "1"));
  EXPECT_FALSE(mixed.Takes(4, "2"));
  EXPECT_TRUE(mixed.Takes(5, "#3232FF"));
  EXPECT_FALSE(mixed.Takes(5, "blue"));
}

TEST(GridActions, OnlyTextsAndNumbersCanBeEmpty) {
  const Mixed mixed;
  for (const int column : {1, 2}) EXPECT_TRUE(mixed.Takes(column, ""));
  for (const int column : {3, 4, 5}) EXPECT_FALSE(mixed.Takes(column, ""));
}

TEST(GridActions, ALockedCellTakesNothing) {
  Mixed mixed;
  mixed.Lock(1, 1);
  EXPECT_FALSE(mixed.Takes(1, "x"));
}

TEST(GridActions, NumberCellsStoreHalfWidth) {
  const Mixed mixed;
  EXPECT_EQ(AcceptedText(mixed.table, 1, 2, QStringLiteral("１２．５")), QStringLiteral("12.5"));
  EXPECT_EQ(AcceptedText(mixed.table, 1, 1, QStringLiteral("１２")), QStringLiteral("１２"));
}

TEST(GridActions, CopyTakesTheBlock) {
  Mixed mixed;
  mixed.table.SetText(2, 1, QStringLiteral("a"));
  mixed.table.SetText(3, 2, QStringLiteral("4"));
  EXPECT_EQ(CopyCells(mixed.table, {2, 1, 3, 2}),
            (GridText{{QStringLiteral("a"), QString()}, {QString(), QStringLiteral("4")}}));
  EXPECT_TRUE(CopyCells(mixed.table, {}).empty());
}

TEST(GridActions, PasteIsCutOffAtTheEdgesOfATable) {
  const Mixed mixed;
  EXPECT_EQ(PasteBlock(mixed.table, 2, 1, Lines("a\tb\nc\td\ne\tf\ng\th")), (GridBlock{2, 1, 3, 2}));
  EXPECT_EQ(PasteBlock(mixed.table, 1, 1, Lines("a\t1\tA\t1\t#000000\tmore")), (GridBlock{1, 1, 1, 5}));
}

TEST(GridActions, PasteGrowsAList) {
  List list;
  const GridText lines = Lines("7\n8\n9");
  const GridBlock block = PasteBlock(list.rows, 3, 2, lines);
  EXPECT_EQ(block, (GridBlock{3, 2, 5, 2}));
  list.rows.InsertRows(4, 2);
  PasteCells(list.rows, block, lines);
  EXPECT_THAT(list.values, ElementsAre(1.0, 2.0, 7.0, 8.0, 9.0));
}

TEST(GridActions, PasteThatNoCellTakesIsNone) {
  const List list;
  Mixed mixed;
  mixed.Lock(2, 2);
  EXPECT_TRUE(PasteBlock(list.rows, 1, 1, Lines("7\n8")).IsEmpty());
  EXPECT_TRUE(PasteBlock(mixed.table, 2, 2, Lines("7")).IsEmpty());
  EXPECT_TRUE(PasteBlock(mixed.table, 1, 4, Lines("7")).IsEmpty());
  EXPECT_TRUE(PasteBlock(mixed.table, 1, 1, {}).IsEmpty());
  EXPECT_TRUE(PasteBlock(mixed.table, 0, 0, Lines("7")).IsEmpty());
  EXPECT_TRUE(PasteBlock(mixed.table, 4, 1, Lines("7")).IsEmpty());
}

TEST(GridActions, PasteOverALockedColumnReachesTheOpenOne) {
  List list;
  const GridText lines = Lines("100\t7\n100\t8");
  PasteCells(list.rows, PasteBlock(list.rows, 1, 1, lines), lines);
  EXPECT_THAT(list.values, ElementsAre(7.0, 8.0, 3.0));
}

TEST(GridActions, ShortLinesLeaveTheCellsBehindThemAlone) {
  Mixed mixed;
  mixed.table.SetText(2, 2, QStringLiteral("5"));
  const GridText lines = Lines("a\t1\nb\nc\t3");
  PasteCells(mixed.table, PasteBlock(mixed.table, 1, 1, lines), lines);
  EXPECT_EQ(mixed.table.Text(1, 2), QStringLiteral("1"));
  EXPECT_EQ(mixed.table.Text(2, 1), QStringLiteral("b"));
  EXPECT_EQ(mixed.table.Text(2, 2), QStringLiteral("5"));
  EXPECT_EQ(mixed.table.Text(3, 2), QStringLiteral("3"));
}

TEST(GridActions, ClearingEmptiesTheOpenTextsAndNumbers) {
  Mixed mixed;
  mixed.Lock(2, 1);
  for (int row = 1; row <= 2; ++row) {
    mixed.table.SetText(row, 1, QStringLiteral("a"));
    mixed.table.SetText(row, 4, QStringLiteral("1"));
  }
  EXPECT_TRUE(HasClearableCell(mixed.table, {1, 1, 2, 5}));
  EXPECT_FALSE(HasClearableCell(mixed.table, {1, 3, 3, 5}));
  EXPECT_FALSE(HasClearableCell(mixed.table, {2, 1, 2, 1}));
  EXPECT_FALSE(HasClearableCell(mixed.table, {}));
  ClearCells(mixed.table, {1, 1, 2, 5});
  EXPECT_EQ(mixed.table.Text(1, 1), QString());
  EXPECT_EQ(mixed.table.Text(2, 1), QStringLiteral("a"));
  EXPECT_EQ(mixed.table.Text(1, 4), QStringLiteral("1"));
}

TEST(GridActions, TheFirstOpenColumnSkipsLockedOnes) {
  const List list;
  EXPECT_EQ(FirstOpenColumn(list.rows), 2);
  EXPECT_EQ(FirstOpenColumn(NumberRows({})), 1);
}

}  // namespace
}  // namespace tremlo
