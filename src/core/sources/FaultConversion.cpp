#include "core/sources/FaultConversion.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"
#include "core/location/Coordinates.h"
#include "numeric/sources/FaultDistances.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kMetresPerKm = 1000.0;

std::vector<double> ToNumbers(const std::vector<QString>& texts, std::size_t count) {
  std::vector<double> numbers(count);
  std::transform(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(count), numbers.begin(),
                 TextToDouble);
  return numbers;
}

}  // namespace

std::size_t RectangleCount(const FaultInfo& fault) {
  return PlaneCount(fault, fault.lon, fault.lat, fault.dep, fault.len, fault.wid, fault.str, fault.dip);
}

void ConvertMagnitude(FaultInfo& fault, const QString& text) {
  const double value = TextToDouble(text);
  fault.magnitude = value < 0.0 ? FixedText((std::fabs(value) - 1.08) / 0.78, 2) : text;
}

void ComputeFaultDistances(FaultInfo& fault, int zone, double eastSiteKm, double northSiteKm) {
  const std::size_t count = RectangleCount(fault);
  FaultPlanes planes;
  planes.dep = ToNumbers(fault.dep, count);
  planes.len = ToNumbers(fault.len, count);
  planes.wid = ToNumbers(fault.wid, count);
  planes.dip = ToNumbers(fault.dip, count);
  planes.str = ToNumbers(fault.str, count);
  const std::vector<double> lon = ToNumbers(fault.lon, count);
  const std::vector<double> lat = ToNumbers(fault.lat, count);
  for (std::size_t i = 0; i < count; ++i) {
    const PlanePoint corner = ToPlaneRectangular(zone, lat[i], lon[i]);
    planes.eastCorner.push_back(corner.easting / kMetresPerKm);
    planes.northCorner.push_back(corner.northing / kMetresPerKm);
  }
  fault.planeDepth = PlaneCentreDepth(planes.dep, planes.wid, planes.dip);
  fault.shortestDistance = ShortestDistances(planes, eastSiteKm, northSiteKm);
  fault.equivalentDistance = EquivalentDistances(planes, eastSiteKm, northSiteKm);
}

}  // namespace tremlo
