#pragma once

#include "core/project/AdjustRows.h"
#include "window/graphs/Screen.h"

class QAbstractButton;

namespace tremlo {

class CDrawGraph;
class CommandGate;
class CSpread7;
class FiguresLabel;
class NoteLabel;
class WaveGraphPanel;

/// "原種波形の振幅調整": the seed waves against the base spectrum. One of them is adopted and adjusted to it.
class CFrmAdjustSeismicWave : public Screen {
  Q_OBJECT
 public:
  CFrmAdjustSeismicWave(CMorvaneDoc& doc, Prompt& prompt, ChangeRules& rules, CommandGate& gate,
                        AdjustRunner run, QWidget* parent = nullptr);

  void Refresh() override;

 private:
  void MakeButtons(Prompt& prompt);
  void MakeGrids(ChangeRules& rules, Prompt& prompt, AdjustRunner run);
  void MakeGraphPanel();
  void LayOut();
  void ShowAll(bool shown);
  std::optional<std::int32_t> ChooseColor(QWidget* parent, std::int32_t color);
  std::unique_ptr<CDrawGraph> MakeGraph();

  CMorvaneDoc& m_doc;
  CommandGate& m_gate;
  std::shared_ptr<AdjustRows> m_waves;
  CSpread7* m_baseGrid;
  CSpread7* m_waveGrid;
  QAbstractButton* m_showAllButton;
  QAbstractButton* m_hideAllButton;
  QAbstractButton* m_helpButton;
  WaveGraphPanel* m_graphPanel;
  NoteLabel* m_fitLabel;
  FiguresLabel* m_figuresLabel;  ///< of the adopted wave
};

}  // namespace tremlo
