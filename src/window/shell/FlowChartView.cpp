#include "window/shell/FlowChartView.h"

#include "core/shell/ClickChart.h"

#include <QLineF>
#include <QPainter>

namespace tremlo {

namespace {

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

FlowChartView::FlowChartView(Use use, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("chart"));
  setAccessibleName(QStringLiteral("作業フローチャート"));
  setAccessibleDescription(QString::fromUtf16(ChartLabels().back().text));
  setFixedSize(kChartSize);
  for (const ChartBox box : kChartBoxes) {
    if (use == Use::Shows || !ClickChart::TakesClicks(box)) {
      m_labels[box] = new ChartBoxLabel(box, this);
      continue;
    }
    auto* const button = new ChartBoxButton(box, this);
    connect(button, &ChartBoxButton::Chosen, this, [this, box] { Q_EMIT BoxClicked(box); });
    m_buttons[box] = button;
  }
}

void FlowChartView::SetLooks(const BoxLooks& looks) {
  for (const auto& [box, label] : m_labels) label->SetLook(looks[static_cast<std::size_t>(box)]);
  for (const auto& [box, button] : m_buttons) button->SetLook(looks[static_cast<std::size_t>(box)]);
}

QWidget* FlowChartView::Box(ChartBox box) const {
  if (const auto label = m_labels.find(box); label != m_labels.end()) return label->second;
  return m_buttons.at(box);
}

std::vector<QWidget*> FlowChartView::ClickBoxes() const {
  std::vector<QWidget*> boxes;
  for (const auto& [box, button] : m_buttons) boxes.push_back(button);
  return boxes;
}

void FlowChartView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(kPaper));
  painter.setRenderHint(QPainter::Antialiasing);
  for (const QRect& area : kChartAreas) {
    painter.setPen(QColor(kAreaEdge));
    painter.setBrush(QColor(kArea));
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 8.0, 8.0);
  }
  for (const ChartLine& line : ChartLines()) PaintPath(painter, line);
  for (const ChartArrow& arrow : kChartArrows) PaintArrow(painter, arrow);
  for (const ChartLabel& label : ChartLabels()) PaintLabel(painter, label);
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::black, 1.0, Qt::DashLine));
  painter.drawRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5));
}

}  // namespace tremlo
