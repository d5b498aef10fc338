#pragma once

#include "core/waves/FiguresText.h"

#include <QLabel>

class QHelpEvent;

namespace tremlo {

/// The figures of waves below a graph, a line for each wave and the same figures below each other. Lines that
/// are too long for the width end in an ellipsis. A tool tip tells what a figure is; the context menu and
/// Ctrl+C copy the text. It takes no room while there is nothing to tell.
class FiguresLabel : public QLabel {
  Q_OBJECT
 public:
  explicit FiguresLabel(QWidget* parent);

  /// The seed wave and, while it is there, its adjusted wave; null when there is none. Figures are computed
  /// here and not when they are painted.
  void TellWave(const CSeismicWave* wave);

  /// Left edges of the titles and of each figure behind them, pixels from the left of the text; the last one
  /// is the end of the lines. What room there is parts the figures.
  std::vector<int> Edges() const;
  bool IsElided() const;

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintLine(QPainter& painter, const QRect& room, const QStringList& parts,
                 const std::vector<int>& edges) const;
  void TellDefinition(const QHelpEvent& pointer);
  int LineHeight() const;
  QString TipOf(std::size_t figure) const;
  void Copy() const;

  QString m_wave;  ///< its name
  std::vector<FiguresLine> m_lines;
};

}  // namespace tremlo
