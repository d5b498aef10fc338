#include "core/location/ZoneMap.h"

#include "core/files/CsvText.h"
#include "core/files/TextScan.h"
#include "core/files/WholeFile.h"

#include <QDir>

#include <string_view>

namespace tremlo {

namespace {

constexpr double kMapHeight = 500.0;

/// The fields of a line. An empty field between two commas, and one behind the last comma, do not count.
std::vector<std::string_view> SplitFields(std::string_view line) {
  std::vector<std::string_view> fields;
  std::size_t start = 0;
  for (std::size_t comma = line.find(','); comma != std::string_view::npos; comma = line.find(',', start)) {
    if (comma > start || start == 0) fields.push_back(line.substr(start, comma - start));
    start = comma + 1;
  }
  if (start < line.size()) fields.push_back(line.substr(start));
  return fields;
}

double ToNumber(std::string_view field) {
  double value = 0.0;
  LineScanner(field).Number(value);
  return value;
}

}  // namespace

std::optional<QString> LoadZonePolygons(const ProgramFolders& folders, std::vector<CDPoly>& polygons) {
  QByteArray content;
  const QDir systemData(folders.TableFolder(QStringLiteral("SystemData")));
  if (!ReadWholeFile(systemData.filePath(QStringLiteral("keiarea.csv")), content)) content.clear();
  return ParseZonePolygons(content, polygons);
}

std::optional<QString> ParseZonePolygons(const QByteArray& content, std::vector<CDPoly>& polygons) {
  std::vector<CDPoly> read;
  const CsvText csv(content);
  LineReader lines(csv.Text());
  std::string_view line;
  for (int number = 1; lines.Next(line); ++number) {
    const std::vector<std::string_view> fields = SplitFields(line);
    if (!fields.empty() && fields.front() == "KEI") {
      read.emplace_back();
    } else if (!read.empty()) {
      if (fields.size() < 2)
        return QStringLiteral("SystemData\\keiarea.csvの%1行目が正しい座標ではありません。").arg(number);
      read.back().Add(ToNumber(fields[0]), kMapHeight - ToNumber(fields[1]));
    }
  }
  for (CDPoly& polygon : read) polygon.UpdateBox();
  polygons = std::move(read);
  return std::nullopt;
}

int PickZone(const std::vector<CDPoly>& polygons, double x, double y) {
  for (std::size_t i = 0; i < polygons.size(); ++i)
    if (polygons[i].Contains(x, y)) return static_cast<int>(i);
  return -1;
}

}  // namespace tremlo
