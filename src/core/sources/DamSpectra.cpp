#include "core/sources/DamSpectra.h"

#include "core/files/TextScan.h"
#include "numeric/sources/DamAttenuation.h"

#include <algorithm>

namespace tremlo {

namespace {

using Response = double (*)(const DamCoefficients&, double amp, double magnitude, double depthKm,
                            double distanceKm);

/// What the relation takes for one plane.
struct PlaneInput {
  QString groundClass;
  double magnitude = 0.0;
  double depthKm = 0.0;
  double distanceKm = 0.0;
};

/// The factor column of a ground class; none for a text that is no class.
const std::vector<double>* FactorsOf(const DamCoefSet& set, const QString& groundClass) {
  if (groundClass == u"A") return &set.ampA;
  if (groundClass == u"B") return &set.ampB;
  if (groundClass == u"C") return &set.ampC;
  if (groundClass == u"D") return &set.ampD;
  return nullptr;
}

DamCoefficients RowOf(const DamCoefSet& set, std::size_t j) {
  return {set.coefM[j],  set.coefM2[j], set.coefD[j],   set.coefX[j],
          set.coefDX[j], set.coefC[j],  set.coefNear[j]};
}

void ComputeSpectrum(const DamCoefSet& set, Response response, const PlaneInput& plane,
                     std::vector<double>& periods, std::vector<double>& spectrum) {
  periods.clear();
  spectrum.clear();
  const std::vector<double>* factors = FactorsOf(set, plane.groundClass);
  if (!factors) return;
  periods = set.period;
  for (std::size_t j = 0; j < periods.size(); ++j)
    spectrum.push_back(
        response(RowOf(set, j), (*factors)[j], plane.magnitude, plane.depthKm, plane.distanceKm));
  if (!periods.empty() && periods.back() > periods.front()) {
    std::reverse(periods.begin(), periods.end());
    std::reverse(spectrum.begin(), spectrum.end());
  }
}

void ComputeFaultSpectra(const DamCoefSet& form0, const DamCoefSet& form1, FaultInfo& fault) {
  const double magnitude = TextToDouble(fault.magnitude);
  const std::size_t count = PlaneCount(fault, fault.groundClass, fault.planeDepth, fault.shortestDistance,
                                       fault.equivalentDistance);
  for (auto* slots :
       {&fault.shortestPeriods, &fault.shortestSpectrum, &fault.equivalentPeriods, &fault.equivalentSpectrum})
    slots->resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    PlaneInput plane{fault.groundClass[i], magnitude, fault.planeDepth[i], fault.shortestDistance[i]};
    ComputeSpectrum(form0, ShortestDistanceResponse, plane, fault.shortestPeriods[i],
                    fault.shortestSpectrum[i]);
    plane.distanceKm = fault.equivalentDistance[i];
    ComputeSpectrum(form1, EquivalentDistanceResponse, plane, fault.equivalentPeriods[i],
                    fault.equivalentSpectrum[i]);
  }
}

}  // namespace

std::optional<TableFailure> FetchDamCoefficients(const std::vector<DamCoefSet>& sets, const QString& method,
                                                 DamCoefSet& form0, DamCoefSet& form1) {
  for (const DamCoefSet& set : sets) {
    if (set.method != method) continue;
    if (set.distanceKind != 0 && set.distanceKind != 1)
      return TableFailure{QStringLiteral("ダム距離減衰式の係数取得においてエラーが発生しました。"), 1};
    (set.distanceKind == 0 ? form0 : form1) = set;
  }
  return std::nullopt;
}

std::optional<TableFailure> CalculateDamSpectra(const std::vector<DamCoefSet>& sets, const QString& method,
                                                std::vector<FaultInfo>& faults) {
  DamCoefSet form0;
  DamCoefSet form1;
  if (auto failure = FetchDamCoefficients(sets, method, form0, form1)) return failure;
  for (FaultInfo& fault : faults) ComputeFaultSpectra(form0, form1, fault);
  return std::nullopt;
}

}  // namespace tremlo
