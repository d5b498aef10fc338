#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "core/records/ReadRecord.h"

#include <cmath>

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {};
}

/// Mean and PGA in gal; neither is known while the unit is asked.
RecordPeak KnownPeak(const RecordComponent& component) {
  return std::isfinite(component.factor) ? PeakOf(component.acc) : RecordPeak();
}

void WriteReading(JsonWriter& json, const RecordReading& reading) {
  json.BeginObject();
  json.Member("file", reading.file);
  json.Member("member", reading.member);
  json.Member("format", FormatName(reading.format));
  json.Member("warnings", reading.warnings);
  json.Key("questions");
  json.BeginArray();
  for (const RecordQuestion& question : reading.questions) json.Value(question.text);
  json.EndArray();
  json.Member("error", reading.error);
  json.Key("components");
  json.BeginArray();
  for (const RecordComponent& component : reading.components) {
    const RecordPeak peak = KnownPeak(component);
    json.BeginObject();
    json.Member("name", component.name);
    json.Member("samples", static_cast<int>(component.acc.size()));
    json.Member("timeStep", component.timeStep);
    json.Member("unit", component.unit);
    json.Member("factor", component.factor);
    json.Member("mean", peak.mean);
    json.Member("pga", peak.pga);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
}

/// Nothing that a file holds steers the terminal.
void Say(const QString& line) {
  PrintLine(WithoutControls(line));
}

QString OrUnknown(const QString& text) {
  return text.isEmpty() ? QStringLiteral("不明") : text;
}

void PrintComponent(const RecordComponent& component) {
  const QString step = std::isfinite(component.timeStep)
                           ? NumberText(component.timeStep) + QStringLiteral(" 秒")
                           : QStringLiteral("不明");
  QString line = QStringLiteral("  %1：%2 点、時間間隔 %3、単位 %4")
                     .arg(component.name.isEmpty() ? QStringLiteral("成分") : component.name,
                          QString::number(component.acc.size()), step, OrUnknown(component.unit));
  if (std::isfinite(component.factor)) {
    const RecordPeak peak = PeakOf(component.acc);
    line += QStringLiteral("（係数 %1）、平均 %2 gal、最大加速度 %3 gal")
                .arg(component.factorText.isEmpty() ? NumberText(component.factor) : component.factorText,
                     NumberText(peak.mean), NumberText(peak.pga));
  }
  Say(line);
}

void PrintReading(const RecordReading& reading) {
  Say(reading.member.isEmpty() ? reading.file : reading.file + QStringLiteral("（%1）").arg(reading.member));
  QString head = QStringLiteral("  形式：%1（%2）").arg(FormatName(reading.format), reading.sign);
  if (!reading.station.isEmpty()) head += QStringLiteral("、観測点：") + reading.station;
  if (!reading.start.isEmpty()) head += QStringLiteral("、開始：") + reading.start;
  Say(head);
  for (const RecordComponent& component : reading.components) PrintComponent(component);
  for (const QString& warning : reading.warnings) Say(QStringLiteral("  警告：") + warning);
  for (const QString& note : reading.notes) Say(QStringLiteral("  参考：") + note);
  for (const RecordQuestion& question : reading.questions) Say(QStringLiteral("  要確認：") + question.text);
}

int Run(const Arguments& arguments) {
  int status = kDone;
  JsonWriter json;
  json.BeginObject();
  json.Key("files");
  json.BeginArray();
  for (const QString& path : arguments.Positionals())
    WalkRecords(path, {}, [&](RecordReading&& reading) {
      if (arguments.WantsJson()) {
        WriteReading(json, reading);
      } else if (!reading.IsRefused()) {
        PrintReading(reading);
      }
      if (reading.IsRefused()) status = Fail(kBadFile, reading.error);
    });
  json.EndArray();
  json.EndObject();
  if (arguments.WantsJson()) PrintJson(json);
  return status;
}

}  // namespace

Command InspectCommand() {
  return {"inspect",
          "FILE...",
          "記録のファイル（K-NET、KiK-net、気象庁、AT2、COSMOS、GeoNet など、書庫も可）の形式と内容を調べる",
          kOneFileOrMore,
          Options,
          Run};
}

}  // namespace tremlo::cli
