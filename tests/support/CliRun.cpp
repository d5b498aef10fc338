#include "support/CliRun.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace tremlo::test {

CliResult RunCli(const QStringList& arguments, const std::function<void()>& inChild) {
  constexpr int kLimitMs = 120'000;  // no run takes this long; a program that hangs is to fail the test
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"),
                     QStringLiteral("C.UTF-8"));  // else Qt may tell of a switch to it
  process.setProcessEnvironment(environment);
#ifndef _WIN32
  if (inChild) process.setChildProcessModifier(inChild);
#else
  EXPECT_FALSE(inChild);
#endif
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"), arguments);
  const bool finished = process.waitForFinished(kLimitMs);
  EXPECT_TRUE(finished) << process.errorString().toStdString();
  CliResult result;
  if (finished && process.exitStatus() == QProcess::NormalExit) result.status = process.exitCode();
  result.out = QString::fromUtf8(process.readAllStandardOutput());
  result.err = QString::fromUtf8(process.readAllStandardError());
  return result;
}

}  // namespace tremlo::test
