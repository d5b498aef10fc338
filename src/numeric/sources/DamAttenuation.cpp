#include "numeric/sources/DamAttenuation.h"

#include <cmath>

namespace tremlo {

double ShortestDistanceResponse(const DamCoefficients& coef, double amp, double magnitude, double depthKm,
                                double shortestKm) {
  double logS = coef.coefM * magnitude;
  if (magnitude > 5.0) logS += coef.coefM2 * ((5.0 - magnitude) * (5.0 - magnitude));
  logS += coef.coefD * depthKm;
  logS -= std::log10(shortestKm + coef.coefNear * std::pow(10.0, 0.5 * magnitude));
  logS -= (coef.coefDX * depthKm + coef.coefX) * shortestKm;
  logS += coef.coefC;
  return amp * std::pow(10.0, logS);
}

double EquivalentDistanceResponse(const DamCoefficients& coef, double amp, double magnitude, double depthKm,
                                  double equivalentKm) {
  double logS = coef.coefM * magnitude;
  if (magnitude > 6.0) logS += coef.coefM2 * ((6.0 - magnitude) * (6.0 - magnitude));
  logS += coef.coefD * depthKm;
  logS -= std::log10(equivalentKm + coef.coefNear);
  logS -= (coef.coefDX * depthKm + coef.coefX) * equivalentKm;
  logS += coef.coefC;
  return amp * std::pow(10.0, logS);
}

}  // namespace tremlo
