#pragma once

#include "core/project/MorvaneDoc.h"
#include "window/graphs/ExpEdit.h"

#include <QDialog>

namespace tremlo {

/// The two settings of the adjustment. OK writes them into the document and marks it as modified; results of
/// an adjustment are the caller's business. A value that the user has not changed keeps all its digits.
class CDlgAdjustSetting : public QDialog {
  Q_OBJECT

 public:
  CDlgAdjustSetting(CMorvaneDoc& doc, QWidget* parent);

  void accept() override;

 private:
  CMorvaneDoc& m_doc;
  std::int32_t m_iterations;
  double m_tolerance;  ///< a fraction
  CExpEdit* m_iterationsEdit;
  CExpEdit* m_toleranceEdit;
};

}  // namespace tremlo
