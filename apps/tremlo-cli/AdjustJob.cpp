#include "AdjustJob.h"

#include "Arguments.h"
#include "Command.h"
#include "core/files/FileFault.h"
#include "core/waves/WaveFile.h"

#include <cmath>

namespace tremlo::cli {

namespace {

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
    error = FileFault(path, QStringLiteral("スペクトルのデータがありません。"));
    return false;
  }
  PutLongestFirst(periods, target);
  return true;
}

}  // namespace

int AdjustJob::Read(const Arguments& arguments, QString& error, QStringList& warnings) {
  if (!arguments.IsSet("seed") || !arguments.IsSet("target")) {
    error = QStringLiteral("--seed と --target を指定してください。");
    return kBadCommandLine;
  }
  if (!arguments.Whole("iterations", iterations) || iterations < 0) {
    error = QStringLiteral("--iterations は 0 以上の整数です：") + arguments.Text("iterations");
    return kBadCommandLine;
  }
  if (!arguments.Number("tolerance", tolerance) || std::isnan(tolerance)) {
    error = QStringLiteral("--tolerance は数値です：") + arguments.Text("tolerance");
    return kBadCommandLine;
  }
  if (const int status = seed.Read(arguments.Text("seed"), arguments, error, warnings); status != kDone)
    return status;
  return ReadTarget(arguments.Text("target"), periods, target, error) ? kDone : kBadFile;
}

Adjustment AdjustJob::Run(const AdjustProgress& progress) const {
  Adjustment result;
  result.converged = AdjustAmplitude(iterations, seed.acc, periods, target, result.acc, tolerance,
                                     seed.timeStep, [&](const FitFigures& fit) {
                                       result.fit = fit;
                                       result.passes = fit.pass + 1;
                                       if (progress) progress(fit);
                                     });
  return result;
}

}  // namespace tremlo::cli
