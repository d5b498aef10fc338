#include "Output.h"

#include "Command.h"
#include "StandardStreams.h"
#include "core/sources/SystemTables.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cstdio>

namespace tremlo::cli {

int FinishOutput(int status) {
  const bool flushed = std::fflush(stdout) == 0;
  if (flushed && std::ferror(stdout) == 0) return status;
  return Fail(kBadFile, QStringLiteral("標準出力: 結果を書き込めませんでした。"));
}

void PrintLine(const QString& line) {
  WriteText(stdout, line.toStdString() + '\n');
}

void PrintJson(const JsonWriter& json) {
  WriteText(stdout, json.Text() + '\n');
}

int Fail(int status, const QString& line) {
  WriteText(stderr, line.toStdString() + '\n');
  return status;
}

int FailUsage(const QString& reason) {
  return Fail(kBadCommandLine,
              reason + QStringLiteral("\nUsage: tremlo-cli COMMAND [OPTIONS]  (tremlo-cli --help)"));
}

QString NumberText(double value) {
  return QString::number(value, 'g', 6);
}

void PrintSpectrum(const QString& title, const std::vector<double>& periods,
                   const std::vector<double>& values, const QString& unit) {
  if (periods.empty()) {
    PrintLine(title + QStringLiteral("：スペクトルの点はありません。"));
    return;
  }
  const auto peak = std::max_element(values.begin(), values.end());
  PrintLine(QStringLiteral("%1：%2 点、周期 %3 ～ %4 秒、最大 %5 %6（周期 %7 秒）")
                .arg(title, QString::number(periods.size()), NumberText(periods.back()),
                     NumberText(periods.front()), NumberText(*peak), unit,
                     NumberText(periods[static_cast<std::size_t>(peak - values.begin())])));
}

ProgressLine::ProgressLine() : m_terminal(IsTerminal(stderr)) {}

ProgressLine::~ProgressLine() {
  if (m_used) WriteText(stderr, "\r\x1b[K");
}

void ProgressLine::Show(const QString& text) {
  if (!m_terminal) return;
  m_used = true;
  WriteText(stderr, "\r\x1b[K" + text.toStdString());
  std::fflush(stderr);
}

void ProgressLine::ShowShare(const QString& text, std::size_t done, std::size_t count) {
  const std::size_t percent = done * 100 / count;
  if (percent == m_percent) return;
  m_percent = percent;
  Show(QStringLiteral("%1 %2 %").arg(text).arg(percent));
}

void PrintSampleNotice(const ProgramFolders& folders) {
  QStringList names;
  for (const QString& folder : SampleTableFolders(folders)) names << folder;
  if (!names.isEmpty())
    PrintLine(
        QStringLiteral("見本の表を使用中：%1（公表値ではありません）").arg(names.join(QStringLiteral("、"))));
}

}  // namespace tremlo::cli
