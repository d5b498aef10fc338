#include "numeric/sources/FaultDistances.h"

#include <cmath>
#include <cstddef>

namespace tremlo {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kGridStepKm = 2.0;
constexpr double kMostGridPoints = 1e7;
constexpr double kShortestStart = 0.0;
constexpr double kEquivalentStart = 1.0;

/// One plane as seen from a site.
struct PlaneView {
  double wid, len, dep;
  double eastCorner, northCorner;
  double eastSite, northSite;
  double strike, dip;
};

PlaneView ViewOf(const FaultPlanes& planes, std::size_t i, double eastSite, double northSite) {
  return {planes.wid[i], planes.len[i], planes.dep[i], planes.eastCorner[i], planes.northCorner[i],
          eastSite,      northSite,     planes.str[i], planes.dip[i]};
}

/// How many of start, start + 2, ... are not above `size`.
double CountSteps(double size, double start) {
  return size >= start ? std::floor((size - start) / kGridStepKm) + 1.0 : 0.0;
}

double Square(double value) {
  return value * value;
}

/// Calls visit(d²) for each grid point of the plane.
template <class Visit>
void WalkGrid(const PlaneView& plane, double start, Visit visit) {
  const double rows = CountSteps(plane.wid, start);
  const double columns = CountSteps(plane.len, start);
  // The figures of the service come unchecked: infinite sides (even beside a side without points, where the
  // product is not a number) must not keep the walk going.
  const double points = rows * columns;
  if (!(points > 0.0 && points <= kMostGridPoints)) return;

  const double sinStrike = std::sin(plane.strike * kRadiansPerDegree);
  const double cosStrike = std::cos(plane.strike * kRadiansPerDegree);
  const double sinDip = std::sin(plane.dip * kRadiansPerDegree);
  const double cosDip = std::cos(plane.dip * kRadiansPerDegree);
  const auto rowCount = static_cast<int>(rows);
  const auto columnCount = static_cast<int>(columns);
  for (int row = 0; row < rowCount; ++row) {
    const double w = start + kGridStepKm * row;
    const double z = plane.dep + w * sinDip;
    const double c = w * cosDip;
    for (int column = 0; column < columnCount; ++column) {
      const double l = start + kGridStepKm * column;
      const double east = plane.eastCorner + l * sinStrike + c * cosStrike;
      const double north = plane.northCorner + l * cosStrike - c * sinStrike;
      visit(Square(plane.eastSite - east) + Square(plane.northSite - north) + Square(z));
    }
  }
}

double ShortestDistance(const PlaneView& plane) {
  // The root is taken once: it does not change which value is the smallest.
  double least = std::nan("");
  bool isFirst = true;
  WalkGrid(plane, kShortestStart, [&](double square) {
    if (isFirst || square < least) least = square;
    isFirst = false;
  });
  return std::sqrt(least);
}

double EquivalentDistance(const PlaneView& plane) {
  double sum = 0.0;
  double count = 0.0;
  WalkGrid(plane, kEquivalentStart, [&](double square) {
    sum += 1.0 / square;
    count += 1.0;
  });
  return std::sqrt(1.0 / (sum / count));
}

}  // namespace

std::vector<double> PlaneCentreDepth(const std::vector<double>& dep, const std::vector<double>& wid,
                                     const std::vector<double>& dip) {
  std::vector<double> depths(dep.size());
  for (std::size_t i = 0; i < dep.size(); ++i)
    depths[i] = dep[i] + 0.5 * wid[i] * std::sin(dip[i] * kRadiansPerDegree);
  return depths;
}

std::vector<double> PlaneGridDistances(double wid, double len, double dep, double eastCorner,
                                       double northCorner, double eastSite, double northSite, double strike,
                                       double dip, double start) {
  std::vector<double> distances;
  WalkGrid({wid, len, dep, eastCorner, northCorner, eastSite, northSite, strike, dip}, start,
           [&](double square) { distances.push_back(std::sqrt(square)); });
  return distances;
}

std::vector<double> ShortestDistances(const FaultPlanes& planes, double eastSite, double northSite) {
  std::vector<double> distances(planes.dep.size());
  for (std::size_t i = 0; i < distances.size(); ++i)
    distances[i] = ShortestDistance(ViewOf(planes, i, eastSite, northSite));
  return distances;
}

std::vector<double> EquivalentDistances(const FaultPlanes& planes, double eastSite, double northSite) {
  std::vector<double> distances(planes.dep.size());
  for (std::size_t i = 0; i < distances.size(); ++i)
    distances[i] = EquivalentDistance(ViewOf(planes, i, eastSite, northSite));
  return distances;
}

}  // namespace tremlo
