#pragma once

#include <vector>

namespace tremlo {

/// The rectangular planes of a fault, one element per plane in every vector. The corner is the start of the
/// upper edge in a plane rectangular system; the plane runs from it along the strike (clockwise from north)
/// and dips to the right of that direction.
struct FaultPlanes {
  std::vector<double> eastCorner, northCorner;  ///< km
  std::vector<double> dep, len, wid;            ///< depth of the upper edge, length, width down dip, km
  std::vector<double> str, dip;                 ///< degrees
};

/// D: the depth of the centre of each plane, km.
std::vector<double> PlaneCentreDepth(const std::vector<double>& dep, const std::vector<double>& wid,
                                     const std::vector<double>& dip);

/// Distances (km) from a site on the surface to the points of one plane, on a grid of 2 km that begins
/// `start` km from the corner along both sides and ends with the sides; row by row down dip. Lengths in km,
/// angles in degrees. A side shorter than `start` leaves no point. A plane of more than 1e7 points, larger
/// than any on earth, counts as one without points.
std::vector<double> PlaneGridDistances(double wid, double len, double dep, double eastCorner,
                                       double northCorner, double eastSite, double northSite, double strike,
                                       double dip, double start);

/// X, km, for each plane: the smallest distance to its grid that begins at the corner. The far edges belong
/// to the grid only where the side is an even number of km. Not a number for a plane without points.
std::vector<double> ShortestDistances(const FaultPlanes& planes, double eastSite, double northSite);

/// Xeq, km, for each plane: sqrt(n / Σ 1/d²) over the n points of its grid that begins 1 km from the corner,
/// the centres of cells of 2 km. Every cell weighs the same. Not a number for a plane without points, which
/// is one with a side below 1 km.
std::vector<double> EquivalentDistances(const FaultPlanes& planes, double eastSite, double northSite);

}  // namespace tremlo
