#include "WaveInput.h"

#include "Command.h"
#include "Output.h"
#include "RecordInput.h"
#include "core/files/FileFault.h"
#include "core/files/WholeFile.h"
#include "core/records/DetectFormat.h"
#include "core/records/RecordArchive.h"
#include "core/waves/WaveFile.h"

#include <cmath>

namespace tremlo::cli {

namespace {

/// Whether the file can be read and is none of ours.
bool IsForeignRecord(const QString& path) {
  QByteArray content;
  if (!ReadWholeFile(path, content)) return false;
  QString sign;
  return IsArchive(content) || DetectFormat(RecordText(content, path), sign) != RecordFormat::OwnWave;
}

}  // namespace

bool WaveInput::ReadOwn(const QString& path, QString& error) {
  std::vector<double> samples;
  if (const auto failure = ReadWaveFile(path, name, timeStep, samples)) {
    error = *failure;
    return false;
  }
  if (name.isEmpty()) {
    error = FileFault(path, QStringLiteral("1行目が「波形名, 時間間隔, 1」ではありません。"));
    return false;
  }
  if (!std::isfinite(timeStep) || timeStep <= 0.0) {
    error = FileFault(path, QStringLiteral("1行目の時間間隔が正の数値ではありません。"));
    return false;
  }
  if (samples.empty()) {
    error = FileFault(path, QStringLiteral("加速度のデータがありません。"));
    return false;
  }
  acc = WithoutBlanks(samples);
  return true;
}

int WaveInput::Read(const QString& path, const Arguments& arguments) {
  QString error;
  QStringList warnings;
  const int status = Read(path, arguments, error, warnings);
  if (status != kDone) return status == kBadCommandLine ? FailUsage(error) : Fail(status, error);
  for (const QString& warning : warnings) Fail(kDone, FileFault(path, QStringLiteral("警告：") + warning));
  return kDone;
}

int WaveInput::Read(const QString& path, const Arguments& arguments, QString& error, QStringList& warnings) {
  RecordOptions options;
  if (!options.Parse(arguments, error)) return kBadCommandLine;
  if (options.IsEmpty() && !IsForeignRecord(path)) return ReadOwn(path, error) ? kDone : kBadFile;
  RecordInput record;
  if (const int status = record.Read(path, options, error); status != kDone) return status;
  warnings += QStringList(record.warnings.begin(), record.warnings.end());
  name = record.name;
  timeStep = record.timeStep;
  acc = WithoutBlanks(record.acc);
  return kDone;
}

void PrintWaveLine(const WaveInput& wave) {
  PrintLine(QStringLiteral("%1：時間間隔 %2 秒、%3 点")
                .arg(wave.name, NumberText(wave.timeStep), QString::number(wave.acc.size())));
}

}  // namespace tremlo::cli
