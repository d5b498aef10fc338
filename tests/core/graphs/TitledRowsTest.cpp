#include "core/graphs/GridActions.h"
#include "core/graphs/TitledRows.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Two rows of a name, a list, a check and a colour; what they take is written down.
class Rows : public TitledRows {
 public:
  Rows()
      : TitledRows({{u"名前"},
                    {u"数", CellType::Number},
                    {u"種別", CellType::List, {QStringLiteral("A"), QStringLiteral("B")}},
                    {u"表示", CellType::Check},
                    {u"色", CellType::Color}}) {}
  int RowCount() const override { return 2; }

  QStringList taken;

 protected:
  QString CellText(int row, int column) const override {
    return column == 4 ? CheckText(row == 1) : QStringLiteral("%1/%2").arg(row).arg(column);
  }
  void Take(int row, int column, const QString& text) override {
    taken << QStringLiteral("%1/%2 %3").arg(row).arg(column).arg(text);
  }
};

TEST(TitledRows, TitlesStandInRowZero) {
  const Rows rows;
  EXPECT_EQ(rows.ColumnCount(), 5);
  EXPECT_EQ(rows.Text(0, 1), QString("名前"));
  EXPECT_EQ(rows.Text(0, 5), QString("色"));
  EXPECT_EQ(rows.Text(2, 1), QString("2/1"));
  EXPECT_EQ(rows.Text(1, 4), QString("1"));
  EXPECT_EQ(rows.Text(2, 4), QString("0"));
}

TEST(TitledRows, CellsThatDoNotExistAreEmptyAndLocked) {
  const Rows rows;
  const std::pair<int, int> outside[] = {{0, 0}, {1, 0}, {3, 1}, {1, 6}, {-1, 1}, {0, 6}};
  for (const auto& [row, column] : outside)
    EXPECT_TRUE(rows.Text(row, column).isNull()) << row << ' ' << column;
  EXPECT_TRUE(rows.Format(1, 0).locked);
  EXPECT_TRUE(rows.Format(1, 6).locked);
}

TEST(TitledRows, TextsAndNumbersAreLockedAndTheOthersOpen) {
  const Rows rows;
  EXPECT_TRUE(rows.Format(1, 1).locked);
  EXPECT_TRUE(rows.Format(1, 2).locked);
  EXPECT_EQ(rows.Format(1, 2).type, CellType::Number);
  for (const int column : {3, 4, 5}) EXPECT_FALSE(rows.Format(1, column).locked) << column;
  EXPECT_EQ(rows.Format(1, 3).choices, QStringList({"A", "B"}));
}

TEST(TitledRows, OnlyOpenCellsTakeATextThatBelongsThere) {
  Rows rows;
  EXPECT_EQ(AnswerOfCell(rows, 1, 3, "C").text, std::nullopt);
  EXPECT_EQ(AnswerOfCell(rows, 1, 1, "x").text, std::nullopt);
  rows.SetText(1, 1, "x");
  rows.SetText(3, 4, "1");
  rows.SetText(0, 4, "1");
  EXPECT_THAT(rows.taken, IsEmpty());
  rows.SetText(2, 4, "1");
  rows.SetText(1, 3, "B");
  EXPECT_THAT(rows.taken, ElementsAre("2/4 1", "1/3 B"));
}

}  // namespace
}  // namespace tremlo
