#include "core/records/ReadRecord.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/PlainRecords.h"
#include "fuzz/Rules.h"

#include <QRegularExpression>

#include <cmath>

namespace tremlo::fuzz {

namespace {

/// Counts, units and scale of the second reading are those of the first.
void CheckPlainly(const QByteArray& content, const RecordReading& reading) {
  if (reading.IsRefused() || !reading.questions.empty()) return;
  const auto plain = ReadPlainly(content, reading.format);
  if (!plain) return;
  Require(plain->size() == reading.components.size(), "two readings have as many components");
  for (std::size_t i = 0; i < plain->size(); ++i) {
    const PlainComponent& second = (*plain)[i];
    const RecordComponent& component = reading.components[i];
    Require(component.acc.size() == second.values.size(), "two readings have as many samples");
    Require(SameNumber(component.factor, second.numerator / second.denominator),
            "two readings have the same factor");
    for (std::size_t k = 0; k < second.values.size(); ++k)
      Require(component.acc[k] == second.values[k] * second.numerator / second.denominator,
              "two readings have the same samples in gal");
  }
}

/// A wave file of ours means what the C library's scan makes of it.
void CheckOwnWave(const QByteArray& content, const RecordReading& reading) {
  const std::vector<std::vector<double>> columns = ScanColumns(content, 1, 2);
  Require(reading.components.size() == 1, "a wave file has one component");
  Require(SameNumbers(reading.components.front().acc, columns[1]), "a wave file reads as everywhere");
  Require(reading.components.front().factor == 1.0, "a wave file is in gal");
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

/// The line that the question about the rows names first.
std::size_t FirstLineNamed(const RecordReading& reading) {
  static const QRegularExpression named(QStringLiteral("（(\\d+)行目から"));
  for (const RecordQuestion& question : reading.questions)
    if (question.ask == RecordAsk::Lines) return named.match(question.text).captured(1).toULongLong();
  return 0;
}

}  // namespace

void FuzzRecord(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  const RecordReading reading = ReadRecord(content, QStringLiteral("x"), {});
  CheckReading(reading);
  CheckPlainly(content, reading);
  if (!reading.IsRefused() && reading.format == RecordFormat::OwnWave) CheckOwnWave(content, reading);
  // No format that the user names by hand brings a reader down.
  for (const RecordFormat format : {RecordFormat::KnetAscii, RecordFormat::KnetCsv, RecordFormat::JmaCsv,
                                    RecordFormat::Cosmos, RecordFormat::Csmip, RecordFormat::GeoNet,
                                    RecordFormat::At2, RecordFormat::OwnWave, RecordFormat::FreeText})
    if (format != reading.format)
      CheckReading(ReadRecord(content, QStringLiteral("x"), {}, RecordAnswers{}, format));

  RecordAnswers answers;
  if (reading.Asks(RecordAsk::Unit)) answers.unit = RecordUnit{QStringLiteral("m/s2"), 100.0};
  if (reading.Asks(RecordAsk::TimeStep)) answers.timeStep = 0.01;
  if (reading.Asks(RecordAsk::Layout)) answers.layout = RecordLayout::Across;
  if (reading.Asks(RecordAsk::DecimalComma)) answers.decimalComma = true;
  answers.fillMissing = reading.Asks(RecordAsk::Missing);
  if (reading.Asks(RecordAsk::Lines)) answers.firstLine = FirstLineNamed(reading);
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
