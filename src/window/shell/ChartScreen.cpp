#include "window/shell/ChartScreen.h"

#include "window/graphs/NamedControl.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kButtonMargin = 16;

}  // namespace

ChartScreen::ChartScreen(FlowChartView::Use use, QWidget* parent)
    : Screen(parent), m_chart(new FlowChartView(use, this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(m_chart, 0, Qt::AlignHCenter);
  column->addStretch();
}

QPushButton* ChartScreen::AddButton(const char* name, const QString& text) {
  auto* const button = NamedButton<QPushButton>(name, text, this);
  button->setMinimumWidth(button->sizeHint().width() + 2 * kButtonMargin);
  auto* const column = static_cast<QVBoxLayout*>(layout());
  column->insertWidget(1, button, 0, Qt::AlignHCenter);
  return button;
}

}  // namespace tremlo
