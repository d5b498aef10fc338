#include "core/sources/SystemTables.h"

#include "core/files/CsvText.h"
#include "core/files/TextScan.h"
#include "core/files/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <string>

namespace tremlo {

namespace {

const QString kDamCoef = QStringLiteral("DamCoef");
const QString kLowSpec = QStringLiteral("LowSpec");
const QString kSystemData = QStringLiteral("SystemData");
const QString kFaultTable = QStringLiteral("FaultData.csv");

QString ShownName(const QString& folder, const QString& name) {
  return name == kFaultTable ? name : folder + u'\\' + name;
}

/// The folder around a table folder.
QString PlaceOf(const QString& tableFolder) {
  return QFileInfo(tableFolder).path();
}

TableFailure CannotOpen(const TableFile& file) {
  return {file.shown + QStringLiteral("を開けません。（読み取りオープン）"), 1,
          PlaceOf(QFileInfo(file.path).path())};
}

/// Of the names that contain `part`, the one that equals it, else the first; the end when there is none.
std::vector<TableFile>::iterator FindTable(std::vector<TableFile>& files, const QString& part) {
  const auto equal =
      std::find_if(files.begin(), files.end(), [&](const TableFile& file) { return file.name == part; });
  if (equal != files.end()) return equal;
  return std::find_if(files.begin(), files.end(),
                      [&](const TableFile& file) { return file.name.contains(part); });
}

/// The text up to the next comma, at least one and at most 260 UTF-16 units.
bool ScanText(QString& rest, QString& text) {
  constexpr qsizetype kLongest = 260;
  const qsizetype comma = rest.indexOf(u',');
  const qsizetype length = std::min(comma < 0 ? rest.size() : comma, kLongest);
  if (length == 0) return false;
  text = rest.left(length);
  rest.remove(0, length);
  return true;
}

/// A comma and any blanks behind it.
bool ScanCommaAndBlanks(QString& rest) {
  if (!rest.startsWith(u',')) return false;
  rest.remove(0, 1);
  qsizetype blanks = 0;
  while (blanks < rest.size() && (rest[blanks] == u' ' || (rest[blanks] >= u'\t' && rest[blanks] <= u'\r')))
    ++blanks;
  rest.remove(0, blanks);
  return true;
}

struct FaultFields {
  QString code;
  QString name;
  std::int32_t segment = 0;
  std::array<double, 12> corners{};
  double lon = 0.0;
  double lat = 0.0;
};

/// "%[^,], %[^,], %ld,%lf,...": fills what the line yields and stops at the first field that does not match.
void ScanFaultLine(const QString& line, FaultFields& fields) {
  QString rest = line;
  if (!ScanText(rest, fields.code) || !ScanCommaAndBlanks(rest)) return;
  if (!ScanText(rest, fields.name) || !ScanCommaAndBlanks(rest)) return;
  const std::string numbers = rest.toStdString();
  LineScanner scan(numbers);
  if (!scan.Whole(fields.segment)) return;
  for (double& corner : fields.corners)
    if (!scan.Literal(',') || !scan.Number(corner)) return;
  if (!scan.Literal(',') || !scan.Number(fields.lon) || !scan.Literal(',')) return;
  scan.Number(fields.lat);
}

}  // namespace

std::vector<TableFile> ListTableFiles(const ProgramFolders& folders, const QString& folder) {
  const QDir dir(folders.TableFolder(folder));
  QStringList names = dir.entryList(QDir::Files);
  names.removeIf([](const QString& name) { return !name.endsWith(u".csv", Qt::CaseInsensitive); });
  std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
  });
  std::vector<TableFile> files;
  for (const QString& name : names) files.push_back({name, dir.filePath(name), ShownName(folder, name)});
  return files;
}

std::optional<TableFailure> CheckTableFolders(const ProgramFolders& folders) {
  const std::array<std::pair<QString, QStringList>, 3> required = {{
      {kLowSpec, {QStringLiteral("h17.csv"), QStringLiteral("h20_h.csv"), QStringLiteral("h20_v.csv")}},
      {kDamCoef,
       {QStringLiteral("H20_Ehd_H.csv"), QStringLiteral("H20_Ehd_V.csv"), QStringLiteral("H20_MinDis_H.csv"),
        QStringLiteral("H20_MinDis_V.csv")}},
      {kSystemData, {QStringLiteral("keiarea.csv"), kFaultTable}},
  }};
  for (const auto& [folder, names] : required) {
    const std::vector<TableFile> files = ListTableFiles(folders, folder);
    for (const QString& name : names) {
      const bool found =
          std::any_of(files.begin(), files.end(), [&](const TableFile& file) { return file.name == name; });
      if (!found)
        return TableFailure{ShownName(folder, name) + QStringLiteral("がありません。"), 0,
                            PlaceOf(folders.TableFolder(folder))};
    }
  }
  return std::nullopt;
}

std::vector<QString> SampleTableFolders(const ProgramFolders& folders) {
  std::vector<QString> samples;
  for (const QString& folder : {kDamCoef, kLowSpec, kSystemData}) {
    const QDir dir(folders.TableFolder(folder));
    if (QFile::exists(dir.filePath(QStringLiteral("見本.txt")))) samples.push_back(folder);
  }
  return samples;
}

