#pragma once

#include "core/files/ProgramFolders.h"
#include "core/waves/SeismicWaveSet.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tremlo {

/// The read-only tables of the program, in the folders DamCoef, LowSpec and SystemData. Text in them is
/// CP932 (UTF-8 behind a UTF-8 mark). No reader checks how many fields a numeric line yields: a short line
/// keeps the values of the line before (or 0).

/// A fault of the tables that ends the program: the user's message and the exit status. The core shows
/// nothing; the program does.
struct TableFailure {
  QString text;
  int exitStatus = 0;
  QString place = {};  ///< the folder that holds the table folder; empty where only the content was looked at
};

/// Coefficients of one form of the attenuation relation: one file of DamCoef. The twelve vectors have one
/// element per data line.
struct DamCoefSet {
  QString title;                               ///< free text, line 3
  QString method;                              ///< name of the relation, line 1
  std::int32_t distanceKind = 0;               ///< 0 shortest distance, 1 equivalent hypocentral distance
  std::vector<double> period;                  ///< s
  std::vector<double> ampA, ampB, ampC, ampD;  ///< factor of the ground classes
  std::vector<double> coefM, coefM2, coefD, coefX, coefDX, coefC, coefNear;

  bool operator==(const DamCoefSet&) const = default;
};

/// One line of FaultData.csv: a segment of a main fault.
struct MainFaultRow {
  QString code;  ///< scenario code; consecutive rows of one code are segments of one fault
  QString name;
  std::int32_t segment = 0;
  std::vector<double> cornerA, cornerB,
      cornerC;                  ///< four values each: the first, second, third of every triple
  double lon = 0.0, lat = 0.0;  ///< the point by which distance is measured, decimal degrees

  bool operator==(const MainFaultRow&) const = default;
};

inline constexpr char16_t kHorizontalMethod[] = u"(水平)H20ダム距離減衰";
inline constexpr char16_t kVerticalMethod[] = u"(鉛直)H20ダム距離減衰";

/// The two names of the lower limit that a new project starts with.
inline constexpr char16_t kDefaultLowerName[] = u"H20大規模地震";
inline constexpr char16_t kDefaultLowerLongName[] =
    u"H20大規模地震に対するダム耐震性能照査指針（案）・同解説（水平版）";

/// A file of a table folder.
struct TableFile {
  QString name;   ///< plain name
  QString path;   ///< where it is
  QString shown;  ///< as messages name it: "DamCoef\H20_Ehd_H.csv", for the fault table "FaultData.csv"
};

/// The `.csv` files of the table folder `folder`, by name compared without case; names that start with a
/// point are passed over.
std::vector<TableFile> ListTableFiles(const ProgramFolders& folders, const QString& folder);

/// Whether every required table is there. The first that is missing ends the program with status 0.
std::optional<TableFailure> CheckTableFolders(const ProgramFolders& folders);

/// Folders whose tables are samples and not the published ones: those that hold a file 見本.txt.
std::vector<QString> SampleTableFolders(const ProgramFolders& folders);

/// Readers of one file. What they fill is replaced. A failure (status 1) leaves it as it was.
std::optional<TableFailure> LoadDamCoefFile(const TableFile& file, DamCoefSet& set);
std::optional<TableFailure> LoadFaultDataFile(const TableFile& file, std::vector<MainFaultRow>& rows);
/// Periods in s, longest first; values in gal.
std::optional<TableFailure> LoadLowSpecFile(const TableFile& file, QString& name,
                                            std::vector<double>& periods, std::vector<double>& values);

/// All files of a folder, as a document is initialised: a file that the listing does not hold is silently not
/// read. What they fill is emptied first; after a failure it holds what was read before it.
std::optional<TableFailure> LoadDamCoefFolder(const ProgramFolders& folders, std::vector<DamCoefSet>& sets);
std::optional<TableFailure> LoadFaultTable(const ProgramFolders& folders, std::vector<MainFaultRow>& rows);
/// Order of the records: h20_h, h20_v, h17, then the others as listed.
std::optional<TableFailure> LoadLowSpecFolder(const ProgramFolders& folders, CSeismicWaveSet& spectra);

/// What the readers of one file make of its content; messages call the file `shown`.
std::optional<TableFailure> ParseDamCoef(const QByteArray& content, const QString& shown, DamCoefSet& set);
void ParseFaultData(const QByteArray& content, std::vector<MainFaultRow>& rows);
void ParseLowSpec(const QByteArray& content, QString& name, std::vector<double>& periods,
                  std::vector<double>& values);

}  // namespace tremlo
