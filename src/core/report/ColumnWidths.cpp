#include "core/report/ColumnWidths.h"

#include <algorithm>
#include <numeric>

namespace tremlo {

namespace {

double Sum(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

/// Gives `rest` to the columns below their natural width, to all of them alike until one has it.
void Fill(std::vector<double>& widths, std::span<const ColumnNeed> needs, double rest) {
  std::vector<std::size_t> order(widths.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto missing = [&](std::size_t i) { return needs[i].natural - widths[i]; };
  std::sort(order.begin(), order.end(),
            [&](std::size_t a, std::size_t b) { return missing(a) < missing(b); });
  for (std::size_t k = 0; k < order.size(); ++k) {
    const std::size_t column = order[k];
    const double given =
        std::max(0.0, std::min(missing(column), rest / static_cast<double>(order.size() - k)));
    widths[column] += given;
    rest -= given;
  }
}

}  // namespace

std::vector<double> ColumnWidths(std::span<const ColumnNeed> needs, double room) {
  const double share = room / static_cast<double>(needs.size());
  std::vector<double> widths;
  for (const ColumnNeed& need : needs) widths.push_back(need.natural);
  const double rest = room - Sum(widths);
  if (rest >= 0.0) {
    for (double& width : widths) width += rest / static_cast<double>(needs.size());
    return widths;
  }
  for (std::size_t i = 0; i < needs.size(); ++i) widths[i] = std::min(needs[i].least, share);
  Fill(widths, needs, room - Sum(widths));
  return widths;
}

}  // namespace tremlo
