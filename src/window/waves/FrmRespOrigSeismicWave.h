#pragma once

#include "window/waves/WaveRegistration.h"

namespace tremlo {

/// "原種波形設定": the one wave of the response route. A change of its data drops the adjusted wave without a
/// question.
class CFrmRespOrigSeismicWave : public WaveRegistration {
  Q_OBJECT
 public:
  CFrmRespOrigSeismicWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, CommandGate& gate,
                          QWidget* parent = nullptr);

  void Entered() override { Refresh(); }
  void Refresh() override;

 protected:
  CSeismicWave* Wave() override;
  bool ChangeWave(const std::function<void()>& apply) override;
  void TakeWaves(std::vector<ImportedWave> waves) override;

 private:
  void Rename();
  void ShowName();

  CExpEdit* m_nameEdit;
};

}  // namespace tremlo
