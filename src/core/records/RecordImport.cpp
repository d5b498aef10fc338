#include "core/records/RecordImport.h"

#include "core/records/OwnWave.h"
#include "core/records/ReadRecord.h"
#include "core/records/RecordFindings.h"
#include "core/records/RecordText.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kKeptOffset = 0.005;  // of the PGA: more of it shows in the response at long periods
constexpr double kRounding = 1e-6;     // of a step

bool TakesUnitOf(RecordFormat format) {
  return format != RecordFormat::KnetAscii && format != RecordFormat::KikNetAscii &&
         format != RecordFormat::OwnWave;
}

QString Figure(double value) {
  return QString::number(value, 'g', 4);
}

ImportFault::Field FieldOf(RecordAsk ask) {
  switch (ask) {
    case RecordAsk::Unit:
      return ImportFault::Unit;
    case RecordAsk::TimeStep:
      return ImportFault::TimeStep;
    case RecordAsk::Layout:
      return ImportFault::Layout;
    case RecordAsk::Missing:
      return ImportFault::Missing;
    case RecordAsk::Lines:
      return ImportFault::Lines;
    case RecordAsk::DecimalComma:
      break;
  }
  return ImportFault::DecimalComma;
}

}  // namespace

ImportedWave ReadOwnImport(const QByteArray& content, const QString& path) {
  ImportedWave wave;
  ParseWave(content, wave.name, wave.timeStep, wave.acc);
  RecordNote& note = wave.note.emplace();
  note.file = path;
  note.format = RecordFormat::OwnWave;
  note.count = wave.acc.size();
  note.timeStep = wave.timeStep;
  note.unit = QStringLiteral("gal");
  // What is beyond the bounds of a record is read all the same, but not looked into.
  if (content.size() > RecordText::kMostBytes || wave.acc.size() >= RecordText::kMostLines) return wave;
  const RecordReading reading =
      ReadRecord(content, QFileInfo(path).fileName(), {}, {}, RecordFormat::OwnWave);
  note.warnings = reading.warnings;
  if (reading.IsRefused()) note.warnings.push_back(reading.error);
  return wave;
}

RecordImport::RecordImport(std::vector<File> files, bool onlyOne, RecordFormat format)
    : m_files(std::move(files)), m_onlyOne(onlyOne), m_format(format) {
  Read();
}

const RecordComponent& RecordImport::Samples(std::size_t component) const {
  const Component& found = m_components.at(component);
  return m_readings[found.file].components[found.place];
}

void RecordImport::SetFormat(RecordFormat format) {
  m_format = format;
  m_answers = {};
  m_components.clear();
  Read();
}

void RecordImport::SetAnswers(const RecordAnswers& answers) {
  m_answers = answers;
  Read();
}

RecordAnswers RecordImport::AnswersFor(RecordFormat format) const {
  RecordAnswers answers = m_answers;
  if (!TakesUnitOf(format)) answers.unit.reset();
  if (format == RecordFormat::OwnWave) answers.timeStep.reset();
  return answers;
}

