#include "core/records/OwnWave.h"

#include "core/files/CsvText.h"
#include "core/files/TextScan.h"
#include "core/records/RecordReaders.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tremlo {

namespace {

constexpr qsizetype kLongestName = 260;

}  // namespace

QString ScanWaveName(const QString& line, QString& rest) {
  const qsizetype comma = line.indexOf(u',');
  const qsizetype length = std::min(comma < 0 ? line.size() : comma, kLongestName);
  rest = line.mid(length);
  return line.left(length);
}

void ParseWave(const QByteArray& content, QString& name, double& timeStep, std::vector<double>& acc) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  std::string_view line;
  name.clear();
  timeStep = 0.0;
  acc.clear();
  if (lines.Next(line)) {
    QString rest;
    name = ScanWaveName(csv.Decode(line), rest);
    const std::string numbers = rest.toStdString();
    LineScanner scan(numbers);
    if (!name.isEmpty() && scan.Literal(',')) scan.Number(timeStep);
  }
  double time = 0.0;
  double sample = 0.0;
  while (lines.Next(line)) {
    ScanPair(line, time, sample);
    acc.push_back(sample);
  }
}

bool StartsAsWave(const QByteArray& content) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  QString rest;
  const QString name = ScanWaveName(csv.NextText(lines), rest);
  const std::string numbers = rest.toStdString();
  LineScanner scan(numbers);
  double number = 0.0;
  if (name.isEmpty() || !scan.Literal(',') || !scan.Number(number)) return false;
  double nameAsNumber = 0.0;
  if (!FieldNumber(name.toStdString(), nameAsNumber)) return true;
  return scan.Literal(',') && scan.Number(number);
}

void ReadOwnWave(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  // A file of ours means what it means everywhere in the program: no answer changes it.
  reading.corrected = true;
  if (answers.unit || answers.timeStep) {
    reading.error = text.Refusal(QStringLiteral("この形式の単位（gal）と時間間隔は指定できません"));
    return;
  }
  RecordComponent component;
  QString name;
  ParseWave(text.Content(), name, component.timeStep, component.acc);
  if (!std::isfinite(component.timeStep) || component.timeStep <= 0.0) {
    reading.error = text.Refusal(0, QStringLiteral("1行目の時間間隔が正の数値ではありません"), text.Line(0));
    return;
  }
  if (component.acc.empty()) {
    reading.error = text.Refusal(0, QStringLiteral("この後に加速度のデータがありません"), text.Line(0));
    return;
  }
  reading.dataLines.push_back({1, text.Size()});
  reading.station = name.simplified();
  component.unit = QStringLiteral("gal");
  component.factor = 1.0;

  const CsvText csv(text.Content());
  LineReader lines(csv.Text());
  std::string_view line;
  std::size_t bad = 0;
  std::size_t firstBad = 0;
  lines.Next(line);
  for (std::size_t number = 2; lines.Next(line); ++number) {
    double time = 0.0;
    double sample = 0.0;
    if (!ScanPair(line, time, sample) && bad++ == 0) firstBad = number;
  }
  if (bad > 0)
    reading.Warn(
        QStringLiteral("数値の組でない行が %1 行あります（最初は %2行目）。直前の値を繰り返して読みます。")
            .arg(bad)
            .arg(firstBad));
  const auto blanks =
      std::count_if(component.acc.begin(), component.acc.end(), [](double a) { return !std::isfinite(a); });
  if (blanks > 0) reading.Warn(QStringLiteral("数値でない値（空欄など）が %1 点あります。").arg(blanks));
  double number = 0.0;
  if (FieldNumber(name.toStdString(), number))
    reading.Warn(QStringLiteral("1行目の波形名が数値です（%1）。見出しのない表かもしれません。")
                     .arg(name.simplified()));
  reading.components.push_back(std::move(component));
}

}  // namespace tremlo
