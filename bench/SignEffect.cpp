// How far the method's own coefficient moves the response spectrum of each sample record from that of the
// exact piecewise-linear solution, by period in time steps. Prints the table of docs/numerics.md.

#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/IndependentSpectrum.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tremlo {
namespace {

/// Bands of period in units of the time step, each with the largest deviation in per cent.
constexpr std::array<double, 9> kBandLimits = {2.0, 3.0, 5.0, 10.0, 20.0, 50.0, 100.0, 1000.0, 1e9};

void PrintRecord(const QString& path) {
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  if (ReadWaveFile(path, name, timeStep, acc)) return;
  std::vector<double> periods;
  std::vector<double> spectrum;
  ComputeResponseSpectrum(acc, periods, spectrum, timeStep);

  std::array<double, kBandLimits.size() - 1> largest{};
  for (std::size_t i = 0; i < periods.size(); ++i) {
    const double exact =
        test::IndependentPeak(acc, static_cast<double>(i + 1) * FrequencyStep(acc.size(), timeStep), timeStep,
                              test::LoadIntegral::Exact);
    const double deviation = 100.0 * std::fabs(spectrum[i] / exact - 1.0);
    const auto band = std::upper_bound(kBandLimits.begin(), kBandLimits.end(), periods[i] / timeStep + 1e-9);
    const auto index = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(
        band - kBandLimits.begin() - 1, 0, static_cast<std::ptrdiff_t>(largest.size()) - 1));
    largest[index] = std::max(largest[index], deviation);
  }
  std::printf("| %s |", QFileInfo(path).baseName().toUtf8().constData());
  for (const double value : largest) std::printf(" %.3f |", value);
  std::printf("\n");
}

}  // namespace
}  // namespace tremlo

int main() {
  std::printf(
      "| record | 2-3 dt | 3-5 dt | 5-10 dt | 10-20 dt | 20-50 dt | 50-100 dt | 100-1000 dt | above |\n");
  std::printf("|---|---|---|---|---|---|---|---|---|\n");
  const QDir folder(QStringLiteral(TREMLO_SOURCE_DIR "/samples/waves"));
  for (const QString& name : folder.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name))
    tremlo::PrintRecord(folder.filePath(name));
  return 0;
}
