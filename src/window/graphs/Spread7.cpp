#include "window/graphs/Spread7.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "core/graphs/GridPaste.h"
#include "core/graphs/GridTable.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/CommandGate.h"
#include "window/graphs/EntryGate.h"
#include "window/graphs/GridAccess.h"
#include "window/graphs/GridModel.h"
#include "window/graphs/ModalWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <new>

namespace tremlo {

namespace {

constexpr int kRowPadding = 8;

}  // namespace

std::optional<std::int32_t> CSpread7::ChooseColorInDialog(QWidget* parent, std::int32_t color) {
  const QColor chosen = QColorDialog::getColor(ColorFromBgr(color), parent, QStringLiteral("色の設定"),
                                               QColorDialog::DontUseNativeDialog);
  if (!chosen.isValid()) return {};
  return BgrFromColor(chosen);
}

CSpread7::CSpread7(QWidget* parent)
    : QTableView(parent),
      m_table(std::make_shared<GridTable>()),
      m_model(new GridModel(
          m_table,
          [this](int row, int column, const QString& text) { return TakeFromOutside(row, column, text); },
          this)),
      m_delegate(new GridDelegate(
          m_model,
          [this](int row, int column, const QString& text) {
            Post([=, this] { return ApplyEdit(row, column, text); });
          },
          this)),
      m_gate(new EntryGate(this, [this] { return FinishEdit(); })),
      m_menu(new QMenu(QStringLiteral("値編集"), this)),
      m_chooseColor(ChooseColorInDialog) {
  InstallGridAccess();
  setModel(m_model);
  setItemDelegate(m_delegate);
  connect(m_delegate, &GridDelegate::EntryEnded, this, &CSpread7::EndEntry);
  m_menu->setObjectName(QStringLiteral("menu"));
  m_menu->setAccessibleName(m_menu->title());
  if (auto* const corner = findChild<QAbstractButton*>()) {
    corner->setObjectName(QStringLiteral("selectAllButton"));
    corner->setAccessibleName(QStringLiteral("すべて選択"));
  }
  setSelectionMode(ContiguousSelection);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  // Heights are given, never measured: a list may have as many rows as a wave has samples.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000")) + kRowPadding);
  verticalHeader()->setHighlightSections(false);
  horizontalHeader()->setHighlightSections(false);
  FollowHeader(*verticalHeader());
  FollowHeader(*horizontalHeader());
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
    if (QApplication::keyboardModifiers() == Qt::NoModifier && RunPosted()) PressCell(index);
  });
}

CSpread7::~CSpread7() = default;

void CSpread7::AddCommand(const QString& text, const QKeySequence& key, Command command) {
  QAction* const action = m_menu->addAction(text);
  action->setShortcut(key);
  // Of the grid alone: in an open cell editor the same keys are the editor's.
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, command);
  addAction(action);
}

void CSpread7::SetMenu(Menu menu) {
  qDeleteAll(m_menu->actions());
  if (menu == Menu::FullEdit) {
    AddCommand(QStringLiteral("挿入\tINS"), Qt::Key_Insert, &CSpread7::InsertRow);
    AddCommand(QStringLiteral("末尾に挿入\tCtrl+INS"), Qt::CTRL | Qt::Key_Insert, &CSpread7::AppendRow);
    AddCommand(QStringLiteral("削除\tDEL"), Qt::Key_Delete, &CSpread7::RemoveRows);
    m_menu->addSeparator();
  }
  if (menu == Menu::FullEdit || menu == Menu::TextGrid)
    AddCommand(QStringLiteral("切り取り\tCtrl+X"), Qt::CTRL | Qt::Key_X, &CSpread7::Cut);
  if (menu != Menu::None) AddCommand(QStringLiteral("コピー\tCtrl+C"), Qt::CTRL | Qt::Key_C, &CSpread7::Copy);
  if (menu != Menu::None && menu != Menu::ReadOnly)
    AddCommand(QStringLiteral("貼り付け\tCtrl+V"), Qt::CTRL | Qt::Key_V, &CSpread7::Paste);
}

