#include "core/graphs/ComponentRows.h"
#include "core/graphs/MemberRows.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::ReadAll;
using test::SourcePath;
using testing::ElementsAre;
using testing::IsEmpty;

RecordImport ThreeComponents(bool onlyOne) {
  const QString path = SourcePath(QStringLiteral("tests/data/records/jma/SAMPLE_99901.csv"));
  return RecordImport({{path, {}, ReadAll(path)}}, onlyOne);
}

MemberList Members() {
  MemberList list;
  list.members = {{QStringLiteral("a/AOM001.EW"), RecordFormat::KnetAscii, QStringLiteral("AOM001"),
                   QStringLiteral("EW"), 10, true},
                  {QStringLiteral("a/AOM001.NS"), RecordFormat::KnetAscii, QStringLiteral("AOM001"),
                   QStringLiteral("NS"), 10, true},
                  {QStringLiteral("a/IWT002.NS"), RecordFormat::KnetAscii, QStringLiteral("IWT002"),
                   QStringLiteral("NS"), 10, true},
                  {QStringLiteral("a/map.png"), RecordFormat::Unknown, {}, {}, 10, false}};
  return list;
}

TEST(ComponentRows, ShowsWhatTheFileHolds) {
  RecordImport import = ThreeComponents(false);
  ComponentRows rows(import);
  EXPECT_EQ(rows.RowCount(), 3);
  EXPECT_EQ(rows.Text(1, 1), QStringLiteral("1"));
  EXPECT_EQ(rows.Text(2, 3), QStringLiteral("EW"));
  EXPECT_EQ(rows.Text(3, 4), QStringLiteral("300"));
  EXPECT_EQ(rows.Text(1, 5), QStringLiteral("87.499"));
  EXPECT_TRUE(rows.Format(1, 3).locked);
  EXPECT_FALSE(rows.Format(1, ComponentRows::kName).locked);
}

TEST(ComponentRows, TakesNamesAndChecksAndNoEmptyName) {
  RecordImport import = ThreeComponents(false);
  ComponentRows rows(import);
  rows.SetText(2, ComponentRows::kName, QStringLiteral("mine"));
  rows.SetText(2, ComponentRows::kName, QStringLiteral("  "));
  rows.SetText(3, ComponentRows::kChosen, QStringLiteral("0"));
  EXPECT_EQ(import.Components()[1].name, QStringLiteral("mine"));
  EXPECT_FALSE(import.Components()[2].chosen);
}

TEST(ComponentRows, OfASingleChoiceTheOthersGoOff) {
  RecordImport import = ThreeComponents(true);
  ComponentRows rows(import);
  rows.SetText(2, ComponentRows::kChosen, QStringLiteral("1"));
  EXPECT_EQ(rows.Text(1, 1) + rows.Text(2, 1) + rows.Text(3, 1), QStringLiteral("010"));
  rows.SetText(2, ComponentRows::kChosen, QStringLiteral("0"));
  EXPECT_EQ(rows.Text(2, 1), QStringLiteral("1"));
}

TEST(MemberRows, ASearchHidesRowsAndKeepsWhatIsChosen) {
  const MemberList list = Members();
  MemberRows rows(list, false);
  EXPECT_EQ(rows.RowCount(), 4);
  rows.SetText(3, MemberRows::kChosen, QStringLiteral("1"));
  rows.Search(QStringLiteral(" aom001  ns "));
  ASSERT_EQ(rows.RowCount(), 1);
  EXPECT_EQ(rows.Text(1, 5), QStringLiteral("a/AOM001.NS"));
  rows.ChooseShown(true);
  EXPECT_THAT(rows.Chosen(), ElementsAre(1U, 2U));
  rows.Search(QStringLiteral("no such"));
  EXPECT_EQ(rows.RowCount(), 0);
  rows.Search({});
  rows.ChooseShown(false);
  EXPECT_THAT(rows.Chosen(), IsEmpty());
}

TEST(MemberRows, WhatIsNoRecordCannotBeChosen) {
  const MemberList list = Members();
  MemberRows rows(list, false);
  EXPECT_TRUE(rows.Format(4, MemberRows::kChosen).locked);
  rows.SetText(4, MemberRows::kChosen, QStringLiteral("1"));
  rows.ChooseShown(true);
  EXPECT_THAT(rows.Chosen(), ElementsAre(0U, 1U, 2U));
  EXPECT_EQ(rows.Text(4, 4), QStringLiteral("記録ではありません"));
}

TEST(MemberRows, OfASingleChoiceTheLastCounts) {
  const MemberList list = Members();
  MemberRows rows(list, true);
  rows.SetText(1, MemberRows::kChosen, QStringLiteral("1"));
  rows.SetText(3, MemberRows::kChosen, QStringLiteral("1"));
  EXPECT_THAT(rows.Chosen(), ElementsAre(2U));
  rows.SetText(3, MemberRows::kChosen, QStringLiteral("0"));
  EXPECT_THAT(rows.Chosen(), IsEmpty());
}

}  // namespace
}  // namespace tremlo
