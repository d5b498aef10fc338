#include "window/shell/FrmFlowCheck.h"

#include "window/graphs/ExpButton.h"
#include "window/graphs/NamedControl.h"
#include "window/shell/Pictures.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

namespace tremlo {

namespace {

constexpr QSize kPictureSize{280, 150};

const QString kQuestions = QStringLiteral("Q&Aで確認");
const QString kClicks = QStringLiteral("マウスクリックで確認");

/// The name of a way, then what it is for.
QList<QStringList> Descriptions() {
  const QString result = QStringLiteral("フローチャートの結果によって画面左側の作業フローが許可されます。");
  return {
      {kQuestions,
       QStringLiteral(
           "国営造成農業用ダム耐震性能照査マニュアルに記載されているQ&A集に対して「YES、NO」をクリックし"
           "て答えて頂くことで作業フローチャートを確定していくモードです。"),
       QStringLiteral("Q&A集を確認しながら作業フローチャートを決めたい場合にはこちらを選択してください。"),
       result},
      {kClicks,
       QStringLiteral(
           "国営造成農業用ダム耐震性能照査マニュアルに記載されている作業フローチャートを任意にクリックす"
           "ることで作業フローチャートを確定していくモードです。"),
       QStringLiteral("本ソフトウェアに慣れた方にはこちらがお勧めです。"), result},
  };
}

void AddRow(QTableWidget* table, const QString& text, bool isTitle) {
  const int row = table->rowCount();
  table->insertRow(row);
  auto* const item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled);
  QFont font = table->font();
  font.setBold(isTitle);
  item->setFont(font);
  table->setItem(row, 0, item);
}

QTableWidget* MakeDescriptions(QWidget* parent) {
  auto* const table = Named(new QTableWidget(0, 1, parent), "descriptions", QStringLiteral("確認方法"));
  table->setHorizontalHeaderLabels({QStringLiteral("確認方法")});
  table->horizontalHeader()->setStretchLastSection(true);
  table->horizontalHeader()->setHighlightSections(false);
  table->verticalHeader()->hide();
  table->setSelectionMode(QAbstractItemView::NoSelection);
  table->setShowGrid(false);
  table->setWordWrap(true);
  table->setTabKeyNavigation(false);
  for (const QStringList& way : Descriptions())
    for (const QString& line : way) AddRow(table, line, &line == &way.front());
  // The texts fold where the screen is narrow; the rows follow when the column has its width.
  QObject::connect(table->horizontalHeader(), &QHeaderView::sectionResized, table,
                   &QTableWidget::resizeRowsToContents, Qt::QueuedConnection);
  return table;
}

}  // namespace

CFrmFlowCheck::CFrmFlowCheck(WorkProcedure& procedure, CommandGate& gate,
                             std::function<void(SwitchOutcome)> follow, QWidget* parent)
    : Screen(parent),
      m_procedure(procedure),
      m_gate(gate),
      m_follow(std::move(follow)),
      m_descriptions(MakeDescriptions(this)) {
  LoadPictures();
  auto* const choices = new QHBoxLayout;
  choices->addStretch();
  choices->addWidget(
      MakeChoice("questions", kQuestions, QStringLiteral(":/shell/question_mode.svg"), ScreenId::Flowchart1));
  choices->addSpacing(40);
  choices->addWidget(
      MakeChoice("clicks", kClicks, QStringLiteral(":/shell/click_mode.svg"), ScreenId::Flowchart2));
  choices->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->addSpacing(24);
  column->addLayout(choices);
  column->addSpacing(24);
  column->addWidget(m_descriptions, 1);
  m_controls.push_back(m_descriptions);
  SetTabOrder(*this, m_controls);
}

QWidget* CFrmFlowCheck::MakeChoice(const char* name, const QString& text, const QString& picture,
                                   ScreenId id) {
  auto* const choice = new QWidget(this);
  auto* const pictureButton = Named(new CExpButton(choice), name, text + QStringLiteral("（図）"));
  pictureButton->setObjectName(QLatin1String(name) + QStringLiteral("Picture"));
  pictureButton->SetStyle(CExpButton::kPictureStyle);
  pictureButton->SetPictures(QIcon(picture), QIcon(picture));
  pictureButton->setToolTip(text);
  pictureButton->setFixedSize(kPictureSize);
  auto* const button = Named(new QPushButton(choice), name, text);
  button->setObjectName(QLatin1String(name) + QStringLiteral("Button"));
  // A single sign would underline the letter behind it.
  button->setText(QString(text).replace(u'&', QStringLiteral("&&")));
  button->setMinimumHeight(button->sizeHint().height() + 8);
  for (QAbstractButton* const control :
       {static_cast<QAbstractButton*>(pictureButton), static_cast<QAbstractButton*>(button)})
    connect(control, &QAbstractButton::clicked, this, [this, id] { Open(id); });
  m_controls.push_back(pictureButton);
  m_controls.push_back(button);

  auto* const column = new QVBoxLayout(choice);
  column->setContentsMargins({});
  column->addWidget(pictureButton);
  column->addWidget(button);
  return choice;
}

void CFrmFlowCheck::Open(ScreenId id) {
  m_gate.Run([&] { m_follow(m_procedure.SwitchScreen(id)); });
}

}  // namespace tremlo
