#include "window/graphs/ScrolledBody.h"

#include "window/graphs/BodyRoom.h"

#include <QApplication>
#include <QStyle>
#include <QTableView>

namespace tremlo {

ScrolledBody::ScrolledBody(QWidget* parent) : QScrollArea(parent) {
  setObjectName(QStringLiteral("body"));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  // The area itself follows the tab key from one of its own controls alone, not from the buttons below it.
  connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
    if (now && widget() && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
  });
}

void ScrolledBody::Fit(const QWidget& buttons) {
  const QSize wanted = widget()->sizeHint();
  const QSize room = BodyRoom(*parentWidget(), buttons);
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  QSize size = wanted;
  if (wanted.height() > room.height()) size.rwidth() += bar;
  if (size.width() > room.width()) size.rheight() += bar;
  setFixedSize(size.boundedTo(room));
}

void ScrolledBody::FollowCells(QTableView& grid) {
  connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this, [this, &grid] {
    const QRect cell = grid.visualRect(grid.currentIndex());
    const QPoint middle = grid.viewport()->mapTo(widget(), cell.center());
    ensureVisible(middle.x(), middle.y(), cell.width(), cell.height());
  });
}

}  // namespace tremlo
