#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

class QKeyEvent;

namespace tremlo {

class GridModel;

/// Paints the cells of a grid by their type and makes the editor of one that is written to.
///
/// While a cell is edited its editor shows what the user writes. When the data are shown anew an editor that
/// nobody has written in follows its cell; any other stays as it is.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  /// Takes what stands in an editor that is closed.
  using TakeEntry = std::function<void(int row, int column, const QString& text)>;
  /// How a key ends an entry: by going on to another cell, or by leaving the grid.
  enum class EntryEnd { Below, Next, Previous, LeaveForward, LeaveBackward };

  GridDelegate(const GridModel* model, TakeEntry take, QObject* parent)
      : QStyledItemDelegate(parent), m_model(model), m_take(std::move(take)) {}

  QWidget* Editor() const { return m_editor; }  ///< null while no cell is edited

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 Q_SIGNALS:
  /// A key has ended the entry, which is to be taken before the next key comes.
  void EntryEnded(QWidget* editor, tremlo::GridDelegate::EntryEnd end);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  /// Check cells are toggled by the grid, which asks first.
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
  QWidget* MakeListEditor(QWidget* parent, const QStringList& choices) const;

  bool IsWrittenIn(const QWidget* editor) const;

  const GridModel* m_model;
  TakeEntry m_take;
  mutable QPointer<QWidget> m_editor;
  mutable QString m_shown;           ///< what the editor was given to show, null before
  mutable bool m_composing = false;  ///< an input method has begun to write
};

}  // namespace tremlo
