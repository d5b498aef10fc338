#include "window/shell/DlgSplash.h"

#include "core/shell/ProgramIdentity.h"
#include "core/shell/TitleText.h"
#include "window/shell/Pictures.h"

#include <QPainter>
#include <QTimer>

namespace tremlo {

CDlgSplash::CDlgSplash(int shownMs)
    : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint), m_shownMs(shownMs) {
  LoadPictures();
  m_picture.load(QStringLiteral(":/shell/splash.svg"));
  setObjectName(QStringLiteral("dlgSplash"));
  setWindowTitle(QStringLiteral("Tremlo"));
  setFixedSize(m_picture.defaultSize());
}

void CDlgSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  m_picture.render(&painter, QRectF(rect()));
  painter.setPen(Qt::white);
  QFont name = font();
  name.setPixelSize(48);
  painter.setFont(name);
  painter.drawText(rect().adjusted(32, 28, -32, 0), Qt::AlignLeft | Qt::AlignTop, QStringLiteral("Tremlo"));
  name.setPixelSize(15);
  painter.setFont(name);
  painter.drawText(rect().adjusted(34, 88, -32, 0), Qt::AlignLeft | Qt::AlignTop,
                   AboutVersionText(kVersionMajor, kVersionMinor) + u'\n' + LegalLine());
}

void CDlgSplash::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QTimer::singleShot(m_shownMs, this, &QDialog::accept);
}

}  // namespace tremlo
