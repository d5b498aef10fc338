#include "RecordInput.h"

#include "Arguments.h"
#include "Command.h"
#include "core/files/FileFault.h"
#include "core/records/RecordUnit.h"

#include <QStringList>

#include <cmath>

namespace tremlo::cli {

namespace {

constexpr int kMostNames = 12;  // in a message

QString OptionOf(RecordAsk ask) {
  switch (ask) {
    case RecordAsk::Unit:
      return QStringLiteral("--unit");
    case RecordAsk::TimeStep:
      return QStringLiteral("--step");
    case RecordAsk::Layout:
      return QStringLiteral("--layout");
    case RecordAsk::Missing:
      return QStringLiteral("--missing");
    case RecordAsk::DecimalComma:
      return QStringLiteral("--decimal");
    case RecordAsk::Lines:
      break;
  }
  return QStringLiteral("--lines");
}

QString Listed(const QStringList& names) {
  QString text = names.mid(0, kMostNames).join(u'、');
  if (names.size() > kMostNames) text += QStringLiteral(" ほか %1 個").arg(names.size() - kMostNames);
  return text;
}

bool ParseOffset(const QString& text, OffsetRule& rule) {
  if (text == u"none") {
    rule.kind = OffsetRule::None;
  } else if (text == u"whole") {
    rule.kind = OffsetRule::Whole;
  } else {
    rule.kind = OffsetRule::First;
    return ParseNumber(text, rule.seconds) && std::isfinite(rule.seconds) && rule.seconds > 0.0;
  }
  return true;
}

/// "5-204", or "5-" to the end.
bool ParseLines(const QString& text, RecordAnswers& answers) {
  const qsizetype dash = text.indexOf(u'-');
  bool sound = false;
  answers.firstLine = text.left(dash).toULongLong(&sound);
  if (dash < 0 || !sound || *answers.firstLine == 0) return false;
  if (dash + 1 == text.size()) return true;
  answers.lastLine = text.mid(dash + 1).toULongLong(&sound);
  return sound && *answers.lastLine >= *answers.firstLine;
}

/// One of two words; false for any other.
bool ParseWord(const QString& text, const char* yes, const char* no, bool& value) {
  value = text == QLatin1String(yes);
  return value || text == QLatin1String(no);
}

}  // namespace

QList<QCommandLineOption> RecordOptions::All() {
  return {
      {QStringLiteral("component"), QStringLiteral("成分の名前（NS, EW, UD など）"), QStringLiteral("NAME")},
      {QStringLiteral("unit"), QStringLiteral("加速度の単位（gal, cm/s2, m/s2, mm/s2, g, mg, in/s2）"),
       QStringLiteral("UNIT")},
      {QStringLiteral("step"), QStringLiteral("時間間隔（秒）"), QStringLiteral("DT")},
      {QStringLiteral("offset"),
       QStringLiteral("差し引くオフセット：none（なし）、whole（全体の平均）、または初めの秒数の平均"),
       QStringLiteral("none|whole|T")},
      {QStringLiteral("member"), QStringLiteral("書庫の中のファイル"), QStringLiteral("PATH")},
      {QStringLiteral("layout"),
       QStringLiteral("時刻のない数値の並び：columns（列が成分）、across（横に続く）"),
       QStringLiteral("columns|across")},
      {QStringLiteral("missing"), QStringLiteral("欠測の扱い：fill（直線で補う）"), QStringLiteral("fill")},
      {QStringLiteral("decimal"), QStringLiteral("数字の間のコンマ：comma（小数点）、point（区切り）"),
       QStringLiteral("comma|point")},
      {QStringLiteral("lines"), QStringLiteral("テキストのデータの最初と最後の行（最後は省略可）"),
       QStringLiteral("FIRST-[LAST]")},
      {QStringLiteral("samples"),
       QStringLiteral("記載の点数より多い AT2 の値：announced（記載まで）、all（すべて）"),
       QStringLiteral("announced|all")}};
}

bool RecordOptions::Parse(const Arguments& arguments, QString& error) {
  const auto fail = [&](const char* option, const QString& rule) {
    error = QStringLiteral("--%1 は%2です：").arg(QLatin1String(option), rule) + arguments.Text(option);
    return false;
  };
  component = arguments.Text("component");
  member = arguments.Text("member");
  if (arguments.IsSet("unit")) {
    answers.unit = UnitOfWord(arguments.Text("unit").toStdString());
    if (!answers.unit) return fail("unit", QStringLiteral("加速度の単位（gal, m/s2, g など）"));
  }
  if (arguments.IsSet("step")) {
    double step = 0.0;
    if (!arguments.Number("step", step) || !std::isfinite(step) || step <= 0.0)
      return fail("step", QStringLiteral("正の数値（秒）"));
    answers.timeStep = step;
  }
  if (arguments.IsSet("offset")) {
    OffsetRule rule;
    if (!ParseOffset(arguments.Text("offset"), rule))
      return fail("offset", QStringLiteral(" none、whole か秒数"));
    offset = rule;
  }
  bool first = false;
  if (arguments.IsSet("layout")) {
    if (!ParseWord(arguments.Text("layout"), "across", "columns", first))
      return fail("layout", QStringLiteral(" columns か across "));
    answers.layout = first ? RecordLayout::Across : RecordLayout::Columns;
  }
  if (arguments.IsSet("missing")) {
    if (arguments.Text("missing") != u"fill") return fail("missing", QStringLiteral(" fill "));
    answers.fillMissing = true;
  }
  if (arguments.IsSet("decimal")) {
    if (!ParseWord(arguments.Text("decimal"), "comma", "point", first))
      return fail("decimal", QStringLiteral(" comma か point "));
    answers.decimalComma = first;
  }
  if (arguments.IsSet("lines") && !ParseLines(arguments.Text("lines"), answers))
    return fail("lines", QStringLiteral("最初の行-最後の行（5-204、5- など）"));
  if (arguments.IsSet("samples") &&
      !ParseWord(arguments.Text("samples"), "all", "announced", answers.allSamples))
    return fail("samples", QStringLiteral(" announced か all "));
  return true;
}

bool RecordOptions::IsEmpty() const {
  return !answers.unit && !answers.timeStep && !answers.layout && !answers.fillMissing &&
         !answers.decimalComma && !answers.firstLine && !answers.allSamples && !offset &&
         component.isEmpty() && member.isEmpty();
}

int RecordInput::Read(const QString& path, const RecordOptions& options, QString& error) {
  std::optional<RecordReading> reading;
  std::optional<RecordReading> refused;  // the file itself, be it an archive or not
  QStringList members;
  const auto take = [&](RecordReading&& one) {
    if (one.IsRefused() && one.member.isEmpty()) {
      refused = std::move(one);
    } else if (!reading) {
      reading = std::move(one);
    }
  };
  WalkRecords(path, options.answers, take, [&](const QString& member) {
    members << member;
    return options.member.isEmpty() ? members.size() == 1 : member == options.member;
  });
  const auto missing = [&](const QString& text) {
    error = FileFault(path, text);
    return kBadCommandLine;
  };
  // What else it held nobody knows: without a name there is no choice to make.
  if (refused && (!reading || options.member.isEmpty())) {
    error = refused->error;
    return kBadFile;
  }
  if (members.isEmpty() && !options.member.isEmpty())
    return missing(QStringLiteral("書庫ではありません。--member は指定できません。"));
  if (!reading)
    return missing(QStringLiteral("--member の名前がありません。次のどれかです：") + Listed(members));
  if (options.member.isEmpty() && members.size() > 1)
    return missing(
        QStringLiteral("ファイルが %1 個あります。--member で指定してください：").arg(members.size()) +
        Listed(members));
  if (reading->IsRefused()) {
    error = reading->error;
    return kBadFile;
  }
  if (!reading->questions.empty()) {
    const RecordQuestion& question = reading->questions.front();
    missing(question.text + QStringLiteral("%1 で指定してください。").arg(OptionOf(question.ask)));
    // Without ten lines of numbers it may be a record, but is first of all no wave.
    return question.ask == RecordAsk::Lines ? kBadFile : kBadCommandLine;
  }
  QStringList names;
  const RecordComponent* chosen = nullptr;
  for (const RecordComponent& component : reading->components) {
    names << component.name;
    if (options.component.isEmpty() || component.name == options.component) chosen = &component;
  }
  if (options.component.isEmpty() && names.size() > 1)
    return missing(
        QStringLiteral("成分が %1 個あります。--component で指定してください：").arg(names.size()) +
        Listed(names));
  if (!chosen)
    return missing(QStringLiteral("--component の名前がありません。次のどれかです：") + Listed(names));

  name = ProposedName(*reading, *chosen);
  timeStep = chosen->timeStep;
  acc = chosen->acc;
  const double offset = OffsetOf(acc, timeStep, options.offset.value_or(UsualOffset(*reading)));
  warnings = reading->warnings;
  if (const QString doubt = DoubtOfOffset(acc, offset); !doubt.isEmpty()) warnings.push_back(doubt);
  for (double& a : acc) a -= offset;
  if (refused) warnings.push_back(refused->error);
  return kDone;
}

}  // namespace tremlo::cli
