#include "core/graphs/GridActions.h"
#include "core/graphs/GridTable.h"
#include "core/graphs/NumberRows.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

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
    return AnswerOfCell(table, 1, column, QString::fromUtf8(text)).text.has_value();
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

TEST(GridActions, ALockedCellTakesNothingAndRefusesNothing) {
  Mixed mixed;
  for (const int column : {1, 2, 3}) {
    mixed.Lock(1, column);
    EXPECT_FALSE(mixed.Takes(column, "1e400")) << column;
    EXPECT_FALSE(AnswerOfCell(mixed.table, 1, column, QStringLiteral("1e400")).refusal) << column;
  }
}

TEST(GridActions, AnOpenCellTellsWhyItRefuses) {
  const Mixed mixed;
  using Reason = GridRefusal::Reason;
  const auto refusal = [&](int column, const char* text) {
    return AnswerOfCell(mixed.table, 1, column, QString::fromUtf8(text)).refusal;
  };
  EXPECT_EQ(refusal(2, "1e400"), Reason::TooLarge);
  EXPECT_EQ(refusal(2, "1,23"), Reason::NoNumber);
  EXPECT_EQ(refusal(2, "12 gal"), Reason::NoNumber);
  for (const int column : {3, 4, 5}) {
    EXPECT_EQ(refusal(column, "C"), Reason::NoChoice) << column;
    EXPECT_EQ(refusal(column, ""), std::nullopt) << column;
  }
}

TEST(GridActions, ARefusalNamesRowColumnAndText) {
  Mixed mixed;
  const GridRefusal refusal{GridRefusal::Reason::TooLarge, 2, 3, QStringLiteral("1e400")};
  EXPECT_EQ(RefusalText(mixed.table, refusal).toStdString(),
            "数値が大きすぎます。\n\n行：2\n列：3\n内容：1e400");
  mixed.table.SetText(0, 3, QStringLiteral("分"));
  mixed.table.SetText(2, 0, QStringLiteral("東経"));
  EXPECT_EQ(RefusalText(mixed.table, refusal).toStdString(),
            "数値が大きすぎます。\n\n行：東経\n列：分\n内容：1e400");
  const GridRefusal behind{GridRefusal::Reason::PastRows, 4, 0, QString(100, u'x')};
  EXPECT_EQ(RefusalText(mixed.table, behind).toStdString(),
            "貼り付ける行が表に入りきりません。\n\n行：4\n内容：" + std::string(60, 'x') + "…");
}

TEST(GridActions, NumberCellsStoreHalfWidth) {
  const Mixed mixed;
  EXPECT_EQ(AnswerOfCell(mixed.table, 1, 2, QStringLiteral("１２．５")).text, QStringLiteral("12.5"));
  EXPECT_EQ(AnswerOfCell(mixed.table, 1, 1, QStringLiteral("１２")).text, QStringLiteral("１２"));
}

TEST(GridActions, TextCellsStoreOneLine) {
  const Mixed mixed;
  const auto stored = [&](const char* text) {
    return AnswerOfCell(mixed.table, 1, 1, QString::fromUtf8(text))
        .text.value_or(QStringLiteral("none"))
        .toStdString();
  };
  EXPECT_EQ(stored("上の\r\n\nダム\r\n"), "上の ダム");
  EXPECT_EQ(stored("\n a \u2028b\r"), " a  b");
  EXPECT_EQ(stored("\n"), "");
}

TEST(GridActions, CopyTakesTheBlock) {
  Mixed mixed;
  mixed.table.SetText(2, 1, QStringLiteral("a"));
  mixed.table.SetText(3, 2, QStringLiteral("4"));
  EXPECT_EQ(CopyCells(mixed.table, {2, 1, 3, 2}),
            (GridText{{QStringLiteral("a"), QString()}, {QString(), QStringLiteral("4")}}));
  EXPECT_TRUE(CopyCells(mixed.table, {}).empty());
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