/// The names that the user gave and what was chosen stay with the components that are still there.
void RecordImport::Read() {
  struct Kept {
    std::size_t file;
    QString inFile, proposed;
    Component component;
  };
  std::vector<Kept> kept;
  for (std::size_t i = 0; i < m_components.size(); ++i) {
    const RecordReading& reading = m_readings[m_components[i].file];
    kept.push_back(
        {m_components[i].file, Samples(i).name, ProposedName(reading, Samples(i)), m_components[i]});
  }
  std::vector<RecordReading> readings;
  for (std::size_t i = 0; i < m_files.size(); ++i) {
    const File& file = m_files[i];
    // What a format takes shows once it is known.
    RecordFormat format = m_format;
    if (format == RecordFormat::Unknown && i < m_readings.size()) format = m_readings[i].format;
    readings.push_back(ReadRecord(file.content, file.path, file.member, AnswersFor(format), m_format));
  }
  m_readings = std::move(readings);
  m_components.clear();
  for (std::size_t i = 0; i < m_readings.size(); ++i)
    for (std::size_t place = 0; place < m_readings[i].components.size(); ++place) {
      const RecordComponent& found = m_readings[i].components[place];
      Component component{i, place, ProposedName(m_readings[i], found), !m_onlyOne};
      const auto before = std::find_if(kept.begin(), kept.end(), [&](const Kept& one) {
        return one.file == i && one.inFile == found.name;
      });
      if (before != kept.end()) {
        component.chosen = before->component.chosen;
        if (before->component.name != before->proposed) component.name = before->component.name;
      }
      m_components.push_back(std::move(component));
    }
  const auto isChosen = [](const Component& component) { return component.chosen; };
  if (m_onlyOne && !m_components.empty() && std::none_of(m_components.begin(), m_components.end(), isChosen))
    m_components.front().chosen = true;
  for (const RecordAsk ask : {RecordAsk::Unit, RecordAsk::TimeStep, RecordAsk::Layout, RecordAsk::Missing,
                              RecordAsk::DecimalComma, RecordAsk::Lines})
    if (!IsAnswered(ask)) m_open[static_cast<std::size_t>(ask)] = Asks(ask);
  if (!m_answers.unit) ReadStatedUnit();
  if (!m_answers.timeStep) ReadStatedStep();
}

bool RecordImport::IsAnswered(RecordAsk ask) const {
  switch (ask) {
    case RecordAsk::Unit:
      return m_answers.unit.has_value();
    case RecordAsk::TimeStep:
      return m_answers.timeStep.has_value();
    case RecordAsk::Layout:
      return m_answers.layout.has_value();
    case RecordAsk::Missing:
      return m_answers.fillMissing;
    case RecordAsk::Lines:
      return m_answers.firstLine.has_value();
    case RecordAsk::DecimalComma:
      break;
  }
  return m_answers.decimalComma.has_value();
}

void RecordImport::ReadStatedUnit() {
  m_statedUnit = m_components.empty() ? QString() : Samples(0).unit;
  for (std::size_t i = 1; i < m_components.size(); ++i)
    if (Samples(i).unit != m_statedUnit) m_statedUnit.clear();
}

void RecordImport::ReadStatedStep() {
  m_statedStep.reset();
  if (m_components.empty()) return;
  const double step = Samples(0).timeStep;
  for (std::size_t i = 0; i < m_components.size(); ++i)
    if (Samples(i).timeStep != step) return;  // nor is what is not a number
  m_statedStep = step;
}

bool RecordImport::Asks(RecordAsk ask) const {
  return std::any_of(m_readings.begin(), m_readings.end(),
                     [ask](const RecordReading& reading) { return reading.Asks(ask); });
}

bool RecordImport::TakesUnit() const {
  return std::any_of(m_readings.begin(), m_readings.end(),
                     [](const RecordReading& reading) { return TakesUnitOf(reading.format); });
}

bool RecordImport::TakesTimeStep() const {
  return std::any_of(m_readings.begin(), m_readings.end(),
                     [](const RecordReading& reading) { return reading.format != RecordFormat::OwnWave; });
}

bool RecordImport::TakesLayout() const {
  return std::any_of(m_readings.begin(), m_readings.end(),
                     [](const RecordReading& reading) { return reading.format == RecordFormat::FreeText; });
}

bool RecordImport::TakesMissing() const {
  return std::any_of(m_readings.begin(), m_readings.end(), [](const RecordReading& reading) {
    return reading.format == RecordFormat::FreeText || reading.format == RecordFormat::Cosmos;
  });
}

bool RecordImport::TakesAllSamples() const {
  return m_answers.allSamples ||
         std::any_of(m_readings.begin(), m_readings.end(),
                     [](const RecordReading& reading) { return reading.leftOut > 0; });
}

OffsetRule RecordImport::OffsetOfFile(std::size_t file) const {
  return m_offset.value_or(UsualOffset(m_readings.at(file)));
}

