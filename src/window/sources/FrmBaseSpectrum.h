#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <cstdint>
#include <memory>
#include <optional>

class QAbstractButton;
class QLabel;

namespace tremlo {

class BaseCandidateRows;
class CExpEdit;
class CSpread7;
class WaveGraphPanel;
struct GraphDoors;

/// "基準スペクトル設定": all candidates of the base spectrum in one list and one graph, from which the user
/// chooses one. A text under the list helps to choose: it tells of the active row the response at the dam's
/// period and where the candidate lies below the lower limit. That period is display state, forgotten with
/// the project.
class CFrmBaseSpectrum : public Screen {
  Q_OBJECT
 public:
  CFrmBaseSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                   CommandGate& gate, QWidget* parent = nullptr);

  /// Keeps the areas of the candidates with their records.
  void Prepare() override;
  void Refresh() override;

 private:
  void MakeGrid(Prompt& prompt);
  void MakeControls(Prompt& prompt);
  void MakeGraphPanel(const GraphDoors& doors);
  void LayOut();
  void ForgetOtherProject();
  void ShowAll(bool shown);
  void TakeDamPeriod();
  void ShowDamPeriod();
  void ShowCandidateText();

  CMorvaneDoc& m_doc;
  CommandGate& m_gate;
  std::shared_ptr<BaseCandidateRows> m_rows;
  std::uint64_t m_project;  ///< whose display state this is
  std::optional<double> m_damPeriod;
  QLabel* m_guide;
  CSpread7* m_grid;
  QAbstractButton* m_showAllButton;
  QAbstractButton* m_hideAllButton;
  CExpEdit* m_damPeriodEdit;
  QLabel* m_candidateText;
  WaveGraphPanel* m_graphPanel;
};

}  // namespace tremlo
