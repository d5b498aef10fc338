#include "Output.h"

#include "Command.h"
#include "sources/SystemTables.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tremlo::cli {

namespace {

void Put(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

bool IsErrorTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

void PrintLine(const QString& line) {
  Put(stdout, line.toStdString() + '\n');
}

void PrintJson(const JsonWriter& json) {
  Put(stdout, json.Text() + '\n');
}

int Fail(int status, const QString& line) {
  Put(stderr, line.toStdString() + '\n');
  return status;
}

int FailUsage(const QString& reason) {
  return Fail(kBadCommandLine,
              reason + QStringLiteral("\nUsage: tremlo-cli COMMAND [OPTIONS]  (tremlo-cli --help)"));
}

ProgressLine::ProgressLine() : m_terminal(IsErrorTerminal()) {}

ProgressLine::~ProgressLine() {
  if (m_used) Put(stderr, "\r\x1b[K");
}

void ProgressLine::Show(const QString& text) {
  if (!m_terminal) return;
  m_used = true;
  Put(stderr, "\r\x1b[K" + text.toStdString());
  std::fflush(stderr);
}

void PrintSampleNotice(const QString& dataFolder) {
  QStringList names;
  for (const QString& folder : SampleTableFolders(dataFolder)) names << folder;
  if (!names.isEmpty())
    PrintLine(
        QStringLiteral("見本の表を使用中：%1（公表値ではありません）").arg(names.join(QStringLiteral("、"))));
}

}  // namespace tremlo::cli
