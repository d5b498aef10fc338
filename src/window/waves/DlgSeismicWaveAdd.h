#pragma once

#include "core/ask/Prompt.h"
#include "core/waves/SeismicWaveSet.h"

#include <QDialog>

namespace tremlo {

class CExpEdit;

/// Asks for the name of a new wave: one that is not empty and that no wave of the set bears.
class CDlgSeismicWaveAdd : public QDialog {
  Q_OBJECT
 public:
  CDlgSeismicWaveAdd(const CSeismicWaveSet& waves, Prompt& prompt, QWidget* parent);

  QString Name() const;

  void accept() override;

 private:
  const CSeismicWaveSet& m_waves;
  Prompt& m_prompt;
  CExpEdit* m_nameEdit;
};

}  // namespace tremlo
