#include "core/graphs/GraphCsv.h"

#include "core/files/Cp932Text.h"
#include "core/graphs/GraphTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tremlo {

namespace {

std::size_t PointCount(const GraphSeries& curve) {
  return std::min(curve.x.size(), curve.y.size());
}

/// Curves that share a column of x.
struct Group {
  const GraphSeries* longest = nullptr;
  std::vector<const GraphSeries*> curves;

  /// Whether the x of the one are the beginning of the x of the other.
  bool Fits(const GraphSeries& curve) const {
    const auto common = static_cast<std::ptrdiff_t>(std::min(PointCount(*longest), PointCount(curve)));
    return std::equal(curve.x.begin(), curve.x.begin() + common, longest->x.begin());
  }
  void Add(const GraphSeries& curve) {
    if (!longest || PointCount(curve) > PointCount(*longest)) longest = &curve;
    curves.push_back(&curve);
  }
};

std::vector<Group> Grouped(const std::vector<GraphSeries>& curves) {
  std::vector<Group> groups;
  for (const GraphSeries& curve : curves) {
    if (!IsLine(curve)) continue;
    const auto fitting =
        std::find_if(groups.begin(), groups.end(), [&](const Group& group) { return group.Fits(curve); });
    (fitting == groups.end() ? groups.emplace_back() : *fitting).Add(curve);
  }
  return groups;
}

std::string Quoted(QString text) {
  const bool plain = std::none_of(text.begin(), text.end(),
                                  [](QChar c) { return c == u',' || c == u'"' || c == u'\n' || c == u'\r'; });
  if (plain) return EncodeCp932(text);
  return EncodeCp932(u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"');
}

/// One line of cells at a time.
class CsvWriter {
 public:
  void Cell(const QString& title) {
    Begin();
    m_text += Quoted(title);
  }
  void Cell(const std::vector<double>& values, std::size_t count, std::size_t row) {
    Begin();
    if (row >= count || !std::isfinite(values[row])) return;
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), values[row]);
    if (error == std::errc()) m_text.append(digits.data(), end);
  }
  void EndLine() {
    m_text += '\n';
    m_begun = false;
  }
  std::string Take() { return std::move(m_text); }

 private:
  void Begin() {
    if (m_begun) m_text += ',';
    m_begun = true;
  }

  std::string m_text;
  bool m_begun = false;
};

}  // namespace

bool IsLine(const GraphSeries& curve) {
  return PointCount(curve) >= 2;
}

std::string CurvesCsv(GraphKind kind, const std::vector<GraphSeries>& curves) {
  const std::vector<Group> groups = Grouped(curves);
  if (groups.empty()) return {};
  const GraphTexts& texts = TextsOf(kind);
  CsvWriter csv;
  std::size_t rows = 0;
  for (const Group& group : groups) {
    rows = std::max(rows, PointCount(*group.longest));
    csv.Cell(texts.XTitle());
    for (const GraphSeries* const curve : group.curves)
      csv.Cell(curve->name.isEmpty() ? texts.YTitle() : curve->name + u' ' + texts.YTitle());
  }
  csv.EndLine();
  for (std::size_t row = 0; row < rows; ++row) {
    for (const Group& group : groups) {
      csv.Cell(group.longest->x, PointCount(*group.longest), row);
      for (const GraphSeries* const curve : group.curves) csv.Cell(curve->y, PointCount(*curve), row);
    }
    csv.EndLine();
  }
  return csv.Take();
}

}  // namespace tremlo
