#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <functional>
#include <memory>

namespace tremlo {

class CSpread7;
class NeighbourRows;
class WaveGraphPanel;
struct GraphDoors;

/// "現場近隣地震波形": the registered waves with their response spectra, from which the user picks those that
/// are candidates for the base spectrum.
class CFrmDamsiteWave : public Screen {
  Q_OBJECT
 public:
  CFrmDamsiteWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules, CommandGate& gate,
                  QWidget* parent = nullptr);

  void Refresh() override;

 private:
  void MakeGrid(Prompt& prompt);
  void MakeGraphPanel(const GraphDoors& doors);
  void LayOut(Prompt& prompt);
  /// A button that does something to all rows.
  QWidget* MakeRowsButton(const char* name, const QString& text, std::function<void()> act);

  CMorvaneDoc& m_doc;
  CommandGate& m_gate;
  std::shared_ptr<NeighbourRows> m_rows;
  CSpread7* m_grid;
  WaveGraphPanel* m_graphPanel;
};

}  // namespace tremlo
