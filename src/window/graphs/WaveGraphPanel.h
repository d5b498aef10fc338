#pragma once

#include "window/graphs/DrawGraph.h"
#include "window/graphs/GraphMenu.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QAbstractButton;
class QButtonGroup;
class QLabel;

namespace tremlo {

class GraphEditDialog;
class GraphView;

/// The graph of a screen with its caption, its context menu, the buttons that choose its kind, and those for
/// its picture and its settings. The values under the pointer go to the status bar.
class WaveGraphPanel : public QWidget {
  Q_OBJECT

 public:
  /// Makes the graph of a kind when it has to be painted; an empty pointer shows an empty area.
  using Source = std::function<std::unique_ptr<CDrawGraph>(GraphKind kind)>;
  /// Called with a dialog that is about to open.
  struct Settings {
    std::function<std::unique_ptr<GraphEditDialog>(QWidget* parent)> make;  ///< null: nothing to set
    std::function<void()> changed;
    std::function<void()> resetRange;
    std::function<void()> resetColors;
  };

  /// What the data allow.
  struct Offers {
    bool settings = true;
    bool fourier = true;  ///< the Fourier graph, which a wave without samples does not have
  };

  /// Shows the first kind at first. There are no buttons for a single kind.
  WaveGraphPanel(const std::vector<GraphKind>& kinds, Source source, Settings settings,
                 const GraphDoors& doors, QWidget* parent);

  GraphKind Kind() const { return m_kind; }
  void ShowKind(GraphKind kind);
  /// All is offered at first. The time graph takes the place of a Fourier graph that is offered no more.
  void Offer(const Offers& offers);
  /// The data, the settings or the colours have changed.
  void Refresh();
  /// Makes the graph now and not when it is painted. Throws std::bad_alloc where there is no memory for it.
  void MakeNow();
  /// The controls in reading order.
  std::vector<QWidget*> Controls() const;

 Q_SIGNALS:
  void KindShown();  ///< another kind is shown, or the same anew

 private:
  void AddKindButtons(const std::vector<GraphKind>& kinds);
  void ChooseKind(GraphKind kind);
  void OpenSettings();
  std::unique_ptr<CDrawGraph> MakeGraph();

  Source m_source;
  Settings m_settings;
  CommandGate& m_gate;
  GraphKind m_kind;
  bool m_lacksMemory = false;  ///< for the graph that was made last
  QButtonGroup* m_kindButtons;
  QLabel* m_caption;
  GraphView* m_graph;
  QAbstractButton* m_copyButton;
  QAbstractButton* m_settingsButton;
};

}  // namespace tremlo
