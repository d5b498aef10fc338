#include "window/location/SpanningHeader.h"

#include "window/graphs/Spread7.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>

namespace tremlo {

QWidget* SpanningHeader(const CSpread7& grid, int firstColumn, const QString& text) {
  int before = grid.frameWidth() + (grid.verticalHeader()->isHidden() ? 0 : grid.verticalHeader()->width());
  for (int column = 1; column < firstColumn; ++column) before += grid.columnWidth(column - 1);
  auto* const label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  auto* const line = new QWidget;
  line->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* const row = new QHBoxLayout(line);
  row->setContentsMargins(before, 0, 0, 0);
  row->addWidget(label);
  return line;
}

}  // namespace tremlo
