// The attenuation relation for 100 faults of 3 planes, both forms, beside the plain loop of its formula into
// vectors that are there already.

#include "ManyFaults.h"
#include "ProgramFolder.h"
#include "core/sources/DamSpectra.h"

#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstdlib>

namespace tremlo {
namespace {

double PlainLoop(const CMorvaneDoc& doc, const std::array<DamCoefSet, 2>& forms,
                 std::vector<double>& values) {
  double sum = 0.0;
  for (const FaultInfo& fault : doc.faults) {
    const double m = fault.magnitude.toDouble();
    for (std::size_t plane = 0; plane < kPlanesPerFault; ++plane)
      for (const int form : {0, 1}) {
        const DamCoefSet& c = forms[static_cast<std::size_t>(form)];
        const double depth = fault.planeDepth[plane];
        const double x = form == 0 ? fault.shortestDistance[plane] : fault.equivalentDistance[plane];
        const double limit = form == 0 ? 5.0 : 6.0;
        values.resize(c.period.size());
        for (std::size_t j = 0; j < c.period.size(); ++j) {
          const double near = form == 0 ? c.coefNear[j] * std::pow(10.0, 0.5 * m) : c.coefNear[j];
          const double squared = m > limit ? c.coefM2[j] * (limit - m) * (limit - m) : 0.0;
          const double log = c.coefM[j] * m + squared + c.coefD[j] * depth - std::log10(x + near) -
                             (c.coefDX[j] * depth + c.coefX[j]) * x + c.coefC[j];
          values[j] = c.ampA[j] * std::pow(10.0, log);
        }
        sum += values.front();
      }
  }
  return sum;
}

template <class Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Relation(benchmark::State& state) {
  const ProgramFolder folder;
  CMorvaneDoc doc(folder.Path());
  if (doc.ResetDocument()) std::abort();
  doc.faults = ManyFaults();
  std::array<DamCoefSet, 2> forms;
  if (FetchDamCoefficients(doc.damCoefSets, doc.attenuationMethod, forms[0], forms[1])) std::abort();
  std::vector<double> values;
  double own = 0.0;
  double plain = 0.0;
  for (auto _ : state) {
    plain += Seconds([&] { benchmark::DoNotOptimize(PlainLoop(doc, forms, values)); });
    const double seconds = Seconds([&] {
      if (CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults)) std::abort();
    });
    own += seconds;
    state.SetIterationTime(seconds);
  }
  state.counters["plain_ms"] = plain / static_cast<double>(state.iterations()) * 1000.0;
  state.counters["ratio"] = own / plain;
}
BENCHMARK(Relation)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
