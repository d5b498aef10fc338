#pragma once

#include "core/location/ApiParameterSet.h"
#include "core/location/FaultInfo.h"
#include "core/location/SiteRecord.h"
#include "core/sources/AcquisitionReport.h"
#include "core/sources/SystemTables.h"
#include "core/waves/SeismicWaveSet.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tremlo {

/// The one document: everything that a project is, and the system tables beside the program. There is one
/// object for the life of the program; a new project and an open replace its content. Screens keep display
/// state only and write here at once. No undo, no lock.
class CMorvaneDoc {
 public:
  /// `folders`: where DamCoef, LowSpec and SystemData are. Nothing is read yet.
  explicit CMorvaneDoc(ProgramFolders folders) : m_folders(std::move(folders)) {}

  /// Brings the document to the state of a new project and reads the tables again. Returns the first failure
  /// of a table, after which the program cannot go on; the members are at their defaults even then. The
  /// modified mark and `visualShowSpare` keep their values.
  std::optional<TableFailure> ResetDocument();

  /// Another number for each project that the document has held: ResetDocument, and with it an open, raises
  /// it. What takes its time notes the number, and stores its result only while it is the same.
  std::uint64_t Generation() const { return m_generation; }

  bool IsModified() const { return m_modified; }
  void SetModified(bool modified) { m_modified = modified; }
  const ProgramFolders& Folders() const { return m_folders; }
  /// The project file; empty while the project is unnamed. A reset leaves it alone.
  const QString& PathName() const { return m_pathName; }
  void SetPathName(const QString& path) { m_pathName = path; }

  std::vector<QString> SeedWaveNames() const { return seedWaves.Names(); }

  /// Clearing operations. Each marks the document as modified.
  void ClearFaults();
  void ClearSpectrumSelection();  ///< every mark of the base spectrum, not its name
  void ClearAdjustment();         ///< adopted wave and all adjustment results
  void ClearResults();            ///< adjustment results, keeping the adopted wave
  void ClearBaseSpectrumAndAdjustment();
  void ClearFaultsAndAfter();

  /// Marks the default lower limit (either of its names). Clears no other mark.
  void MarkDefaultLowerSpectrum();

  bool guidelineRoute =
      false;  ///< true: waves after the guideline; false: adjustment to any response spectrum
  SiteRecord site;
  bool flowQ1Yes = false;               ///< a seismograph stands at the dam
  bool flowQ2Yes = false;               ///< it records acceleration
  bool flowCollect = false;             ///< the phase chart ends at collecting material
  bool flowFaultSource = false;         ///< fault data is to be used
  bool flowNeighbourWave = false;       ///< usable waves near the dam exist
  bool flowFixed = false;               ///< the work procedure is fixed
  CSeismicWaveSet seedWaves;            ///< registered waves
  CSeismicWave graphDamsite;            ///< of this and the other loose records only the graph block counts
  std::vector<DamCoefSet> damCoefSets;  ///< system table
  std::vector<MainFaultRow> mainFaultRows;  ///< system table
  std::vector<FaultInfo> faults;            ///< in rank order
  std::int32_t faultAcquireMode = 0;        ///< 0 ranking by the service, 1 search range
  double searchRangeKm = 50.0;
  QString attenuationMethod = QString::fromUtf16(kHorizontalMethod);
  CSeismicWave graphAttenuation;
  ApiParameterSet apiParameters;
  CSeismicWaveSet lowerSpectra;  ///< lower-limit spectra
  CSeismicWave graphBase;
  bool seedAdopted = false;
  QString seedAdoptedName;
  QString baseSpectrumName;  ///< label of the chosen base spectrum; empty: none
  CSeismicWave graphAdjust;
  std::int32_t adjustMaxIterations = 100;
  double adjustTolerancePercent = 0.05;  ///< a fraction in spite of its name; screens multiply by 100
  CSeismicWave graphSpare;               ///< carried for the file, read by no screen
  std::int32_t visualShowOrig = 1;       ///< shown when exactly 1
  std::int32_t visualShowAdjusted = 1;
  std::int32_t visualShowSpare = 0;  ///< carried for the file
  std::int32_t visualColorOrig = 0xFF3232;
  std::int32_t visualColorAdjusted = 0x0000FF;
  std::int32_t visualColorSpare = 0x00FF00;
  CSeismicWaveSet respSpectra;  ///< target spectra of the response route
  /// Of the last acquisition since the project was made or opened; not part of the file.
  std::optional<AcquisitionReport> lastAcquisition;

 private:
  std::optional<TableFailure> LoadSystemData();
  std::optional<TableFailure> LoadLowerSpectra();

  ProgramFolders m_folders;
  QString m_pathName;
  bool m_modified = false;
  std::uint64_t m_generation = 0;
};

}  // namespace tremlo
