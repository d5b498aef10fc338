#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "RecordJson.h"
#include "TablesInput.h"
#include "core/files/FileFault.h"
#include "core/location/FaultSearchRequest.h"
#include "core/location/HazardTables.h"
#include "core/location/PlaneZone.h"
#include "core/sources/FaultAcquisition.h"
#include "core/sources/FaultConversion.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <array>
#include <cmath>

namespace tremlo::cli {

namespace {

/// Keeps what the window would show in boxes, for the summary.
class KeptMessages : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    texts << box.text;
    if (!box.details.isEmpty()) texts << box.details;
    return PromptAnswer::Ok;
  }

  QStringList texts;
};

struct WholeOption {
  const char* name;
  const char* meaning;
  std::int32_t ApiParameterSet::*index;
};

constexpr std::array<WholeOption, 6> kIndexOptions = {{
    {"intensity-index", "超過確率しきい震度（0 5弱、1 5強、2 6弱、3 6強、既定値 2）",
     &ApiParameterSet::intensityIndex},
    {"mode-index", "想定地震コード（0 条件付超過確率、1 震源断層を特定、既定値 0）",
     &ApiParameterSet::modeIndex},
    {"version-index", "地図バージョン(被害地検索)（0 ～ 13、既定値 13 = 2019年版）",
     &ApiParameterSet::versionIndex},
    {"activity-version-index", "地図バージョン(地震活動モデル)（0 ～ 15、既定値 15 = 2021年版）",
     &ApiParameterSet::activityVersionIndex},
    {"case-index", "確率ケース（0 平均、1 最大、既定値 0）", &ApiParameterSet::caseIndex},
    {"period-index", "発生確率評価期間（0 30年、1 50年、既定値 0）", &ApiParameterSet::periodIndex},
}};

QList<QCommandLineOption> Options() {
  QList<QCommandLineOption> options = {
      {QStringLiteral("zone"), QStringLiteral("平面直角座標系番号（1 ～ 19）"), QStringLiteral("N")},
      {QStringLiteral("site"), QStringLiteral("現場位置の北緯と東経（度）"), QStringLiteral("LAT,LON")},
      {QStringLiteral("service"), QStringLiteral("地震ハザードのサービス（既定値 J-SHIS）"),
       QStringLiteral("URL")},
      {QStringLiteral("mode"),
       QStringLiteral("ranking 影響の大きい断層、range 探索範囲内の断層（既定値 ranking）"),
       QStringLiteral("ranking|range")},
      {QStringLiteral("range"), QStringLiteral("探索範囲（km、既定値 50）"), QStringLiteral("KM")},
      {QStringLiteral("ca-file"), QStringLiteral("システムのものに代えて信頼する証明書（PEM）"),
       QStringLiteral("FILE")},
      {QStringLiteral("catastrophe-weight"),
       QStringLiteral("評価パラメータ(カタストロフ重視度)（-1 ～ 1、既定値 0.6）"),
       QStringLiteral("WEIGHT")}};
  for (const WholeOption& option : kIndexOptions)
    options.append(
        {QString::fromLatin1(option.name), QString::fromUtf8(option.meaning), QStringLiteral("INDEX")});
  return options;
}

/// Reads zone, site and mode. Returns the fault of the command line.
std::optional<QString> ReadSite(const Arguments& arguments, FaultAcquisitionInput& input) {
  std::int32_t zone = 0;
  if (!arguments.Whole("zone", zone) || zone < 1 || zone > static_cast<int>(kPlaneZoneCount))
    return QStringLiteral("--zone は 1 ～ 19 の整数です：") + arguments.Text("zone");
  input.zone = zone;
  std::array<double, 2> place{};
  if (!ParseNumberList(arguments.Text("site"), place) || !IsPlace(place[0], place[1]))
    return QStringLiteral("--site は北緯,東経（度、北緯は ±90、東経は ±180 まで）です：") +
           arguments.Text("site");
  input.latitude = place[0];
  input.longitude = place[1];
  const QString mode = arguments.IsSet("mode") ? arguments.Text("mode") : QStringLiteral("ranking");
  if (mode != u"ranking" && mode != u"range")
    return QStringLiteral("--mode は ranking か range です：") + mode;
  input.mode = mode == u"range" ? kAcquireRange : kAcquireRanking;
  if (!arguments.Number("range", input.searchRangeKm) || !std::isfinite(input.searchRangeKm))
    return QStringLiteral("--range は数値（km）です：") + arguments.Text("range");
  return std::nullopt;
}

