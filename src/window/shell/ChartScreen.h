#pragma once

#include "window/graphs/Screen.h"
#include "window/shell/FlowChartView.h"

class QPushButton;

namespace tremlo {

/// What the screens with the chart share: the chart in the middle, and below it the screen's button.
class ChartScreen : public Screen {
  Q_OBJECT
 protected:
  ChartScreen(FlowChartView::Use use, QWidget* parent);

  FlowChartView* Chart() const { return m_chart; }
  /// Puts a button below the chart.
  QPushButton* AddButton(const char* name, const QString& text);

 private:
  FlowChartView* m_chart;
};

}  // namespace tremlo
