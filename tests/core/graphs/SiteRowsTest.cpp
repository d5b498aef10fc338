#include "core/graphs/SiteRows.h"
#include "support/TestFolder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

QStringList TitlesOf(const GridData& rows) {
  QStringList titles;
  for (int row = 1; row <= rows.RowCount(); ++row) titles << rows.Text(row, 0);
  return titles;
}

TEST(TextRows, OfTheJobAreItsSixTexts) {
  SiteRecord site;
  TextRows rows(JobRows(site));
  EXPECT_EQ(TitlesOf(rows),
            QStringList({QStringLiteral("タイトル"), QStringLiteral("サブタイトル"), QStringLiteral("日付"),
                         QStringLiteral("会社名"), QStringLiteral("電話番号"), QStringLiteral("FAX番号")}));
  for (int row = 1; row <= 6; ++row) rows.SetText(row, 1, QString::number(row));
  EXPECT_EQ(site.title + site.subtitle + site.workDate + site.company + site.phone + site.fax, u"123456");
  site.company = QStringLiteral("髙橋建設");
  EXPECT_EQ(rows.Text(4, 1), u"髙橋建設");
}

TEST(TextRows, OfTheSiteAreNameAndAddress) {
  SiteRecord site;
  TextRows rows(SiteRows(site));
  EXPECT_EQ(TitlesOf(rows), QStringList({QStringLiteral("現場名"), QStringLiteral("住所")}));
  rows.SetText(1, 1, QStringLiteral("ダム"));
  rows.SetText(2, 1, QStringLiteral("県"));
  EXPECT_EQ(site.siteName, u"ダム");
  EXPECT_EQ(site.address, u"県");
}

TEST(TextRows, OfTheCommentsAreTenNumberedLines) {
  SiteRecord site;
  TextRows rows(CommentRows(site), QStringLiteral("コメント"));
  EXPECT_EQ(rows.RowCount(), 10);
  EXPECT_EQ(rows.Text(0, 1), u"コメント");
  EXPECT_TRUE(rows.Text(3, 0).isNull());  // the grid numbers it
  rows.SetText(10, 1, QStringLiteral("最後"));
  EXPECT_EQ(site.comments[9], u"最後");
}

TEST(TextRows, HaveNothingBeyondTheirCells) {
  SiteRecord site;
  const SiteRecord before = site;
  TextRows rows(SiteRows(site));
  for (const auto& [row, column] : {std::pair{0, 1}, {3, 1}, {1, 2}, {-1, 1}}) {
    rows.SetText(row, column, QStringLiteral("x"));
    EXPECT_TRUE(rows.Text(row, column).isEmpty());
  }
  EXPECT_EQ(site, before);
  EXPECT_FALSE(rows.Grows());
}

TEST(PositionRows, ShowDegreesAndMinutesWholeAndSecondsWithFourDecimals) {
  SitePosition position{38.0, 15.0, 20.66, 137.0, 46.0, 37.0};
  const PositionRows rows(position);
  EXPECT_EQ(TitlesOf(rows), QStringList({QStringLiteral("北緯"), QStringLiteral("東経")}));
  const QStringList shown = {rows.Text(1, 1), rows.Text(1, 2), rows.Text(1, 3),
                             rows.Text(2, 1), rows.Text(2, 2), rows.Text(2, 3)};
  EXPECT_EQ(shown, QStringList({"38", "15", "20.6600", "137", "46", "37.0000"}));
  EXPECT_EQ(rows.Text(0, 1) + rows.Text(0, 2) + rows.Text(0, 3), u"度分秒");
  EXPECT_EQ(rows.Format(1, 1).type, CellType::Number);
  EXPECT_FALSE(rows.Format(2, 3).locked);
}

TEST(PositionRows, EachCellWritesItsOwnNumberAlone) {
  SitePosition position;
  PositionRows rows(position);
  double written = 0.0;
  for (int row = 1; row <= 2; ++row)
    for (int column = 1; column <= 3; ++column) rows.SetText(row, column, QString::number(written += 1.5));
  EXPECT_EQ(position, (SitePosition{1.5, 3.0, 4.5, 6.0, 7.5, 9.0}));
}

TEST(PositionRows, ANumberShownRoundedStaysExact) {
  SitePosition position{38.5, 15.0, 20.123456789, 137.0, 46.0, 37.0};
  PositionRows rows(position);
  rows.SetText(2, 1, QStringLiteral("136"));
  EXPECT_EQ(position, (SitePosition{38.5, 15.0, 20.123456789, 136.0, 46.0, 37.0}));
  EXPECT_EQ(rows.ExactText(1, 1), u"38.5");
  EXPECT_EQ(rows.ExactText(1, 3), u"20.123456789");
}

TEST(PositionRows, ANumberIsTakenExactlyAsTyped) {
  SitePosition position;
  PositionRows rows(position);
  rows.SetText(1, 3, QStringLiteral("20.66789"));
  EXPECT_EQ(position.latSec, 20.66789);
  EXPECT_EQ(rows.Text(1, 3), u"20.6679");
}

TEST(PositionRows, AnEmptiedCellAndANumberBeyondAllMeasureLeaveThePosition) {
  const SitePosition before{38.0, 15.0, 20.66, 137.0, 46.0, 37.0};
  SitePosition position = before;
  PositionRows rows(position);
  for (const char* text : {"", "1e400", "-1e400", "nan"}) rows.SetText(1, 1, QString::fromLatin1(text));
  EXPECT_EQ(position, before);
  rows.SetText(0, 1, QStringLiteral("1"));
  rows.SetText(3, 1, QStringLiteral("1"));
  rows.SetText(1, 4, QStringLiteral("1"));
  EXPECT_EQ(position, before);
}

TEST(PositionRows, WhatIsNotTakenIsNoChange) {
  SitePosition position{38.0, 15.0, 20.66, 137.0, 46.0, 37.0};
  const PositionRows rows(position);
  for (const char* text : {"", "inf", "nan", "38", "38.0"})
    EXPECT_FALSE(rows.WouldChange(1, 1, QString::fromLatin1(text))) << text;
  EXPECT_TRUE(rows.WouldChange(1, 1, QStringLiteral("38.5")));
  EXPECT_FALSE(rows.WouldChange(0, 1, QStringLiteral("1")));
}

TEST(ZoneRow, OffersTheLabelsOfTheNineteenZones) {
  SiteRecord site;
  ZoneRow row(site);
  EXPECT_EQ(row.Text(0, 1), u"平面直角座標系番号");
  EXPECT_EQ(row.Text(1, 1), u"I (1)");
  const CellFormat format = row.Format(1, 1);
  EXPECT_EQ(format.type, CellType::List);
  EXPECT_EQ(format.choices.size(), 19);
  EXPECT_EQ(format.choices.front(), u"I (1)");
  EXPECT_EQ(format.choices.back(), u"XIX (19)");
  row.SetText(1, 1, QStringLiteral("VIII (8)"));
  EXPECT_EQ(site.planeZone, u"VIII (8)");
}

TEST(ZoneRow, ShowsALabelFromADamagedFileAsItIs) {
  SiteRecord site;
  site.planeZone = QStringLiteral("XX (20)");
  EXPECT_EQ(ZoneRow(site).Text(1, 1), u"XX (20)");
}

}  // namespace
}  // namespace tremlo