std::optional<TableFailure> LoadDamCoefFile(const TableFile& file, DamCoefSet& set) {
  QByteArray content;
  if (!ReadWholeFile(file.path, content)) return CannotOpen(file);
  std::optional<TableFailure> failure = ParseDamCoef(content, file.shown, set);
  if (failure) failure->place = PlaceOf(QFileInfo(file.path).path());
  return failure;
}

std::optional<TableFailure> ParseDamCoef(const QByteArray& content, const QString& shown, DamCoefSet& set) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  DamCoefSet read;

  read.method = csv.NextText(lines);
  if (read.method != QStringView(kHorizontalMethod) && read.method != QStringView(kVerticalMethod))
    return TableFailure{shown + QStringLiteral("の1行目が正しい文字列ではありません。"), 1};

  std::string_view line;
  read.distanceKind = -1;
  if (lines.Next(line)) LineScanner(line).Whole(read.distanceKind);
  if (read.distanceKind != 0 && read.distanceKind != 1)
    return TableFailure{shown + QStringLiteral("の2行目に正しい数値与えられていません。"), 1};

  read.title = csv.NextText(lines);
  lines.Next(line);  // the heading row

  const std::array<std::vector<double>*, 12> columns = {
      &read.period, &read.ampA,  &read.ampB,  &read.ampC,   &read.ampD,  &read.coefM,
      &read.coefM2, &read.coefD, &read.coefX, &read.coefDX, &read.coefC, &read.coefNear};
  std::array<double, columns.size()> values{};
  while (lines.Next(line)) {
    LineScanner scan(line);
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i > 0 && !scan.Literal(',')) break;
      if (!scan.Number(values[i])) break;
    }
    for (std::size_t i = 0; i < values.size(); ++i) columns[i]->push_back(values[i]);
  }
  set = std::move(read);
  return std::nullopt;
}

std::optional<TableFailure> LoadFaultDataFile(const TableFile& file, std::vector<MainFaultRow>& rows) {
  QByteArray content;
  if (!ReadWholeFile(file.path, content)) return CannotOpen(file);
  ParseFaultData(content, rows);
  return std::nullopt;
}

void ParseFaultData(const QByteArray& content, std::vector<MainFaultRow>& rows) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  rows.clear();
  FaultFields fields;
  std::string_view line;
  while (lines.Next(line)) {
    ScanFaultLine(csv.Decode(line), fields);
    MainFaultRow& row = rows.emplace_back();
    row.code = fields.code;
    row.name = fields.name;
    row.segment = fields.segment;
    for (std::size_t i = 0; i < fields.corners.size(); i += 3) {
      row.cornerA.push_back(fields.corners[i]);
      row.cornerB.push_back(fields.corners[i + 1]);
      row.cornerC.push_back(fields.corners[i + 2]);
    }
    row.lon = fields.lon;
    row.lat = fields.lat;
  }
}

std::optional<TableFailure> LoadLowSpecFile(const TableFile& file, QString& name,
                                            std::vector<double>& periods, std::vector<double>& values) {
  QByteArray content;
  if (!ReadWholeFile(file.path, content)) return CannotOpen(file);
  ParseLowSpec(content, name, periods, values);
  return std::nullopt;
}

void ParseLowSpec(const QByteArray& content, QString& name, std::vector<double>& periods,
                  std::vector<double>& values) {
  const CsvText csv(content);
  LineReader lines(csv.Text());
  name = csv.NextText(lines);
  periods.clear();
  values.clear();
  double period = 0.0;
  double value = 0.0;
  std::string_view line;
  while (lines.Next(line)) {
    ScanPair(line, period, value);
    periods.push_back(period);
    values.push_back(value);
  }
  if (!periods.empty() && periods.front() < periods.back()) {
    std::reverse(periods.begin(), periods.end());
    std::reverse(values.begin(), values.end());
  }
}

std::optional<TableFailure> LoadDamCoefFolder(const ProgramFolders& folders, std::vector<DamCoefSet>& sets) {
  sets.clear();
  for (const TableFile& file : ListTableFiles(folders, kDamCoef)) {
    DamCoefSet set;
    if (auto failure = LoadDamCoefFile(file, set)) return failure;
    sets.push_back(std::move(set));
  }
  return std::nullopt;
}

std::optional<TableFailure> LoadFaultTable(const ProgramFolders& folders, std::vector<MainFaultRow>& rows) {
  rows.clear();
  std::vector<TableFile> files = ListTableFiles(folders, kSystemData);
  const auto table = FindTable(files, kFaultTable);
  if (table == files.end()) return std::nullopt;
  return LoadFaultDataFile(*table, rows);
}

std::optional<TableFailure> LoadLowSpecFolder(const ProgramFolders& folders, CSeismicWaveSet& spectra) {
  spectra.Clear();
  std::vector<TableFile> files = ListTableFiles(folders, kLowSpec);
  auto place = files.begin();
  for (const QString& part :
       {QStringLiteral("h20_h.csv"), QStringLiteral("h20_v.csv"), QStringLiteral("h17.csv")}) {
    const auto found = FindTable(files, part);
    if (found == files.end() || found < place) continue;
    std::rotate(place, found, found + 1);
    ++place;
  }
  for (const TableFile& file : files) {
    QString name;
    std::vector<double> periods;
    std::vector<double> values;
    if (auto failure = LoadLowSpecFile(file, name, periods, values)) return failure;
    spectra.AddSpectrum(name, periods, values);
  }
  return std::nullopt;
}

}  // namespace tremlo
