#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"
#include "core/sources/FaultConversion.h"

#include <array>

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {{QStringLiteral("zone"), QStringLiteral("平面直角座標系番号（1 ～ 19）"), QStringLiteral("N")},
          {QStringLiteral("site"), QStringLiteral("現場位置の北緯と東経（度）"), QStringLiteral("LAT,LON")},
          {QStringLiteral("plane"),
           QStringLiteral(
               "断層面：上端の始点の東経、北緯（度）、深さ、長さ、幅（km）、走向、傾斜（度）。繰り返し可"),
           QStringLiteral("LON,LAT,DEP,LEN,WID,STR,DIP")}};
}

/// Adds a plane to the fault as the hazard service sends it: as texts, in the order of the option.
bool AddPlane(const QString& text, FaultInfo& fault) {
  std::array<double, 7> numbers{};
  if (!ParseNumberList(text, numbers) || !IsPlace(numbers[1], numbers[0])) return false;
  const QStringList parts = text.split(u',');
  const std::array<std::vector<QString>*, 7> columns = {&fault.lon, &fault.lat, &fault.dep, &fault.len,
                                                        &fault.wid, &fault.str, &fault.dip};
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i]->push_back(parts[static_cast<qsizetype>(i)]);
  ++fault.geomNum;
  return true;
}

void PrintObject(const PlanePoint& site, const FaultInfo& fault) {
  JsonWriter json;
  json.BeginObject();
  json.Member("northing", site.northing);
  json.Member("easting", site.easting);
  json.Key("planes");
  json.BeginArray();
  for (std::size_t i = 0; i < fault.planeDepth.size(); ++i) {
    json.BeginObject();
    json.Member("planeDepth", fault.planeDepth[i]);
    json.Member("shortestDistance", fault.shortestDistance[i]);
    json.Member("equivalentDistance", fault.equivalentDistance[i]);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  PrintJson(json);
}

void PrintSummary(int zone, const PlanePoint& site, const FaultInfo& fault) {
  const auto fixed = [](double value, int decimals) { return QString::number(value, 'f', decimals); };
  PrintLine(QStringLiteral("現場位置（%1 系）：X（北）%2 m、Y（東）%3 m")
                .arg(zone)
                .arg(fixed(site.northing, 3), fixed(site.easting, 3)));
  for (std::size_t i = 0; i < fault.planeDepth.size(); ++i)
    PrintLine(QStringLiteral("断層面 %1：中心深さ %2 km、最短距離 %3 km、等価震源距離 %4 km")
                  .arg(i + 1)
                  .arg(fixed(fault.planeDepth[i], 4), fixed(fault.shortestDistance[i], 4),
                       fixed(fault.equivalentDistance[i], 4)));
}

int Run(const Arguments& arguments) {
  std::int32_t zone = 0;
  if (!arguments.Whole("zone", zone) || zone < 1 || zone > static_cast<int>(kPlaneZoneCount))
    return FailUsage(QStringLiteral("--zone は 1 ～ 19 の整数です：") + arguments.Text("zone"));
  std::array<double, 2> place{};
  if (!ParseNumberList(arguments.Text("site"), place) || !IsPlace(place[0], place[1]))
    return FailUsage(QStringLiteral("--site は北緯,東経（度、北緯は ±90、東経は ±180 まで）です：") +
                     arguments.Text("site"));
  FaultInfo fault;
  for (const QString& text : arguments.Texts("plane"))
    if (!AddPlane(text, fault))
      return FailUsage(
          QStringLiteral(
              "--plane は LON,LAT,DEP,LEN,WID,STR,DIP の 7 個の数値です（北緯は ±90、東経は ±180 まで）：") +
          text);
  if (fault.geomNum == 0) return FailUsage(QStringLiteral("--plane を指定してください。"));

  const PlanePoint site = ToPlaneRectangular(zone, place[0], place[1]);
  ComputeFaultDistances(fault, zone, site.easting / 1000.0, site.northing / 1000.0);
  if (arguments.WantsJson()) {
    PrintObject(site, fault);
  } else {
    PrintSummary(zone, site, fault);
  }
  return kDone;
}

}  // namespace

Command DistancesCommand() {
  return {"distances",
          "--zone N --site LAT,LON --plane LON,LAT,DEP,LEN,WID,STR,DIP [--plane ...]",
          "現場位置から断層面までの最短距離と等価震源距離",
          0,
          Options,
          Run};
}

}  // namespace tremlo::cli
