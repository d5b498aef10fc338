#include "random/ScreenPicture.h"

#include "window/graphs/Spread7.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace tremlo::test {

namespace {

constexpr int kRowsAtEachEnd = 100;

QString CellLine(const QAbstractItemModel& model, int row, int column) {
  const QModelIndex cell = model.index(row, column);
  QString line = model.data(cell).toString();
  const QVariant tick = model.data(cell, Qt::CheckStateRole);
  if (tick.isValid()) line += QStringLiteral(" tick ") + QString::number(tick.toInt());
  const QVariant color = model.data(cell, Qt::BackgroundRole);
  if (color.isValid()) line += u' ' + color.toString();
  if (!(model.flags(cell) & Qt::ItemIsEditable)) line += QStringLiteral(" locked");
  return line;
}

QStringList GridLines(const CSpread7& grid) {
  const QAbstractItemModel& model = *grid.model();
  QStringList lines(QStringLiteral("%1 rows, %2 columns").arg(model.rowCount()).arg(model.columnCount()));
  for (int column = 0; column < model.columnCount(); ++column)
    lines << QStringLiteral("title: ") + model.headerData(column, Qt::Horizontal).toString() +
                 (grid.isColumnHidden(column) ? QStringLiteral(" hidden") : QString());
  for (int row = 0; row < model.rowCount(); ++row) {
    if (row >= kRowsAtEachEnd && row < model.rowCount() - kRowsAtEachEnd) continue;
    for (int column = 0; column < model.columnCount(); ++column)
      lines << QStringLiteral("cell %1, %2: ").arg(row + 1).arg(column + 1) + CellLine(model, row, column);
  }
  return lines;
}

QStringList ComboLines(const QComboBox& combo) {
  QStringList lines(QStringLiteral("chosen %1").arg(combo.currentIndex()));
  for (int i = 0; i < combo.count(); ++i) lines << QStringLiteral("entry ") + combo.itemText(i);
  return lines;
}

QStringList LinesOf(const QWidget& widget) {
  if (const auto* grid = qobject_cast<const CSpread7*>(&widget)) return GridLines(*grid);
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return ComboLines(*combo);
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return {button->text() + (button->isChecked() ? QStringLiteral(" ticked") : QString())};
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return {label->text()};
  const auto* edit = qobject_cast<const QLineEdit*>(&widget);
  if (edit && !edit->hasFocus()) return {edit->text()};
  return {};
}

/// Parts of a control are told with it; what only the pointer is at changes without the document.
bool IsTold(const QWidget& widget, const QWidget& screen) {
  if (!widget.isVisible() || widget.window() != screen.window()) return false;
  if (widget.property("followsPointer").toBool()) return false;
  for (const QWidget* above = widget.parentWidget(); above && above != &screen; above = above->parentWidget())
    if (qobject_cast<const CSpread7*>(above)) return false;
  return true;
}

}  // namespace

QStringList ScreenPicture(const QWidget& screen) {
  QStringList picture;
  for (const QWidget* widget : screen.findChildren<QWidget*>()) {
    if (!IsTold(*widget, screen)) continue;
    const QString name = widget->objectName().isEmpty()
                             ? QString::fromLatin1(widget->metaObject()->className())
                             : widget->objectName();
    for (const QString& line : LinesOf(*widget))
      picture << name + (widget->isEnabled() ? QStringLiteral(": ") : QStringLiteral(" (disabled): ")) + line;
  }
  return picture;
}

}  // namespace tremlo::test
