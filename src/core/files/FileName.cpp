#include "core/files/FileName.h"

#include <QStringView>

namespace tremlo {

namespace {

constexpr qsizetype kLongestFileName = 200;  // in bytes; file systems take 255, endings included

}  // namespace

QString PlainFileName(const QString& text) {
  QString name = text.trimmed();
  for (QChar& unit : name)
    if (unit < u' ' || unit == QChar(0x7F) || QStringView(u"/\\:*?\"<>|").contains(unit)) unit = u'_';
  if (name.startsWith(u'.')) name[0] = u'_';  // it would be hidden
  while (name.toUtf8().size() > kLongestFileName || (!name.isEmpty() && name.back().isHighSurrogate()))
    name.chop(1);
  return name;
}

}  // namespace tremlo