void CSpread7::SetData(std::shared_ptr<GridData> shown) {
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->SetData(shown ? std::move(shown) : m_table);
}

GridData& CSpread7::Data() const {
  return m_model->Data();
}

void CSpread7::Refresh() {
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->Refresh();
}

int CSpread7::RowCount() const {
  return Data().RowCount();
}

int CSpread7::ColumnCount() const {
  return Data().ColumnCount();
}

void CSpread7::SetSize(int rows, int columns) {
  m_table->SetSize(rows, columns);
  Refresh();
}

void CSpread7::SetColumnFormat(int column, const CellFormat& format) {
  m_table->SetColumnFormat(column, format);
  viewport()->update();
}

void CSpread7::SetCellFormat(int row, int column, const CellFormat& format) {
  m_table->SetCellFormat(row, column, format);
  m_model->TellCells({row, column, row, column});
}

void CSpread7::ChangeFormats(const GridBlock& block, const std::function<void(CellFormat&)>& change) {
  const GridBlock cells = WithoutWholes(block);
  for (int row = cells.top; row <= cells.bottom; ++row)
    for (int column = cells.left; column <= cells.right; ++column) {
      CellFormat format = m_table->Format(row, column);
      change(format);
      SetCellFormat(row, column, format);
    }
}

void CSpread7::SetBackColor(const GridBlock& block, std::optional<std::int32_t> bgr) {
  ChangeFormats(block, [&](CellFormat& format) { format.backColor = bgr; });
}

void CSpread7::SetTextColor(const GridBlock& block, std::optional<std::int32_t> bgr) {
  ChangeFormats(block, [&](CellFormat& format) { format.textColor = bgr; });
}

void CSpread7::SetGreyAreaColor(std::int32_t bgr) {
  m_greyArea = bgr;
  viewport()->update();
}

void CSpread7::SetSelectionColor(std::int32_t bgr) {
  QPalette colors = palette();
  colors.setColor(QPalette::Highlight, ColorFromBgr(bgr));
  colors.setColor(QPalette::HighlightedText, ReadableOn(ColorFromBgr(bgr)));
  setPalette(colors);
}

void CSpread7::SetColumnWidth(int column, int width) {
  if (column >= 1)
    setColumnWidth(column - 1, width);
  else
    verticalHeader()->setFixedWidth(width);
}

void CSpread7::SetSpan(int row, int column, int rows, int columns) {
  const bool single = rows == 1 && columns == 1;
  if (single && rowSpan(row - 1, column - 1) == 1 && columnSpan(row - 1, column - 1) == 1) return;
  setSpan(row - 1, column - 1, rows, columns);
}

QString CSpread7::GetCellText(int row, int column) const {
  return Data().Text(row, column);
}

void CSpread7::SetCellText(int row, int column, const QString& text) {
  Data().SetText(row, column, text);
  if (row >= 1 && column >= 1) {
    m_model->TellCells({row, column, row, column});
    if (Data().Format(row, column).type == CellType::Check) TellCheckState(*this, row, column);
  } else if (row == 0 && column >= 1 && column <= m_model->columnCount()) {
    Q_EMIT m_model->headerDataChanged(Qt::Horizontal, column - 1, column - 1);
  } else if (column == 0 && row >= 1 && row <= m_model->rowCount()) {
    Q_EMIT m_model->headerDataChanged(Qt::Vertical, row - 1, row - 1);
  }
}

double CSpread7::GetCellNumber(int row, int column) const {
  return NumberOfText(GetCellText(row, column));
}

double CSpread7::GetCellNumberOr(int row, int column, double fallback) const {
  return NumberOfText(GetCellText(row, column), fallback);
}

void CSpread7::SetCellNumber(int row, int column, double value, int decimals) {
  SetCellText(row, column, NumberToText(value, decimals));
}

