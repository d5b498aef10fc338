#include "window/graphs/GridSize.h"

#include "window/graphs/Spread7.h"

#include <QHeaderView>

namespace tremlo {

namespace {

constexpr int kCellPadding = 14;

}  // namespace

int HeightOf(const CSpread7& grid, int rows) {
  const int header = grid.horizontalHeader()->isHidden() ? 0 : grid.horizontalHeader()->sizeHint().height();
  return header + rows * grid.verticalHeader()->defaultSectionSize() + 2 * grid.frameWidth();
}

void FitRows(CSpread7& grid) {
  grid.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid.setFixedHeight(HeightOf(grid, grid.RowCount()));
}

void FitColumn(CSpread7& grid, int column, int digits) {
  const QFontMetrics metrics = grid.fontMetrics();
  const int title = metrics.horizontalAdvance(grid.GetCellText(0, column));
  grid.SetColumnWidth(column, qMax(title, digits * metrics.horizontalAdvance(u'0')) + kCellPadding);
}

}  // namespace tremlo