/// Reads the parameters of the requests and checks them all, whichever the mode asks for: a bad one sends
/// nothing.
std::optional<QString> ReadParameters(const Arguments& arguments, FaultAcquisitionInput& input) {
  for (const WholeOption& option : kIndexOptions)
    if (!arguments.Whole(option.name, input.parameters.*option.index))
      return QStringLiteral("--%1 は整数です：%2")
          .arg(QString::fromLatin1(option.name), arguments.Text(option.name));
  if (!arguments.Number("catastrophe-weight", input.parameters.catastropheWeight))
    return QStringLiteral("--catastrophe-weight は数値です：") + arguments.Text("catastrophe-weight");

  FaultSearchRequest request(input.parameters, input.latitude, input.longitude);
  std::optional<QString> message;
  if (input.mode == kAcquireRanking) message = CheckPosition(request);  // the range asks for no position
  if (!message) message = CheckSearchIndices(request);
  return message ? message : CheckActivityParameters(request);
}

void PrintObject(const std::vector<FaultInfo>& faults) {
  JsonWriter json;
  json.BeginObject();
  json.Key("faults");
  json.BeginArray();
  for (const FaultInfo& fault : faults) WriteFault(json, fault, FaultFields::All);
  json.EndArray();
  json.EndObject();
  PrintJson(json);
}

void PrintFault(const FaultInfo& fault, bool ranking) {
  PrintLine(QStringLiteral("%1 %2（%3）M %4").arg(fault.rank, fault.ltename, fault.ltecode, fault.magnitude));
  if (ranking) {
    PrintLine(QStringLiteral("    超過確率（%）：5弱 %1、5強 %2、6弱 %3、6強 %4")
                  .arg(fault.i45_ps, fault.i50_ps, fault.i55_ps, fault.i60_ps));
  } else {
    PrintLine(QStringLiteral("    平均活動間隔 %1、最新活動時期 %2、発生確率 30年 %3、50年 %4")
                  .arg(fault.avract, fault.newact, fault.t30p, fault.t50p));
  }
  const auto kilometres = [](double distance) {
    return QString::number(distance, 'f', 4) + QStringLiteral(" km");
  };
  for (std::size_t i = 0; i < fault.planeDepth.size(); ++i)
    PrintLine(QStringLiteral("    断層面 %1：中心深さ %2、最短距離 %3、等価震源距離 %4")
                  .arg(QString::number(i + 1), kilometres(fault.planeDepth[i]),
                       kilometres(fault.shortestDistance[i]), kilometres(fault.equivalentDistance[i])));
}

/// A line that says how many sources it is about, and below it one for each; nothing without any.
QStringList SourceLines(const QString& sentence, const std::vector<SourceName>& sources) {
  QStringList lines;
  if (!sources.empty()) lines << sentence.arg(sources.size());
  for (const SourceName& source : sources)
    lines << QStringLiteral("    %1（%2）").arg(source.name, source.code);
  return lines;
}

/// What the service has no planes of, and what the rules leave out.
QStringList LeftOutLines(const FaultAcquisitionResult& result) {
  return SourceLines(QStringLiteral("%1 個の断層は地震活動モデルに断層面がありません。"),
                     result.withoutPlanes) +
         SourceLines(QStringLiteral("%1 個の断層は矩形の断層面で表されないため除きました。"), result.leftOut);
}

