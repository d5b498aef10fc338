#include "support/CliRun.h"

#include <QProcess>

namespace tremlo::test {

CliResult RunCli(const QStringList& arguments, const QString& workingFolder) {
  QProcess process;
  process.setWorkingDirectory(workingFolder);
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"), arguments);
  process.closeWriteChannel();
  const bool ended = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
  return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

}  // namespace tremlo::test
