#include "core/graphs/NumberRows.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kBlank = std::numeric_limits<double>::infinity();

/// A locked column of times, 0.5 apart, and one of samples with a mark for blanks.
struct Samples {
  std::vector<double> values;
  NumberRows rows{{{QStringLiteral("時間"), nullptr, [](int index) { return 0.5 * index; }, 2, {}},
                   {QStringLiteral("加速度"), [this] { return &values; }, nullptr, 3, kBlank}}};
};

TEST(NumberRows, ShowsTheVectorAndTheComputedColumn) {
  Samples samples;
  samples.values = {1.23456, kBlank, -2.0};
  EXPECT_EQ(samples.rows.RowCount(), 3);
  EXPECT_EQ(samples.rows.ColumnCount(), 2);
  EXPECT_EQ(samples.rows.Text(0, 2), QStringLiteral("加速度"));
  EXPECT_EQ(samples.rows.Text(3, 1), QStringLiteral("1.00"));
  EXPECT_EQ(samples.rows.Text(1, 2), QStringLiteral("1.235"));
  EXPECT_EQ(samples.rows.Text(2, 2), QString());
  EXPECT_TRUE(samples.rows.Text(2, 0).isNull());
}

TEST(NumberRows, OfAListThatNoViewCanHoldTheBeginningIsShown) {
  Samples samples;
  samples.values.resize(20'000'001);
  EXPECT_EQ(samples.rows.RowCount(), 20'000'000);
  EXPECT_FALSE(samples.rows.Grows());
  samples.values.resize(19'999'999);
  EXPECT_EQ(samples.rows.RowCount(), 19'999'999);
  EXPECT_TRUE(samples.rows.Grows());
}

TEST(NumberRows, ExactTextKeepsTheDigitsBehindTheRounding) {
  Samples samples;
  samples.values = {1.23456, kBlank, 0.1 + 0.2};
  EXPECT_EQ(samples.rows.ExactText(1, 2), QStringLiteral("1.23456"));
  EXPECT_EQ(samples.rows.ExactText(2, 2), QString());
  EXPECT_EQ(samples.rows.ExactText(3, 2), QStringLiteral("0.30000000000000004"));
  EXPECT_EQ(samples.rows.ExactText(2, 1), QStringLiteral("0.50"));
}

TEST(NumberRows, AnEmptiedCellBecomesTheBlankMarkOrZero) {
  Samples samples;
  samples.values = {1.0};
  samples.rows.SetText(1, 2, QString());
  EXPECT_EQ(samples.values[0], kBlank);

  std::vector<double> plain = {1.0};
  NumberRows rows({{QString(), [&] { return &plain; }, nullptr, {}, {}}});
  rows.SetText(1, 1, QString());
  EXPECT_EQ(plain[0], 0.0);
}

TEST(NumberRows, TextThatIsNoFiniteNumberCountsAsZero) {
  Samples samples;
  for (const char* text : {"abc", "-", "nan", "-inf", "-1e999"}) {
    samples.values = {1.0};
    samples.rows.SetText(1, 2, QString::fromLatin1(text));
    EXPECT_EQ(samples.values[0], 0.0) << text;
  }
  samples.rows.SetText(1, 2, QStringLiteral("7.2abc"));
  EXPECT_EQ(samples.values[0], 7.2);
}

TEST(NumberRows, OnlyAnotherNumberWouldChangeACell) {
  Samples samples;
  samples.values = {1.5, std::numeric_limits<double>::infinity()};
  for (const char* text : {"1.5", "1.50", "15e-1"})
    EXPECT_FALSE(samples.rows.WouldChange(1, 2, QString::fromLatin1(text))) << text;
  for (const char* text : {"1.51", "", "abc"})
    EXPECT_TRUE(samples.rows.WouldChange(1, 2, QString::fromLatin1(text))) << text;
  EXPECT_FALSE(samples.rows.WouldChange(2, 2, QString()));
  EXPECT_FALSE(samples.rows.WouldChange(1, 1, QStringLiteral("7")));
  EXPECT_FALSE(samples.rows.WouldChange(3, 2, QStringLiteral("7")));
}

