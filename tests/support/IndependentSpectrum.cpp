#include "support/IndependentSpectrum.h"

#include <array>
#include <cmath>

namespace tremlo::test {

namespace {

using Real = long double;
using Matrix = std::array<Real, 4>;  // row by row

Matrix Multiply(const Matrix& a, const Matrix& b) {
  return {a[0] * b[0] + a[1] * b[2], a[0] * b[1] + a[1] * b[3], a[2] * b[0] + a[3] * b[2],
          a[2] * b[1] + a[3] * b[3]};
}

/// exp of a 2 x 2 matrix of norm up to about 10, by the series of a 1/1024 part and ten squarings.
Matrix Exponential(Matrix m) {
  constexpr int kSquarings = 10;
  for (Real& element : m) element = std::ldexp(element, -kSquarings);
  Matrix sum = {1.0L, 0.0L, 0.0L, 1.0L};
  Matrix term = sum;
  for (int n = 1; n < 30; ++n) {
    term = Multiply(term, m);
    for (std::size_t i = 0; i < 4; ++i) {
      term[i] /= n;
      sum[i] += term[i];
    }
  }
  for (int i = 0; i < kSquarings; ++i) sum = Multiply(sum, sum);
  return sum;
}

/// Integral over [0, length] by 20-point Gauss-Legendre quadrature; the points come from Newton's iteration
/// on the Legendre polynomial.
template <class F>
Real Integrate(Real length, F f) {
  constexpr int kPoints = 20;
  const Real pi = std::acos(-1.0L);
  Real sum = 0.0L;
  for (int i = 0; i < kPoints; ++i) {
    Real x = std::cos(pi * (i + 0.75L) / (kPoints + 0.5L));
    Real derivative = 1.0L;
    for (int iteration = 0; iteration < 50; ++iteration) {
      Real p0 = 1.0L;
      Real p1 = x;
      for (int n = 2; n <= kPoints; ++n) {
        const Real p2 = ((2 * n - 1) * x * p1 - (n - 1) * p0) / n;
        p0 = p1;
        p1 = p2;
      }
      derivative = kPoints * (x * p1 - p0) / (x * x - 1.0L);
      const Real step = p1 / derivative;
      x -= step;
      if (std::fabs(step) < 1e-19L) break;
    }
    const Real weight = 2.0L / ((1.0L - x * x) * derivative * derivative);
    sum += weight * f(length * (x + 1.0L) / 2.0L);
  }
  return sum * length / 2.0L;
}

}  // namespace

double IndependentPeak(const std::vector<double>& acc, double frequency, double timeStep,
                       LoadIntegral integral) {
  const Real omega = 2.0L * std::acos(-1.0L) * frequency;
  const Real c = 0.05L * omega;
  const Real damped = std::sqrt(0.9975L) * omega;
  const Real dt = timeStep;
  const Matrix step = Exponential({0.0L, dt, -omega * omega * dt, -2.0L * c * dt});

  const auto g = [&](Real s) { return std::exp(-c * s) * std::sin(damped * s); };
  const auto h = [&](Real s) { return std::exp(-c * s) * std::cos(damped * s); };
  const Real p = Integrate(dt, g);
  const Real q = Integrate(dt, h);
  const Real r = Integrate(dt, [&](Real s) { return s * g(s); });
  Real t = Integrate(dt, [&](Real s) { return s * h(s); });
  if (integral == LoadIntegral::MethodsOwn) t += 2.0L * damped * p / (omega * omega);

  // Duhamel's integrals with the load a1 + (a0 - a1)·s/dt, s counted back from the end of the step.
  const Real x1 = -(p - r / dt) / damped;
  const Real x0 = -(r / dt) / damped;
  const Real v1 = -((-c * p + damped * q) - (-c * r + damped * t) / dt) / damped;
  const Real v0 = -((-c * r + damped * t) / dt) / damped;

  Real x = 0.0L;
  Real v = -static_cast<Real>(acc[0]) * dt;
  Real peak = 0.0L;
  for (std::size_t k = 0; k + 1 < acc.size(); ++k) {
    const Real a0 = acc[k];
    const Real a1 = acc[k + 1];
    const Real nextX = step[0] * x + step[1] * v + x1 * a1 + x0 * a0;
    const Real nextV = step[2] * x + step[3] * v + v1 * a1 + v0 * a0;
    peak = std::fmax(peak, std::fabs(2.0L * c * nextV + omega * omega * nextX));
    x = nextX;
    v = nextV;
  }
  return static_cast<double>(peak);
}

}  // namespace tremlo::test
