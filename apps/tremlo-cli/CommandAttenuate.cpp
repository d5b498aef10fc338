#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "TablesInput.h"
#include "core/sources/DamSpectra.h"

#include <algorithm>
#include <array>

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {{QStringLiteral("method"),
           QStringLiteral("距離減衰式の名前（既定値 %1）").arg(QString::fromUtf16(kHorizontalMethod)),
           QStringLiteral("NAME")},
          {QStringLiteral("magnitude"), QStringLiteral("マグニチュード"), QStringLiteral("M")},
          {QStringLiteral("depth"), QStringLiteral("断層面の中心深さ（km）"), QStringLiteral("D")},
          {QStringLiteral("shortest"), QStringLiteral("最短距離（km）"), QStringLiteral("X")},
          {QStringLiteral("equivalent"), QStringLiteral("等価震源距離（km）"), QStringLiteral("XEQ")},
          {QStringLiteral("class"), QStringLiteral("地盤種別（A, B, C, D）"), QStringLiteral("A")}};
}

/// The one plane of the command line, as a fault of the document. Returns what is wrong with the command
/// line.
QString ReadPlane(const Arguments& arguments, FaultInfo& fault) {
  double magnitude = 0.0;
  fault.geomNum = 1;
  fault.planeDepth.resize(1);
  fault.shortestDistance.resize(1);
  fault.equivalentDistance.resize(1);
  const std::array<std::pair<const char*, double*>, 4> numbers = {
      {{"magnitude", &magnitude},
       {"depth", fault.planeDepth.data()},
       {"shortest", fault.shortestDistance.data()},
       {"equivalent", fault.equivalentDistance.data()}}};
  for (const auto& [option, value] : numbers) {
    const QString name = QString::fromLatin1(option);
    if (!arguments.IsSet(option)) return QStringLiteral("--%1 を指定してください。").arg(name);
    if (!arguments.Number(option, *value))
      return QStringLiteral("--%1 は数値です：%2").arg(name, arguments.Text(option));
  }
  fault.magnitude = arguments.Text("magnitude");
  const QString groundClass = arguments.Text("class");
  if (groundClass != u"A" && groundClass != u"B" && groundClass != u"C" && groundClass != u"D")
    return QStringLiteral("--class は A, B, C, D のいずれかです：") + groundClass;
  fault.groundClass = {groundClass};
  return {};
}

void PrintObject(const QString& method, const FaultInfo& fault) {
  JsonWriter json;
  json.BeginObject();
  json.Member("method", method);
  json.Member("shortestPeriods", fault.shortestPeriods.front());
  json.Member("shortestSpectrum", fault.shortestSpectrum.front());
  json.Member("equivalentPeriods", fault.equivalentPeriods.front());
  json.Member("equivalentSpectrum", fault.equivalentSpectrum.front());
  json.EndObject();
  PrintJson(json);
}

int Run(const Arguments& arguments) {
  const QString horizontal = QString::fromUtf16(kHorizontalMethod);
  const QString vertical = QString::fromUtf16(kVerticalMethod);
  const QString method = arguments.IsSet("method") ? arguments.Text("method") : horizontal;
  if (method != horizontal && method != vertical)
    return FailUsage(QStringLiteral("--method は「%1」か「%2」です：%3").arg(horizontal, vertical, method));
  std::vector<FaultInfo> faults(1);
  const QString wrong = ReadPlane(arguments, faults.front());
  if (!wrong.isEmpty()) return FailUsage(wrong);

  CMorvaneDoc doc(arguments.Folders());
  if (const auto failure = LoadTables(doc)) return Fail(kBadFile, *failure);
  if (const auto failure = CalculateDamSpectra(doc.damCoefSets, method, faults))
    return Fail(kBadFile, failure->text);
  const FaultInfo& fault = faults.front();
  if (arguments.WantsJson()) {
    PrintObject(method, fault);
    return kDone;
  }
  PrintLine(QStringLiteral("%1（減衰定数 5 %）").arg(method));
  PrintSpectrum(QStringLiteral("最短距離の式"), fault.shortestPeriods.front(), fault.shortestSpectrum.front(),
                QStringLiteral("gal"));
  PrintSpectrum(QStringLiteral("等価震源距離の式"), fault.equivalentPeriods.front(),
                fault.equivalentSpectrum.front(), QStringLiteral("gal"));
  PrintSampleNotice(doc.Folders());
  return kDone;
}

}  // namespace

Command AttenuateCommand() {
  return {"attenuate",
          "[--data DIR] [--method NAME] --magnitude M --depth D --shortest X --equivalent XEQ --class A",
          "距離減衰式による加速度応答スペクトル（減衰定数 5 %）",
          0,
          Options,
          Run};
}

}  // namespace tremlo::cli
