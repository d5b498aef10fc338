#include "window/location/DlgHelpFieldRect.h"

#include "window/graphs/BodyRoom.h"
#include "window/location/LocationPictures.h"

#include <QDialogButtonBox>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QVBoxLayout>

namespace tremlo {

namespace {

/// What the picture says, for those who do not see it.
const QString kPictureText = QStringLiteral(
    "日本を19の系に分け、系ごとに原点を定めた平面の直交座標です。Xは原点から北向き、Yは東向きが正で、単位は"
    "メートルです。地球を横メルカトル図法で投影し、中央経線上の縮尺係数は0.9999です。距離のゆがみは原点から"
    "東西に離れるほど大きくなります。現場の都道府県が属する系を選びます。現場と断層との距離は、ここで選んだ"
    "系の座標で計算します。");

/// Sharp at any scale, and smaller where there is less room.
class Picture : public QWidget {
 public:
  explicit Picture(const QString& path) : m_renderer(path) { setFixedSize(m_renderer.defaultSize()); }
  void FitInto(const QSize& room) {
    const QSize size = m_renderer.defaultSize();
    setFixedSize(size.scaled(room.boundedTo(size), Qt::KeepAspectRatio));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    m_renderer.render(&painter, QRectF(rect()));
  }

 private:
  QSvgRenderer m_renderer;
};

}  // namespace

CDlgHelpFieldRect::CDlgHelpFieldRect(QWidget* parent) : QDialog(parent) {
  LoadLocationPictures();
  setObjectName(QStringLiteral("CDlgHelpFieldRect"));
  setWindowTitle(QStringLiteral("平面直角座標系について"));
  auto* const picture = new Picture(QStringLiteral(":/location/help_field_rect.svg"));
  picture->setObjectName(QStringLiteral("picture"));
  picture->setAccessibleName(windowTitle());
  picture->setAccessibleDescription(kPictureText);
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const close = buttons->addButton(QStringLiteral("閉じる"), QDialogButtonBox::RejectRole);
  close->setObjectName(QStringLiteral("close"));
  close->setAccessibleName(close->text());
  close->setDefault(true);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(picture);
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
  picture->FitInto(BodyRoom(*this, *buttons));
}

}  // namespace tremlo
