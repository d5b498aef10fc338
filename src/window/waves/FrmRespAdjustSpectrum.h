#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "core/project/MorvaneDoc.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/Screen.h"

#include <memory>

class QAbstractButton;

namespace tremlo {

class CDrawGraph;
class CExpEdit;
class CSpread7;
class WaveGraphPanel;
struct GridChange;

/// "調整用スペクトル設定": the target of the response route. A change of its periods or values drops the
/// adjusted wave without a question.
class CFrmRespAdjustSpectrum : public Screen {
  Q_OBJECT
 public:
  CFrmRespAdjustSpectrum(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                         QWidget* parent = nullptr);

  void Entered() override { Refresh(); }
  void Refresh() override;

 private:
  void MakeControls();
  void MakeGraphPanel();
  void LayOut();
  CSeismicWave* Target();
  bool MayChange(const GridChange& change);
  void ReadFile();
  void Rename();
  void ShowName();
  void ShowData();
  std::unique_ptr<CDrawGraph> MakeGraph();

  CMorvaneDoc& m_doc;
  Prompt& m_prompt;
  FileDialogs& m_files;
  CommandGate& m_gate;
  CExpEdit* m_nameEdit;
  QAbstractButton* m_readButton;
  CSpread7* m_spectrumGrid;
  WaveGraphPanel* m_graphPanel;
};

}  // namespace tremlo
