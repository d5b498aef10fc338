#pragma once

#include "core/project/ChangeRules.h"
#include "window/waves/WaveRegistration.h"

class QComboBox;

namespace tremlo {

/// "波形登録": all waves of a project, one of them on display. Its data are changed under the rules of the
/// guideline route, with their questions.
class CFrmOrigSeismicWave : public WaveRegistration {
  Q_OBJECT
 public:
  CFrmOrigSeismicWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, ChangeRules& rules,
                      CommandGate& gate, QWidget* parent = nullptr);

  void Entered() override { Refresh(); }
  void Refresh() override;

 protected:
  /// By name: of two waves of the same name it is the first.
  CSeismicWave* Wave() override;
  bool ChangeWave(const std::function<void()>& apply) override;
  void TakeWaves(std::vector<ImportedWave> waves) override;

 private:
  void MakeNameCombo();
  void LayOut();
  void AddWave();
  void DeleteWave();
  void ChooseWave(int index);
  void SelectWave(int index);
  void Rename();
  void ShowName();
  std::int32_t FreeColor() const;

  ChangeRules& m_rules;
  QString m_name;  ///< of the wave on display
  QComboBox* m_nameCombo;
  CExpEdit* m_nameEdit;  ///< of the combo box
  QAbstractButton* m_addButton;
  QAbstractButton* m_deleteButton;
};

}  // namespace tremlo
