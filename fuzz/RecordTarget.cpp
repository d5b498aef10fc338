#include "core/records/ReadRecord.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <QList>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tremlo::fuzz {

namespace {

/// The factor of a K-NET header, taken apart by the C library; false where it is not plainly there.
bool PlainScale(const QList<QByteArray>& lines, double& numerator, double& denominator) {
  for (const QByteArray& line : lines) {
    if (!line.startsWith("Scale Factor")) continue;
    const QByteArray value = line.mid(18).trimmed();
    const qsizetype mark = value.indexOf("(gal)/");
    if (mark < 0) return false;
    numerator = std::strtod(value.left(mark).constData(), nullptr);
    denominator = std::strtod(value.mid(mark + 6).constData(), nullptr);
    return true;
  }
  return false;
}

/// The whole numbers behind the line "Memo.", which must be there.
std::vector<double> PlainCounts(const QList<QByteArray>& lines) {
  std::vector<double> counts;
  bool data = false;
  for (const QByteArray& line : lines) {
    if (data)
      for (const QByteArray& word : line.simplified().split(' '))
        if (!word.isEmpty())
          counts.push_back(static_cast<double>(std::strtoll(word.constData(), nullptr, 10)));
    data = data || line.startsWith("Memo");
  }
  return counts;
}

/// A second, plain reading of a K-NET file with the usual order of its header.
void CheckKnet(const QByteArray& content, const RecordReading& reading) {
  QByteArray text = content;
  text.replace("\r\n", "\n").replace('\r', '\n');
  const QList<QByteArray> lines = text.split('\n');
  double numerator = 0.0;
  double denominator = 0.0;
  const auto isMemo = [](const QByteArray& line) { return line.startsWith("Memo"); };
  if (std::none_of(lines.begin(), lines.begin() + std::min<qsizetype>(lines.size(), 17), isMemo)) return;
  if (!PlainScale(lines, numerator, denominator)) return;
  const std::vector<double> counts = PlainCounts(lines);
  const RecordComponent& component = reading.components.front();
  if (reading.components.size() != 1 || component.acc.size() != counts.size()) {
    // A line of numbers above the last one of the header begins the data early.
    return Require(component.acc.size() > counts.size(), "a K-NET file has as many samples as numbers");
  }
  Require(SameNumber(component.factor, numerator / denominator), "the factor is numerator by denominator");
  for (std::size_t i = 0; i < counts.size(); ++i)
    Require(SameNumber(component.acc[i], counts[i] * numerator / denominator),
            "gal are counts times the factor");
}

void CheckReading(const RecordReading& reading) {
  if (reading.IsRefused()) {
    Require(reading.error.startsWith(QStringLiteral("x: ")), "a refusal names the file");
    Require(reading.components.empty() && reading.questions.empty(), "of a refused file nothing is left");
    return;
  }
  Require(!reading.components.empty() || !reading.questions.empty(), "what is read has a component");
  for (const RecordComponent& component : reading.components) {
    Require(!component.acc.empty(), "a component has samples");
    Require(component.acc.size() == reading.components.front().acc.size() ||
                reading.format == RecordFormat::Cosmos || reading.format == RecordFormat::Csmip ||
                reading.format == RecordFormat::GeoNet,
            "components side by side have as many samples");
    if (!reading.Asks(RecordAsk::TimeStep))
      Require(std::isfinite(component.timeStep) && component.timeStep > 0.0, "a step is a number above 0");
    if (!reading.Asks(RecordAsk::Unit))
      Require(std::isfinite(component.factor) && component.factor > 0.0, "a factor is a number above 0");
    if (reading.format == RecordFormat::OwnWave) continue;
    for (const double a : component.acc) Require(std::isfinite(a), "a sample is a number");
  }
}

}  // namespace

void FuzzRecord(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  const RecordReading reading = ReadRecord(content, QStringLiteral("x"), {});
  CheckReading(reading);
  if (!reading.IsRefused() &&
      (reading.format == RecordFormat::KnetAscii || reading.format == RecordFormat::KikNetAscii))
    CheckKnet(content, reading);

  RecordAnswers answers;
  if (reading.Asks(RecordAsk::Unit)) answers.unit = RecordUnit{QStringLiteral("m/s2"), 100.0};
  if (reading.Asks(RecordAsk::TimeStep)) answers.timeStep = 0.01;
  if (reading.Asks(RecordAsk::Layout)) answers.layout = RecordLayout::Across;
  if (reading.Asks(RecordAsk::DecimalComma)) answers.decimalComma = true;
  answers.fillMissing = reading.Asks(RecordAsk::Missing);
  const RecordReading answered = ReadRecord(content, QStringLiteral("x"), {}, answers);
  CheckReading(answered);
  for (const RecordQuestion& question : reading.questions)
    Require(!answered.Asks(question.ask), "an answer ends its question");
  if (reading.questions.empty() && !reading.IsRefused()) {
    Require(answered.components.size() == reading.components.size(), "the same content reads alike");
    for (std::size_t i = 0; i < reading.components.size(); ++i)
      Require(SameNumbers(answered.components[i].acc, reading.components[i].acc),
              "the same content reads alike");
  }
}

}  // namespace tremlo::fuzz
