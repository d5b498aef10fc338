#include "window/sources/DlgFaultExploration.h"

#include "core/project/AcquisitionEntries.h"
#include "window/graphs/ChosenRadio.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/PendingEntry.h"
#include "window/graphs/RefuseEmpty.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace tremlo {

namespace {

/// Places of the parameters among the titles.
enum Parameter : std::size_t {
  kIntensity,
  kWeight,
  kMode,
  kSearchVersion,
  kActivityVersion,
  kCase,
  kPeriod,
};

QString TitleOf(std::size_t parameter) {
  return QString::fromUtf16(kFaultExplorationTitles[parameter]);
}

/// A field that is not to take the whole width of the dialog.
QWidget* AtLeft(std::initializer_list<QWidget*> widgets) {
  auto* const box = new QWidget;
  auto* const layout = new QHBoxLayout(box);
  layout->setContentsMargins({});
  for (QWidget* const widget : widgets) layout->addWidget(widget);
  layout->addStretch();
  return box;
}

}  // namespace

CDlgFaultExploration::CDlgFaultExploration(CMorvaneDoc& doc, Prompt& prompt, QWidget* parent)
    : QDialog(parent), m_parameters(doc) {
  setObjectName(QStringLiteral("CDlgFaultExploration"));
  setWindowTitle(QStringLiteral("断層APIパラメータ設定"));
  auto* const fields = new QGridLayout;
  fields->setHorizontalSpacing(16);
  fields->setVerticalSpacing(10);
  AddRow(*fields, kIntensity,
         MakeRadios("intensity", kIntensity, FaultExploration::IntensityTexts(),
                    &ApiParameterSet::intensityIndex));
  AddRow(*fields, kWeight, MakeWeight(prompt));
  AddRow(*fields, kMode,
         MakeRadios("mode", kMode, FaultExploration::ModeTexts(), &ApiParameterSet::modeIndex));
  m_searchVersion = MakeVersions("searchVersionCombo", kSearchVersion, FaultExploration::SearchVersionTexts(),
                                 &FaultExploration::ChooseSearchVersion);
  AddRow(*fields, kSearchVersion, m_searchVersion, Qt::AlignLeft);
  m_activityVersion =
      MakeVersions("activityVersionCombo", kActivityVersion, FaultExploration::ActivityVersionTexts(),
                   &FaultExploration::ChooseActivityVersion);
  AddRow(*fields, kActivityVersion, m_activityVersion, Qt::AlignLeft);
  AddRow(*fields, kCase,
         MakeRadios("case", kCase, FaultExploration::CaseTexts(), &ApiParameterSet::caseIndex));
  AddRow(*fields, kPeriod,
         MakeRadios("period", kPeriod, FaultExploration::PeriodTexts(), &ApiParameterSet::periodIndex));

  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addSpacing(8);
  layout->addWidget(MakeButtons());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  ShowValues();
}

void CDlgFaultExploration::AddRow(QGridLayout& layout, std::size_t title, QWidget* field,
                                  Qt::Alignment alignment) {
  const int row = layout.rowCount();
  auto* const label = new QLabel(TitleOf(title));
  // A screen reader may say of a list only what is chosen in it, and takes what it is for from the label
  // beside it.
  label->setBuddy(field);
  layout.addWidget(label, row, 0);
  layout.addWidget(field, row, 1, alignment);
}

QWidget* CDlgFaultExploration::MakeRadios(const char* name, std::size_t title, const QStringList& texts,
                                          std::int32_t ApiParameterSet::*value) {
  auto* const box = new QWidget;
  auto* const layout = new QHBoxLayout(box);
  layout->setContentsMargins({});
  Radios radios{{}, value};
  for (std::int32_t index = 0; index < texts.size(); ++index) {
    auto* const radio =
        NamedButton<QRadioButton>((std::string(name) + std::to_string(index)).c_str(), texts[index], box);
    radio->setAccessibleDescription(TitleOf(title));
    connect(radio, &QAbstractButton::toggled, this, [this, value, index, radio](bool on) {
      if (!on) return;
      m_parameters.values.*value = index;
      StopAtChosen(*radio);
    });
    layout->addWidget(radio);
    radios.buttons.push_back(radio);
  }
  layout->addStretch();
  m_radios.push_back(std::move(radios));
  return box;
}

