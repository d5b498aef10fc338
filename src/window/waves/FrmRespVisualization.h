#pragma once

#include "core/waves/AdjustRun.h"
#include "window/waves/WaveVisualization.h"

class QComboBox;

namespace tremlo {

class NoteLabel;

/// "可視化" of the response route: the wave and what the run of its gate has made of it. Without a result it
/// shows the seed wave alone.
class CFrmRespVisualization : public WaveVisualization {
  Q_OBJECT
 public:
  CFrmRespVisualization(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                        QWidget* parent = nullptr);

  void Prepare() override;
  void Refresh() override;

  /// Tells how the run of the gate fits the wave to its target, for as long as its result stays; after a
  /// failure, until there is a result. To be called when the result has been stored.
  void ShowRun(AdjustResult run);

 protected:
  CSeismicWave* Wave() override;
  void PrepareSpectrum(CSeismicWave& wave) override;
  void ExportSeed(CSeismicWave& wave, const SavePath& path) override;
  void ExportAdjusted(CSeismicWave& wave, const SavePath& path) override;

 private:
  void TellFit();

  QComboBox* m_nameCombo;
  NoteLabel* m_fitLabel;
  std::optional<AdjustResult> m_run;  ///< the last one
  std::uint64_t m_runGeneration = 0;  ///< of its project
};

}  // namespace tremlo
