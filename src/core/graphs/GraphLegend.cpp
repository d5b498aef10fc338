#include "core/graphs/GraphLegend.h"

#include <algorithm>

namespace tremlo {
namespace {

constexpr int kShareOfHeight = 3;  // a third of the frame
constexpr int kShareOfWidth = 2;   // half of it
constexpr int kLeastTextRows = 3;  // a cut name is wider than this many rows are high

}  // namespace

std::vector<std::size_t> CurvesToName(const std::vector<GraphSeries>& series) {
  if (std::count_if(series.begin(), series.end(), HasPoints) < 2) return {};
  std::vector<std::size_t> curves;
  for (std::size_t i = 0; i < series.size(); ++i)
    if (HasPoints(series[i]) && !series[i].name.isEmpty()) curves.push_back(i);
  return curves;
}

LegendRows FitLegendRows(int curves, int frameHeight, const LegendMetrics& metrics) {
  const int room = (frameHeight / kShareOfHeight - 3 * metrics.gap) / std::max(1, metrics.rowHeight);
  if (curves <= 0 || room <= 0) return {};
  if (curves <= room) return {curves, 0};
  if (room == 1) return {};
  return {room - 1, curves - (room - 1)};
}

LegendPlace PlaceLegend(const LegendRows& rows, const QRect& frame, int noteRight, int widestText,
                        const LegendMetrics& metrics) {
  if (rows.Count() == 0) return {};
  const int beside = metrics.sampleWidth + 3 * metrics.gap;
  const int right = frame.right() - metrics.gap;
  const int half = frame.left() + frame.width() - frame.width() / kShareOfWidth;
  const int room = right - std::max(half, noteRight + metrics.gap + 1) + 1 - beside;
  const int textWidth = std::min(widestText, room);
  if (textWidth < std::min(widestText, kLeastTextRows * metrics.rowHeight)) return {};
  const int width = beside + textWidth;
  const int height = rows.Count() * metrics.rowHeight + 2 * metrics.gap;
  return {QRect(right - width + 1, frame.top() + metrics.gap, width, height), textWidth};
}

QString OtherCurvesText(int count) {
  return QStringLiteral("他 %1 本").arg(count);
}

}  // namespace tremlo