void CSpread7::SetCellInt(int row, int column, std::int32_t value) {
  SetCellText(row, column, IntegerToText(value));
}

bool CSpread7::GetCheck(int row) const {
  for (int column = 1; column <= ColumnCount(); ++column)
    if (Data().Format(row, column).type == CellType::Check) return GetCheck(row, column);
  return false;
}

bool CSpread7::GetCheck(int row, int column) const {
  return IsCheckedText(GetCellText(row, column));
}

void CSpread7::SetCheck(int row, int column, bool checked) {
  SetCellText(row, column, checked ? QStringLiteral("1") : QStringLiteral("0"));
}

std::int32_t CSpread7::GetCellColor(int row, int column) const {
  return TextToColor(GetCellText(row, column)).value_or(0);
}

void CSpread7::SetCellColor(int row, int column, std::int32_t bgr) {
  SetCellText(row, column, ColorToText(bgr));
}

QModelIndex CSpread7::IndexOf(int row, int column) const {
  return m_model->index(row - 1, column - 1);
}

void CSpread7::SelectCell(int row, int column) {
  const QScopedValueRollback quiet(m_quiet, true);
  setCurrentIndex(IndexOf(row, column));
}

GridBlock CSpread7::WithoutWholes(const GridBlock& block) const {
  const bool columns = block.top < 0;
  const bool rows = block.left < 0;
  return {columns ? 1 : block.top, rows ? 1 : block.left, columns ? RowCount() : block.bottom,
          rows ? ColumnCount() : block.right};
}

void CSpread7::SelectBlock(const GridBlock& block) {
  const GridBlock cells = WithoutWholes(block);
  if (cells.IsEmpty()) return;
  SelectCell(cells.top, cells.left);
  selectionModel()->select({IndexOf(cells.top, cells.left), IndexOf(cells.bottom, cells.right)},
                           QItemSelectionModel::ClearAndSelect);
}

int CSpread7::ActiveRow() const {
  return currentIndex().row() + 1;
}

int CSpread7::ActiveColumn() const {
  return currentIndex().column() + 1;
}

GridBlock CSpread7::SelectedCells() const {
  GridBlock cells{ActiveRow(), ActiveColumn(), ActiveRow(), ActiveColumn()};
  const QItemSelection selection = selectionModel()->selection();
  for (qsizetype i = 0; i < selection.size(); ++i) {
    const QItemSelectionRange& range = selection[i];
    const GridBlock part{range.top() + 1, range.left() + 1, range.bottom() + 1, range.right() + 1};
    cells = i == 0 ? part
                   : GridBlock{std::min(cells.top, part.top), std::min(cells.left, part.left),
                               std::max(cells.bottom, part.bottom), std::max(cells.right, part.right)};
  }
  return cells;
}

GridBlock CSpread7::GetSelectedBlock() const {
  GridBlock block = SelectedCells();
  const bool wholeColumns = RowCount() > 1 && block.top == 1 && block.bottom == RowCount();
  const bool wholeRows = ColumnCount() > 1 && block.left == 1 && block.right == ColumnCount();
  if (wholeColumns) block.top = block.bottom = -1;
  if (wholeRows) block.left = block.right = -1;
  return block;
}

