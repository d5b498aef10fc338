#include "core/graphs/GridTable.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(GridTable, TextsStayWhereTheyAreWhenTheSizeChanges) {
  GridTable table;
  table.SetSize(2, 2);
  table.SetText(1, 2, QStringLiteral("a"));
  table.SetText(2, 1, QStringLiteral("b"));
  table.SetText(0, 2, QStringLiteral("title"));
  table.SetSize(3, 4);
  EXPECT_EQ(table.Text(1, 2), QStringLiteral("a"));
  EXPECT_EQ(table.Text(2, 1), QStringLiteral("b"));
  EXPECT_EQ(table.Text(0, 2), QStringLiteral("title"));
  EXPECT_EQ(table.Text(3, 4), QString());
  table.SetSize(1, 2);
  EXPECT_EQ(table.Text(1, 2), QStringLiteral("a"));
  table.SetSize(2, 2);
  EXPECT_EQ(table.Text(2, 1), QString());
}

TEST(GridTable, PlacesOutsideAreNeitherReadNorWritten) {
  GridTable table;
  table.SetSize(2, 2);
  for (const auto& [row, column] : {std::pair{3, 1}, {1, 3}, {-1, 1}, {1, -1}}) {
    table.SetText(row, column, QStringLiteral("x"));
    table.SetCellFormat(row, column, CellFormat{CellType::Check, true, {}, {}, {}});
    EXPECT_EQ(table.Text(row, column), QString());
  }
  table.SetSize(-1, -5);
  EXPECT_EQ(table.RowCount(), 0);
  EXPECT_EQ(table.ColumnCount(), 0);
}

TEST(GridTable, ACellFormatStandsBeforeThatOfItsColumn) {
  GridTable table;
  table.SetSize(2, 2);
  CellFormat check;
  check.type = CellType::Check;
  table.SetColumnFormat(2, check);
  CellFormat locked = check;
  locked.locked = true;
  table.SetCellFormat(1, 2, locked);
  EXPECT_EQ(table.Format(1, 2), locked);
  EXPECT_EQ(table.Format(2, 2), check);
  EXPECT_EQ(table.Format(2, 1), CellFormat());
  table.SetColumnFormat(2, check);
  EXPECT_EQ(table.Format(1, 2), check);
}

TEST(GridTable, FormatsOfDroppedCellsDoNotComeBack) {
  GridTable table;
  table.SetSize(2, 1);
  CellFormat locked;
  locked.locked = true;
  table.SetCellFormat(2, 1, locked);
  table.SetSize(1, 1);
  table.SetSize(2, 1);
  EXPECT_FALSE(table.Format(2, 1).locked);
}

TEST(GridTable, OnlyAnotherTextOrNumberWouldChangeACell) {
  GridTable table;
  table.SetSize(1, 2);
  CellFormat number;
  number.type = CellType::Number;
  table.SetColumnFormat(2, number);
  for (const int column : {1, 2}) table.SetText(1, column, QStringLiteral("1.500"));
  EXPECT_FALSE(table.WouldChange(1, 1, QStringLiteral("1.500")));
  EXPECT_TRUE(table.WouldChange(1, 1, QStringLiteral("1.5")));
  EXPECT_FALSE(table.WouldChange(1, 2, QStringLiteral("1.5")));
  EXPECT_TRUE(table.WouldChange(1, 2, QStringLiteral("1.51")));
  EXPECT_TRUE(table.WouldChange(1, 2, QString()));
  table.SetText(1, 2, QString());
  EXPECT_TRUE(table.WouldChange(1, 2, QStringLiteral("-9e32")));
}

}  // namespace
}  // namespace tremlo
