#pragma once

#include "core/records/RecordNote.h"
#include "core/waves/WaveGraphSetting.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace tremlo {

/// Marks a sample of `acc` whose cell the user has emptied.
inline constexpr double kBlankSample = std::numeric_limits<double>::infinity();

/// One wave or one spectrum with all that the screens keep for it. Times and periods in s, accelerations and
/// spectra in gal, colours 0x00BBGGRR. The order of the fields is the order in the project file.
struct CSeismicWave {
  QString name;                ///< key in the set
  bool spectrumValid = false;  ///< `periods` and `accSpec` belong to `acc` and `timeStep`
  double timeStep = 0.0;       ///< sampling interval, s
  std::vector<double> acc;     ///< samples at 0, timeStep, 2·timeStep, ...; kBlankSample is an empty cell
  bool current = false;        ///< the wave shown on the registration screen
  WaveGraphSetting origGraph;
  std::int32_t siteColor = 0;
  bool siteShow = true;
  bool siteUse = false;         ///< used as a wave observed near the site
  std::vector<double> periods;  ///< period axis of `accSpec`, longest first
  std::vector<double> accSpec;  ///< acceleration response spectrum, 5 % damping
  bool lowerSelected = false;
  WaveGraphSetting lowerGraph = DefaultLowerGraph();
  std::int32_t baseColor = 0;
  bool baseShow = true;
  bool baseSelected = false;
  double spectrumArea = 0.0;
  std::int32_t adjustColor = 0;
  bool baseAdjustShow = true;
  bool adjustShow = true;
  bool adopted = false;
  bool adjustChecked = false;
  std::vector<double> adjustedAcc;      ///< adjusted wave on `timeStep`; its length is a power of two
  std::vector<double> adjustedPeriods;  ///< period axis of `adjustedSpec`, longest first
  std::vector<double> adjustedSpec;
  bool adjusted = false;  ///< the three vectors above are present and valid

  /// Of samples as they were read from a file in this run; not part of the project file.
  std::optional<RecordNote> note;

  bool operator==(const CSeismicWave&) const = default;
};

/// A copy of the samples in which every blank is 0: what the spectra, the adjustment and the graphs take.
std::vector<double> WithoutBlanks(const std::vector<double>& acc);

}  // namespace tremlo
