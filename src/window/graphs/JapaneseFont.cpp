#include "window/graphs/JapaneseFont.h"

#include <QApplication>

namespace tremlo {

void InstallJapaneseFonts() {
  const QStringList standIns = {QStringLiteral("IPAGothic"), QStringLiteral("Noto Sans CJK JP")};
  for (const QString& name :
       {QStringLiteral("MS Gothic"), QStringLiteral("ＭＳ ゴシック"), QStringLiteral("MS ゴシック")})
    QFont::insertSubstitutions(name, standIns);
  QApplication::setFont(ScreenFont());
}

QFont ScreenFont() {
  return {QStringLiteral("MS Gothic"), 9};
}

}  // namespace tremlo
