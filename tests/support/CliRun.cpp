#include "support/CliRun.h"

#include <QJsonDocument>
#include <QProcess>

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <thread>
#include <unistd.h>
#endif

namespace tremlo::test {

namespace {

CliResult RunToItsEnd(QProcess& process, const QStringList& arguments) {
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"), arguments);
#ifdef _WIN32
  // Wine fails to start a program now and then, with an internal error of its own.
  if (!process.waitForStarted(120000)) process.start();
#endif
  const bool ended = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
  EXPECT_TRUE(ended) << process.errorString().toStdString() << ", exit code " << process.exitCode();
  return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

}  // namespace

CliResult RunCli(const QStringList& arguments, const QString& workingFolder) {
  QProcess process;
  process.setWorkingDirectory(workingFolder);
  return RunToItsEnd(process, arguments);
}

#ifdef _WIN32

CliResult RunCliWithoutOutput(const QStringList& arguments) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const HANDLE readOnly = CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                      OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(readOnly, INVALID_HANDLE_VALUE);
  QProcess process;
  process.setCreateProcessArgumentsModifier(
      [readOnly](auto* start) { start->startupInfo->hStdOutput = readOnly; });
  const CliResult result = RunToItsEnd(process, arguments);
  CloseHandle(readOnly);
  return result;
}

#else

CliResult RunCliWithoutOutput(const QStringList& arguments) {
  return RunPreparedCli(arguments, [] { close(STDOUT_FILENO); });
}

CliResult RunPreparedCli(const QStringList& arguments, const std::function<void()>& prepare) {
  QProcess process;
  process.setChildProcessModifier(prepare);
  return RunToItsEnd(process, arguments);
}

CliResult RunCliOnATerminal(const QStringList& arguments) {
  const int master = posix_openpt(O_RDWR | O_NOCTTY);
  EXPECT_TRUE(master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0);
  const int terminal = open(ptsname(master), O_RDWR | O_NOCTTY);
  EXPECT_GE(terminal, 0);
  QByteArray shown;
  // A terminal that nobody reads stops the program when it is full.
  std::thread reader([&] {
    char block[4096];
    for (ssize_t count; (count = read(master, block, sizeof(block))) > 0;) shown.append(block, count);
  });
  CliResult result = RunPreparedCli(arguments, [terminal] { dup2(terminal, STDERR_FILENO); });
  close(terminal);  // the last one: the reader comes to its end
  reader.join();
  close(master);
  result.err = shown;
  return result;
}

#endif

QJsonObject RunCliJson(const QStringList& arguments) {
  const CliResult result = RunCli(arguments);
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_EQ(result.out.count('\n'), 1);
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(result.out, &error);
  EXPECT_TRUE(document.isObject()) << error.errorString().toStdString();
  return document.object();
}

QStringList TopKeys(const QByteArray& json) {
  QStringList keys;
  int depth = 0;
  bool inText = false;
  qsizetype textStart = 0;
  for (qsizetype i = 0; i < json.size(); ++i) {
    const char c = json[i];
    if (inText) {
      if (c == '\\') ++i;
      if (c != '"') continue;
      inText = false;
      if (depth == 1 && i + 1 < json.size() && json[i + 1] == ':')
        keys << QString::fromUtf8(json.mid(textStart, i - textStart));
    } else if (c == '"') {
      inText = true;
      textStart = i + 1;
    } else if (c == '{' || c == '[') {
      ++depth;
    } else if (c == '}' || c == ']') {
      --depth;
    }
  }
  return keys;
}

}  // namespace tremlo::test
