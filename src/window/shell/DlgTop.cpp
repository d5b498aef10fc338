#include "window/shell/DlgTop.h"

#include "window/shell/RoutePictureButton.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tremlo {

namespace {

const QString kGuidelineTitle = QStringLiteral("指針に沿って解析波形を作成");
const QString kResponseTitle = QStringLiteral("加速度応答スペクトルへの調整");

/// A route's title, then what it is for.
QList<QStringList> Descriptions() {
  return {
      {kGuidelineTitle,
       QStringLiteral(
           "本機能は、国営造成農業用ダム耐震性能照査マニュアルに基づいて解析波形の作成する機能です。"),
       QStringLiteral(
           "原種波形の設定、下限スペクトルの設定、断層パラメータからの距離減衰式による応答加速度スペクト"
           "ル作成が行えます。"),
       QStringLiteral("（参考資料）"), QStringLiteral("1）国営造成農業用ダム耐震性能照査マニュアル　H24年"),
       QStringLiteral("2）大規模地震に対するダム耐震性能照査指針(案)・同解説")},
      {kResponseTitle,
       QStringLiteral(
           "本機能は、任意の加速度応答スペクトルに対して、加速度応答スペクトルに適合した波形を作成する"
           "ものです。"),
       QStringLiteral("地震波形登録、スペクトル設定をするだけで波形調整ができます。"),
       QStringLiteral("指針の指定、距離減衰式による加速度応答スペクトルを設定することはできません。")},
  };
}

void AddRow(QTableWidget* table, const QString& text, bool isTitle) {
  const int row = table->rowCount();
  table->insertRow(row);
  auto* item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled);
  QFont font = table->font();
  font.setBold(isTitle);
  item->setFont(font);
  table->setItem(row, 0, item);
}

/// Large enough for its content: nothing to scroll.
void FitToContents(QTableWidget* table) {
  table->resizeColumnsToContents();
  table->resizeRowsToContents();
  const int frame = 2 * table->frameWidth();
  table->setMinimumSize(
      table->horizontalHeader()->length() + frame,
      table->verticalHeader()->length() + table->horizontalHeader()->sizeHint().height() + frame);
}

}  // namespace

CDlgTop::CDlgTop(QWidget* parent)
    : QDialog(parent),
      m_guideline(
          new RoutePictureButton(QStringLiteral(":/shell/guideline_route.svg"), kGuidelineTitle, this)),
      m_response(new RoutePictureButton(QStringLiteral(":/shell/response_route.svg"), kResponseTitle, this)) {
  setObjectName(QStringLiteral("dlgTop"));
  setWindowTitle(QStringLiteral("Tremlo"));
  m_guideline->setObjectName(QStringLiteral("guideline"));
  m_response->setObjectName(QStringLiteral("response"));
  auto* pictures = new QHBoxLayout;
  pictures->addStretch();
  pictures->addWidget(m_guideline);
  pictures->addWidget(m_response);
  pictures->addStretch();

  auto* column = new QVBoxLayout(this);
  column->addLayout(pictures);
  column->addWidget(MakeDescriptions());
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("ok"));
  ok->setDefault(true);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

  m_guideline->setChecked(true);
  m_guideline->setFocus();
}

QTableWidget* CDlgTop::MakeDescriptions() {
  auto* table = new QTableWidget(0, 1, this);
  table->setObjectName(QStringLiteral("descriptions"));
  table->setAccessibleName(QStringLiteral("作成方法"));
  table->setHorizontalHeaderLabels({QStringLiteral("作成方法")});
  table->verticalHeader()->hide();
  table->horizontalHeader()->setHighlightSections(false);
  table->setSelectionMode(QAbstractItemView::NoSelection);
  table->setShowGrid(false);
  table->setTabKeyNavigation(false);
  for (const QStringList& route : Descriptions())
    for (const QString& line : route) AddRow(table, line, &line == &route.front());
  FitToContents(table);
  table->horizontalHeader()->setStretchLastSection(true);
  return table;
}

bool CDlgTop::GuidelineRoute() const {
  return m_guideline->isChecked();
}

bool CDlgTop::CanBeShown() const {
  return m_guideline->IsValid() && m_response->IsValid();
}

TopChoice CDlgTop::Ask(QWidget* parent) {
  CDlgTop dialog(parent);
  if (!dialog.CanBeShown()) return TopChoice::NotShown;
  if (dialog.exec() != QDialog::Accepted) return TopChoice::Cancelled;
  return dialog.GuidelineRoute() ? TopChoice::GuidelineRoute : TopChoice::ResponseRoute;
}

}  // namespace tremlo
