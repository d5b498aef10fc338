#pragma once

#include "core/shell/ChartLook.h"

#include <QAbstractButton>
#include <QLabel>

namespace tremlo {

/// A box of the chart as a control of its own: it stands at its place on the chart, and a screen reader reads
/// out its text and state.

/// One that only shows.
class ChartBoxLabel : public QLabel {
  Q_OBJECT
 public:
  ChartBoxLabel(ChartBox box, QWidget* chart);

  void SetLook(BoxLook look);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ChartBox m_box;
  BoxLook m_look = BoxLook::Dimmed;
};

/// One that takes clicks. It is checked while its path is taken, but that only follows what is set: a click
/// by itself changes nothing.
class ChartBoxButton : public QAbstractButton {
  Q_OBJECT
 public:
  ChartBoxButton(ChartBox box, QWidget* chart);

  void SetLook(BoxLook look);

 Q_SIGNALS:
  /// By the pointer, by the keys, or by a screen reader.
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool hitButton(const QPoint& point) const override;
  void nextCheckState() override {}

 private:
  ChartBox m_box;
  BoxLook m_look = BoxLook::Dimmed;
};

}  // namespace tremlo
