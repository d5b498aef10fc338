#pragma once

#include "window/waves/WaveVisualization.h"

class QComboBox;
class QLabel;

namespace tremlo {

/// "可視化" of the response route: the wave and what the run of its gate has made of it. Without a result it
/// shows the seed wave alone.
class CFrmRespVisualization : public WaveVisualization {
  Q_OBJECT
 public:
  CFrmRespVisualization(CMorvaneDoc& doc, FileDialogs& files, CommandGate& gate, QWidget* parent = nullptr);

  void Prepare() override;
  void Refresh() override;

  /// Tells how the adjusted wave of the document fits its target, for as long as that wave stays. To be
  /// called when the result of the run has been stored.
  void ShowFit(const QString& figures);

 protected:
  CSeismicWave* Wave() override;
  void PrepareSpectrum(CSeismicWave& wave) override;
  void ExportSeed(CSeismicWave& wave, const SavePath& path) override;
  void ExportAdjusted(CSeismicWave& wave, const SavePath& path) override;

 private:
  void TellFit(const QString& figures);

  QComboBox* m_nameCombo;
  QLabel* m_fitLabel;
  std::vector<double> m_fitted;  ///< the adjusted wave that the figures belong to
};

}  // namespace tremlo
