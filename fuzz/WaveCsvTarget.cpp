#include "core/files/Cp932Text.h"
#include "core/waves/WaveFile.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <cmath>
#include <limits>

namespace tremlo::fuzz {

namespace {

constexpr qsizetype kLongestName = 260;

struct Wave {
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
};

struct Spectrum {
  QString name;
  std::vector<double> periods;
  std::vector<double> values;
};

Wave ReadWave(const QByteArray& content) {
  Wave wave;
  ParseWave(content, wave.name, wave.timeStep, wave.acc);
  return wave;
}

Spectrum ReadSpectrum(const QByteArray& content) {
  Spectrum spectrum;
  ParseSpectrum(content, spectrum.name, spectrum.periods, spectrum.values);
  return spectrum;
}

bool Same(const Wave& a, const Wave& b) {
  return a.name == b.name && SameNumber(a.timeStep, b.timeStep) && SameNumbers(a.acc, b.acc);
}

std::string Written(const Wave& wave) {
  std::vector<double> times(wave.acc.size());
  for (std::size_t i = 0; i < times.size(); ++i) times[i] = static_cast<double>(i) * wave.timeStep;
  return CsvContent(wave.name, wave.timeStep, times, wave.acc);
}

/// Whether `b` is what six significant digits leave of `a`.
bool SameToSixDigits(double a, double b) {
  if (!std::isfinite(a)) return SameNumber(a, b);
  return std::abs(a - b) <= 5.000001e-6 * std::abs(a) + std::numeric_limits<double>::denorm_min();
}

void CheckName(const QString& name) {
  Require(name.size() <= kLongestName, "a name has at most 260 units");
  Require(!name.contains(u',') && !name.contains(u'\n'), "a name ends at the comma");
}

void CheckWaveRoundTrip(const Wave& wave) {
  const std::string text = Written(wave);
  const bool nothing = wave.name.isEmpty() || wave.timeStep == 0.0 || wave.acc.empty();
  Require(text.empty() == nothing, "a wave is written unless name, time step or samples are missing");
  if (nothing) return;
  const Wave back = ReadWave(QByteArray::fromStdString(text));
  Require(back.name == DecodeCp932(EncodeCp932(wave.name)), "a written name reads back");
  Require(SameToSixDigits(wave.timeStep, back.timeStep), "a written time step reads back");
  Require(back.acc.size() == wave.acc.size(), "as many samples read back as were written");
  for (std::size_t i = 0; i < back.acc.size(); ++i)
    Require(SameToSixDigits(wave.acc[i], back.acc[i]), "a written sample reads back");
  Require(Same(back, ReadWave(QByteArray::fromStdString(Written(back)))), "a second writing changes nothing");
}

void CheckWave(const QByteArray& content) {
  const Wave wave = ReadWave(content);
  CheckName(wave.name);
  Require(wave.acc.size() == CountLines(content, 1), "every line behind the first is a sample");
  Require(SameNumbers(wave.acc, ScanColumns(content, 1, 2)[1]), "samples are what the C library reads");
  Require(Same(wave, ReadWave(WithWindowsLineEnds(content))), "the kind of line end changes no wave");
  CheckWaveRoundTrip(wave);
}

void CheckSpectrum(const QByteArray& content) {
  const Spectrum spectrum = ReadSpectrum(content);
  CheckName(spectrum.name);
  const std::vector<std::vector<double>> columns = ScanColumns(content, 1, 2);
  Require(SameNumbers(spectrum.periods, columns[0]), "periods are what the C library reads");
  Require(SameNumbers(spectrum.values, columns[1]), "values are what the C library reads");
  const std::string text = CsvContent(spectrum.name, 0.01, spectrum.periods, spectrum.values);
  if (text.empty()) return;
  const Spectrum back = ReadSpectrum(QByteArray::fromStdString(text));
  Require(back.periods.size() == spectrum.periods.size() && back.values.size() == spectrum.values.size(),
          "as many pairs read back as were written");
}

}  // namespace

void FuzzWaveCsv(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  CheckWave(content);
  CheckSpectrum(content);
}

}  // namespace tremlo::fuzz
