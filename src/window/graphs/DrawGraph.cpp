#include "window/graphs/DrawGraph.h"

#include "core/graphs/CurveTrace.h"
#include "core/graphs/GraphTexts.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/CurvePaint.h"
#include "window/graphs/GraphSurface.h"
#include "window/graphs/LegendPaint.h"

#include <QFontMetricsF>

#include <cmath>

namespace tremlo {
namespace {

constexpr QColor kGrid(0xA0, 0xA0, 0xA0);

constexpr double kTextGap = 2.0;  // between texts and what they stand at, on a screen at 100 %

// Wide enough for any label that stands beside or under its tick.
constexpr int kLabelRoom = 400;

}  // namespace

PlotFrame FrameIn(const QRect& area, double scale) {
  return {area.left() + qRound(44 * scale), area.top() + qRound(28 * scale),
          area.left() + area.width() - qRound(16 * scale), area.top() + area.height() - qRound(32 * scale)};
}

void CDrawGraph::SetDataRange(double xMax, double xMin, double yMax, double yMin) {
  m_range = WorkingRange(m_kind, m_setting, {xMax, xMin, yMax, yMin}, autoMargin);
}

void CDrawGraph::Draw(QPainter& painter, const QRectF& area) {
  painter.fillRect(area, Qt::white);
  ComputeRange();
  const GraphSurface surface(painter, area);
  const PlotFrame frame = FrameIn(surface.Area(), surface.Scale());
  if (frame.IsEmpty()) return;
  DrawFrame(surface);
  CurveTracer tracer(XAxis(frame), YAxis(frame));
  for (const GraphSeries& series : m_series) DrawSeries(surface, tracer, series);
  DrawLegend(surface);
  DrawBox(surface);
}

void CDrawGraph::DrawFrame(const GraphSurface& surface) const {
  const PlotFrame frame = FrameIn(surface.Area(), surface.Scale());
  surface.Painter().setRenderHint(QPainter::Antialiasing, false);
  DrawGrid(surface, frame);
  DrawZeroLines(surface, frame);
  DrawLabels(surface, frame);
  DrawTitles(surface, frame);
}

void CDrawGraph::DrawSeries(const GraphSurface& surface, CurveTracer& tracer,
                            const GraphSeries& series) const {
  const PlotFrame frame = FrameIn(surface.Area(), surface.Scale());
  const std::vector<TracePiece> trace = tracer.Trace(series.x, series.y);
  QPainter& painter = surface.Painter();
  painter.save();
  painter.setClipRect(PenRect(frame.plotLeft, frame.plotTop, frame.plotRight, frame.plotBottom, 1),
                      Qt::IntersectClip);
  PaintTrace(surface, trace, series.pen);
  painter.restore();
}

std::optional<PickedPoint> CDrawGraph::PointAt(const QRect& area, const QPoint& position) const {
  const PlotFrame frame = FrameIn(area, 1.0);
  if (frame.IsEmpty()) return std::nullopt;
  if (!PenRect(frame.plotLeft, frame.plotTop, frame.plotRight, frame.plotBottom, 1).contains(position))
    return std::nullopt;
  return PickPoint(m_series, XAxis(frame), YAxis(frame), position.x(), position.y());
}

GraphAxis CDrawGraph::XAxis(const PlotFrame& frame) const {
  const auto scale = m_range.logarithmic ? GraphAxis::Scale::Logarithmic : GraphAxis::Scale::Linear;
  return {{m_range.xMin, m_range.xMax, m_range.xStep}, scale, frame.plotLeft, frame.plotRight};
}

GraphAxis CDrawGraph::YAxis(const PlotFrame& frame) const {
  return {
      {m_range.yMin, m_range.yMax, m_range.yStep}, GraphAxis::Scale::Linear, frame.plotBottom, frame.plotTop};
}

void CDrawGraph::DrawGrid(const GraphSurface& surface, const PlotFrame& frame) const {
  const int width = surface.LineWidth(1);
  const double centre = PenCentre(width);
  QPainter& painter = surface.Painter();
  painter.setPen(QPen(kGrid, width, Qt::DashDotLine, Qt::FlatCap));
  for (const AxisLine& line : XAxis(frame).GridLines())
    painter.drawLine(QPointF(line.pixel + centre, frame.plotTop),
                     QPointF(line.pixel + centre, frame.plotBottom));
  for (const AxisLine& line : YAxis(frame).GridLines())
    painter.drawLine(QPointF(frame.plotLeft, line.pixel + centre),
                     QPointF(frame.plotRight, line.pixel + centre));
}

void CDrawGraph::DrawZeroLines(const GraphSurface& surface, const PlotFrame& frame) const {
  const int width = surface.LineWidth(1);
  const auto zero = [](const GraphAxis& axis) {
    return axis.Min() < 0.0 && axis.IsUsable() ? axis.Pixel(0.0) : std::optional<int>(axis.FirstPixel());
  };
  if (const auto y = zero(YAxis(frame)))
    surface.FillPixels(frame.plotLeft, *y, frame.plotRight, *y, width, Qt::black);
  if (const auto x = zero(XAxis(frame)))
    surface.FillPixels(*x, frame.plotTop, *x, frame.plotBottom, width, Qt::black);
}

void CDrawGraph::DrawLabels(const GraphSurface& surface, const PlotFrame& frame) const {
  QPainter& painter = surface.Painter();
  painter.setPen(Qt::black);
  const int room = surface.Pixels(kLabelRoom);

  painter.setFont(surface.Font(xTickFont));
  const int top = frame.plotBottom + static_cast<int>(xTickFont * 2.0 * surface.Scale());
  for (const AxisLabel& label : XAxis(frame).Labels(TextsOf(m_kind).xLabelDecimals))
    painter.drawText(QRect(label.pixel - room / 2, top, room, room),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, label.text);

  painter.setFont(surface.Font(yTickFont));
  const int right = frame.plotLeft - static_cast<int>(yTickFont * 2.0 * surface.Scale());
  for (const AxisLabel& label : YAxis(frame).Labels(0))
    painter.drawText(QRect(right - room, label.pixel - room / 2, room, room),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, label.text);
}

void CDrawGraph::DrawTitles(const GraphSurface& surface, const PlotFrame& frame) const {
  const GraphTexts& texts = TextsOf(m_kind);
  QPainter& painter = surface.Painter();
  painter.setPen(Qt::black);
  const int room = surface.Pixels(kLabelRoom);
  const double gap = kTextGap * surface.Scale();

  const QFont xFont = surface.Font(xTitleFont);
  const double labelHeight = QFontMetricsF(surface.Font(xTickFont)).height();
  painter.setFont(xFont);
  painter.drawText(
      QRectF(frame.plotLeft, std::round(frame.plotBottom + gap * xTickFont + labelHeight + gap * xTitleFont),
             frame.plotRight - frame.plotLeft, room),
      Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, texts.XTitle());

  const QFont yFont = surface.Font(yTitleFont);
  const QFontMetricsF metrics(yFont);
  painter.setFont(yFont);
  painter.drawText(QRectF(std::round(frame.plotLeft - 6.0 * metrics.horizontalAdvance(u'0')),
                          std::round(frame.plotTop - 1.5 * metrics.height() - gap * yTitleFont), room, room),
                   Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, texts.YTitle());
  painter.drawText(QRectF(frame.plotLeft + 2.0 * gap, frame.plotTop + 2.0 * gap, room, room),
                   Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, texts.note);
}

void CDrawGraph::DrawLegend(const GraphSurface& surface) const {
  const PlotFrame frame = FrameIn(surface.Area(), surface.Scale());
  const QFontMetricsF metrics(surface.Font(yTitleFont));
  const double note = 2.0 * kTextGap * surface.Scale() + metrics.horizontalAdvance(TextsOf(m_kind).note);
  PaintLegend(
      surface,
      {frame.plotLeft, frame.plotTop, frame.plotRight - frame.plotLeft, frame.plotBottom - frame.plotTop},
      frame.plotLeft + static_cast<int>(std::ceil(note)), m_series, yTitleFont);
}

void CDrawGraph::DrawBox(const GraphSurface& surface) const {
  const PlotFrame frame = FrameIn(surface.Area(), surface.Scale());
  const int width = surface.LineWidth(1);
  const auto line = [&](int x1, int y1, int x2, int y2) {
    surface.FillPixels(x1, y1, x2, y2, width, Qt::black);
  };
  surface.Painter().setRenderHint(QPainter::Antialiasing, false);
  line(frame.plotLeft, frame.plotTop, frame.plotRight, frame.plotTop);
  line(frame.plotLeft, frame.plotBottom, frame.plotRight, frame.plotBottom);
  line(frame.plotLeft, frame.plotTop, frame.plotLeft, frame.plotBottom);
  line(frame.plotRight, frame.plotTop, frame.plotRight, frame.plotBottom);
}

}  // namespace tremlo
