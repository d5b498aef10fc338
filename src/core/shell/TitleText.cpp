#include "core/shell/TitleText.h"

#include "core/shell/ProgramIdentity.h"

#include <QFileInfo>

namespace tremlo {

QString VersionText(int major, int minor) {
  return QString::number((major * 100 + minor) / 100.0, 'f', 2);
}

QString ApplicationTitle() {
  return QStringLiteral("Tremlo Version") + VersionText(kVersionMajor, kVersionMinor);
}

QString ProjectTitle(const QString& pathName) {
  return pathName.isEmpty() ? QStringLiteral("無題") : QFileInfo(pathName).fileName();
}

QString WindowTitle(const QString& pathName, const QString& captionMark) {
  const QString suffix = captionMark.isEmpty() ? QStringLiteral(" ") : captionMark;
  return ProjectTitle(pathName) + QStringLiteral(" - ") + ApplicationTitle() + suffix;
}

QString AboutVersionText(int major, int minor) {
  return QStringLiteral("Version %1.%2").arg(major).arg(minor, 2, 10, QLatin1Char('0'));
}

QString LegalLine() {
  return QStringLiteral("Copyright (C) %1 Tremlo").arg(kLegalYear);
}

QString SampleTablesText(const std::vector<QString>& folders) {
  const QStringList names(folders.begin(), folders.end());
  return QStringLiteral("見本の表を使用中：") + names.join(QStringLiteral("、"));
}

}  // namespace tremlo
