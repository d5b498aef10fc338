#include "window/waves/DlgSelectMembers.h"

#include "core/graphs/MemberRows.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/NamedControl.h"
#include "window/graphs/RefuseEmpty.h"
#include "window/graphs/ScrolledBody.h"
#include "window/graphs/Spread7.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kColumnWidths[] = {48, 96, 120, 130, 350};
constexpr int kRows = 14;  // in sight

}  // namespace

CDlgSelectMembers::CDlgSelectMembers(const MemberList& list, bool onlyOne, Prompt& prompt, QWidget* parent)
    : QDialog(parent), m_list(list), m_prompt(prompt), m_rows(std::make_shared<MemberRows>(list, onlyOne)) {
  setObjectName(QStringLiteral("CDlgSelectMembers"));
  setWindowTitle(QStringLiteral("書庫のファイルの選択"));
  auto* const body = new ScrolledBody(this);
  auto* const content = new QWidget(body);
  auto* const rows = new QVBoxLayout(content);
  rows->setContentsMargins({});
  if (!list.error.isEmpty()) {
    auto* const error = new QLabel(list.error, content);
    error->setObjectName(QStringLiteral("errorText"));
    error->setTextFormat(Qt::PlainText);
    error->setWordWrap(true);
    rows->addWidget(error);
  }
  rows->addWidget(MakeSearch());
  MakeGrid();
  rows->addWidget(m_grid);
  rows->addWidget(MakeChoice(onlyOne));

  auto* const buttons = new QDialogButtonBox(this);  // in the dialog before OK becomes its default button
  auto* const ok = NamedButton<QPushButton>("okButton", QStringLiteral("OK"), this);
  buttons->addButton(ok, QDialogButtonBox::AcceptRole);
  buttons->addButton(NamedButton<QPushButton>("cancelButton", QStringLiteral("キャンセル"), this),
                     QDialogButtonBox::RejectRole);
  ok->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(body);
  column->addWidget(buttons);
  body->setWidget(content);
  body->Fit(*buttons);
  body->FollowCells(*m_grid);
  ShowCount();
}

CDlgSelectMembers::~CDlgSelectMembers() = default;

QWidget* CDlgSelectMembers::MakeSearch() {
  auto* const box = new QWidget(this);
  auto* const row = new QHBoxLayout(box);
  row->setContentsMargins({});
  m_searchEdit = new CExpEdit(box);
  m_searchEdit->setObjectName(QStringLiteral("searchEdit"));
  m_searchEdit->setPlaceholderText(QStringLiteral("観測点、成分、ファイル名など"));
  m_searchEdit->setClearButtonEnabled(true);
  row->addWidget(LabelFor(m_searchEdit, QStringLiteral("検索")));
  row->addWidget(m_searchEdit, 1);
  connect(m_searchEdit, &QLineEdit::textChanged, this, [this](const QString& words) {
    m_rows->Search(words);
    ShowRows();
  });
  return box;
}

void CDlgSelectMembers::MakeGrid() {
  m_grid = Named(new CSpread7(this), "memberGrid", QStringLiteral("書庫のファイル"));
  m_grid->SetMenu(CSpread7::Menu::ReadOnly);
  m_grid->SetShowWarning(WarningsBy(m_prompt));
  m_grid->SetData(m_rows);
  m_grid->verticalHeader()->hide();
  int width = 2 * m_grid->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (int column = 1; column <= m_grid->ColumnCount(); ++column) {
    m_grid->SetColumnWidth(column, kColumnWidths[column - 1]);
    width += kColumnWidths[column - 1];
  }
  m_grid->horizontalHeader()->setStretchLastSection(true);
  m_grid->setFixedSize(width, m_grid->horizontalHeader()->sizeHint().height() +
                                  kRows * m_grid->verticalHeader()->defaultSectionSize() +
                                  2 * m_grid->frameWidth());
  m_grid->SelectCell(1, MemberRows::kChosen);
  connect(m_grid, &CSpread7::Changed, this, [this] {
    m_grid->Refresh();  // the others of a single choice
    ShowCount();
  });
}

QWidget* CDlgSelectMembers::MakeChoice(bool onlyOne) {
  auto* const box = new QWidget(this);
  auto* const row = new QHBoxLayout(box);
  row->setContentsMargins({});
  const auto add = [&](const char* name, const QString& text, bool chosen) {
    auto* const button = NamedButton<QPushButton>(name, text, box);
    button->setAutoDefault(false);
    connect(button, &QAbstractButton::clicked, this, [this, chosen] {
      m_rows->ChooseShown(chosen);
      m_grid->Refresh();
      ShowCount();
    });
    row->addWidget(button);
  };
  if (!onlyOne) {
    add("chooseShownButton", QStringLiteral("表示中をすべて選択"), true);
    add("dropShownButton", QStringLiteral("表示中の選択を解除"), false);
  }
  m_count = new QLabel(box);
  m_count->setObjectName(QStringLiteral("countText"));
  row->addStretch();
  row->addWidget(m_count);
  return box;
}

void CDlgSelectMembers::ShowRows() {
  m_grid->Refresh();
  if (m_rows->RowCount() > 0) m_grid->SelectCell(1, MemberRows::kChosen);
  ShowCount();
}

void CDlgSelectMembers::ShowCount() {
  m_count->setText(QStringLiteral("%1 件を選択（表示 %2 件、全 %3 件）")
                       .arg(Chosen().size())
                       .arg(m_rows->RowCount())
                       .arg(m_list.members.size()));
}

std::vector<std::size_t> CDlgSelectMembers::Chosen() const {
  return m_rows->Chosen();
}

void CDlgSelectMembers::accept() {
  if (!Chosen().empty()) {
    QDialog::accept();
    return;
  }
  m_prompt.Tell(QStringLiteral("読み込むファイルが選択されていません。"));
  m_grid->setFocus(Qt::OtherFocusReason);
}

void CDlgSelectMembers::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Who has typed a search goes on to what it has found.
  if (enter && m_searchEdit->hasFocus()) {
    m_grid->setFocus(Qt::TabFocusReason);
    return;
  }
  if (enter && m_grid->hasFocus()) return;
  QDialog::keyPressEvent(event);
}

}  // namespace tremlo