void CSpread7::SetEditMode(bool on) {
  if (on)
    QTableView::edit(currentIndex());
  else if (QWidget* const editor = m_delegate->Editor())
    closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

bool CSpread7::FinishEdit() {
  if (QWidget* const editor = m_delegate->Editor()) {
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
  }
  return RunPosted();
}

void CSpread7::Press(int row, int column) {
  const auto press = [=, this] {
    if (!isEnabled() || !MayAct()) return;
    setCurrentIndex(IndexOf(row, column));
    PressCell(currentIndex());
  };
  if (!IsBehindModalWindow(this)) QMetaObject::invokeMethod(this, press, Qt::QueuedConnection);
}

bool CSpread7::MayAct() {
  return !IsBehindModalWindow(this) && FinishEdit();
}

void CSpread7::Refuse(const GridRefusal& refusal) {
  m_show(window(), QStringLiteral("Tremlo"), RefusalText(Data(), refusal));
}

void CSpread7::Post(std::function<bool()> task) {
  m_posted.push_back(std::move(task));
  QMetaObject::invokeMethod(this, &CSpread7::RunPosted, Qt::QueuedConnection);
}

bool CSpread7::RunPosted() {
  // A task may open a box, and one that is up has none behind it.
  if (m_running || IsBehindModalWindow(this)) return m_posted.empty();
  const QPointer<CSpread7> self(this);
  m_running = true;
  const auto end = qScopeGuard([this, self] {
    if (self) m_running = false;
  });
  bool accepted = true;
  while (self && !m_posted.empty()) {
    const std::function<bool()> task = std::move(m_posted.front());
    m_posted.pop_front();
    if (!task()) accepted = false;
  }
  return accepted;
}

bool CSpread7::ApplyEdit(int row, int column, const QString& text) {
  if (row > RowCount() || column > ColumnCount()) return true;
  const CellAnswer answer = AnswerOfCell(Data(), row, column, text);
  if (answer.refusal) {
    Refuse({*answer.refusal, row, column, text});
    return false;
  }
  if (!answer.text || !Data().WouldChange(row, column, *answer.text)) return true;
  const GridChange change{GridChange::Action::Edit, {row, column, row, column}};
  if (!Allows(change)) return false;
  SetCellText(row, column, *answer.text);
  Q_EMIT Changed(change);
  return true;
}

bool CSpread7::TakeFromOutside(int row, int column, const QString& text) {
  if (!isEnabled() || IsBehindModalWindow(this)) return false;
  if (Data().Format(row, column).type != CellType::Check) {
    Post([=, this] { return ApplyEdit(row, column, text); });
    return true;
  }
  // Not among the entries: as a command it takes those first.
  const auto press = [=, this] {
    if (isEnabled() && MayAct()) PressCheckCell(row, column, text == QStringLiteral("1"));
  };
  QMetaObject::invokeMethod(this, press, Qt::QueuedConnection);
  return true;
}

bool CSpread7::PressCell(const QModelIndex& index) {
  const CellFormat format = m_model->Format(index);
  if (!index.isValid() || format.locked) return false;
  const int row = index.row() + 1;
  const int column = index.column() + 1;
  switch (format.type) {
    case CellType::Check:
      PressCheckCell(row, column, !GetCheck(row, column));
      return true;
    case CellType::Color:
      PressColorCell(row, column);
      return true;
    case CellType::List:
      if (!m_delegate->Editor()) QTableView::edit(index);
      return true;
    default:
      return false;
  }
}

void CSpread7::PressCheckCell(int row, int column, bool checked) {
  const bool locked = Data().Format(row, column).locked;
  if (locked || checked == GetCheck(row, column)) return;
  RunCommand([=, this] {
    if (ApplyEdit(row, column, checked ? QStringLiteral("1") : QStringLiteral("0")))
      Q_EMIT CellClicked(row, column);
  });
}

void CSpread7::PressColorCell(int row, int column) {
  RunCommand([=, this] {
    if (const auto chosen = m_chooseColor(window(), GetCellColor(row, column)))
      ApplyEdit(row, column, ColorToText(*chosen));
  });
}

void CSpread7::RunCommand(const std::function<void()>& command) {
  if (m_commands)
    m_commands->Run(command);
  else
    command();
}

void CSpread7::ShowRow(int row, int column) {
  SelectCell(std::min(row, RowCount()), column);
  scrollTo(currentIndex());
}

void CSpread7::InsertRow() {
  if (!MayAct() || !Data().Grows()) return;
  const bool active = currentIndex().isValid();
  const int row = active ? ActiveRow() : RowCount() + 1;
  const int column = active ? ActiveColumn() : FirstOpenColumn(Data());
  const GridChange change{GridChange::Action::InsertRow, {row, 1, row, ColumnCount()}};
  if (!Allows(change)) return;
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->InsertGridRows(row, 1);
  ShowRow(row, column);
  Q_EMIT Changed(change);
}

void CSpread7::AppendRow() {
  if (!MayAct() || !Data().Grows()) return;
  const int row = RowCount() + 1;
  const GridChange change{GridChange::Action::AppendRow, {row, 1, row, ColumnCount()}};
  if (!Allows(change)) return;
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->InsertGridRows(row, 1);
  ShowRow(row, FirstOpenColumn(Data()));
  Q_EMIT Changed(change);
}

void CSpread7::RemoveRows() {
  if (!MayAct()) return;
  const GridBlock selected = SelectedCells();
  if (!Data().Grows() || selected.IsEmpty()) return;
  const GridChange change{GridChange::Action::RemoveRows, {selected.top, 1, selected.bottom, ColumnCount()}};
  if (!Allows(change)) return;
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->RemoveGridRows(selected.top, selected.RowCount());
  ShowRow(selected.top, selected.left);
  Q_EMIT Changed(change);
}

void CSpread7::Cut() {
  if (!MayAct()) return;
  const GridBlock block = SelectedCells();
  if (!HasClearableCell(Data(), block)) return;
  const GridChange change{GridChange::Action::Cut, block};
  if (!Allows(change)) return;
  QApplication::clipboard()->setText(FormatGridText(CopyCells(Data(), block)));
  ClearBlock(block);
  Q_EMIT Changed(change);
}

void CSpread7::Copy() {
  if (!MayAct()) return;
  const GridBlock block = SelectedCells();
  if (!block.IsEmpty()) QApplication::clipboard()->setText(FormatGridText(CopyCells(Data(), block)));
}

void CSpread7::Paste() {
  if (!MayAct()) return;
  const GridBlock selected = SelectedCells();
  const int row = selected.IsEmpty() ? RowCount() + 1 : selected.top;
  const int column = selected.IsEmpty() ? FirstOpenColumn(Data()) : selected.left;
  GridPaste paste;
  try {
    paste = ReadPaste(Data(), row, column, QApplication::clipboard()->text());
    Data().ReserveRows(paste.block.bottom - RowCount());
  } catch (const std::bad_alloc&) {
    m_show(window(), QStringLiteral("Tremlo"),
           QStringLiteral("メモリが不足しているため貼り付けできません。"));
    return;
  }
  if (paste.refusal) Refuse(*paste.refusal);
  const GridBlock& block = paste.block;
  if (block.IsEmpty()) return;
  const GridChange change{GridChange::Action::Paste, block};
  if (!Allows(change)) return;
  const QScopedValueRollback quiet(m_quiet, true);
  m_model->InsertGridRows(RowCount() + 1, block.bottom - RowCount());
  PasteCells(Data(), paste);
  m_model->TellCells(block);
  SelectBlock(block);
  Q_EMIT Changed(change);
}

void CSpread7::ClearBlock(const GridBlock& block) {
  const GridBlock cells = WithoutWholes(block);
  ClearCells(Data(), cells);
  m_model->TellCells(cells);
}

bool CSpread7::event(QEvent* event) {
  if (event->type() == QEvent::WindowUnblocked && !m_posted.empty())
    QMetaObject::invokeMethod(this, &CSpread7::RunPosted, Qt::QueuedConnection);
  return QTableView::event(event);
}

bool CSpread7::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip)
    for (const QHeaderView* const header : {horizontalHeader(), verticalHeader()})
      if (header && watched == header->viewport()) {
        ShowHeaderTip(*header, *static_cast<QHelpEvent*>(event));
        return true;
      }
  return QTableView::eventFilter(watched, event);
}

