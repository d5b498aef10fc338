#include "window/location/MapAttribution.h"

#include "core/location/ServiceAddresses.h"
#include "window/graphs/BgrColor.h"
#include "window/graphs/NamedControl.h"

#include <QDesktopServices>
#include <QEvent>
#include <QUrl>

namespace tremlo {

namespace {

/// The desktop's colour of links is often the same dark blue on a dark palette.
QColor LinkColor(const QPalette& palette) {
  const bool dark = ReadableOn(palette.color(QPalette::Window)) == QColor(Qt::white);
  return dark ? QColor(0x8A, 0xB4, 0xF8) : palette.color(QPalette::Link);
}

QString AttributionText(const QPalette& palette) {
  return QStringLiteral("%1<br><a href=\"%2\" style=\"color:%3\">%4</a> （%2）")
      .arg(QString::fromUtf16(kMapCredit), QString::fromLatin1(kTileTermsAddress).toHtmlEscaped(),
           LinkColor(palette).name(), QString::fromUtf16(kMapTerms));
}

void OpenTerms(Prompt& prompt) {
  const QString address = QString::fromLatin1(kTileTermsAddress);
  if (!QDesktopServices::openUrl(QUrl(address)))
    prompt.Tell(QStringLiteral("ブラウザーを起動できませんでした。\n") + address);
}

}  // namespace

MapAttribution::MapAttribution(Prompt& prompt, CommandGate& gate, QWidget* parent) : LinkLabel(parent) {
  Named(this, "attribution", QStringLiteral("地図の出典と利用規約"));
  setTextFormat(Qt::RichText);
  setText(AttributionText(palette()));
  setWordWrap(true);
  setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  setContextMenuPolicy(Qt::PreventContextMenu);
  connect(this, &QLabel::linkActivated, this, [&prompt, &gate] { gate.Run([&] { OpenTerms(prompt); }); });
}

void MapAttribution::changeEvent(QEvent* event) {
  LinkLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) setText(AttributionText(palette()));
}

}  // namespace tremlo