void PrintSummary(const FaultAcquisitionInput& input, const std::vector<FaultInfo>& faults,
                  const QStringList& notes, const ProgramFolders& folders) {
  const bool ranking = input.mode == kAcquireRanking;
  PrintLine(QStringLiteral("断層：%1 個").arg(faults.size()));
  for (const FaultInfo& fault : faults) PrintFault(fault, ranking);
  for (const QString& note : notes) PrintLine(note);
  QString versions =
      QStringLiteral("地震活動モデル ") + ActivityVersionLabel(input.parameters.activityVersionIndex);
  if (ranking)
    versions.prepend(QStringLiteral("被害地検索 ") + SearchVersionLabel(input.parameters.versionIndex) +
                     u'、');
  PrintLine(QStringLiteral("出典：防災科学技術研究所 J-SHIS 地震ハザードステーション（地図バージョン：%1）")
                .arg(versions));
  PrintSampleNotice(folders);
}

/// The line for a request that came to nothing: what was asked, then the reason.
QString FailureLine(const FaultAcquisitionResult& result) {
  const QString silent = QStringLiteral("サービスに接続できないか、回答が途絶えました。");
  return result.url + QStringLiteral(": ") + (result.message.isEmpty() ? silent : result.message);
}

/// What the table folders and the options give to the service. Returns the line for an input that cannot be
/// read.
std::optional<QString> ReadInputs(const Arguments& arguments, FaultAcquisitionInput& input,
                                  ServiceSettings& settings) {
  if (arguments.IsSet("service")) settings.hazardAddress = arguments.Text("service");
  if (arguments.IsSet("ca-file")) {
    settings.certificateFile = arguments.Text("ca-file");
    if (!QFileInfo(settings.certificateFile).isFile())
      return FileFault(settings.certificateFile, QStringLiteral("証明書のファイルを開けません。"));
  }
  if (input.mode != kAcquireRange) return std::nullopt;
  CMorvaneDoc doc(arguments.Folders());
  if (auto failure = LoadTables(doc)) return failure;
  input.mainFaultRows = doc.mainFaultRows;
  return std::nullopt;
}

/// What goes to standard error beside the results: the sources that are missing from them.
QStringList ErrorLines(const FaultAcquisitionResult& result) {
  if (result.unread.empty()) return {};
  return QStringList(FailureLine(result)) +
         SourceLines(QStringLiteral("%1 個の断層の情報を取得できませんでした。"), result.unread);
}

bool IsServiceFailure(ServiceOutcome outcome) {
  return outcome != ServiceOutcome::Done && outcome != ServiceOutcome::NothingFound;
}

int Run(const Arguments& arguments) {
  FaultAcquisitionInput input;
  if (const auto fault = ReadSite(arguments, input)) return FailUsage(*fault);
  if (const auto fault = ReadParameters(arguments, input)) return FailUsage(*fault);
  ServiceSettings settings;
  if (const auto failure = ReadInputs(arguments, input, settings)) return Fail(kBadFile, *failure);
  const QTemporaryDir answers;
  if (!answers.isValid())
    return Fail(kBadFile, FileFault(QDir::tempPath(), QStringLiteral("一時フォルダを作れませんでした。")));
  settings.answerFolder = answers.path();

  KeptMessages messages;
  std::vector<FaultInfo> faults;
  FaultAcquisitionResult result;
  {
    ProgressLine line;
    result = AcquireFaults(input, settings, messages, faults, [&](int fault, int count, const QString&) {
      if (line.IsShown()) line.Show(QStringLiteral("断層データの取得中 %1 / %2").arg(fault).arg(count));
    });
  }
  // Without a source that could not be read it is the ranking itself that came to nothing.
  if (IsServiceFailure(result.outcome) && result.unread.empty()) return Fail(kBadFile, FailureLine(result));
  const QStringList leftOut = LeftOutLines(result);
  QStringList errors = ErrorLines(result);
  if (arguments.WantsJson()) {
    PrintObject(faults);
    errors = leftOut + errors;
  } else {
    PrintSummary(input, faults, messages.texts + leftOut, arguments.Folders());
  }
  const int status = !result.unread.empty() ? kBadFile : faults.empty() ? kGoalMissed : kDone;
  return errors.isEmpty() ? status : Fail(status, errors.join(u'\n'));
}

}  // namespace

Command FaultsCommand() {
  return {"faults",
          "--zone N --site LAT,LON [--service URL] [--mode ranking|range] [--range KM] [--data DIR]",
          "現場位置に影響する断層を J-SHIS から取得する",
          0,
          Options,
          Run};
}

}  // namespace tremlo::cli