TEST(NumberRows, WithoutABlankTheEmptyTextChangesNoZero) {
  std::vector<double> plain = {0.0, 1.0};
  NumberRows rows({{QString(), [&] { return &plain; }, nullptr, {}, {}}});
  EXPECT_FALSE(rows.WouldChange(1, 1, QString()));
  EXPECT_TRUE(rows.WouldChange(2, 1, QString()));
}

TEST(NumberRows, ANumberThatIsLeftAsItIsShownIsNotRounded) {
  std::vector<double> exact = {1.23456};
  NumberRows rows({{QString(), [&] { return &exact; }, nullptr, 3, {}}});
  EXPECT_FALSE(rows.WouldChange(1, 1, QStringLiteral("1.235")));
  EXPECT_FALSE(rows.WouldChange(1, 1, QStringLiteral("1.23456")));
  EXPECT_TRUE(rows.WouldChange(1, 1, QStringLiteral("1.2346")));
}

TEST(NumberRows, TheComputedColumnIsLocked) {
  Samples samples;
  samples.values = {1.0};
  EXPECT_TRUE(samples.rows.Format(1, 1).locked);
  EXPECT_FALSE(samples.rows.Format(1, 2).locked);
  EXPECT_TRUE(samples.rows.Format(1, 3).locked);
  samples.rows.SetText(1, 1, QStringLiteral("9"));
  EXPECT_EQ(samples.rows.Text(1, 1), QStringLiteral("0.00"));
}

TEST(NumberRows, RowsAreInsertedAsZeroAndRemoved) {
  Samples samples;
  samples.values = {1.0, 2.0, 3.0};
  samples.rows.InsertRows(2, 2);
  EXPECT_THAT(samples.values, ElementsAre(1.0, 0.0, 0.0, 2.0, 3.0));
  samples.rows.InsertRows(6, 1);
  EXPECT_THAT(samples.values, ElementsAre(1.0, 0.0, 0.0, 2.0, 3.0, 0.0));
  samples.rows.RemoveRows(1, 4);
  EXPECT_THAT(samples.values, ElementsAre(3.0, 0.0));
  samples.rows.RemoveRows(2, 100);
  EXPECT_THAT(samples.values, ElementsAre(3.0));
  samples.rows.RemoveRows(0, 1);
  samples.rows.InsertRows(1, -1);
  EXPECT_THAT(samples.values, ElementsAre(3.0));
  samples.rows.RemoveRows(1, 1);
  EXPECT_THAT(samples.values, IsEmpty());
}

TEST(NumberRows, TwoVectorsGrowTogetherAndTheShorterCounts) {
  std::vector<double> periods = {2.0, 1.0};
  std::vector<double> values = {10.0, 20.0, 30.0};
  NumberRows rows({{QString(), [&] { return &periods; }, nullptr, {}, {}},
                   {QString(), [&] { return &values; }, nullptr, {}, {}}});
  EXPECT_EQ(rows.RowCount(), 2);
  rows.InsertRows(1, 1);
  EXPECT_THAT(periods, ElementsAre(0.0, 2.0, 1.0));
  EXPECT_THAT(values, ElementsAre(0.0, 10.0, 20.0, 30.0));
  EXPECT_EQ(rows.Text(4, 1), QString());
  rows.SetText(4, 1, QStringLiteral("5"));
  EXPECT_EQ(periods.size(), 3U);
}

TEST(NumberRows, ARecordThatIsGoneIsAnEmptyList) {
  NumberRows rows({{QString(), []() -> std::vector<double>* { return nullptr; }, nullptr, {}, {}}});
  EXPECT_EQ(rows.RowCount(), 0);
  EXPECT_EQ(rows.Text(1, 1), QString());
  rows.SetText(1, 1, QStringLiteral("1"));
  rows.InsertRows(1, 1);
  rows.RemoveRows(1, 1);
  EXPECT_EQ(rows.RowCount(), 0);
}

TEST(NumberRows, WithoutAStoredColumnThereIsNoRow) {
  EXPECT_EQ(NumberRows({{QString(), nullptr, [](int index) { return 1.0 * index; }, {}, {}}}).RowCount(), 0);
}

}  // namespace
}  // namespace tremlo