void CSpread7::FollowHeader(QHeaderView& header) {
  header.viewport()->installEventFilter(this);
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&header, &QWidget::customContextMenuRequested, this,
          [this, &header](const QPoint& spot) { OpenHeaderMenu(header, spot); });
}

void CSpread7::OpenHeaderMenu(QHeaderView& header, const QPoint& spot) {
  setFocus(Qt::MouseFocusReason);
  const bool ofRows = header.orientation() == Qt::Vertical;
  const int section = header.logicalIndexAt(spot);
  // The commands act on the selection: it must hold what was pointed at.
  if (section >= 0 && ofRows && !selectionModel()->rowIntersectsSelection(section)) selectRow(section);
  if (section >= 0 && !ofRows && !selectionModel()->isColumnSelected(section)) selectColumn(section);
  Q_EMIT RightClicked(ofRows ? section + 1 : 0, ofRows ? 0 : section + 1);
  if (!m_menu->isEmpty()) m_menu->popup(header.viewport()->mapToGlobal(spot));
}

void CSpread7::ShowHeaderTip(const QHeaderView& header, const QHelpEvent& event) {
  const bool ofRows = header.orientation() == Qt::Vertical;
  const int section = header.logicalIndexAt(event.pos());
  const QString title =
      section < 0 ? QString() : m_model->headerData(section, header.orientation()).toString();
  const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
  const int room = (ofRows ? header.width() : header.sectionSize(section)) - 2 * margin;
  const bool cut = header.fontMetrics().horizontalAdvance(title) > room;
  QToolTip::showText(event.globalPos(),
                     cut ? QStringLiteral("<qt>%1</qt>").arg(title.toHtmlEscaped()) : QString(),
                     header.viewport());
}

