#include "core/sources/SystemTables.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <algorithm>
#include <array>

namespace tremlo::fuzz {

namespace {

constexpr std::size_t kHeadingLines = 4;
constexpr qsizetype kLongestText = 260;

using Columns = std::array<const std::vector<double>*, 12>;

Columns ColumnsOf(const DamCoefSet& set) {
  return {&set.period, &set.ampA,  &set.ampB,  &set.ampC,   &set.ampD,  &set.coefM,
          &set.coefM2, &set.coefD, &set.coefX, &set.coefDX, &set.coefC, &set.coefNear};
}

void CheckRefusal(const TableFailure& failure, const DamCoefSet& set) {
  Require(failure.exitStatus == 1, "a refused table ends the program with status 1");
  Require(failure.text.startsWith(QStringLiteral("表.csvの")), "the message names the table");
  Require(set == DamCoefSet(), "a refused table leaves the set as it was");
}

void CheckDamCoef(const QByteArray& content) {
  DamCoefSet set;
  const auto failure = ParseDamCoef(content, QStringLiteral("表.csv"), set);
  DamCoefSet again;
  const auto failureAgain = ParseDamCoef(WithWindowsLineEnds(content), QStringLiteral("表.csv"), again);
  Require(failure.has_value() == failureAgain.has_value(), "the kind of line end refuses no table");
  if (failure) return CheckRefusal(*failure, set);

  Require(set.method == QStringView(kHorizontalMethod) || set.method == QStringView(kVerticalMethod),
          "a set has one of the two methods");
  Require(set.distanceKind == 0 || set.distanceKind == 1, "a set has one of the two distances");
  Require(set.title == again.title, "the kind of line end changes no title");
  const Columns columns = ColumnsOf(set);
  const Columns columnsAgain = ColumnsOf(again);
  const std::vector<std::vector<double>> expected = ScanColumns(content, kHeadingLines, columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    Require(SameNumbers(*columns[i], expected[i]), "coefficients are what the C library reads");
    Require(SameNumbers(*columns[i], *columnsAgain[i]), "the kind of line end changes no coefficient");
  }
}

bool Same(const MainFaultRow& a, const MainFaultRow& b) {
  return a.code == b.code && a.name == b.name && a.segment == b.segment &&
         SameNumbers(a.cornerA, b.cornerA) && SameNumbers(a.cornerB, b.cornerB) &&
         SameNumbers(a.cornerC, b.cornerC) && SameNumber(a.lon, b.lon) && SameNumber(a.lat, b.lat);
}

void CheckFaultData(const QByteArray& content) {
  std::vector<MainFaultRow> rows;
  ParseFaultData(content, rows);
  const bool marked = content.startsWith("\xEF\xBB\xBF");
  Require(rows.size() == CountLines(marked ? content.mid(3) : content, 0), "every line is a row");
  for (const MainFaultRow& row : rows) {
    Require(row.code.size() <= kLongestText && row.name.size() <= kLongestText,
            "a text has at most 260 units");
    Require(!row.code.contains(u',') && !row.name.contains(u','), "a text ends at the comma");
    Require(row.cornerA.size() == 4 && row.cornerB.size() == 4 && row.cornerC.size() == 4,
            "a row has four corners");
  }
  std::vector<MainFaultRow> again;
  ParseFaultData(WithWindowsLineEnds(content), again);
  Require(std::equal(rows.begin(), rows.end(), again.begin(), again.end(), Same),
          "the kind of line end changes no row");
}

void CheckLowSpec(const QByteArray& content) {
  QString name;
  std::vector<double> periods;
  std::vector<double> values;
  ParseLowSpec(content, name, periods, values);
  std::vector<std::vector<double>> expected = ScanColumns(content, 1, 2);
  if (!expected[0].empty() && expected[0].front() < expected[0].back()) {
    std::reverse(expected[0].begin(), expected[0].end());
    std::reverse(expected[1].begin(), expected[1].end());
  }
  Require(SameNumbers(periods, expected[0]), "periods are what the C library reads, longest first");
  Require(SameNumbers(values, expected[1]),
          "values are what the C library reads, in the order of the periods");
  Require(!name.contains(u'\n'), "the name is one line");
}

}  // namespace

void FuzzTables(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  CheckDamCoef(content);
  CheckFaultData(content);
  CheckLowSpec(content);
}

}  // namespace tremlo::fuzz
