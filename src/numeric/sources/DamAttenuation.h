#pragma once

namespace tremlo {

/// Coefficients of one form of the dam attenuation relation at one period, named as in the tables.
struct DamCoefficients {
  double coefM = 0.0;     ///< on the magnitude
  double coefM2 = 0.0;    ///< on the squared excess of the magnitude
  double coefD = 0.0;     ///< on the depth
  double coefX = 0.0;     ///< on the distance
  double coefDX = 0.0;    ///< on depth times distance
  double coefC = 0.0;     ///< constant
  double coefNear = 0.0;  ///< of the near-source term
};

/// The acceleration response (gal, 5 % damping) of the dam attenuation relation at one period: `amp`, the
/// factor of the ground class, times 10 to the power of log S. The two forms differ in the magnitude above
/// which the squared term is taken, in the near-source term and in their distance; they are not one formula.
/// Nothing is checked: a logarithm of zero or less gives what the floating-point functions give. M without a
/// dimension, depth of the plane's centre and distances in km.

/// Form 0, on the shortest distance X. The squared term is (5 - M)², for M > 5.
double ShortestDistanceResponse(const DamCoefficients& coef, double amp, double magnitude, double depthKm,
                                double shortestKm);

/// Form 1, on the equivalent hypocentral distance Xeq. The squared term is (6 - M)², for M > 6.
double EquivalentDistanceResponse(const DamCoefficients& coef, double amp, double magnitude, double depthKm,
                                  double equivalentKm);

}  // namespace tremlo
