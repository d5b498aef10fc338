#include "window/waves/DlgSeismicWaveAdd.h"

#include "window/graphs/ExpEdit.h"
#include "window/graphs/NamedControl.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kWidth = 300;

}  // namespace

CDlgSeismicWaveAdd::CDlgSeismicWaveAdd(const CSeismicWaveSet& waves, Prompt& prompt, QWidget* parent)
    : QDialog(parent), m_waves(waves), m_prompt(prompt), m_nameEdit(new CExpEdit(this)) {
  setObjectName(QStringLiteral("CDlgSeismicWaveAdd"));
  setWindowTitle(QStringLiteral("波形追加"));
  setMinimumWidth(kWidth);
  m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
  m_nameEdit->SetText(QStringLiteral("地震波形") + QString::number(waves.Count() + 1));

  auto* const buttons = new QDialogButtonBox(this);
  buttons->addButton(NamedButton<QPushButton>("okButton", QStringLiteral("OK"), this),
                     QDialogButtonBox::AcceptRole);
  buttons->addButton(NamedButton<QPushButton>("cancelButton", QStringLiteral("キャンセル"), this),
                     QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(LabelFor(m_nameEdit, QStringLiteral("波形名を入力してください。")));
  layout->addWidget(m_nameEdit);
  layout->addWidget(buttons);
}

QString CDlgSeismicWaveAdd::Name() const {
  return m_nameEdit->GetText();
}

void CDlgSeismicWaveAdd::accept() {
  QString refusal;
  if (Name().isEmpty())
    refusal = QStringLiteral("地震波形を入力してください。");
  else if (m_waves.Contains(Name()))
    refusal = QStringLiteral("既に登録されている地震波形名です。");
  if (refusal.isEmpty()) {
    QDialog::accept();
    return;
  }
  m_prompt.Tell(refusal);
  m_nameEdit->setFocus(Qt::OtherFocusReason);
}

}  // namespace tremlo
