#include "window/waves/DlgAdjustSetting.h"

#include "window/graphs/NamedControl.h"
#include "window/graphs/PendingEntry.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

/// One line of the dialog: label, field, unit.
CExpEdit* AddEdit(QGridLayout& layout, const QString& name, const QString& label, const QString& unit) {
  auto* edit = new CExpEdit;
  edit->setObjectName(name);
  edit->setAccessibleDescription(unit);
  edit->setAlignment(Qt::AlignRight);
  edit->SetOwnerCheck(
      [](const QString& text) { return text.isEmpty() ? QStringLiteral("入力エラーです。") : QString(); });
  const int row = layout.rowCount();
  layout.addWidget(LabelFor(edit, label), row, 0);
  layout.addWidget(edit, row, 1);
  layout.addWidget(new QLabel(unit), row, 2);
  return edit;
}

}  // namespace

CDlgAdjustSetting::CDlgAdjustSetting(CMorvaneDoc& doc, QWidget* parent)
    : QDialog(parent),
      m_doc(doc),
      m_iterations(doc.adjustMaxIterations),
      m_tolerance(doc.adjustTolerancePercent) {
  setObjectName(QStringLiteral("CDlgAdjustSetting"));
  setWindowTitle(QStringLiteral("振幅調整の設定"));
  auto* fields = new QGridLayout;
  m_iterationsEdit = AddEdit(*fields, QStringLiteral("m_iterationsEdit"), QStringLiteral("繰り返し回数"),
                             QStringLiteral("回"));
  m_iterationsEdit->SetKind(EntryKind::Integer);
  m_iterationsEdit->SetLimits(1, 10000);
  m_iterationsEdit->SetNumber(m_iterations);
  connect(m_iterationsEdit, &CExpEdit::Entered, this,
          [this] { m_iterations = static_cast<std::int32_t>(m_iterationsEdit->GetNumber()); });

  m_toleranceEdit =
      AddEdit(*fields, QStringLiteral("m_toleranceEdit"), QStringLiteral("収束判定"), QStringLiteral("%"));
  m_toleranceEdit->SetKind(EntryKind::Decimal);
  m_toleranceEdit->SetLimits(0.0, 99.99);
  m_toleranceEdit->SetDecimals(2);
  m_toleranceEdit->SetNumber(m_tolerance * 100.0);
  connect(m_toleranceEdit, &CExpEdit::Entered, this,
          [this] { m_tolerance = m_toleranceEdit->GetNumber() / 100.0; });

  auto* buttons = new QDialogButtonBox(this);  // in the dialog before OK becomes its default button
  QPushButton* ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("m_ok"));
  ok->setDefault(true);
  buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole)
      ->setObjectName(QStringLiteral("m_cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &CDlgAdjustSetting::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &CDlgAdjustSetting::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void CDlgAdjustSetting::accept() {
  if (!FinishPendingEntry()) return;
  m_doc.adjustMaxIterations = m_iterations;
  m_doc.adjustTolerancePercent = m_tolerance;
  m_doc.SetModified(true);
  QDialog::accept();
}

}  // namespace tremlo
