#pragma once

#include "core/ask/FileDialogs.h"
#include "core/project/ChangeRules.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

namespace tremlo {

class CSpread7;
class InfoButton;
class WaveGraphPanel;
struct GraphDoors;

/// "下限スペクトル": the lower limits, of which one is selected and drawn. While a lower limit is the base
/// spectrum the choice of another one asks first.
class CFrmLowerSpectrum : public Screen {
  Q_OBJECT
 public:
  CFrmLowerSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                    CommandGate& gate, QWidget* parent = nullptr);

  void Entered() override { Refresh(); }
  void Refresh() override;

 private:
  void MakeGrid(Prompt& prompt, ChangeRules& rules, CommandGate& gate);
  void MakeGraphPanel(const GraphDoors& doors);
  void LayOut();

  CMorvaneDoc& m_doc;
  InfoButton* m_infoButton;
  CSpread7* m_limitGrid;
  WaveGraphPanel* m_graphPanel;
};

}  // namespace tremlo
