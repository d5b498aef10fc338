#include "window/shell/FlowChartView.h"

#include "core/shell/ClickChart.h"
#include "window/graphs/ChartPaint.h"

#include <QPainter>

namespace tremlo {

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
  PaintChartGround(painter);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::black, 1.0, Qt::DashLine));
  painter.drawRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5));
}

}  // namespace tremlo
