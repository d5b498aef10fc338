#pragma once

#include "core/graphs/ColorRows.h"
#include "core/graphs/GraphRange.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <vector>

class QCheckBox;
class QVBoxLayout;

namespace tremlo {

class CSpread7;
class RangeRows;

/// What the four dialogs "描画設定" share. They edit the block and the colours of their owner in place: every
/// change is told at once, so that the owner's graphs change while the dialog is open, and closing it in
/// whatever way keeps all of them. Its size never changes; on a monitor that has no room for all of it, what
/// stands above the buttons scrolls.
class GraphEditDialog : public QDialog {
  Q_OBJECT

 public:
  void done(int result) override;

 Q_SIGNALS:
  /// The block or a colour has changed: draw the graphs anew.
  void Apply();
  /// To be answered at once, by a direct connection: put the block's ranges, or the colours, back to their
  /// defaults. Apply follows.
  void ResetRange();
  void ResetColors();

 protected:
  struct Graph {
    GraphKind kind = GraphKind::Spectrum;
    QString title;
  };
  static Graph TimeGraph(const QString& title) { return {GraphKind::Time, title}; }
  static Graph SpectrumGraph() { return {GraphKind::Spectrum, QStringLiteral("周期-加速度応答スペクトル")}; }
  static Graph FourierGraph() { return {GraphKind::Fourier, QStringLiteral("フーリエスペクトル")}; }

  /// The block and what the colours point to must outlive the dialog. A dialog that sets no colours has none,
  /// as opposed to an empty list of them.
  GraphEditDialog(const std::vector<Graph>& graphs, WaveGraphSetting& block,
                  std::optional<std::vector<CurveColor>> colors, QWidget* parent);

  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct RangePart {
    Graph graph;
    std::shared_ptr<RangeRows> rows;
    CSpread7* grid = nullptr;
    QCheckBox* logCheck = nullptr;  ///< null for the time graph
  };

  QWidget* MakeRangeGroup(const std::vector<Graph>& graphs);
  QWidget* MakeColorGroup(std::vector<CurveColor> colors);
  void AddRangePart(const Graph& graph, QVBoxLayout* layout);
  /// A button that has the owner put back what it resets, by emitting that signal.
  void AddReset(const QString& text, const QString& name, void (GraphEditDialog::*reset)(),
                QVBoxLayout* layout);
  void FitGrids();
  static void FitGrid(CSpread7& grid, int width, int rows);
  void Rebuild();
  void TellChange();

  WaveGraphSetting& m_block;
  QCheckBox* m_autoCheck;
  std::vector<RangePart> m_ranges;
  CSpread7* m_colorGrid = nullptr;
};

}  // namespace tremlo
