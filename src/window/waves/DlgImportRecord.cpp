#include "window/waves/DlgImportRecord.h"

#include "core/files/TextScan.h"
#include "core/graphs/CellNumber.h"
#include "core/graphs/ComponentRows.h"
#include "core/records/RecordHead.h"
#include "core/records/RecordTerms.h"
#include "core/records/RecordText.h"
#include "core/records/RecordUnit.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/GraphMenu.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/InfoButton.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/PendingEntry.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/ScrolledBody.h"
#include "window/graphs/Spread7.h"
#include "window/graphs/WaitCursor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

#include <array>
#include <cmath>

namespace tremlo {

namespace {

constexpr std::array kFormats = {RecordFormat::KnetAscii, RecordFormat::KnetCsv, RecordFormat::JmaCsv,
                                 RecordFormat::Cosmos,    RecordFormat::Csmip,   RecordFormat::GeoNet,
                                 RecordFormat::At2,       RecordFormat::OwnWave, RecordFormat::FreeText};
constexpr std::array kUnits = {"gal", "cm/s2", "m/s2", "mm/s2", "g", "mg", "in/s2"};
constexpr int kColumnWidths[] = {40, 190, 64, 72, 84};
constexpr int kComponentRows = 6;  // in sight
constexpr int kHeadLines = 11;
constexpr int kWarningLines = 4;
constexpr QSize kGraphSize(430, 190);

enum OffsetRow { kNoOffset, kWholeOffset, kFirstOffset, kUsualOffset };

/// The number of an entry; nothing for none.
std::optional<double> NumberOf(const QString& text) {
  bool sound = false;
  const double number = HalfWidthNumber(text).trimmed().toDouble(&sound);
  return sound && std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

QString Figure(double value) {
  return QString::number(value, 'g', 10);
}

/// About a fifth of the length, in round figures.
double GridStep(double length) {
  const double rough = length / 5.0;
  if (!(rough > 0.0) || !std::isfinite(rough)) return 1.0;
  const double decade = std::pow(10.0, std::floor(std::log10(rough)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (factor * decade >= rough) return factor * decade;
  return 10.0 * decade;
}

/// Axes that the wave fills, be it weak or short: what is to be judged is its shape.
WaveGraphSetting SettingFor(const ImportedWave& wave) {
  double largest = 0.0;
  for (const double a : wave.acc) largest = std::max(largest, std::fabs(a));
  const double length = static_cast<double>(wave.acc.size()) * wave.timeStep;
  WaveGraphSetting setting;
  setting.autoRange = 0;
  setting.timeXStep = GridStep(length);
  setting.timeXMax = std::ceil(length / setting.timeXStep) * setting.timeXStep;
  setting.timeYStep = GridStep(2.0 * largest);
  setting.timeYMax = std::max(1.0, std::ceil(largest / setting.timeYStep)) * setting.timeYStep;
  setting.timeYMin = -setting.timeYMax;
  return setting;
}

QString NameOfFile(const RecordImport& import) {
  const RecordImport::File& file = import.Files().front();
  QString name = QFileInfo(file.path).fileName();
  if (!file.member.isEmpty())
    name += QStringLiteral("（%1）").arg(import.Files().size() > 1
                                             ? QStringLiteral("%1 ファイル").arg(import.Files().size())
                                             : QFileInfo(file.member).fileName());
  return name;
}

int LinesHeight(const QPlainTextEdit& edit, int lines) {
  return lines * edit.fontMetrics().lineSpacing() + 2 * edit.frameWidth() +
         static_cast<int>(2.0 * edit.document()->documentMargin());
}

}  // namespace

CDlgImportRecord::CDlgImportRecord(RecordImport& import, Prompt& prompt, FileDialogs& files, QWidget* parent)
    : QDialog(parent), m_import(import), m_prompt(prompt) {
  setObjectName(QStringLiteral("CDlgImportRecord"));
  setWindowTitle(QStringLiteral("記録の読込"));
  auto* const body = new ScrolledBody(this);
  auto* const content = new QWidget(body);
  // Made in the order of the tab key.
  auto* const left = new QVBoxLayout;
  left->addWidget(MakeFormatRow());
  left->addWidget(MakeHead(), 1);
  left->addWidget(MakeComponents());
  auto* const right = new QVBoxLayout;
  right->addWidget(MakeFields());
  right->addWidget(MakeGraph(files), 1);
  auto* const columns = new QHBoxLayout;
  columns->addLayout(left);
  columns->addLayout(right);
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins({});
  rows->addLayout(columns);
  rows->addWidget(MakeWarnings());

  QWidget* const buttons = MakeButtons();
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(body);
  column->addWidget(buttons);
  ShowReadings();
  body->setWidget(content);
  body->Fit(*buttons);
  body->FollowCells(*m_grid);
  QWidget* first = m_grid;
  if (const auto fault = m_import.Fault()) first = FieldOf(fault->field);
  first->setFocus();
}

QWidget* CDlgImportRecord::MakeFormatRow() {
  auto* const box = new QWidget(this);
  auto* const layout = new QGridLayout(box);
  layout->setContentsMargins({});
  auto* const file = new QLabel(box);
  file->setObjectName(QStringLiteral("fileText"));
  file->setTextFormat(Qt::PlainText);
  const QString name = NameOfFile(m_import);
  file->setText(file->fontMetrics().elidedText(name, Qt::ElideMiddle, 400));
  file->setToolTip(m_import.Files().front().path);
  file->setAccessibleName(QStringLiteral("ファイル ") + name);
  layout->addWidget(new QLabel(QStringLiteral("ファイル"), box), 0, 0);
  layout->addWidget(file, 0, 1, 1, 2);

  m_formatCombo = new QComboBox(box);
  m_formatCombo->setObjectName(QStringLiteral("formatCombo"));
  const RecordFormat found = m_import.Readings().front().format;
  for (const RecordFormat format : kFormats) {
    // The two are one format but for the names of the directions.
    const bool kikNet = format == RecordFormat::KnetAscii && found == RecordFormat::KikNetAscii;
    m_formatCombo->addItem(FormatName(kikNet ? found : format), static_cast<int>(format));
  }
  m_formatCombo->setEnabled(m_import.Files().size() == 1);
  connect(m_formatCombo, &QComboBox::activated, this, [this](int row) {
    const auto format = static_cast<RecordFormat>(m_formatCombo->itemData(row).toInt());
    if (m_import.Readings().front().format == format) return;
    const WaitCursor waiting;
    m_import.SetFormat(format);
    ShowReadings();
  });
  layout->addWidget(LabelFor(m_formatCombo, QStringLiteral("形式")), 1, 0);
  layout->addWidget(m_formatCombo, 1, 1);
  m_sign = new QLabel(box);
  m_sign->setObjectName(QStringLiteral("signText"));
  m_sign->setTextFormat(Qt::PlainText);
  m_sign->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  layout->addWidget(m_sign, 1, 2);
  layout->setColumnStretch(2, 1);
  return box;
}

QWidget* CDlgImportRecord::MakeHead() {
  auto* const group = new QGroupBox(QStringLiteral("ファイルの先頭（> の行がデータ）"), this);
  auto* const layout = new QVBoxLayout(group);
  m_head = Named(new QPlainTextEdit(group), "headText", QStringLiteral("ファイルの先頭"));
  m_head->setReadOnly(true);
  m_head->setTabChangesFocus(true);
  m_head->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_head->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_head->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_head->setMinimumHeight(LinesHeight(*m_head, kHeadLines));
  layout->addWidget(m_head);
  return group;
}

QWidget* CDlgImportRecord::MakeComponents() {
  auto* const group = new QGroupBox(
      m_import.TakesOnlyOne() ? QStringLiteral("成分（1つを選択）") : QStringLiteral("成分"), this);
  auto* const layout = new QVBoxLayout(group);
  m_grid = Named(new CSpread7(group), "componentGrid", QStringLiteral("成分"));
  m_grid->SetMenu(CSpread7::Menu::ReadOnly);
  m_grid->SetShowWarning(WarningsBy(m_prompt));
  m_grid->SetData(std::make_shared<ComponentRows>(m_import));
  m_grid->verticalHeader()->hide();
  int width = 2 * m_grid->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (int column = 1; column <= m_grid->ColumnCount(); ++column) {
    m_grid->SetColumnWidth(column, kColumnWidths[column - 1]);
    width += kColumnWidths[column - 1];
  }
  m_grid->horizontalHeader()->setSectionResizeMode(ComponentRows::kName - 1, QHeaderView::Stretch);
  m_grid->setFixedSize(width, m_grid->horizontalHeader()->sizeHint().height() +
                                  kComponentRows * m_grid->verticalHeader()->defaultSectionSize() +
                                  2 * m_grid->frameWidth());
  connect(m_grid, &CSpread7::Changed, this, [this] {
    m_grid->Refresh();  // the others of a single choice
    ShowOutcome();
  });
  connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { ShowOutcome(); });
  layout->addWidget(m_grid);
  return group;
}

void CDlgImportRecord::AddField(QGridLayout& layout, QWidget* field, const QString& label,
                                const QString& unit) {
  const int row = layout.rowCount();
  layout.addWidget(LabelFor(field, label), row, 0);
  layout.addWidget(field, row, 1);
  if (unit.isEmpty()) return;
  layout.addWidget(new QLabel(unit, field->parentWidget()), row, 2);
  field->setAccessibleDescription(unit);
}

QComboBox* CDlgImportRecord::MakeCombo(const char* name, const QStringList& texts,
                                       std::function<void(int)> chosen) {
  auto* const combo = new QComboBox(this);
  combo->setObjectName(QLatin1String(name));
  combo->addItems(texts);
  connect(combo, &QComboBox::activated, this, std::move(chosen));
  return combo;
}

CExpEdit* CDlgImportRecord::MakeNumber(const char* name, const QString& refusal, bool mayBeEmpty,
                                       const std::function<bool(std::optional<double>)>& take) {
  auto* const edit = new CExpEdit(this);
  edit->setObjectName(QLatin1String(name));
  edit->setAlignment(Qt::AlignRight);
  edit->SetShowWarning(WarningsBy(m_prompt));
  edit->SetOwnerCheck([refusal, mayBeEmpty, take](const QString& text) {
    const auto number = NumberOf(text);
    if (!number && !(mayBeEmpty && text.isEmpty())) return refusal;
    return take(number) ? QString() : refusal;
  });
  connect(edit, &CExpEdit::Entered, this, [this, edit] {
    if (edit->hasFocus()) m_entered = edit;
    ShowReadings();
  });
  connect(edit, &CExpEdit::Abandoned, this, &CDlgImportRecord::ShowFields);
  return edit;
}

QWidget* CDlgImportRecord::MakeFields() {
  auto* const group = new QGroupBox(QStringLiteral("読み方"), this);
  auto* const layout = new QGridLayout(group);
  m_unitCombo = MakeCombo("unitCombo", {}, [this](int row) {
    Answer([row](RecordAnswers& answers) {
      answers.unit.reset();
      if (row > 0) answers.unit = UnitOfWord(kUnits[static_cast<std::size_t>(row - 1)]);
    });
  });
  AddField(*layout, m_unitCombo, QStringLiteral("単位"));
  m_stepEdit = MakeNumber("stepEdit", QStringLiteral("時間間隔の入力エラーです。"), true,
                          [this](std::optional<double> step) {
                            if (step && *step <= 0.0) return false;
                            RecordAnswers answers = m_import.Answers();
                            answers.timeStep = step == m_import.StatedTimeStep() ? std::nullopt : step;
                            const WaitCursor waiting;
                            m_import.SetAnswers(answers);
                            return true;
                          });
  AddField(*layout, m_stepEdit, QStringLiteral("時間間隔"), QStringLiteral("(sec)"));
  m_layoutCombo = MakeCombo("layoutCombo", {}, [this](int row) {
    Answer([row](RecordAnswers& answers) {
      answers.layout.reset();
      if (row > 0) answers.layout = row == 1 ? RecordLayout::Columns : RecordLayout::Across;
    });
  });
  AddField(*layout, m_layoutCombo, QStringLiteral("数値の並び"));
  m_decimalCombo = MakeCombo("decimalCombo", {}, [this](int row) {
    Answer([row](RecordAnswers& answers) {
      answers.decimalComma.reset();
      if (row > 0) answers.decimalComma = row == 1;
    });
  });
  AddField(*layout, m_decimalCombo, QStringLiteral("数字の間のコンマ"));
  m_firstLineEdit = MakeLineEdit("firstLineEdit", &RecordAnswers::firstLine);
  AddField(*layout, m_firstLineEdit, QStringLiteral("データの始めの行"));
  m_lastLineEdit = MakeLineEdit("lastLineEdit", &RecordAnswers::lastLine);
  AddField(*layout, m_lastLineEdit, QStringLiteral("データの終わりの行"));
  m_missingCheck =
      NamedButton<QCheckBox>("missingCheck", QStringLiteral("欠測を前後の値から直線で補う"), group);
  connect(m_missingCheck, &QCheckBox::toggled, this,
          [this](bool on) { Answer([on](RecordAnswers& answers) { answers.fillMissing = on; }); });
  layout->addWidget(m_missingCheck, layout->rowCount(), 0, 1, 3);
  m_allSamplesCheck =
      NamedButton<QCheckBox>("allSamplesCheck", QStringLiteral("記載された個数より後のデータも読む"), group);
  connect(m_allSamplesCheck, &QCheckBox::toggled, this,
          [this](bool on) { Answer([on](RecordAnswers& answers) { answers.allSamples = on; }); });
  layout->addWidget(m_allSamplesCheck, layout->rowCount(), 0, 1, 3);

  m_offsetCombo = MakeCombo("offsetCombo", {}, [this](int) {
    TakeOffset();
    ShowFields();
    ShowOutcome();
  });
  AddField(*layout, m_offsetCombo, QStringLiteral("オフセット"));
  m_offsetEdit = MakeNumber("offsetEdit", QStringLiteral("区間の長さの入力エラーです。"), false,
                            [this](std::optional<double> seconds) {
                              if (!seconds || *seconds <= 0.0) return false;
                              m_offsetSeconds = *seconds;
                              TakeOffset();
                              return true;
                            });
  AddField(*layout, m_offsetEdit, QStringLiteral("初めの区間の長さ"), QStringLiteral("(sec)"));
  const QString badSpan = QStringLiteral("読む範囲の入力エラーです。");
  m_fromEdit = MakeNumber("fromEdit", badSpan, false, [this](std::optional<double> from) {
    return TakeSpan(from.value_or(0.0), m_import.To());
  });
  AddField(*layout, m_fromEdit, QStringLiteral("読む範囲の始め"), QStringLiteral("(sec)"));
  m_toEdit = MakeNumber("toEdit", badSpan, true,
                        [this](std::optional<double> to) { return TakeSpan(m_import.From(), to); });
  AddField(*layout, m_toEdit, QStringLiteral("読む範囲の終わり"), QStringLiteral("(sec)"));
  layout->setColumnStretch(1, 1);
  return group;
}

QWidget* CDlgImportRecord::MakeGraph(FileDialogs& files) {
  auto* const box = new QWidget(this);
  auto* const layout = new QVBoxLayout(box);
  layout->setContentsMargins({});
  m_caption = new QLabel(box);
  m_caption->setObjectName(QStringLiteral("caption"));
  m_caption->setTextFormat(Qt::PlainText);
  m_caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  layout->addWidget(m_caption);
  m_graph = Named(new GraphView(box), "graph", QStringLiteral("読み込まれる波形のグラフ"));
  m_graph->setMinimumSize(kGraphSize);
  m_graph->SetSource([this] { return MakeCurve(); });
  new GraphMenu(*m_graph, files, m_prompt);
  layout->addWidget(m_graph, 1);
  return box;
}

QWidget* CDlgImportRecord::MakeWarnings() {
  m_warnings = Named(new QPlainTextEdit(this), "warningText", QStringLiteral("確認と警告"));
  m_warnings->setReadOnly(true);
  m_warnings->setTabChangesFocus(true);
  m_warnings->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_warnings->setFixedHeight(LinesHeight(*m_warnings, kWarningLines));
  return m_warnings;
}

QWidget* CDlgImportRecord::MakeButtons() {
  auto* const box = new QWidget(this);
  auto* const row = new QHBoxLayout(box);
  row->setContentsMargins({});
  row->addWidget(new InfoButton(
      "infoButton", QStringLiteral("記録の読込について"),
      QStringLiteral(
          "記録のファイルから加速度の波形を読み込みます。OK を押すまで何も登録されません。\n\n"
          "単位や時間間隔がファイルに書かれていないときは、指定してください。オフセットは、ファイルが"
          "補正済みと述べていない限り、記録全体の平均を差し引きます。\n\n") +
          RecordTerms(),
      m_prompt, box));
  auto* const buttons = new QDialogButtonBox(this);  // in the dialog before OK becomes its default button
  auto* const ok = NamedButton<QPushButton>("okButton", QStringLiteral("OK"), this);
  buttons->addButton(ok, QDialogButtonBox::AcceptRole);
  buttons->addButton(NamedButton<QPushButton>("cancelButton", QStringLiteral("キャンセル"), this),
                     QDialogButtonBox::RejectRole);
  ok->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &CDlgImportRecord::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &CDlgImportRecord::reject);
  row->addWidget(buttons, 1);
  return box;
}

void CDlgImportRecord::Answer(const std::function<void(RecordAnswers&)>& change) {
  RecordAnswers answers = m_import.Answers();
  change(answers);
  const WaitCursor waiting;
  m_import.SetAnswers(answers);
  ShowReadings();
}

CExpEdit* CDlgImportRecord::MakeLineEdit(const char* name, std::optional<std::size_t> RecordAnswers::*line) {
  return MakeNumber(name, QStringLiteral("行番号の入力エラーです。"), true,
                    [this, line](std::optional<double> number) {
                      constexpr double kMostLines = RecordText::kMostLines;
                      if (number && (*number < 1.0 || *number > kMostLines || *number != std::floor(*number)))
                        return false;
                      RecordAnswers answers = m_import.Answers();
                      (answers.*line).reset();
                      if (number) answers.*line = static_cast<std::size_t>(*number);
                      if (answers.firstLine && answers.lastLine && *answers.lastLine < *answers.firstLine)
                        return false;
                      const WaitCursor waiting;
                      m_import.SetAnswers(answers);
                      return true;
                    });
}

void CDlgImportRecord::TakeOffset() {
  if (m_offsetCombo->currentIndex() == kUsualOffset) {
    m_import.SetOffset(std::nullopt);
    return;
  }
  OffsetRule rule;
  if (m_offsetCombo->currentIndex() == kWholeOffset) rule.kind = OffsetRule::Whole;
  if (m_offsetCombo->currentIndex() == kFirstOffset) rule = {OffsetRule::First, m_offsetSeconds};
  m_import.SetOffset(rule);
}

bool CDlgImportRecord::TakeSpan(double from, std::optional<double> to) {
  if (from < 0.0 || (to && *to <= from)) return false;
  m_import.SetSpan(from, to);
  return true;
}

void CDlgImportRecord::ShowReadings() {
  m_grid->Refresh();
  if (m_grid->ActiveRow() == 0 && m_grid->RowCount() > 0) {
    std::size_t row = 0;
    while (row + 1 < m_import.Components().size() && !m_import.Components()[row].chosen) ++row;
    m_grid->SelectCell(static_cast<int>(row) + 1, ComponentRows::kChosen);
  }
  ShowHead();
  ShowFields();
  ShowOutcome();
}

void CDlgImportRecord::ShowHead() {
  const auto component = ShownComponent();
  const std::size_t file = component ? m_import.Components()[*component].file : 0;
  const RecordReading& reading = m_import.Readings()[file];
  QStringList lines;
  const std::vector<HeadLine> head = HeadOf(m_import.Files()[file].content, reading.dataLines);
  for (std::size_t i = 0; i < head.size(); ++i)
    lines << QStringLiteral("%1 %2 %3").arg(i + 1, 3).arg(QChar(head[i].data ? u'>' : u' '), head[i].text);
  const QString text = lines.join(u'\n');
  if (m_head->toPlainText() == text) return;
  m_head->setPlainText(text);
  // Told by the sign before the line, too.
  QList<QTextEdit::ExtraSelection> marks;
  for (QTextBlock block = m_head->document()->begin(); block.isValid(); block = block.next()) {
    if (!head[static_cast<std::size_t>(block.blockNumber())].data) continue;
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(block);
    mark.format.setBackground(palette().alternateBase());
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    marks << mark;
  }
  m_head->setExtraSelections(marks);
}

void CDlgImportRecord::ShowFields() {
  const RecordReading& reading = m_import.Readings().front();
  const RecordAnswers& answers = m_import.Answers();
  const auto shownAs = reading.format == RecordFormat::KikNetAscii ? RecordFormat::KnetAscii : reading.format;
  m_formatCombo->setCurrentIndex(m_formatCombo->findData(static_cast<int>(shownAs)));
  m_sign->setText(QStringLiteral("判定：") + reading.sign);
  m_sign->setToolTip(m_sign->text());

  const auto fill = [](QComboBox& combo, const QStringList& texts, int row) {
    combo.clear();
    combo.addItems(texts);
    combo.setCurrentIndex(row);
  };
  const QString open = QStringLiteral("（選んでください）");
  QStringList units;
  if (m_import.IsOpen(RecordAsk::Unit))
    units << open;
  else if (m_import.StatedUnit().isEmpty())
    units << QStringLiteral("ファイルの記載のとおり");
  else
    units << QStringLiteral("ファイルの記載（%1）").arg(m_import.StatedUnit());
  int unitRow = 0;
  for (const char* const unit : kUnits) {
    units << QLatin1String(unit);
    if (answers.unit && answers.unit->name == QLatin1String(unit))
      unitRow = static_cast<int>(units.size()) - 1;
  }
  fill(*m_unitCombo, units, unitRow);
  m_unitCombo->setEnabled(m_import.TakesUnit());

  const auto step = answers.timeStep ? answers.timeStep : m_import.StatedTimeStep();
  m_stepEdit->SetText(step ? Figure(*step) : QString());
  m_stepEdit->setPlaceholderText(m_import.Asks(RecordAsk::TimeStep) ? QStringLiteral("（入力してください）")
                                                                    : QString());
  m_stepEdit->setEnabled(m_import.TakesTimeStep());

  const QString automatic = QStringLiteral("自動");
  const auto asked = [&](RecordAsk ask) { return m_import.IsOpen(ask) ? open : automatic; };
  fill(*m_layoutCombo,
       {asked(RecordAsk::Layout), QStringLiteral("列ごとに 1 成分"), QStringLiteral("横に続く 1 成分")},
       !answers.layout                            ? 0
       : *answers.layout == RecordLayout::Columns ? 1
                                                  : 2);
  fill(*m_decimalCombo, {asked(RecordAsk::DecimalComma), QStringLiteral("小数点"), QStringLiteral("区切り")},
       !answers.decimalComma   ? 0
       : *answers.decimalComma ? 1
                               : 2);
  for (QComboBox* const combo : {m_layoutCombo, m_decimalCombo}) combo->setEnabled(m_import.TakesLayout());
  const auto lineText = [](const std::optional<std::size_t>& line) {
    return line ? QString::number(*line) : QString();
  };
  m_firstLineEdit->SetText(lineText(answers.firstLine));
  m_firstLineEdit->setPlaceholderText(
      m_import.IsOpen(RecordAsk::Lines) ? QStringLiteral("（入力してください）") : automatic);
  m_lastLineEdit->SetText(lineText(answers.lastLine));
  m_lastLineEdit->setPlaceholderText(automatic);
  for (CExpEdit* const edit : {m_firstLineEdit, m_lastLineEdit}) edit->setEnabled(m_import.TakesLayout());
  ShowChecked(*m_allSamplesCheck, answers.allSamples);
  m_allSamplesCheck->setEnabled(m_import.TakesAllSamples());
  ShowChecked(*m_missingCheck, answers.fillMissing);
  m_missingCheck->setEnabled(m_import.TakesMissing());

  const OffsetRule rule = m_import.OffsetOfFile(0);
  const bool differ = m_import.UsualOffsetsDiffer();
  QStringList rules{QStringLiteral("差し引かない"), QStringLiteral("記録全体の平均を差し引く"),
                    QStringLiteral("初めの区間の平均を差し引く")};
  if (differ) rules << QStringLiteral("補正済みのファイルだけ差し引かない");
  int ruleRow = kUsualOffset;
  if (!differ || !m_import.HasUsualOffset())
    ruleRow = rule.kind == OffsetRule::None    ? kNoOffset
              : rule.kind == OffsetRule::Whole ? kWholeOffset
                                               : kFirstOffset;
  fill(*m_offsetCombo, rules, ruleRow);
  m_offsetEdit->SetText(Figure(m_offsetSeconds));
  m_offsetEdit->setEnabled(ruleRow == kFirstOffset);
  m_fromEdit->SetText(Figure(m_import.From()));
  m_toEdit->SetText(m_import.To() ? Figure(*m_import.To()) : QString());
  m_toEdit->setPlaceholderText(QStringLiteral("最後まで"));
}

std::optional<std::size_t> CDlgImportRecord::ShownComponent() const {
  const auto row = static_cast<std::size_t>(m_grid->ActiveRow());
  if (row >= 1 && row <= m_import.Components().size()) return row - 1;
  return m_import.Components().empty() ? std::nullopt : std::optional<std::size_t>(0);
}

void CDlgImportRecord::ShowOutcome() {
  const auto shown = ShownComponent();
  QString caption;
  if (shown && m_import.IsKnown(*shown)) {
    const ImportedWave wave = m_import.Wave(*shown);
    const RecordPeak peak = PeakOf(wave.acc);
    double largest = 0.0;
    for (const double a : wave.acc) largest = std::max(largest, std::fabs(a));
    caption = QStringLiteral("%1　%2 点　最大 %3 gal　平均 %4 gal")
                  .arg(wave.name, QString::number(wave.acc.size()), QString::number(largest, 'g', 5),
                       QString::number(std::fabs(peak.mean) < 1e-9 * largest ? 0.0 : peak.mean, 'g', 3));
  } else if (shown) {
    caption = QStringLiteral("単位と時間間隔が決まると、波形を表示します。");
  }
  m_caption->setText(caption);
  m_caption->setToolTip(caption);
  m_graph->Refresh();

  QStringList lines;
  if (const auto fault = m_import.Fault()) lines << QStringLiteral("要確認：") + fault->text;
  for (const QString& warning : m_import.Warnings()) lines << QStringLiteral("警告：") + warning;
  for (const QString& note : m_import.Notes()) lines << QStringLiteral("参考：") + note;
  if (lines.isEmpty()) lines << QStringLiteral("警告はありません。");
  const QString text = lines.join(u'\n');
  if (m_warnings->toPlainText() != text) m_warnings->setPlainText(text);
}

std::unique_ptr<CDrawGraph> CDlgImportRecord::MakeCurve() const {
  const auto shown = ShownComponent();
  if (!shown || !m_import.IsKnown(*shown)) return nullptr;
  const ImportedWave wave = m_import.Wave(*shown);
  if (wave.acc.empty()) return nullptr;
  const WaveGraphSetting setting = SettingFor(wave);
  auto graph = std::make_unique<CDrawTimeAccGal>(setting);
  graph->AddWave(wave.acc, wave.timeStep, CurvePen{.color = setting.timeColor});
  return graph;
}

QWidget* CDlgImportRecord::FieldOf(ImportFault::Field field) const {
  switch (field) {
    case ImportFault::Format:
      return m_formatCombo;
    case ImportFault::Unit:
      return m_unitCombo;
    case ImportFault::TimeStep:
      return m_stepEdit;
    case ImportFault::Layout:
      return m_layoutCombo;
    case ImportFault::Missing:
      return m_missingCheck;
    case ImportFault::DecimalComma:
      return m_decimalCombo;
    case ImportFault::Lines:
      return m_firstLineEdit;
    case ImportFault::Offset:
      return m_offsetEdit;
    case ImportFault::Span:
      return m_fromEdit;
    case ImportFault::Components:
      break;
  }
  return m_grid;
}

void CDlgImportRecord::accept() {
  if (!FinishPendingEntry()) return;
  const auto fault = m_import.Fault();
  if (!fault) {
    QDialog::accept();
    return;
  }
  m_prompt.Tell(fault->text);
  FieldOf(fault->field)->setFocus(Qt::OtherFocusReason);
}

void CDlgImportRecord::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // Who has typed a number sees first what comes of it; in the grid the key is for the cells.
    const QWidget* const entered = std::exchange(m_entered, nullptr);
    if ((entered && entered == focusWidget()) || m_grid->hasFocus()) return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tremlo
