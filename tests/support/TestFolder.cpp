#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace tremlo::test {

TestFolder::TestFolder() : m_dir(QDir::tempPath() + QStringLiteral("/tremlo 試験 XXXXXX")) {
  EXPECT_TRUE(m_dir.isValid());
}

QString TestFolder::Write(const QString& name, const QByteArray& content) const {
  const QString path = Path(name);
  EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_EQ(file.write(content), content.size());
  return path;
}

QStringList TestFolder::Names() const {
  return QDir(Path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
}

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

QString SourcePath(const QString& name) {
  return QStringLiteral(TREMLO_SOURCE_DIR "/") + name;
}

void CopyTables(const TestFolder& folder) {
  for (const QString& name :
       {QStringLiteral("DamCoef"), QStringLiteral("LowSpec"), QStringLiteral("SystemData")}) {
    const QDir from(SourcePath(QStringLiteral("data/") + name));
    for (const QString& file : from.entryList(QDir::Files))
      folder.Write(name + u'/' + file, ReadAll(from.filePath(file)));
  }
}

}  // namespace tremlo::test
