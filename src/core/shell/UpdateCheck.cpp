#include "core/shell/UpdateCheck.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace tremlo {

int StartUpdateCheck(bool fromUser) {
  const QFileInfo program(QDir::current().filePath(QStringLiteral("UpdateChecker.exe")));
  if (!program.isFile() || !program.isExecutable()) return 1;
  QStringList arguments{QStringLiteral("TRML")};
  if (fromUser) arguments << QStringLiteral("FromUser");
  return QProcess::startDetached(program.absoluteFilePath(), arguments) ? 0 : 1;
}

}  // namespace tremlo
