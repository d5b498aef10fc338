#include "window/graphs/LegendPaint.h"

#include "core/graphs/GraphLegend.h"
#include "window/graphs/CurvePaint.h"
#include "window/graphs/GraphSurface.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tremlo {
namespace {

constexpr QColor kEdge(0xA0, 0xA0, 0xA0);
constexpr QColor kBack(255, 255, 255, 224);  // a curve behind the names is seen, and does not disturb them

void PaintEdge(QPainter& painter, const QRect& box, int width) {
  painter.fillRect(box.left(), box.top(), box.width(), width, kEdge);
  painter.fillRect(box.left(), box.bottom() - width + 1, box.width(), width, kEdge);
  painter.fillRect(box.left(), box.top(), width, box.height(), kEdge);
  painter.fillRect(box.right() - width + 1, box.top(), width, box.height(), kEdge);
}

}  // namespace

void PaintLegend(const GraphSurface& surface, const QRect& frame, int noteRight,
                 const std::vector<GraphSeries>& series, double fontFactor) {
  const std::vector<std::size_t> curves = CurvesToName(series);
  if (curves.empty()) return;
  const QFont font = surface.Font(fontFactor);
  const QFontMetricsF fontMetrics(font);
  const LegendMetrics metrics{static_cast<int>(std::ceil(fontMetrics.height())) + surface.Pixels(1),
                              surface.Pixels(28), surface.Pixels(4)};
  const LegendRows rows = FitLegendRows(static_cast<int>(curves.size()), frame.height(), metrics);
  const auto text = [&](int row) {
    return row < rows.named ? series[curves[static_cast<std::size_t>(row)]].name
                            : OtherCurvesText(rows.others);
  };
  double widest = 0.0;
  for (int row = 0; row < rows.Count(); ++row)
    widest = std::max(widest, fontMetrics.horizontalAdvance(text(row)));
  const LegendPlace place =
      PlaceLegend(rows, frame, noteRight, static_cast<int>(std::ceil(widest)) + 1, metrics);
  if (place.box.isEmpty()) return;

  QPainter& painter = surface.Painter();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(place.box, kBack);
  PaintEdge(painter, place.box, surface.LineWidth(1));
  painter.setFont(font);
  const int left = place.box.left() + metrics.gap;
  for (int row = 0; row < rows.Count(); ++row) {
    const int top = place.box.top() + metrics.gap + row * metrics.rowHeight;
    if (row < rows.named) {
      const int middle = top + metrics.rowHeight / 2;
      PaintTrace(surface, {{left, middle, left + metrics.sampleWidth, middle}},
                 series[curves[static_cast<std::size_t>(row)]].pen);
    }
    painter.setPen(Qt::black);
    painter.drawText(QRect(left + metrics.sampleWidth + metrics.gap, top, place.textWidth, metrics.rowHeight),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics.elidedText(text(row), Qt::ElideMiddle, place.textWidth));
  }
  painter.restore();
}

}  // namespace tremlo
