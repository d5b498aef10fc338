#include "core/waves/WaveFile.h"

#include "core/files/Cp932Text.h"
#include "core/files/CsvText.h"
#include "core/files/FileName.h"
#include "core/files/TextScan.h"
#include "core/files/WholeFile.h"
#include "numeric/waves/FourierSpectrum.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <charconv>
#include <string>

namespace tremlo {

namespace {

void AppendNumber(std::string& text, double value) {
  std::array<char, 32> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 6);
  if (error == std::errc()) text.append(digits.data(), end);
}

}  // namespace

QString CannotOpenText(const QString& path) {
  return QDir::toNativeSeparators(path) + QStringLiteral("を開けません。（読み取りオープン）");
}

std::optional<QString> ReadWaveFile(const QString& path, QString& name, double& timeStep,
                                    std::vector<double>& acc) {
  QByteArray content;
  if (!ReadWholeFile(path, content)) return CannotOpenText(path);
  ParseWave(content, name, timeStep, acc);
  return std::nullopt;
}

std::optional<QString> ReadSpectrumFile(const QString& path, QString& name, std::vector<double>& periods,
                                        std::vector<double>& values, std::size_t* pairs) {
  QByteArray content;
  if (!ReadWholeFile(path, content)) return CannotOpenText(path);
  const std::size_t found = ParseSpectrum(content, name, periods, values);
  if (pairs) *pairs = found;
  return std::nullopt;
}

std::size_t ParseSpectrum(const QByteArray& content, QString& name, std::vector<double>& periods,
                          std::vector<double>& values) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  std::string_view line;
  name.clear();
  periods.clear();
  values.clear();
  if (lines.Next(line)) {
    QString rest;
    name = ScanWaveName(csv.Decode(line), rest);
  }
  double period = 0.0;
  double value = 0.0;
  std::size_t pairs = 0;
  while (lines.Next(line)) {
    if (ScanPair(line, period, value)) ++pairs;
    periods.push_back(period);
    values.push_back(value);
  }
  return pairs;
}

std::string CsvContent(const QString& name, double timeStep, const std::vector<double>& x,
                       const std::vector<double>& y) {
  if (name.isEmpty() || timeStep == 0.0 || x.empty() || y.size() < x.size()) return {};
  std::string text = EncodeCp932(name);
  text.reserve(text.size() + x.size() * 24);
  text += ", ";
  AppendNumber(text, timeStep);
  text += ", 1\n";
  for (std::size_t i = 0; i < x.size(); ++i) {
    AppendNumber(text, x[i]);
    text += ", ";
    AppendNumber(text, y[i]);
    text += '\n';
  }
  return text;
}

bool WriteCsv(const QString& path, const QString& name, double timeStep, const std::vector<double>& x,
              const std::vector<double>& y) {
  const std::string text = CsvContent(name, timeStep, x, y);
  return !text.empty() && WriteWholeFile(path, text);
}

SavePath SplitSavePath(const QString& path) {
  if (path.isEmpty()) return {};
  const qsizetype slash = QDir::fromNativeSeparators(path).lastIndexOf(u'/');
  const qsizetype point = path.lastIndexOf(u'.');
  if (point <= slash) return {path, QString()};
  return {path.left(point), path.mid(point)};
}

QString FileNameOfWave(const QString& waveName, const QString& ending) {
  const QString name = PlainFileName(waveName);
  return name.isEmpty() ? QString() : name + ending + QStringLiteral(".csv");
}

QString AccSpecName(const QString& waveName) {
  return waveName + QStringLiteral("_加速度応答スペクトル");
}
QString FourierName(const QString& waveName) {
  return waveName + QStringLiteral("_フーリエスペクトル");
}

std::vector<FileContent> ExportFiles(const SavePath& path, const QString& name, double timeStep,
                                     const std::vector<double>& acc, const std::vector<double>& periods,
                                     const std::vector<double>& accSpec) {
  std::vector<double> times(acc.size());
  for (std::size_t i = 0; i < times.size(); ++i) times[i] = static_cast<double>(i) * timeStep;
  std::vector<double> fourierPeriods;
  std::vector<double> amplitudes;
  ComputeFourierSpectrum(WithoutBlanks(acc), fourierPeriods, amplitudes, timeStep);
  return {{path.base + path.extension, CsvContent(name, timeStep, times, acc)},
          {path.base + QStringLiteral("_AccSpec") + path.extension,
           CsvContent(AccSpecName(name), timeStep, periods, accSpec)},
          {path.base + QStringLiteral("_FFT") + path.extension,
           CsvContent(FourierName(name), timeStep, fourierPeriods, amplitudes)}};
}

void ExportWave(const SavePath& path, const QString& name, double timeStep, const std::vector<double>& acc,
                const std::vector<double>& periods, const std::vector<double>& accSpec) {
  for (const FileContent& file : ExportFiles(path, name, timeStep, acc, periods, accSpec))
    if (!file.content.empty()) WriteWholeFile(file.path, file.content);
}

QString AddImportedWave(CSeismicWaveSet& waves, const QString& name, double timeStep,
                        const std::vector<double>& acc) {
  QString freeName = waves.FreeName(name);
  waves.Add(freeName);
  waves.SetTimeStep(freeName, timeStep);
  waves.SetAcc(freeName, acc);
  waves.SelectCurrent(freeName);
  return freeName;
}

}  // namespace tremlo