void CSpread7::paintEvent(QPaintEvent* event) {
  const QColor beyond = m_greyArea ? ColorFromBgr(*m_greyArea) : palette().color(QPalette::Window);
  QPainter(viewport()).fillRect(event->rect(), beyond);
  QTableView::paintEvent(event);
}

void CSpread7::keyPressEvent(QKeyEvent* event) {
  // What was entered before the key is taken before the key has its effect.
  const QPointer<CSpread7> self(this);
  if (!m_posted.empty()) RunPosted();
  if (!self) return;
  const bool press =
      event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (press && plain && !m_delegate->Editor() && PressCell(currentIndex())) return;
  QTableView::keyPressEvent(event);
}

void CSpread7::keyboardSearch(const QString& /*search*/) {}

void CSpread7::inputMethodEvent(QInputMethodEvent* event) {
  const bool edited = m_delegate->Editor();
  QTableView::inputMethodEvent(event);
  // For text that comes without having been composed Qt opens the editor, but keeps the text from it.
  auto* const line = qobject_cast<QLineEdit*>(m_delegate->Editor());
  if (!edited && line && event->preeditString().isEmpty() && line->text() == currentIndex().data().toString())
    QCoreApplication::sendEvent(line, event);
}

void CSpread7::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex cell = byKey ? currentIndex() : indexAt(event->pos());
  Q_EMIT RightClicked(cell.row() + 1, cell.column() + 1);
  if (m_menu->isEmpty()) return;
  m_menu->popup(byKey ? viewport()->mapToGlobal(visualRect(cell).bottomLeft()) : event->globalPos());
}

void CSpread7::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (event->reason() != Qt::PopupFocusReason && !m_closingEditor) Q_EMIT FocusCame();
}

void CSpread7::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  const QWidget* const next = QApplication::focusWidget();
  const bool toEditor = next && isAncestorOf(next);
  if (event->reason() != Qt::PopupFocusReason && !toEditor) LeaveGrid(currentIndex());
}

void CSpread7::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!m_quiet) PostCellLeft(previous);
}

bool CSpread7::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const QWidget* const before = m_delegate->Editor();
  const bool edits = QTableView::edit(index, trigger, event);
  QWidget* const editor = m_delegate->Editor();
  m_gate->SetOpen(editor);
  // A list that was come to by Tab stays closed, and the list can only open once the editor has its place.
  auto* const combo = qobject_cast<QComboBox*>(editor);
  if (combo && editor != before && !m_walking) QTimer::singleShot(0, combo, &QComboBox::showPopup);
  return edits;
}

