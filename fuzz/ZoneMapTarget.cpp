#include "core/location/ZoneMap.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <QList>

#include <algorithm>

namespace tremlo::fuzz {

namespace {

using Polygons = std::vector<std::vector<CDPoint>>;

/// The fields that count: not the empty ones, but for one before the first comma.
QList<QByteArray> Fields(const QByteArray& line) {
  const QList<QByteArray> fields = line.split(',');
  const bool keepsFirst = fields.size() > 1;
  QList<QByteArray> kept;
  for (qsizetype i = 0; i < fields.size(); ++i)
    if (!fields[i].isEmpty() || (i == 0 && keepsFirst)) kept << fields[i];
  return kept;
}

double Number(const QByteArray& field) {
  const std::vector<double> column = ScanColumns(field, 0, 1)[0];
  return column.empty() ? 0.0 : column.front();
}

/// The polygons that the lines before the first bad one make, and the number of that line, 0 if there is
/// none.
Polygons Expected(const QByteArray& content, int& badLine) {
  Polygons polygons;
  badLine = 0;
  const QByteArray text = content.startsWith("\xEF\xBB\xBF") ? content.mid(3) : content;
  int number = 0;
  for (qsizetype start = 0; start < text.size();) {
    const qsizetype end = text.indexOf('\n', start);
    QByteArray line = text.mid(start, end < 0 ? -1 : end - start);
    if (end >= 0 && line.endsWith('\r')) line.chop(1);
    start = end < 0 ? text.size() : end + 1;
    ++number;
    const QList<QByteArray> fields = Fields(line);
    if (!fields.isEmpty() && fields[0] == "KEI") {
      polygons.emplace_back();
    } else if (!polygons.empty()) {
      if (fields.size() < 2) {
        badLine = number;
        return polygons;
      }
      polygons.back().push_back({Number(fields[0]), 500.0 - Number(fields[1]), 0});
    }
  }
  return polygons;
}

bool SamePoint(const CDPoint& a, const CDPoint& b) {
  return SameNumber(a.x, b.x) && SameNumber(a.y, b.y) && a.marker == b.marker;
}

bool SamePoints(const CDPoly& polygon, const std::vector<CDPoint>& points) {
  const std::vector<CDPoint>& read = polygon.Points();
  return std::equal(read.begin(), read.end(), points.begin(), points.end(), SamePoint);
}

bool InBox(const CDPoly& polygon, double x, double y) {
  return x >= polygon.MinCorner().x && x <= polygon.MaxCorner().x && y >= polygon.MinCorner().y &&
         y <= polygon.MaxCorner().y;
}

void CheckPick(const std::vector<CDPoly>& polygons, double x, double y) {
  const int zone = PickZone(polygons, x, y);
  const auto count = static_cast<int>(polygons.size());
  Require(zone >= -1 && zone < count, "a picked zone is one of the polygons, or none");
  for (int i = 0; i < (zone < 0 ? count : zone); ++i)
    Require(!polygons[static_cast<std::size_t>(i)].Contains(x, y), "the first polygon at a pixel is picked");
  if (zone < 0) return;
  const CDPoly& picked = polygons[static_cast<std::size_t>(zone)];
  Require(picked.Points().size() >= 3 && InBox(picked, x, y), "a polygon lies inside its box");
}

}  // namespace

void FuzzZoneMap(const std::uint8_t* data, std::size_t size) {
  const QByteArray content = Bytes(data, size);
  int badLine = 0;
  const Polygons expected = Expected(content, badLine);
  std::vector<CDPoly> polygons(2);
  const std::optional<QString> failure = ParseZonePolygons(content, polygons);
  std::vector<CDPoly> again;
  const std::optional<QString> failureAgain = ParseZonePolygons(WithWindowsLineEnds(content), again);
  Require(failure == failureAgain, "the kind of line end refuses no map");
  Require(failure.has_value() == (badLine > 0), "a point without two coordinates refuses the map");
  if (failure) {
    Require(failure->contains(QStringLiteral("の%1行目が").arg(badLine)), "the message names the line");
    Require(polygons.size() == 2, "a refused map leaves the polygons as they were");
    return;
  }
  Require(std::equal(polygons.begin(), polygons.end(), expected.begin(), expected.end(), SamePoints),
          "points are what the C library reads");
  Require(std::equal(again.begin(), again.end(), expected.begin(), expected.end(), SamePoints),
          "the kind of line end changes no point");
  for (const double x : {0.0, 125.5, 250.0, 499.0})
    for (const double y : {0.0, 125.5, 250.0, 499.0}) CheckPick(polygons, x, y);
}

}  // namespace tremlo::fuzz
