#include "window/waves/FrmOrigSeismicWave.h"

#include "core/graphs/CurvePalette.h"
#include "core/waves/WaveFile.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/waves/DlgSeismicWaveAdd.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>

namespace tremlo {

namespace {

constexpr double kNewTimeStep = 0.01;

/// A combo box whose list does not open over a typed name that is refused.
class NameCombo : public QComboBox {
 public:
  NameCombo(CExpEdit* edit, QWidget* parent) : QComboBox(parent), m_edit(edit) {
    setEditable(true);
    setLineEdit(edit);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    // The box itself would take a typed name that another wave bears for the choice of that wave.
    disconnect(edit, &QLineEdit::editingFinished, this, nullptr);
  }
  void showPopup() override {
    if (FinishName()) QComboBox::showPopup();
  }

 protected:
  // Another wave can also be chosen without the list, and without the focus leaving the name.
  void keyPressEvent(QKeyEvent* event) override {
    if (!ChoosesWave(event->key()) || FinishName()) QComboBox::keyPressEvent(event);
  }
  void wheelEvent(QWheelEvent* event) override {
    if (FinishName()) QComboBox::wheelEvent(event);
  }

 private:
  static bool ChoosesWave(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  }
  bool FinishName() { return !m_edit->IsDirty() || m_edit->FinishEntry(); }

  CExpEdit* m_edit;
};

}  // namespace

CFrmOrigSeismicWave::CFrmOrigSeismicWave(CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files,
                                         ChangeRules& rules, CommandGate& gate, QWidget* parent)
    : WaveRegistration(doc, prompt, files, gate, false, parent), m_rules(rules) {
  setAccessibleName(QStringLiteral("波形登録"));
  MakeNameCombo();
  m_addButton = NamedButton<QPushButton>("addButton", QStringLiteral("追加"), this);
  connect(m_addButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { AddWave(); }); });
  m_deleteButton = NamedButton<QPushButton>("deleteButton", QStringLiteral("削除"), this);
  connect(m_deleteButton, &QAbstractButton::clicked, this, [this] { m_gate.Run([this] { DeleteWave(); }); });
  LayOut();
  Refresh();
}

void CFrmOrigSeismicWave::MakeNameCombo() {
  m_nameEdit = new CExpEdit(this);
  m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
  m_nameEdit->setAccessibleName(QStringLiteral("波形名"));
  RefuseEmpty(*m_nameEdit, m_prompt, QStringLiteral("波形名の入力エラーです。"));
  connect(m_nameEdit, &CExpEdit::Entered, this, &CFrmOrigSeismicWave::Rename);
  connect(m_nameEdit, &CExpEdit::Abandoned, this, &CFrmOrigSeismicWave::ShowName);
  m_nameCombo = new NameCombo(m_nameEdit, this);
  m_nameCombo->setObjectName(QStringLiteral("nameCombo"));
  m_nameCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(m_nameCombo, &QComboBox::activated, this, &CFrmOrigSeismicWave::ChooseWave);
}

void CFrmOrigSeismicWave::LayOut() {
  auto* const row = new QHBoxLayout;
  row->addWidget(LabelFor(m_nameCombo, QStringLiteral("波形名")));
  row->addWidget(m_nameCombo, 1);
  const std::initializer_list<QWidget*> buttons{m_addButton, m_deleteButton, m_readButton, m_dbButton,
                                                m_helpButton};
  for (QWidget* const button : buttons) row->addWidget(button);
  std::vector<QWidget*> controls{m_nameCombo};
  controls.insert(controls.end(), buttons);
  BuildBody(row, std::move(controls));
}

void CFrmOrigSeismicWave::Refresh() {
  const CSeismicWaveSet& waves = m_doc.seedWaves;
  m_name = waves.CurrentName();
  if (!waves.Contains(m_name) && !waves.IsEmpty()) m_name = waves.At(0).name;
  m_nameCombo->clear();
  for (const QString& name : waves.Names()) m_nameCombo->addItem(name);
  m_nameCombo->setCurrentIndex(waves.IsEmpty() ? -1 : static_cast<int>(waves.IndexOf(m_name)));
  m_nameCombo->setEnabled(!waves.IsEmpty());
  m_deleteButton->setEnabled(!waves.IsEmpty());
  ShowName();
  ShowWave();
}

