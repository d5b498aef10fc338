#include "window/graphs/GridDelegate.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/GridModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QValidator>

#include <optional>

namespace tremlo {

namespace {

constexpr int kArrowWidth = 14;
constexpr int kSwatchMargin = 3;

/// Lets through what can become a number, whatever the input method's width.
class NumberCellValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& /*position*/) const override {
    static const QRegularExpression kNumber(QStringLiteral("^[-+]?[0-9]*\\.?[0-9]*([eE][-+]?[0-9]*)?$"));
    input = HalfWidthNumber(input);
    const QString plain = UngroupedNumber(input);  // as a page shows it, pasted into the editor
    if (!plain.isEmpty()) input = plain;
    return kNumber.match(input).hasMatch() ? Acceptable : Invalid;
  }
};

/// The list of a cell. Keys choose within it until it is left; what is chosen from the open list is taken at
/// once.
class ListEditor : public QComboBox {
 public:
  using QComboBox::QComboBox;
  bool IsChoosingByKey() const { return m_byKey; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QScopedValueRollback byKey(m_byKey, true);
    QComboBox::keyPressEvent(event);
  }
  /// The wheel scrolls the grid and chooses nothing.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  bool m_byKey = false;
};

std::optional<GridDelegate::EntryEnd> EndBy(const QKeyEvent& key) {
  using End = GridDelegate::EntryEnd;
  if (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return {};
  const bool leave = key.modifiers().testFlag(Qt::ControlModifier);
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return End::Below;
    case Qt::Key_Tab:
      return leave ? End::LeaveForward : End::Next;
    case Qt::Key_Backtab:
      return leave ? End::LeaveBackward : End::Previous;
    default:
      return {};
  }
}

QStyle& StyleOf(const QStyleOptionViewItem& option) {
  return option.widget ? *option.widget->style() : *QApplication::style();
}

/// `ownBack`: the cell has a colour of its own, which the box takes for its inside. On a dark desktop that of
/// the palette would make an empty box look filled.
void PaintCheck(QPainter* painter, const QStyleOptionViewItem& cell, bool checked, bool locked,
                bool ownBack) {
  QStyle& style = StyleOf(cell);
  QStyleOptionViewItem box = cell;
  const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &cell, cell.widget),
                   style.pixelMetric(QStyle::PM_IndicatorHeight, &cell, cell.widget));
  box.rect = QStyle::alignedRect(cell.direction, Qt::AlignCenter, size, cell.rect);
  box.state &= ~(QStyle::State_HasFocus | QStyle::State_On | QStyle::State_Off);
  box.state |= checked ? QStyle::State_On : QStyle::State_Off;
  if (locked) box.state &= ~QStyle::State_Enabled;
  if (ownBack) {
    box.palette.setBrush(QPalette::Base, cell.backgroundBrush);
    for (const auto role : {QPalette::Text, QPalette::WindowText})
      box.palette.setColor(role, ReadableOn(box.palette.color(QPalette::Base)));
  }
  style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, cell.widget);
}

/// The colour that the style writes the cell's text in.
QColor InkOf(const QStyleOptionViewItem& cell) {
  const bool selected = cell.state.testFlag(QStyle::State_Selected);
  return cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
}

void PaintSwatch(QPainter* painter, const QStyleOptionViewItem& cell, std::int32_t bgr) {
  const QRect swatch =
      cell.rect.adjusted(kSwatchMargin, kSwatchMargin, -kSwatchMargin - 1, -kSwatchMargin - 1);
  painter->save();
  painter->setPen(InkOf(cell));
  painter->setBrush(ColorFromBgr(bgr));
  painter->drawRect(swatch);
  painter->restore();
}

void PaintArrow(QPainter* painter, const QStyleOptionViewItem& cell) {
  QStyleOption arrow;
  arrow.rect = QRect(cell.rect.right() - kArrowWidth + 1, cell.rect.top(), kArrowWidth, cell.rect.height());
  arrow.state = cell.state;
  arrow.palette = cell.palette;
  // Styles differ in the role that they take for an arrow.
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    arrow.palette.setColor(role, InkOf(cell));
  StyleOf(cell).drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, cell.widget);
}

