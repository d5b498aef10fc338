#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace tremlo {

class GridModel;

/// Paints the cells of a grid by their type and makes the editor of one that is written to.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  GridDelegate(const GridModel* model, QObject* parent) : QStyledItemDelegate(parent), m_model(model) {}

  QWidget* Editor() const { return m_editor; }  ///< null while no cell is edited

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  /// Check cells are toggled by the grid, which asks first.
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
  QWidget* MakeListEditor(QWidget* parent, const QStringList& choices) const;

  const GridModel* m_model;
  mutable QPointer<QWidget> m_editor;
};

}  // namespace tremlo