CSeismicWave* CFrmOrigSeismicWave::Wave() {
  const std::size_t index = m_doc.seedWaves.IndexOf(m_name);
  return index < m_doc.seedWaves.Count() ? &m_doc.seedWaves.At(index) : nullptr;
}

bool CFrmOrigSeismicWave::ChangeWave(const std::function<void()>& apply) {
  return Wave() && m_rules.ChangeWaveData(m_name, apply);
}

void CFrmOrigSeismicWave::AddWave() {
  CDlgSeismicWaveAdd dialog(m_doc.seedWaves, m_prompt, window());
  if (dialog.exec() == QDialog::Accepted) TakeWaves({{dialog.Name(), kNewTimeStep, {0.0}, {}}});
}

/// The waves come last, whatever names they get, each in one colour for all of its curves; the first of them
/// is shown. Where there is no memory for them, or to show it, none is registered.
void CFrmOrigSeismicWave::TakeWaves(std::vector<ImportedWave> read) {
  CSeismicWaveSet& waves = m_doc.seedWaves;
  const std::size_t count = waves.Count();
  const bool modified = m_doc.IsModified();
  const QString current = waves.CurrentName();
  try {
    for (ImportedWave& one : read) {
      AddImportedWave(waves, one.name, one.timeStep, one.acc);
      CSeismicWave& wave = waves.At(waves.Count() - 1);
      wave.siteColor = wave.baseColor = wave.adjustColor = FreeColor();
      wave.note = std::move(one.note);
    }
    waves.SelectCurrent(QString(waves.At(count).name));
    m_doc.SetModified(true);
    Refresh();
    MakeGraphNow();
  } catch (...) {
    waves.Resize(count);
    waves.SelectCurrent(current);
    m_doc.SetModified(modified);
    Refresh();
    throw;
  }
}

/// For the last wave the colour of its place, or the next that no other wave was given: waves before it may
/// have been deleted.
std::int32_t CFrmOrigSeismicWave::FreeColor() const {
  const std::vector<CSeismicWave>& waves = m_doc.seedWaves.Records();
  const std::size_t last = waves.size() - 1;
  for (std::size_t i = 0; i < kPaletteSize; ++i) {
    const std::int32_t color = PaletteColor(last + i);
    const auto bears = [color](const CSeismicWave& wave) { return wave.siteColor == color; };
    if (std::none_of(waves.begin(), waves.end() - 1, bears)) return color;
  }
  return PaletteColor(last);
}

void CFrmOrigSeismicWave::DeleteWave() {
  if (Wave() && m_rules.DeleteWave(m_name)) Refresh();
}

void CFrmOrigSeismicWave::ChooseWave(int index) {
  if (!m_gate.Run([this, index] { SelectWave(index); }))
    m_nameCombo->setCurrentIndex(m_nameCombo->findText(m_name));
}

void CFrmOrigSeismicWave::SelectWave(int index) {
  m_name = m_nameCombo->itemText(index);
  if (m_doc.seedWaves.CurrentName() != m_name) {
    m_doc.seedWaves.SelectCurrent(m_name);
    m_doc.SetModified(true);
  }
  ShowName();
  ShowWave();
}

void CFrmOrigSeismicWave::Rename() {
  const int index = m_nameCombo->currentIndex();
  const QString name = m_nameEdit->GetText();
  if (index < 0 || m_nameCombo->itemText(index) == name) return;
  m_rules.RenameWave(static_cast<std::size_t>(index), name);
  m_nameCombo->setItemText(index, name);
  m_name = name;
  ShowName();
  ShowWave();
}

void CFrmOrigSeismicWave::ShowName() {
  const int index = m_nameCombo->currentIndex();
  m_nameEdit->SetText(index < 0 ? QString() : m_nameCombo->itemText(index));
}

}  // namespace tremlo
