#include "random/Controls.h"

#include "window/graphs/Spread7.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

namespace tremlo::test {

namespace {

constexpr int kRowsLookedAt = 200;
constexpr int kMomentMs = 200;

}  // namespace

QWidget* FrontmostWindow(QWidget* frame) {
  if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  return frame;
}

QAbstractButton* ButtonCalled(const QWidget& window, const QStringList& texts) {
  for (QAbstractButton* button : Workable<QAbstractButton>(window)) {
    QString text = button->text();
    text.replace(QStringLiteral("&&"), QStringLiteral("＆")).remove(u'&');
    text.replace(u'＆', u'&');
    for (const QString& wanted : texts)
      if (text == wanted || button->accessibleName() == wanted) return button;
  }
  return nullptr;
}

QString NameOf(const QObject& object) {
  QString name = object.objectName().isEmpty() ? QString::fromLatin1(object.metaObject()->className())
                                               : object.objectName();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&object))
    name += QStringLiteral(" \"") + button->text() + u'"';
  return name;
}

std::vector<Cell> CheckCells(const CSpread7& grid, bool lastColumnOnly) {
  std::vector<Cell> cells;
  const GridData& data = grid.Data();
  for (int column = data.ColumnCount(); column >= 1; --column) {
    for (int row = 1; row <= std::min(data.RowCount(), kRowsLookedAt); ++row) {
      const CellFormat format = data.Format(row, column);
      if (format.type == CellType::Check && !format.locked) cells.push_back({row, column});
    }
    if (lastColumnOnly && !cells.empty()) break;
  }
  return cells;
}

QPoint PlaceOf(CSpread7& grid, const Cell& cell) {
  const QModelIndex index = grid.model()->index(cell.row - 1, cell.column - 1);
  grid.scrollTo(index);
  return grid.visualRect(index).center();
}

bool AwaitsTimer(const QWidget& window) {
  for (const QTimer* timer : window.findChildren<QTimer*>())
    if (timer->isActive() && timer->isSingleShot() && timer->interval() <= kMomentMs) return true;
  return false;
}

}  // namespace tremlo::test
