#include "window/sources/FrmMakeSeismicWave2Refer.h"

#include "window/graphs/NamedControl.h"
#include "window/sources/RelationPicture.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr QSize kAround(40, 120);  // margins, the button, and what the window manager draws, at the most

}  // namespace

CFrmMakeSeismicWave2Refer::CFrmMakeSeismicWave2Refer(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("CFrmMakeSeismicWave2Refer"));
  setWindowTitle(QStringLiteral("距離減衰式について"));
  auto* const picture = new RelationPicture;
  auto* const area = Named(new QScrollArea(this), "body", windowTitle());
  area->setWidget(picture);
  const QSize room = screen()->availableSize() - kAround;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const int rim = 2 * area->frameWidth();
  QSize size = picture->size() + QSize(rim, rim);
  const bool fits = size.boundedTo(room) == size;
  if (size.height() > room.height()) size.rwidth() += bar;
  if (size.width() > room.width()) size.rheight() += bar;
  area->setFixedSize(size.boundedTo(room));
  area->setFocusPolicy(fits ? Qt::NoFocus : Qt::StrongFocus);  // the keys scroll it

  auto* const buttons = new QDialogButtonBox(this);
  auto* const close = NamedButton<QPushButton>("close", QStringLiteral("閉じる"), this);
  buttons->addButton(close, QDialogButtonBox::RejectRole);
  close->setDefault(true);
  close->setFocus();
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(area);
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace tremlo
