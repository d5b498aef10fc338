#pragma once

#include "window/graphs/DrawGraph.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <memory>

namespace tremlo {

/// Makes the graph to show, with its curves; an empty pointer shows an empty area.
using GraphSource = std::function<std::unique_ptr<CDrawGraph>()>;

/// A graph on a screen. It asks its source for the graph when it has to paint for the first time after
/// Refresh(), so that what only a visible graph needs is computed only then.
///
/// The data point under the pointer is marked and told in words. With the focus on the graph the arrow keys
/// move a pointer of their own (with Shift by ten pixels), Home and End take it to the frame's edges.
class GraphView : public QWidget {
  Q_OBJECT

 public:
  explicit GraphView(QWidget* parent = nullptr);
  ~GraphView() override;

  /// Replaces the source and refreshes.
  void SetSource(GraphSource source);
  /// The data, the settings or the colours have changed.
  void Refresh();

  /// The graph on display, made now if it was not yet; null for an empty area. It outlives its display as
  /// long as it is held.
  std::shared_ptr<CDrawGraph> Graph();
  /// What the clipboard gets: the view without its rim and without the mark of the pointer, in pixels of a
  /// screen with the given ratio.
  QImage Picture(double devicePixelRatio);
  /// Puts the picture on the clipboard, in place of what is there.
  void CopyPicture();

  /// Asks for the context menu as a key does.
  void AskForMenu();

  QSize sizeHint() const override { return {480, 320}; }
  QSize minimumSizeHint() const override { return {160, 120}; }

 Q_SIGNALS:
  /// The values of the data point under the pointer; empty when there is none any more.
  void PointedAt(const QString& values);
  /// The user wants the context menu: by the mouse, by a key (Shift+F10 too) or over the accessibility bus.
  void MenuAsked(const QPoint& globalSpot);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void MakeGraph();
  void PaintOn(QPainter& painter);
  void PointTo(const QPoint& position);
  void PointNowhere();
  void Tell(const QString& values);

  GraphSource m_source;
  std::shared_ptr<CDrawGraph> m_graph;
  bool m_made = false;  ///< m_graph is what the source gives; it may be empty
  QImage m_painted;     ///< the graph as it was painted last: the pointer's mark moves over it
  double m_paintedRatio = 0.0;
  QPoint m_pointer;
  std::optional<PickedPoint> m_picked;
  QString m_told;
};

}  // namespace tremlo