bool RecordImport::UsualOffsetsDiffer() const {
  return std::any_of(m_readings.begin(), m_readings.end(), [this](const RecordReading& reading) {
    return !reading.IsRefused() && UsualOffset(reading) != UsualOffset(m_readings.front());
  });
}

void RecordImport::SetSpan(double from, std::optional<double> to) {
  m_from = from;
  m_to = to;
}

void RecordImport::Choose(std::size_t component, bool chosen) {
  // One of which exactly one is chosen cannot be given up.
  if (m_onlyOne && !chosen) return;
  if (m_onlyOne)
    for (Component& other : m_components) other.chosen = false;
  m_components.at(component).chosen = chosen;
}

void RecordImport::Rename(std::size_t component, const QString& name) {
  m_components.at(component).name = name;
}

bool RecordImport::IsChosen(std::size_t file) const {
  return std::any_of(m_components.begin(), m_components.end(), [file](const Component& component) {
    return component.file == file && component.chosen;
  });
}

bool RecordImport::IsKnown(std::size_t component) const {
  const RecordComponent& samples = Samples(component);
  return std::isfinite(samples.factor) && std::isfinite(samples.timeStep) && samples.timeStep > 0.0 &&
         !samples.acc.empty() && !m_readings[m_components[component].file].Asks(RecordAsk::Missing);
}

RecordImport::Span RecordImport::SpanOf(const RecordComponent& samples) const {
  const auto count = static_cast<double>(samples.acc.size());
  const double first = std::clamp(std::ceil(m_from / samples.timeStep - kRounding), 0.0, count);
  double behind = count;
  if (m_to) behind = std::clamp(std::floor(*m_to / samples.timeStep + kRounding) + 1.0, first, count);
  return {static_cast<std::size_t>(first), static_cast<std::size_t>(behind)};
}

bool RecordImport::IsPlain() const {
  return m_files.size() == 1 && m_components.size() == 1 && !Fault() && Warnings().empty();
}

std::optional<ImportFault> RecordImport::Fault() const {
  if (m_components.empty())
    for (const RecordReading& reading : m_readings)
      if (reading.IsRefused()) return ImportFault{ImportFault::Format, reading.error};
  for (std::size_t i = 0; i < m_readings.size(); ++i) {
    const RecordReading& reading = m_readings[i];
    if (reading.questions.empty() || !(IsChosen(i) || reading.components.empty())) continue;
    return ImportFault{FieldOf(reading.questions.front().ask), reading.questions.front().text};
  }
  std::size_t chosen = 0;
  for (std::size_t i = 0; i < m_components.size(); ++i) {
    if (!m_components[i].chosen) continue;
    ++chosen;
    if (m_components[i].name.isEmpty())
      return ImportFault{ImportFault::Components, QStringLiteral("波形名の入力エラーです。")};
    const OffsetRule rule = OffsetOfFile(m_components[i].file);
    if (rule.kind == OffsetRule::First && !(rule.seconds > 0.0))
      return ImportFault{ImportFault::Offset,
                         QStringLiteral("オフセットを求める秒数が正の数値ではありません。")};
    const Span span = SpanOf(Samples(i));
    if (span.first >= span.behind)
      return ImportFault{ImportFault::Span,
                         QStringLiteral("読む範囲に「%1」のデータがありません。").arg(m_components[i].name)};
  }
  if (chosen == 0) return ImportFault{ImportFault::Components, QStringLiteral("成分が選択されていません。")};
  return std::nullopt;
}

std::vector<QString> RecordImport::WarningsOfText(std::size_t file) const {
  const RecordReading& reading = m_readings[file];
  const QString which =
      m_files.size() > 1 ? QFileInfo(reading.member).fileName() + QStringLiteral("：") : QString();
  std::vector<QString> warnings;
  for (std::size_t i = 0; i < std::min(reading.doubtsFrom, reading.warnings.size()); ++i)
    warnings.push_back(which + reading.warnings[i]);
  return warnings;
}

