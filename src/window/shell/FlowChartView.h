#pragma once

#include "core/shell/ChartLayout.h"
#include "window/shell/ChartBoxView.h"

#include <QWidget>

#include <map>

namespace tremlo {

/// The chart of the questions: boxes, paths, captions. It keeps its own light colours in a dark theme, and
/// its size, which is that of its pixels.
class FlowChartView : public QWidget {
  Q_OBJECT
 public:
  enum class Use { Shows, TakesClicks };

  explicit FlowChartView(Use use, QWidget* parent = nullptr);

  void SetLooks(const BoxLooks& looks);
  QWidget* Box(ChartBox box) const;
  /// The boxes that take clicks, in the order of their answers.
  std::vector<QWidget*> ClickBoxes() const;

  QSize sizeHint() const override { return kChartSize; }

 Q_SIGNALS:
  void BoxClicked(ChartBox box);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::map<ChartBox, ChartBoxLabel*> m_labels;
  std::map<ChartBox, ChartBoxButton*> m_buttons;
};

}  // namespace tremlo
