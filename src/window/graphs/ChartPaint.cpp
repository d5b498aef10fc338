#include "window/graphs/ChartPaint.h"

#include "core/shell/ChartLayout.h"
#include "window/graphs/JapaneseFont.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

namespace tremlo {

namespace {

constexpr int kRoom = 3;  ///< around the outline, for its line
constexpr int kTextHeight = 13;

struct LookStyle {
  QRgb face, line, text;
  double lineWidth;
  Qt::PenStyle lineStyle;
  bool bold;
};

LookStyle StyleOf(BoxLook look) {
  switch (look) {
    case BoxLook::Lit:
      return {0xFFFFF0A8, 0xFFB03A00, 0xFF000000, 4.0, Qt::SolidLine, true};
    case BoxLook::Normal:
      return {0xFFDCEBFA, 0xFF1F3F8F, 0xFF000000, 2.0, Qt::SolidLine, false};
    default:
      return {0xFFEDEDED, 0xFF767676, 0xFF595959, 1.5, Qt::DashLine, false};
  }
}

bool IsGoal(ChartBox box) {
  return NumberOf(box).isEmpty();
}

/// A triangle before the question that is asked, a tick at a path that is taken.
void PaintMark(QPainter& painter, BoxLook look, const QRectF& place) {
  painter.save();
  QPainterPath mark;
  if (look == BoxLook::Lit) {
    mark.moveTo(place.topLeft());
    mark.lineTo(place.right(), place.center().y());
    mark.lineTo(place.bottomLeft());
    mark.closeSubpath();
    painter.fillPath(mark, QColor(StyleOf(look).line));
  } else if (look == BoxLook::Normal) {
    mark.moveTo(place.left(), place.center().y());
    mark.lineTo(place.left() + place.width() / 3, place.bottom() - 1);
    mark.lineTo(place.right(), place.top() + 1);
    painter.setPen(QPen(QColor(StyleOf(look).line), 2.5));
    painter.drawPath(mark);
  }
  painter.restore();
}

/// Number and mark in one line, as far as there are any, and the text below them.
void PaintTexts(QPainter& painter, ChartBox box, BoxLook look, const QRect& room) {
  QFont font = ChartFont();
  font.setBold(StyleOf(look).bold || IsGoal(box));
  painter.setFont(font);
  painter.setPen(QColor(StyleOf(look).text));
  const QString text = TextOf(box);
  if (IsGoal(box)) {
    painter.drawText(room, Qt::AlignCenter, text);
    return;
  }
  const int line = painter.fontMetrics().lineSpacing();
  const int lines = static_cast<int>(text.count(u'\n')) + 2;
  QRect row(room.left(), room.center().y() - lines * line / 2, room.width(), line);
  const QString number = NumberOf(box);
  painter.drawText(row, Qt::AlignCenter, number);
  const double numberLeft = row.center().x() - painter.fontMetrics().horizontalAdvance(number) / 2.0;
  PaintMark(painter, look, {numberLeft - kTextHeight - 6.0, row.top() + 1.0, kTextHeight - 1.0, line - 3.0});
  painter.setPen(QColor(StyleOf(look).text));
  painter.drawText(row.adjusted(0, line, 0, (lines - 1) * line), Qt::AlignHCenter | Qt::AlignTop, text);
}

constexpr QRgb kPaper = 0xFFFFFFFF;
constexpr QRgb kArea = 0xFFF4F7FA;
constexpr QRgb kAreaEdge = 0xFF91A7B4;
constexpr double kPathWidth = 2.0;
constexpr double kShaftWidth = 4.0;  ///< of the two arrows; their head has the arrow's width
constexpr double kHeadLength = 10.0;
constexpr double kHeadWidth = 8.0;

/// A head whose tip is the end of the line.
void PaintHead(QPainter& painter, const QLineF& line, double length, double width) {
  const QLineF unit = line.unitVector();
  const QPointF along(unit.dx(), unit.dy());
  const QPointF across(-along.y(), along.x());
  const QPointF base = line.p2() - along * length;
  painter.drawPolygon(QPolygonF({line.p2(), base + across * width / 2, base - across * width / 2}));
}

void PaintPath(QPainter& painter, const ChartLine& line) {
  QPolygonF points;
  for (const QPoint& point : line.points) points << QPointF(point);
  const QLineF last(points[points.size() - 2], points.back());
  // The line must not look out beside the tip.
  if (line.head) points.back() -= QPointF(last.unitVector().dx(), last.unitVector().dy()) * kHeadLength / 2;
  painter.setPen(QPen(Qt::black, kPathWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(points);
  if (!line.head) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  PaintHead(painter, last, kHeadLength, kHeadWidth);
}

void PaintArrow(QPainter& painter, const ChartArrow& arrow) {
  QLineF line(arrow.from, arrow.to);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  PaintHead(painter, line, kHeadLength, kChartArrowWidth);
  line.setLength(line.length() - kHeadLength);
  painter.setPen(QPen(Qt::black, kShaftWidth, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(line);
}

void PaintLabel(QPainter& painter, const ChartLabel& label) {
  QFont font = ChartFont();
  font.setBold(label.kind == LabelKind::Heading || label.kind == LabelKind::Start);
  if (label.kind == LabelKind::Heading) font.setPixelSize(font.pixelSize() + 3);
  painter.setFont(font);
  if (label.kind == LabelKind::Start) {
    painter.setPen(QPen(Qt::black, kPathWidth));
    painter.setBrush(QColor(kPaper));
    painter.drawRoundedRect(label.place, label.place.height() / 2.0, label.place.height() / 2.0);
  }
  painter.setPen(Qt::black);
  const bool centred = label.kind == LabelKind::Start || label.kind == LabelKind::YesOrNo;
  const Qt::Alignment align = centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
  painter.drawText(label.place, static_cast<int>(align), QString::fromUtf16(label.text));
}

}  // namespace

QFont ChartFont() {
  QFont font = ScreenFont();
  font.setPixelSize(kTextHeight);
  return font;
}

QRect PlaceOfBox(ChartBox box) {
  const CDPoly outline = OutlineOf(box);
  const QRectF place(QPointF(outline.MinCorner().x, outline.MinCorner().y),
                     QPointF(outline.MaxCorner().x, outline.MaxCorner().y));
  return place.toAlignedRect().adjusted(-kRoom, -kRoom, kRoom, kRoom);
}

QPolygonF OutlinePolygon(ChartBox box) {
  const CDPoly outline = OutlineOf(box);
  QPolygonF polygon;
  for (const CDPoint& corner : outline.Points()) polygon << QPointF(corner.x, corner.y);
  return polygon;
}

void PaintChartGround(QPainter& painter) {
  painter.save();
  painter.fillRect(QRect({}, kChartSize), QColor(kPaper));
  painter.setRenderHint(QPainter::Antialiasing);
  for (const QRect& area : kChartAreas) {
    painter.setPen(QColor(kAreaEdge));
    painter.setBrush(QColor(kArea));
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 8.0, 8.0);
  }
  for (const ChartLine& line : ChartLines()) PaintPath(painter, line);
  for (const ChartArrow& arrow : kChartArrows) PaintArrow(painter, arrow);
  for (const ChartLabel& label : ChartLabels()) PaintLabel(painter, label);
  painter.restore();
}

void PaintChartBox(QPainter& painter, ChartBox box, BoxLook look) {
  painter.save();
  const LookStyle style = StyleOf(look);
  painter.setRenderHint(QPainter::Antialiasing);
  QPen pen(QColor(style.line), style.lineWidth, style.lineStyle);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.setBrush(QColor(style.face));
  const QPolygonF outline = OutlinePolygon(box);
  if (IsGoal(box))
    painter.drawRoundedRect(outline.boundingRect(), 8.0, 8.0);
  else
    painter.drawPolygon(outline);
  PaintTexts(painter, box, look, outline.boundingRect().toRect());
  painter.restore();
}

void PaintChart(QPainter& painter, const BoxLooks& looks) {
  PaintChartGround(painter);
  for (const ChartBox box : kChartBoxes) PaintChartBox(painter, box, looks[static_cast<std::size_t>(box)]);
}

}  // namespace tremlo