QComboBox* CDlgFaultExploration::MakeVersions(const char* name, std::size_t title, const QStringList& texts,
                                              Choose choose) {
  auto* const combo = Named(new QComboBox, name, TitleOf(title));
  combo->addItems(texts);
  combo->setMaxVisibleItems(static_cast<int>(texts.size()));
  connect(combo, &QComboBox::currentIndexChanged, this,
          [this, choose](int row) { (m_parameters.*choose)(row); });
  return combo;
}

QWidget* CDlgFaultExploration::MakeWeight(Prompt& prompt) {
  m_weight = Named(new CExpEdit, "weightEdit", TitleOf(kWeight));
  m_weight->SetRule(CatastropheWeightRule());
  m_weight->SetOwnerCheck(CatastropheWeightRefusal);
  m_weight->SetShowWarning(WarningsBy(prompt));
  m_weight->setAlignment(Qt::AlignRight);
  m_weight->setFixedWidth(m_weight->fontMetrics().horizontalAdvance(QStringLiteral("-0.00000000")) + 24);
  connect(m_weight, &CExpEdit::Entered, this, [this] {
    double& weight = m_parameters.values.catastropheWeight;
    weight = EnteredNumber(m_weight->GetText(), weight);
    ShowWeight();
  });
  connect(m_weight, &CExpEdit::Abandoned, this, &CDlgFaultExploration::ShowWeight);
  const QString range = QStringLiteral("-1.0～1.0");
  m_weight->setAccessibleDescription(range);
  return AtLeft({m_weight, new QLabel(range)});
}

QWidget* CDlgFaultExploration::MakeButtons() {
  auto* const buttons = new QDialogButtonBox(this);  // in the dialog before OK becomes its default button
  QPushButton* const reset = buttons->addButton(QStringLiteral("初期値に戻す"), QDialogButtonBox::ResetRole);
  Named(reset, "resetButton", reset->text());
  reset->setAutoDefault(false);
  connect(reset, &QAbstractButton::clicked, this, [this] {
    m_parameters.Reset();
    ShowValues();
  });
  QPushButton* const ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  Named(ok, "okButton", ok->text())->setDefault(true);
  QPushButton* const cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
  Named(cancel, "cancelButton", cancel->text());
  connect(buttons, &QDialogButtonBox::accepted, this, &CDlgFaultExploration::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &CDlgFaultExploration::reject);
  return buttons;
}

/// A value that has no radio button or no row leaves none chosen.
void CDlgFaultExploration::ShowValues() {
  for (const Radios& radios : m_radios) {
    const std::int32_t value = m_parameters.values.*radios.value;
    if (value < 0 || static_cast<std::size_t>(value) >= radios.buttons.size()) continue;
    QRadioButton& chosen = *radios.buttons[static_cast<std::size_t>(value)];
    ShowChecked(chosen, true);
    StopAtChosen(chosen);
  }
  const QSignalBlocker quietSearch(m_searchVersion);
  const QSignalBlocker quietActivity(m_activityVersion);
  m_searchVersion->setCurrentIndex(m_parameters.SearchVersionRow());
  m_activityVersion->setCurrentIndex(m_parameters.ActivityVersionRow());
  ShowWeight();
}

void CDlgFaultExploration::ShowWeight() {
  m_weight->SetNumber(m_parameters.values.catastropheWeight);
}

void CDlgFaultExploration::accept() {
  if (!FinishPendingEntry()) return;
  m_parameters.Accept();
  QDialog::accept();
}

}  // namespace tremlo
