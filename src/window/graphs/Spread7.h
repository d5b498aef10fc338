#pragma once

#include "core/graphs/GridActions.h"
#include "window/graphs/GridDelegate.h"
#include "window/graphs/MessageBox.h"

#include <QTableView>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

class QHeaderView;
class QHelpEvent;
class QMenu;

namespace tremlo {

class CommandGate;
class EntryGate;
class GridModel;
class GridTable;

/// The grid of every screen. It shows a GridData, its own GridTable unless it is given another, and lets the
/// user edit it by mouse, keys, context menu and clipboard.
///
/// Rows and columns count from 1 in every function here; row 0 and column 0 are the titles. Functions that
/// the program calls emit no signal and ask nothing: signals tell of the user's actions alone. A change by
/// the user goes this way, once for each action however many cells it touches: the guard is asked, the data
/// change, Changed is emitted. What was typed into a cell goes this way once its editor is closed, so that
/// guard and slots may open boxes: at once when a key ends it, and before a command or a button that took the
/// focus acts. An edit that leaves the value as it was is no change.
///
/// What a cell does not take, and a paste that does not fit, is told in one box and changes nothing. Behind a
/// modal window the grid takes no change; an entry that such a window has come in between of waits for its
/// end.
class CSpread7 : public QTableView {
  Q_OBJECT
 public:
  enum class Menu { None, FullEdit, TextGrid, NumberGrid, ReadOnly };
  /// Says whether the change may be made; may ask the user.
  using Guard = std::function<bool(const GridChange& change)>;
  /// Lets the user choose a colour 0x00BBGGRR; nothing if none was chosen.
  using ColorChooser = std::function<std::optional<std::int32_t>(QWidget* parent, std::int32_t color)>;

  explicit CSpread7(QWidget* parent = nullptr);
  ~CSpread7() override;

  void SetMenu(Menu menu);  ///< the context menu, and the keys that it names
  void SetGuard(Guard guard) { m_guard = std::move(guard); }
  /// The dialog that a grid shows unless it is given another chooser.
  static std::optional<std::int32_t> ChooseColorInDialog(QWidget* parent, std::int32_t color);
  void SetColorChooser(ColorChooser chooser) { m_chooseColor = std::move(chooser); }
  void SetShowWarning(ShowWarning show) { m_show = std::move(show); }
  /// On a screen a check or colour cell is a switch: pressing one is a command of the program. The gate
  /// outlives the grid.
  void SetCommandGate(CommandGate& gate) { m_commands = &gate; }

  /// Shows other data, or with null its own table. They live as long as they are shown.
  void SetData(std::shared_ptr<GridData> shown);
  GridData& Data() const;
  GridTable& Table() { return *m_table; }
  /// To be called when the data have changed behind the grid's back. Selection and scroll position stay, and
  /// so does an open editor with what was typed; one that nobody has written in shows the new text.
  void Refresh();

  int RowCount() const;
  int ColumnCount() const;
  /// Size and formats of the grid's own table. Blocks may have -1 as in SelectBlock.
  void SetSize(int rows, int columns);
  void SetColumnFormat(int column, const CellFormat& format);
  void SetCellFormat(int row, int column, const CellFormat& format);
  void SetBackColor(const GridBlock& block, std::optional<std::int32_t> bgr);
  void SetTextColor(const GridBlock& block, std::optional<std::int32_t> bgr);

  void SetGreyAreaColor(std::int32_t bgr);   ///< beyond the last row and column
  void SetSelectionColor(std::int32_t bgr);  ///< of selected cells
  void SetColumnWidth(int column, int width);
  /// A span of one cell undoes the one that begins there; clearSpans undoes all.
  void SetSpan(int row, int column, int rows, int columns);
  void SetRedraw(bool on) { setUpdatesEnabled(on); }

  QString GetCellText(int row, int column) const;
  void SetCellText(int row, int column, const QString& text);
  double GetCellNumber(int row, int column) const;  ///< -9e32 for an empty cell
  double GetCellNumberOr(int row, int column, double fallback) const;
  void SetCellNumber(int row, int column, double value, int decimals);  ///< -9e32 writes an empty cell
  void SetCellInt(int row, int column, std::int32_t value);             ///< -2147483648 writes an empty cell
  bool GetCheck(int row) const;                                         ///< of the row's first check cell
  bool GetCheck(int row, int column) const;
  void SetCheck(int row, int column, bool checked);
  std::int32_t GetCellColor(int row, int column) const;  ///< 0x00BBGGRR; 0 for a cell without a colour
  void SetCellColor(int row, int column, std::int32_t bgr);

