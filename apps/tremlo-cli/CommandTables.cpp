#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "TablesInput.h"
#include "core/shell/TitleText.h"

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {};
}

void WriteDamCoefSet(JsonWriter& json, const DamCoefSet& set) {
  json.BeginObject();
  json.Member("title", set.title);
  json.Member("method", set.method);
  json.Member("distanceKind", set.distanceKind);
  json.Member("period", set.period);
  json.Member("ampA", set.ampA);
  json.Member("ampB", set.ampB);
  json.Member("ampC", set.ampC);
  json.Member("ampD", set.ampD);
  json.Member("coefM", set.coefM);
  json.Member("coefM2", set.coefM2);
  json.Member("coefD", set.coefD);
  json.Member("coefX", set.coefX);
  json.Member("coefDX", set.coefDX);
  json.Member("coefC", set.coefC);
  json.Member("coefNear", set.coefNear);
  json.EndObject();
}

void WriteMainFaultRow(JsonWriter& json, const MainFaultRow& row) {
  json.BeginObject();
  json.Member("code", row.code);
  json.Member("name", row.name);
  json.Member("segment", row.segment);
  json.Member("cornerA", row.cornerA);
  json.Member("cornerB", row.cornerB);
  json.Member("cornerC", row.cornerC);
  json.Member("lon", row.lon);
  json.Member("lat", row.lat);
  json.EndObject();
}

void PrintObject(const CMorvaneDoc& doc) {
  JsonWriter json;
  json.BeginObject();
  json.Key("damCoefSets");
  json.BeginArray();
  for (const DamCoefSet& set : doc.damCoefSets) WriteDamCoefSet(json, set);
  json.EndArray();
  json.Key("mainFaultRows");
  json.BeginArray();
  for (const MainFaultRow& row : doc.mainFaultRows) WriteMainFaultRow(json, row);
  json.EndArray();
  json.Key("lowerSpectra");
  json.BeginArray();
  for (const CSeismicWave& spectrum : doc.lowerSpectra.Records()) {
    json.BeginObject();
    json.Member("name", spectrum.name);
    json.Member("lowerSelected", spectrum.lowerSelected);
    json.Member("periods", spectrum.periods);
    json.Member("accSpec", spectrum.accSpec);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  PrintJson(json);
}

void PrintSummary(const CMorvaneDoc& doc) {
  PrintLine(TablePlacesText(doc.Folders()));
  PrintLine(QStringLiteral("距離減衰式の係数：%1 組").arg(doc.damCoefSets.size()));
  for (const DamCoefSet& set : doc.damCoefSets)
    PrintLine(QStringLiteral("  %1 %2（%3 周期）%4")
                  .arg(set.method,
                       set.distanceKind == 0 ? QStringLiteral("最短距離") : QStringLiteral("等価震源距離"))
                  .arg(set.period.size())
                  .arg(set.title));
  PrintLine(QStringLiteral("主要断層：%1 行").arg(doc.mainFaultRows.size()));
  PrintLine(QStringLiteral("下限スペクトル：%1 個").arg(doc.lowerSpectra.Count()));
  for (const CSeismicWave& spectrum : doc.lowerSpectra.Records())
    PrintLine(QStringLiteral("  %1%2（%3 点）")
                  .arg(spectrum.lowerSelected ? QStringLiteral("* ") : QString(), spectrum.name,
                       QString::number(spectrum.periods.size())));
  PrintSampleNotice(doc.Folders());
}

int Run(const Arguments& arguments) {
  CMorvaneDoc doc(arguments.Folders());
  if (const auto failure = LoadTables(doc)) return Fail(kBadFile, *failure);
  if (arguments.WantsJson()) {
    PrintObject(doc);
  } else {
    PrintSummary(doc);
  }
  return kDone;
}

}  // namespace

Command TablesCommand() {
  return {"tables", "[--data DIR]", "係数表、主要断層、下限スペクトルの内容", 0, Options, Run};
}

}  // namespace tremlo::cli
