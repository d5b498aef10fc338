#include "core/files/FileName.h"

#include <QRegularExpression>
#include <QStringView>

namespace tremlo {

namespace {

constexpr qsizetype kLongestFileName = 200;  // in bytes; file systems take 255, endings included

/// Whether Windows takes the name for a device, with any ending.
bool IsDevice(const QString& name) {
  static const QRegularExpression kDevices(
      QStringLiteral("\\A(CON|PRN|AUX|NUL|(COM|LPT)[1-9¹²³])\\s*(\\.|\\z)"),
      QRegularExpression::CaseInsensitiveOption);
  return kDevices.match(name).hasMatch();
}

}  // namespace

QString PlainFileName(const QString& text) {
  QString name = text.trimmed();
  for (QChar& unit : name)
    if (unit < u' ' || unit == QChar(0x7F) || QStringView(u"/\\:*?\"<>|").contains(unit)) unit = u'_';
  if (name.startsWith(u'.')) name[0] = u'_';  // it would be hidden
  if (IsDevice(name)) name.prepend(u'_');
  while (name.toUtf8().size() > kLongestFileName || (!name.isEmpty() && name.back().isHighSurrogate()))
    name.chop(1);
  return name;
}

}  // namespace tremlo