  void SelectCell(int row, int column);
  void SelectBlock(const GridBlock& block);  ///< -1 for top and bottom, or left and right: all of them
  int ActiveRow() const;                     ///< 0 while no cell is active
  int ActiveColumn() const;
  GridBlock SelectedCells() const;  ///< the cells of the selection, else the active cell
  /// The selection, with -1 for top and bottom where it holds whole columns, for left and right where it
  /// holds whole rows.
  GridBlock GetSelectedBlock() const;

  void SetEditMode(bool on);  ///< opens an editor on the active cell, or drops the open one with its text
  /// Takes what stands in an open editor; false if it was refused.
  bool FinishEdit();
  /// Does what a click on a check, colour or list cell does, as soon as the event loop is reached.
  void Press(int row, int column);

  // The commands of the context menus.
  void InsertRow();  ///< before the active row
  void AppendRow();
  void RemoveRows();
  void Cut();
  void Copy();
  void Paste();
  void ClearBlock(const GridBlock& block);  ///< empties cells for the program: no guard, no signal

  /// Does nothing: what is typed on a locked cell must not move the active cell, nor read every row for it.
  void keyboardSearch(const QString& search) override;

 Q_SIGNALS:
  void Changed(const tremlo::GridChange& change);
  void CellClicked(int row, int column);  ///< a check cell was toggled by mouse or key; comes behind Changed
  void CellLeft(int row, int column);
  void RightClicked(int row, int column);
  void FocusCame();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  using Command = void (CSpread7::*)();

  QModelIndex IndexOf(int row, int column) const;
  GridBlock WithoutWholes(const GridBlock& block) const;
  void ChangeFormats(const GridBlock& block, const std::function<void(CellFormat&)>& change);
  void AddCommand(const QString& text, const QKeySequence& key, Command command);
  void FollowHeader(QHeaderView& header);
  void OpenHeaderMenu(QHeaderView& header, const QPoint& spot);
  void ShowHeaderTip(const QHeaderView& header, const QHelpEvent& event);
  /// Toggles, colours or opens the cell if it is one that a click or key presses.
  bool PressCell(const QModelIndex& index);
  void RunCommand(const std::function<void()>& command);
  void PressCheckCell(int row, int column, bool checked);
  void PressColorCell(int row, int column);
  bool TakeFromOutside(int row, int column, const QString& text);
  /// Whether a command of the user may act now; takes an open entry first.
  bool MayAct();
  bool Allows(const GridChange& change) const { return !m_guard || m_guard(change); }
  void Refuse(const GridRefusal& refusal);
  bool ApplyEdit(int row, int column, const QString& text);
  void EndEntry(QWidget* editor, GridDelegate::EntryEnd end);
  /// The next cell, or with -1 the one before, that can be written to; none behind the last.
  QModelIndex NextWritten(const QModelIndex& from, int step) const;
  void GoTo(const QModelIndex& cell);
  void ShowRow(int row, int column);
  void Post(std::function<bool()> task);
  bool RunPosted();
  void PostCellLeft(const QModelIndex& index);
  void LeaveGrid(const QModelIndex& cell);

  std::shared_ptr<GridTable> m_table;
  GridModel* m_model;
  GridDelegate* m_delegate;
  EntryGate* m_gate;
  CommandGate* m_commands = nullptr;
  QMenu* m_menu;
  Guard m_guard;
  ColorChooser m_chooseColor;
  ShowWarning m_show = ShowWarningBox;
  std::optional<std::int32_t> m_greyArea;
  std::deque<std::function<bool()>> m_posted;
  bool m_quiet = false;    ///< the active cell is moved by the program
  bool m_walking = false;  ///< the active cell is moved by the key that ended an entry
  bool m_running = false;  ///< what was posted is being done
  bool m_closingEditor = false;
};

}  // namespace tremlo