int TextMargin(const QStyleOptionViewItem& cell) {
  return StyleOf(cell).pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
}

}  // namespace

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const CellFormat format = m_model->Format(index);
  if (!format.backColor)
    option->backgroundBrush = option->palette.brush(format.locked ? QPalette::Window : QPalette::Base);
  option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  if (format.type == CellType::Check || format.type == CellType::Color) option->text.clear();
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const CellFormat format = m_model->Format(index);
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const bool list = format.type == CellType::List && !format.locked;
  if (list)
    cell.text = cell.fontMetrics.elidedText(cell.text, Qt::ElideRight,
                                            cell.rect.width() - kArrowWidth - 2 * TextMargin(cell));
  StyleOf(cell).drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

  const QString text = index.data().toString();
  if (list) PaintArrow(painter, cell);
  if (format.type == CellType::Check)
    PaintCheck(painter, cell, IsCheckedText(text), format.locked, format.backColor.has_value());
  if (format.type == CellType::Color)
    if (const auto color = TextToColor(text)) PaintSwatch(painter, cell, *color);
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  const CellFormat format = m_model->Format(index);
  m_shown = QString();
  m_composing = false;
  if (format.type == CellType::List) {
    m_editor = MakeListEditor(parent, format.choices);
  } else {
    auto* const line = new QLineEdit(parent);
    line->setFrame(false);
    if (format.type == CellType::Number) {
      line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      line->setValidator(new NumberCellValidator(line));
    }
    m_editor = line;
  }
  m_editor->setAutoFillBackground(true);
  m_editor->setObjectName(QStringLiteral("cellEditor"));
  m_editor->setAccessibleName(
      m_model->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  return m_editor;
}

QWidget* GridDelegate::MakeListEditor(QWidget* parent, const QStringList& choices) const {
  auto* const combo = new ListEditor(parent);
  combo->addItems(choices);
  auto* const self = const_cast<GridDelegate*>(this);
  connect(combo, &QComboBox::activated, self, [self, combo] {
    if (combo->IsChoosingByKey()) return;
    Q_EMIT self->commitData(combo);
    Q_EMIT self->closeEditor(combo);
  });
  return combo;
}

bool GridDelegate::IsWrittenIn(const QWidget* editor) const {
  if (const auto* const combo = qobject_cast<const QComboBox*>(editor))
    return combo->currentIndex() != combo->findText(m_shown);
  const auto* const line = qobject_cast<const QLineEdit*>(editor);
  return m_composing || (line && line->isModified());
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = index.data(Qt::EditRole).toString();
  const bool opens = m_shown.isNull();
  if (!opens && (text == m_shown || IsWrittenIn(editor))) return;
  m_shown = text.isNull() ? QStringLiteral("") : text;
  if (auto* const combo = qobject_cast<QComboBox*>(editor)) combo->setCurrentIndex(combo->findText(text));
  if (auto* const line = qobject_cast<QLineEdit*>(editor)) {
    line->setText(text);
    if (!opens) line->selectAll();
  }
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                const QModelIndex& index) const {
  const auto* const combo = qobject_cast<QComboBox*>(editor);
  const auto* const line = qobject_cast<QLineEdit*>(editor);
  if (combo && combo->currentIndex() < 0) return;
  const QString text = combo ? combo->currentText() : line ? line->text() : QString();
  if (text != index.data(Qt::EditRole).toString()) m_take(index.row() + 1, index.column() + 1, text);
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (m_editor && watched == m_editor) {
    if (event->type() == QEvent::InputMethod) m_composing = true;
    if (event->type() == QEvent::KeyPress)
      if (const auto end = EndBy(*static_cast<QKeyEvent*>(event))) {
        Q_EMIT EntryEnded(m_editor, *end);
        return true;
      }
  }
  return QStyledItemDelegate::eventFilter(watched, event);
}

void GridDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
  if (editor == m_editor) m_editor = nullptr;
  QStyledItemDelegate::destroyEditor(editor, index);
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid())
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  const CellFormat format = m_model->Format(index);
  QString tip;
  if (format.type == CellType::Color) {
    tip = index.data(Qt::AccessibleTextRole).toString();
  } else if (format.type != CellType::Check) {
    const QString text = index.data().toString();
    const int room = option.rect.width() - 2 * TextMargin(option) -
                     (format.type == CellType::List && !format.locked ? kArrowWidth : 0);
    if (option.fontMetrics.horizontalAdvance(text) > room)
      tip = QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
  }
  QToolTip::showText(event->globalPos(), tip, view->viewport(), option.rect);
  return true;
}

bool GridDelegate::editorEvent(QEvent* /*event*/, QAbstractItemModel* /*model*/,
                               const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) {
  return false;
}

}  // namespace tremlo
