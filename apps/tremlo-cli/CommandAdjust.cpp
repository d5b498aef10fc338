#include "Arguments.h"
#include "Command.h"
#include "FiguresJson.h"
#include "Output.h"
#include "RecordInput.h"
#include "WaveInput.h"
#include "core/waves/AdjustRun.h"
#include "core/waves/FiguresText.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"

#include <cmath>
#include <limits>

namespace tremlo::cli {

namespace {

struct Adjustment {
  bool converged = false;
  int passes = 0;  ///< sweeps made
  FitFigures fit;  ///< of the last sweep
  std::vector<double> acc, periods, spectrum;
  WaveFigures seedFigures, adjustedFigures;
};

QList<QCommandLineOption> Options() {
  return RecordOptions::All() +
         QList<QCommandLineOption>{
             {QStringLiteral("seed"), QStringLiteral("原種波形"), QStringLiteral("WAVE")},
             {QStringLiteral("target"), QStringLiteral("目標とする加速度応答スペクトル"),
              QStringLiteral("SPECTRUM.csv")},
             {QStringLiteral("iterations"), QStringLiteral("繰り返し回数の上限（既定値 100）"),
              QStringLiteral("N")},
             {QStringLiteral("tolerance"), QStringLiteral("収束判定（既定値 0.05 = 5 %）"),
              QStringLiteral("FRACTION")},
             {QStringLiteral("out"),
              QStringLiteral("調整後の波形を書く CSV ファイル（_AccSpec, _FFT も書く）"),
              QStringLiteral("BASE.csv")}};
}

/// Reads the target and puts it longest period first.
bool ReadTarget(const QString& path, std::vector<double>& periods, std::vector<double>& target,
                QString& error) {
  QString name;
  std::size_t pairs = 0;
  if (const auto failure = ReadSpectrumFile(path, name, periods, target, &pairs)) {
    error = *failure;
    return false;
  }
  if (pairs == 0) {
    error = path + QStringLiteral(": スペクトルのデータがありません。");
    return false;
  }
  PutLongestFirst(periods, target);
  return true;
}

void PrintObject(const WaveInput& seed, const Adjustment& result) {
  JsonWriter json;
  json.BeginObject();
  json.Member("name", seed.name);
  json.Member("timeStep", seed.timeStep);
  json.Member("converged", result.converged);
  json.Member("passes", result.passes);
  json.Member("error", result.fit.deviation);
  json.Member("adjustedAcc", result.acc);
  json.Member("adjustedPeriods", result.periods);
  json.Member("adjustedSpec", result.spectrum);
  WriteFigures(json, "seedFigures", result.seedFigures);
  WriteFigures(json, "adjustedFigures", result.adjustedFigures);
  json.EndObject();
  PrintJson(json);
}

void PrintSummary(const WaveInput& seed, const Adjustment& result, double tolerance) {
  const auto percent = [](double fraction) { return QString::number(fraction * 100.0, 'f', 2); };
  PrintWaveLine(seed);
  PrintLine(QStringLiteral("調整後：%1 点").arg(result.acc.size()));
  PrintLine(QStringLiteral("%1：応答計算 %2 回、偏差（RMS）%3 %（収束判定 %4 %）")
                .arg(result.converged ? QStringLiteral("収束しました") : QStringLiteral("収束しませんでした"),
                     QString::number(result.passes), percent(result.fit.deviation), percent(tolerance)));
  if (result.fit.overshootPeriod > 0.0)
    PrintLine(QStringLiteral("目標を上回る最大：%1 %（周期 %2 秒）")
                  .arg(percent(result.fit.overshoot), NumberText(result.fit.overshootPeriod)));
  if (result.fit.undershootPeriod > 0.0)
    PrintLine(QStringLiteral("目標を下回る最大：%1 %（周期 %2 秒）")
                  .arg(percent(result.fit.undershoot), NumberText(result.fit.undershootPeriod)));
  PrintLine(MakeFiguresLine(QStringLiteral("原種波形"), result.seedFigures).Text());
  PrintLine(MakeFiguresLine(QStringLiteral("調整後波形"), result.adjustedFigures).Text());
}

int Run(const Arguments& arguments) {
  std::int32_t iterations = 100;
  double tolerance = 0.05;
  if (!arguments.IsSet("seed") || !arguments.IsSet("target"))
    return FailUsage(QStringLiteral("--seed と --target を指定してください。"));
  if (!arguments.Whole("iterations", iterations) || iterations < 0)
    return FailUsage(QStringLiteral("--iterations は 0 以上の整数です：") + arguments.Text("iterations"));
  if (!arguments.Number("tolerance", tolerance) || std::isnan(tolerance))
    return FailUsage(QStringLiteral("--tolerance は数値です：") + arguments.Text("tolerance"));

  WaveInput seed;
  QString error;
  if (const int status = seed.Read(arguments.Text("seed"), arguments); status != kDone) return status;
  std::vector<double> targetPeriods;
  std::vector<double> target;
  if (!ReadTarget(arguments.Text("target"), targetPeriods, target, error)) return Fail(kBadFile, error);

  Adjustment result;
  result.fit.deviation = std::numeric_limits<double>::quiet_NaN();
  {
    ProgressLine line;
    result.converged = AdjustAmplitude(iterations, seed.acc, targetPeriods, target, result.acc, tolerance,
                                       seed.timeStep, [&](const FitFigures& fit) {
                                         result.fit = fit;
                                         result.passes = fit.pass + 1;
                                         if (line.IsShown())
                                           line.Show(QStringLiteral("%1 / 最大 %2 回　偏差 %3 %")
                                                         .arg(result.passes)
                                                         .arg(iterations)
                                                         .arg(fit.deviation * 100.0, 0, 'f', 2));
                                       });
  }
  ComputeResponseSpectrum(result.acc, result.periods, result.spectrum, seed.timeStep);
  result.seedFigures = ComputeWaveFigures(seed.acc, seed.timeStep);
  result.adjustedFigures = ComputeWaveFigures(result.acc, seed.timeStep);

  if (result.converged && arguments.IsSet("out")) {
    const std::vector<FileContent> files =
        ExportFiles(SplitSavePath(arguments.Text("out")), seed.name, seed.timeStep, result.acc,
                    result.periods, result.spectrum);
    if (const auto failed = WriteWholeFiles(files))
      return Fail(kBadFile, *failed + QStringLiteral(": ファイルを保存できませんでした。"));
  }
  if (arguments.WantsJson()) {
    PrintObject(seed, result);
  } else {
    PrintSummary(seed, result, tolerance);
  }
  return result.converged ? kDone : kGoalMissed;
}

}  // namespace

Command AdjustCommand() {
  return {"adjust",
          "--seed WAVE [--component NAME] [--unit UNIT] [--step DT] [--offset none|whole|T] [--member PATH] "
          "--target SPECTRUM.csv [--iterations 100] [--tolerance 0.05] [--out BASE.csv]",
          "原種波形の振幅を目標スペクトルに合わせて調整する",
          0,
          Options,
          Run};
}

}  // namespace tremlo::cli
