#include "window/graphs/ScrolledBody.h"

#include "window/graphs/BodyRoom.h"

#include <QStyle>

namespace tremlo {

ScrolledBody::ScrolledBody(QWidget* parent) : QScrollArea(parent) {
  setObjectName(QStringLiteral("body"));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
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

}  // namespace tremlo
