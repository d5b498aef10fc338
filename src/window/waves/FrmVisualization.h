#pragma once

#include "window/waves/WaveVisualization.h"

namespace tremlo {

/// "可視化" of the guideline route: the adopted wave and what its adjustment has made of it. It computes no
/// response spectrum but for an export, and keeps none.
class CFrmVisualization : public WaveVisualization {
  Q_OBJECT
 public:
  CFrmVisualization(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                    QWidget* parent = nullptr);

  void Prepare() override;
  void Refresh() override;

 protected:
  CSeismicWave* Wave() override;
  QString MissingSpectrumText(const CSeismicWave& wave) const override;
  void ExportSeed(CSeismicWave& wave, const SavePath& path) override;
  void ExportAdjusted(CSeismicWave& wave, const SavePath& path) override;

 private:
  CExpEdit* m_nameEdit;
};

}  // namespace tremlo
