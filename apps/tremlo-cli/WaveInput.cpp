#include "WaveInput.h"

#include "Output.h"
#include "core/waves/WaveFile.h"

#include <cmath>

namespace tremlo::cli {

bool WaveInput::Read(const QString& path, QString& error) {
  std::vector<double> samples;
  if (const auto failure = ReadWaveFile(path, name, timeStep, samples)) {
    error = *failure;
    return false;
  }
  if (name.isEmpty()) {
    error = path + QStringLiteral(": 1行目が「波形名, 時間間隔, 1」ではありません。");
    return false;
  }
  if (!std::isfinite(timeStep) || timeStep <= 0.0) {
    error = path + QStringLiteral(": 1行目の時間間隔が正の数値ではありません。");
    return false;
  }
  if (samples.empty()) {
    error = path + QStringLiteral(": 加速度のデータがありません。");
    return false;
  }
  acc = WithoutBlanks(samples);
  return true;
}

void PrintWaveLine(const WaveInput& wave) {
  PrintLine(QStringLiteral("%1：時間間隔 %2 秒、%3 点")
                .arg(wave.name, NumberText(wave.timeStep), QString::number(wave.acc.size())));
}

}  // namespace tremlo::cli
