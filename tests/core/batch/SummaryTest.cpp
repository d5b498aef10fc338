#include "core/batch/SummaryRow.h"
#include "core/batch/SummaryTable.h"
#include "core/files/Cp932Text.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::TestFolder;

SummaryRow Row() {
  SummaryRow row;
  row.line = 12;
  row.seed = QStringLiteral("波形,1.csv");
  row.target = "t.csv";
  row.status = JobStatus::Converged;
  row.passes = 6;
  row.deviation = 0.1;
  row.overshoot = 1.0 / 3.0;
  row.undershoot = 0.0;
  row.pga = 305.25;
  row.pgv = 1e-7;
  row.pgd = 1e22;
  row.files = QStringList{"0012_a.csv", "0012_a_FFT.csv"};
  row.hash = "abc";
  row.note = QStringLiteral("警告：x");
  return row;
}

TEST(SummaryRow, HasACellForEachHeading) {
  EXPECT_EQ(RowText(Row()),
            QStringLiteral("12,\"波形,1.csv\",t.csv,0,true,6,0.1,0.3333333333333333,0,305.25,1e-07,"
                           "1e+22,0012_a.csv;0012_a_FFT.csv,abc,警告：x"));
  EXPECT_EQ(CellsOf(RowText(Row()))->size(), SummaryHeading().split(u',').size());
}

TEST(SummaryRow, WhatIsNotThereIsAnEmptyCell) {
  SummaryRow row;
  row.line = 3;
  row.seed = "a";
  row.target = "t";
  row.note = "no file";
  EXPECT_EQ(RowText(row), QString("3,a,t,2,,,,,,,,,,,no file"));
  row.status = JobStatus::NotConverged;
  row.passes = 0;
  EXPECT_EQ(RowText(row), QString("3,a,t,3,false,0,,,,,,,,,no file"));
}

TEST(SummaryRow, ReadsBackWhatGoesOnNeeds) {
  const QString text = SummaryHeading() + u'\n' + RowText(Row()) + u'\n';
  for (const QByteArray& content : {text.toUtf8(), QByteArray::fromStdString(EncodeCp932(text))}) {
    const std::vector<KeptRow> rows = ParseSummary(content);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].line, 12);
    EXPECT_EQ(rows[0].seed, QStringLiteral("波形,1.csv"));
    EXPECT_EQ(rows[0].target, QString("t.csv"));
    EXPECT_EQ(rows[0].status, JobStatus::Converged);
    EXPECT_EQ(rows[0].hash, QString("abc"));
    EXPECT_EQ(rows[0].note, QStringLiteral("警告：x"));
    EXPECT_EQ(rows[0].text, RowText(Row()));
  }
}

TEST(SummaryRow, WhatIsNoRowIsLeftOut) {
  const QByteArray good = RowText(Row()).toUtf8();
  EXPECT_TRUE(ParseSummary("").empty());
  EXPECT_TRUE(ParseSummary(good).empty());
  EXPECT_TRUE(ParseSummary("another heading\n" + good).empty());
  const QByteArray heading = SummaryHeading().toUtf8() + '\n';
  EXPECT_TRUE(ParseSummary(heading + "12,a,t\n\"\n" + good + ",more\n").empty());
  EXPECT_TRUE(ParseSummary(heading + "3,a,t,7,,,,,,,,,,,\n").empty());
  EXPECT_EQ(ParseSummary(heading + "cut of\n" + good + "\n").size(), 1U);
}

TEST(SummaryTable, HoldsTheRowsThatThereAreInTheirOrder) {
  const TestFolder folder;
  SummaryTable table(folder.Path("s.csv"), BatchEncoding::Utf8, 3);
  ASSERT_TRUE(table.Write());
  const QByteArray heading = SummaryHeading().toUtf8() + '\n';
  EXPECT_EQ(test::ReadAll(folder.Path("s.csv")), heading);
  table.Put(2, "third");
  table.Put(0, "first");
  ASSERT_TRUE(table.Write());
  EXPECT_EQ(test::ReadAll(folder.Path("s.csv")), heading + "first\nthird\n");
  table.Put(0, "again");
  ASSERT_TRUE(table.Write());
  EXPECT_EQ(test::ReadAll(folder.Path("s.csv")), heading + "again\nthird\n");
  EXPECT_EQ(folder.Names(), QStringList{"s.csv"});
}

TEST(SummaryTable, IsWrittenWhenRowsHaveComeInAndOnlyThen) {
  const TestFolder folder;
  const QString path = folder.Path("s.csv");
  SummaryTable table(path, BatchEncoding::Utf8, 1);
  EXPECT_TRUE(table.WriteIfDue());
  EXPECT_TRUE(folder.Names().isEmpty());
  table.Put(0, "row");
  EXPECT_TRUE(table.WriteIfDue());
  EXPECT_TRUE(test::ReadAll(path).endsWith("\nrow\n"));
  folder.Write("s.csv", "another's");
  EXPECT_TRUE(table.WriteIfDue());
  EXPECT_EQ(test::ReadAll(path), QByteArray("another's"));
}

TEST(SummaryTable, KeepsTheEncodingOfTheJobs) {
  const TestFolder folder;
  for (const BatchEncoding encoding :
       {BatchEncoding::Utf8, BatchEncoding::Utf8WithMark, BatchEncoding::Cp932}) {
    SummaryTable table(folder.Path("s.csv"), encoding, 1);
    table.Put(0, QStringLiteral("波形"));
    ASSERT_TRUE(table.Write());
    const QByteArray content = test::ReadAll(folder.Path("s.csv"));
    EXPECT_EQ(EncodingOf(content), encoding);
    EXPECT_EQ(LinesOf(content).value(1), QStringLiteral("波形"));
  }
}

TEST(SummaryTable, AFileThatCannotBeWrittenIsTold) {
  const TestFolder folder;
  SummaryTable table(folder.Write("file", "") + "/s.csv", BatchEncoding::Utf8, 1);
  EXPECT_FALSE(table.Write());
  table.Put(0, "row");
  EXPECT_FALSE(table.Write());
}

}  // namespace
}  // namespace tremlo