void CSpread7::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const QScopedValueRollback closing(m_closingEditor, true);
  const QPersistentModelIndex cell = currentIndex();
  QTableView::closeEditor(editor, hint);
  m_gate->SetOpen(m_delegate->Editor());
  if (!hasFocus() && !m_delegate->Editor()) LeaveGrid(cell);
}

/// The view drops the editor of a row that goes, but would go on waiting for it to be closed.
void CSpread7::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
  const bool edited = m_delegate->Editor();
  QTableView::rowsAboutToBeRemoved(parent, first, last);
  if (!edited || m_delegate->Editor()) return;
  setState(NoState);
  m_gate->SetOpen(false);
  setFocus();
}

void CSpread7::EndEntry(QWidget* editor, GridDelegate::EntryEnd end) {
  using End = GridDelegate::EntryEnd;
  const QPointer<CSpread7> self(this);
  const QPersistentModelIndex cell = currentIndex();
  commitData(editor);
  closeEditor(editor, QAbstractItemDelegate::NoHint);
  // One who was refused corrects what was refused.
  if (!RunPosted() || !self || !cell.isValid() || currentIndex() != cell) return;
  if (end == End::Below) {
    GoTo(cell.sibling(cell.row() + 1, cell.column()));
    return;
  }
  const bool forward = end == End::Next || end == End::LeaveForward;
  const bool leaves = end == End::LeaveForward || end == End::LeaveBackward;
  const QModelIndex next = leaves ? QModelIndex() : NextWritten(cell, forward ? 1 : -1);
  if (!next.isValid()) {
    focusNextPrevChild(forward);
    return;
  }
  GoTo(next);
  const QScopedValueRollback walking(m_walking, true);
  QTableView::edit(next);
}

QModelIndex CSpread7::NextWritten(const QModelIndex& from, int step) const {
  const int columns = m_model->columnCount();
  const int cells = m_model->rowCount() * columns;
  for (int at = from.row() * columns + from.column() + step; at >= 0 && at < cells; at += step) {
    const QModelIndex index = m_model->index(at / columns, at % columns);
    if (index.flags().testFlag(Qt::ItemIsEditable) && !isIndexHidden(index)) return index;
  }
  return {};
}

void CSpread7::GoTo(const QModelIndex& cell) {
  const QScopedValueRollback walking(m_walking, true);
  if (cell.isValid()) setCurrentIndex(cell);
}

/// What was typed must be in the data before the button that took the focus acts on them.
void CSpread7::LeaveGrid(const QModelIndex& cell) {
  PostCellLeft(cell);
  m_gate->RunBeforePress([this] { RunPosted(); });
}

QItemSelectionModel::SelectionFlags CSpread7::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  constexpr Qt::KeyboardModifiers kToTheEdge = Qt::ShiftModifier | Qt::ControlModifier;
  // Ctrl is still down behind Ctrl+INS, and Shift behind Shift+Tab: they would extend the selection.
  if ((m_quiet || m_walking) && !event) return QItemSelectionModel::ClearAndSelect;
  if (!event || event->type() != QEvent::KeyPress) return QTableView::selectionCommand(index, event);
  const auto* const key = static_cast<const QKeyEvent*>(event);
  if ((key->modifiers() & kToTheEdge) != kToTheEdge) return QTableView::selectionCommand(index, event);
  // Moving to an edge with Ctrl would drop the selection that Shift extends.
  const QKeyEvent extending(key->type(), key->key(), key->modifiers() & ~Qt::ControlModifier);
  return QTableView::selectionCommand(index, &extending);
}

void CSpread7::PostCellLeft(const QModelIndex& index) {
  if (!index.isValid()) return;
  Post([this, row = index.row() + 1, column = index.column() + 1] {
    Q_EMIT CellLeft(row, column);
    return true;
  });
}

}  // namespace tremlo
