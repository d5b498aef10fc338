#pragma once

#include "core/project/FaultExploration.h"
#include "window/graphs/ExpEdit.h"

#include <QDialog>

class QComboBox;
class QGridLayout;
class QRadioButton;

namespace tremlo {

/// "断層APIパラメータ設定": what the hazard service is asked for. OK writes it into the document,
/// "初期値に戻す" at once. That the faults acquired so far are cleared for it is the caller's business.
class CDlgFaultExploration : public QDialog {
  Q_OBJECT

 public:
  CDlgFaultExploration(CMorvaneDoc& doc, Prompt& prompt, QWidget* parent);

  void accept() override;

 private:
  using Choose = void (FaultExploration::*)(int row);

  /// The radio buttons of a parameter that is an index.
  struct Radios {
    std::vector<QRadioButton*> buttons;
    std::int32_t ApiParameterSet::*value;
  };

  void AddRow(QGridLayout& layout, std::size_t title, QWidget* field, Qt::Alignment alignment = {});
  QWidget* MakeRadios(const char* name, std::size_t title, const QStringList& texts,
                      std::int32_t ApiParameterSet::*value);
  QComboBox* MakeVersions(const char* name, std::size_t title, const QStringList& texts, Choose choose);
  QWidget* MakeWeight(Prompt& prompt);
  QWidget* MakeButtons();
  void ShowValues();
  void ShowWeight();

  FaultExploration m_parameters;
  std::vector<Radios> m_radios;
  QComboBox* m_searchVersion;
  QComboBox* m_activityVersion;
  CExpEdit* m_weight;
};

}  // namespace tremlo
