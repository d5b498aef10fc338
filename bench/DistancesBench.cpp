// Both distances of one large plane, 300 km by 100 km: 15,201 grid points. To stay below 100 microseconds.

#include "core/location/Coordinates.h"
#include "numeric/sources/FaultDistances.h"

#include <benchmark/benchmark.h>

namespace tremlo {
namespace {

FaultPlanes LargePlane() {
  return {.eastCorner = {-120.0},
          .northCorner = {-80.0},
          .dep = {10.0},
          .len = {300.0},
          .wid = {100.0},
          .str = {35.0},
          .dip = {15.0}};
}

void PlaneDistances(benchmark::State& state) {
  const FaultPlanes planes = LargePlane();
  for (auto _ : state) {
    benchmark::DoNotOptimize(ShortestDistances(planes, 3.0, 4.0));
    benchmark::DoNotOptimize(EquivalentDistances(planes, 3.0, 4.0));
  }
}
BENCHMARK(PlaneDistances)->Unit(benchmark::kMicrosecond);

void ProjectionOfACorner(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ToPlaneRectangular(9, 36.1, 139.9));
}
BENCHMARK(ProjectionOfACorner)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
