#pragma once

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tremlo {

/// One fault with its planes. Values of the hazard service stay text until a computation converts them; a
/// value that the service leaves out is the text "-". Every per-plane vector has `geomNum` entries in a sound
/// record, but `geomNum` is kept as the service sent it: loops run to PlaneCount.
struct FaultInfo {
  QString rank;
  QString ltecode;  ///< scenario code, key of the activity-model request
  QString ltename;
  std::vector<QString> groundClass;  ///< per plane, "A" to "D"
  QString magnitude;
  QString ijma;
  QString i45_ps, i50_ps, i55_ps, i60_ps;  ///< exceedance probabilities, per cent after an acquisition
  std::int32_t geomNum = 0;                ///< number of planes
  QString avract, newact, t30p, t50p, magu;

  /// Per plane, the rectangle: corner longitude and latitude (degrees), depth of the upper edge (km), length
  /// along strike and width down dip (km), strike and dip (degrees).
  std::vector<QString> lon, lat, dep, len, wid, str, dip;

  /// The four corners of each plane: degrees and the depth as the service sends it. Kept, not computed with.
  std::vector<double> corner1Lon, corner1Lat, corner1Dep;
  std::vector<double> corner2Lon, corner2Lat, corner2Dep;
  std::vector<double> corner3Lon, corner3Lat, corner3Dep;
  std::vector<double> corner4Lon, corner4Lat, corner4Dep;

  std::vector<double> planeDepth;          ///< D per plane, km
  std::vector<double> furtherA, furtherB;  ///< stored with the record, read by nothing
  std::vector<double> shortestDistance;    ///< X per plane, km
  std::vector<double> equivalentDistance;  ///< Xeq per plane, km

  /// Per plane, the two response spectra: periods in s, longest first; values in gal.
  std::vector<std::vector<double>> shortestPeriods, shortestSpectrum;
  std::vector<std::vector<double>> equivalentPeriods, equivalentSpectrum;

  std::vector<std::int32_t> attenColor;  ///< 0x00BBGGRR
  std::vector<bool> attenShow, attenUse;

  std::vector<std::int32_t> shortBaseColor;
  std::vector<bool> shortBaseShow, shortBaseSelected;
  std::vector<double> shortArea;

  std::vector<std::int32_t> equivBaseColor;
  std::vector<bool> equivBaseShow, equivBaseSelected;
  std::vector<double> equivArea;

  std::vector<bool> adjustSpare;  ///< copied with the record, not in the project file
  std::vector<bool> adjustShow, adjustShowEquiv;

  bool operator==(const FaultInfo&) const = default;
};

/// The number of planes that a loop over these per-plane vectors of the fault runs to: `geomNum`, or the
/// length of the shortest vector where that is less; none for a negative `geomNum`.
template <class Vector, class... Vectors>
std::size_t PlaneCount(const FaultInfo& fault, const Vector& perPlane, const Vectors&... more) {
  return std::min({static_cast<std::size_t>(std::max(fault.geomNum, 0)), perPlane.size(), more.size()...});
}

}  // namespace tremlo
