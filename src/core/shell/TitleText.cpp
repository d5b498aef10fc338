#include "core/shell/TitleText.h"

#include "core/shell/ProgramCommit.h"
#include "core/shell/ProgramIdentity.h"

#include <QDir>
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

QString VersionAndCommit(const QString& version, const QString& commit) {
  return commit.isEmpty() ? version : QStringLiteral("%1 (%2)").arg(version, commit);
}

QString VersionAndCommit() {
  return VersionAndCommit(QString::fromLatin1(kVersion), QString::fromLatin1(kProgramCommit));
}

QString LegalLine() {
  return QStringLiteral("Copyright (C) %1 Tremlo").arg(kLegalYear);
}

QString SampleTablesText(const std::vector<QString>& folders) {
  const QStringList names(folders.begin(), folders.end());
  return QStringLiteral("見本の表を使用中：") + names.join(QStringLiteral("、"));
}

QString TablePlacesText(const ProgramFolders& folders) {
  QStringList lines;
  for (const char* name : {"DamCoef", "LowSpec", "SystemData"})
    lines << QStringLiteral("%1：%2").arg(QLatin1String(name),
                                          QDir::toNativeSeparators(folders.TableFolder(QLatin1String(name))));
  return lines.join(u'\n');
}

}  // namespace tremlo