std::vector<QString> RecordImport::WarningsOf(std::size_t component) const {
  if (!IsKnown(component)) return {};
  const RecordComponent& samples = Samples(component);
  const Span span = SpanOf(samples);
  RecordComponent kept = samples;
  kept.acc.assign(samples.acc.begin() + static_cast<std::ptrdiff_t>(span.first),
                  samples.acc.begin() + static_cast<std::ptrdiff_t>(span.behind));
  if (m_files.size() > 1) kept.name = m_components[component].name;
  std::vector<QString> warnings = FindDoubts(kept);
  const RecordPeak peak = PeakOf(kept.acc);
  if (OffsetOfFile(m_components[component].file).kind == OffsetRule::None &&
      std::fabs(peak.mean) > kKeptOffset * peak.pga)
    warnings.push_back((kept.name.isEmpty() ? QString() : kept.name + QStringLiteral("：")) +
                       QStringLiteral("オフセット：平均値 %1 gal（最大加速度 %2 gal）を残しています。")
                           .arg(Figure(peak.mean), Figure(peak.pga)));
  return warnings;
}

std::vector<QString> RecordImport::Warnings() const {
  std::vector<QString> warnings;
  for (std::size_t i = 0; i < m_readings.size(); ++i) {
    if (m_readings[i].IsRefused() && m_files.size() > 1) warnings.push_back(m_readings[i].error);
    if (!IsChosen(i)) continue;
    for (QString& warning : WarningsOfText(i)) warnings.push_back(std::move(warning));
  }
  for (std::size_t i = 0; i < m_components.size(); ++i)
    if (m_components[i].chosen)
      for (QString& warning : WarningsOf(i)) warnings.push_back(std::move(warning));
  return warnings;
}

std::vector<QString> RecordImport::Notes() const {
  std::vector<QString> notes;
  for (std::size_t i = 0; i < m_readings.size(); ++i)
    if (IsChosen(i))
      for (const QString& note : m_readings[i].notes)
        if (std::find(notes.begin(), notes.end(), note) == notes.end()) notes.push_back(note);
  return notes;
}

ImportedWave RecordImport::Wave(std::size_t component) const {
  const Component& chosen = m_components.at(component);
  const RecordReading& reading = m_readings[chosen.file];
  const RecordComponent& samples = Samples(component);
  const Span span = SpanOf(samples);
  // The offset is that of the record, whatever part of it is kept.
  const double offset = OffsetOf(samples.acc, samples.timeStep, OffsetOfFile(chosen.file));
  ImportedWave wave{chosen.name, samples.timeStep, {}, RecordNote()};
  wave.acc.assign(samples.acc.begin() + static_cast<std::ptrdiff_t>(span.first),
                  samples.acc.begin() + static_cast<std::ptrdiff_t>(span.behind));
  for (double& a : wave.acc) a -= offset;

  RecordNote& note = *wave.note;
  note.file = reading.file;
  note.member = reading.member;
  note.format = reading.format;
  note.station = reading.station;
  note.component = samples.name;
  note.start = reading.start;
  note.count = wave.acc.size();
  note.timeStep = samples.timeStep;
  note.unit = samples.unit;
  note.factor = samples.factorText.isEmpty() ? QString::number(samples.factor, 'g', 10) : samples.factorText;
  note.offset = offset;
  note.corrected = reading.corrected;
  note.cut = wave.acc.size() < samples.acc.size();
  note.from = static_cast<double>(span.first) * samples.timeStep;
  note.to = static_cast<double>(std::max(span.behind, span.first + 1) - 1) * samples.timeStep;
  note.warnings = WarningsOfText(chosen.file);
  for (QString& warning : WarningsOf(component)) note.warnings.push_back(std::move(warning));
  return wave;
}

std::vector<ImportedWave> RecordImport::Waves() const {
  std::vector<ImportedWave> waves;
  for (std::size_t i = 0; i < m_components.size(); ++i)
    if (m_components[i].chosen) waves.push_back(Wave(i));
  return waves;
}

}  // namespace tremlo
