#include "core/records/ReadRecord.h"

#include "core/files/FileFault.h"
#include "core/records/DetectFormat.h"
#include "core/records/RecordArchive.h"
#include "core/records/RecordFindings.h"
#include "core/records/RecordReaders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

/// Doubled names of components are numbered: NS, NS_2.
void NumberDoubles(std::vector<RecordComponent>& components) {
  for (std::size_t i = 1; i < components.size(); ++i) {
    const QString name = components[i].name;
    const auto before = components.begin() + static_cast<std::ptrdiff_t>(i);
    const auto isTaken = [&](const QString& candidate) {
      return std::any_of(components.begin(), before,
                         [&](const RecordComponent& component) { return component.name == candidate; });
    };
    for (int number = 2; isTaken(components[i].name); ++number)
      components[i].name = name + u'_' + QString::number(number);
  }
}

void Read(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  switch (reading.format) {
    case RecordFormat::KnetAscii:
    case RecordFormat::KikNetAscii:
      return ReadKnetAscii(text, answers, reading);
    case RecordFormat::KnetCsv:
      return ReadKnetCsv(text, answers, reading);
    case RecordFormat::JmaCsv:
      return ReadJmaCsv(text, answers, reading);
    case RecordFormat::Cosmos:
      return ReadCosmos(text, answers, reading);
    case RecordFormat::Csmip:
      return ReadCsmip(text, answers, reading);
    case RecordFormat::GeoNet:
      return ReadGeoNet(text, answers, reading);
    case RecordFormat::At2:
      return ReadAt2(text, answers, reading);
    case RecordFormat::OwnWave:
      return ReadOwnWave(text, answers, reading);
    case RecordFormat::FreeText:
    case RecordFormat::Unknown:
      return ReadFreeText(text, answers, reading);
  }
}

bool IsBlank(const RecordText& text) {
  for (std::size_t line = 0; line < text.Size(); ++line)
    if (!Trimmed(text.Line(line)).empty()) return false;
  return true;
}

/// A number that a double holds may be none any more in gal.
void RefuseTooLarge(const RecordText& text, RecordReading& reading) {
  const auto isFinite = [](double a) { return std::isfinite(a); };
  for (const RecordComponent& component : reading.components) {
    if (std::all_of(component.acc.begin(), component.acc.end(), isFinite)) continue;
    std::string_view value;
    const std::size_t line = text.LineOfLargest(value);
    reading.error = text.Refusal(line, QStringLiteral("値が大きすぎて gal で表せません"), value);
    return;
  }
}

QString NameInMessages(const QString& file, const QString& member) {
  const QString shown = QDir::toNativeSeparators(file);
  if (member.isEmpty()) return shown;
  return shown + QStringLiteral("（%1）").arg(WithoutControls(member));
}

}  // namespace

RecordReading ReadRecord(const QByteArray& content, const QString& file, const QString& member,
                         const RecordAnswers& answers, RecordFormat format) {
  RecordReading reading;
  reading.file = file;
  reading.member = member;
  const RecordText text(content, NameInMessages(file, member));
  if (const auto line = text.LineWithZero()) {
    reading.error = text.Refusal(
        *line, QStringLiteral("テキストのファイルではありません（WIN、ANS などの形式は読めません）"),
        text.Line(*line).substr(0, 16));
    return reading;
  }
  if (text.IsTooLong()) {
    reading.error =
        text.Refusal(QStringLiteral("大きすぎます（%1 バイト、上限 %2 バイト・%3 行・1行 %4 バイト）")
                         .arg(content.size())
                         .arg(RecordText::kMostBytes)
                         .arg(RecordText::kMostLines)
                         .arg(RecordText::kLongestLine));
    return reading;
  }
  if (IsBlank(text)) {
    reading.error =
        text.Refusal(QStringLiteral("1行目：データがありません（「%1 バイト」）").arg(content.size()));
    return reading;
  }
  reading.format = DetectFormat(text, reading.sign);
  if (format != RecordFormat::Unknown && format != reading.format) {
    reading.format = format;
    reading.sign = QStringLiteral("形式の指定");
  }
  Read(text, answers, reading);
  if (!reading.IsRefused() && reading.format != RecordFormat::OwnWave) RefuseTooLarge(text, reading);
  if (reading.IsRefused()) {
    reading.components.clear();
    reading.questions.clear();
    return reading;
  }
  NumberDoubles(reading.components);
  reading.doubtsFrom = reading.warnings.size();
  for (const RecordComponent& component : reading.components) {
    if (!reading.questions.empty()) break;
    for (const QString& doubt : FindDoubts(component)) reading.Warn(doubt);
  }
  return reading;
}

void WalkRecords(const QString& path, const RecordAnswers& answers,
                 const std::function<void(RecordReading&&)>& take,
                 const std::function<bool(const QString& member)>& wants) {
  const auto refuse = [&](const QString& reason) {
    RecordReading reading;
    reading.file = path;
    reading.error = FileFault(path, reason);
    take(std::move(reading));
  };
  QFile file(path);
  // A device would be read without end, and a folder not at all.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
    return refuse(QStringLiteral("ファイルを開けません。"));
  if (!IsArchive(file.peek(512))) {
    // One byte over the bound: it is the reader who refuses it.
    const QByteArray content =
        file.size() > RecordText::kMostBytes ? file.read(RecordText::kMostBytes + 1) : file.readAll();
    if (file.error() != QFileDevice::NoError) return refuse(QStringLiteral("ファイルを読めません。"));
    return take(ReadRecord(content, path, {}, answers));
  }
  bool any = false;
  const ArchiveOutcome outcome = WalkArchive(file, [&](const QString& member, const QByteArray& bytes) {
    any = true;
    if (!wants || wants(member)) take(ReadRecord(bytes, path, member, answers));
    return true;
  });
  if (!outcome.error.isEmpty()) return refuse(outcome.error);
  if (!any) refuse(QStringLiteral("書庫に記録が入っていません（「0 個」）。"));
}

std::vector<RecordReading> ReadRecordFile(const QString& path, const RecordAnswers& answers) {
  std::vector<RecordReading> readings;
  WalkRecords(path, answers, [&](RecordReading&& reading) { readings.push_back(std::move(reading)); });
  return readings;
}

}  // namespace tremlo
