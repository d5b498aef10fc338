// Painting a graph of 65,536 points, the worst case of one wave and the usual one of a spectrum.

#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/JapaneseFont.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace tremlo {
namespace {

constexpr std::size_t kPoints = 65536;
constexpr QSize kSize(1100, 600);

std::vector<double> Noise() {
  std::mt19937 engine(1);
  std::normal_distribution<double> noise(0.0, 120.0);
  std::vector<double> samples(kPoints);
  for (double& sample : samples) sample = noise(engine);
  return samples;
}

void Paint(CDrawGraph& graph, benchmark::State& state) {
  const double ratio = static_cast<double>(state.range(1)) / 100.0;
  QImage image(kSize * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  for (auto _ : state) {
    QPainter painter(&image);
    graph.Draw(painter, QRectF(QPointF(0.0, 0.0), kSize));
  }
}

CurvePen PenOf(const benchmark::State& state, CurveLine line = CurveLine::Solid) {
  return {0xFF3232, static_cast<int>(state.range(0)), line};
}

void PaintWave(benchmark::State& state) {
  CDrawTimeAccGal graph({});
  graph.AddWave(Noise(), 0.005, PenOf(state));
  Paint(graph, state);
}

void PaintWaveDotted(benchmark::State& state) {
  CDrawTimeAccGal graph({});
  graph.AddWave(Noise(), 0.005, PenOf(state, CurveLine::Dotted));
  Paint(graph, state);
}

// 65,536 points at the periods of a Fourier grid, on a logarithmic axis.
void PaintSpectrum(benchmark::State& state) {
  std::vector<double> periods, values;
  for (std::size_t i = 1; i <= kPoints; ++i) {
    periods.push_back(655.36 / static_cast<double>(i));
    values.push_back(600.0 + 400.0 * std::sin(static_cast<double>(i) * 0.01));
  }
  CDrawFreqAccSpec graph({});
  graph.AddSpectrum(periods, values, PenOf(state));
  Paint(graph, state);
}

// The spectra of many planes in both forms, solid and dotted, at the 41 periods of the attenuation tables:
// what the screens of the faults paint whenever a plane is shown or hidden.
void PaintManySpectra(benchmark::State& state) {
  constexpr int kPeriods = 41;
  CDrawFreqAccSpec graph({});
  for (int curve = 0; curve < state.range(0); ++curve) {
    std::vector<double> periods, values;
    for (int i = 0; i < kPeriods; ++i) {
      periods.push_back(10.0 * std::pow(0.002, i / (kPeriods - 1.0)));
      values.push_back((2.0 + curve) * (1.0 + std::sin(i * 0.15) + 0.1 * std::sin(i + curve)));
    }
    graph.AddSpectrum(periods, values,
                      {curve * 4111, 1, curve % 2 == 0 ? CurveLine::Solid : CurveLine::Dotted},
                      QStringLiteral("(%1)(最短距離)断層帯").arg(curve + 1));
  }
  Paint(graph, state);
}

// The candidates of a base spectrum, as long as a record of 164 s makes them. `PeriodsOf` gives each its own.
template <class PeriodsOf>
void PaintCandidates(benchmark::State& state, PeriodsOf periodsOf) {
  constexpr int kPeriods = 8192;
  CDrawFreqAccSpec graph({});
  for (int curve = 0; curve < state.range(0); ++curve) {
    std::vector<double> values;
    for (int i = 0; i < kPeriods; ++i)
      values.push_back((2.0 + curve) * (10.0 + std::sin(i * 0.005) + 0.1 * std::sin(i + curve)));
    graph.AddSpectrum(periodsOf(curve, kPeriods), values, {curve * 4111, 1});
  }
  QImage image(kSize, QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    graph.Draw(painter, QRectF(QPointF(0.0, 0.0), kSize));
  }
}

std::vector<double> CandidatePeriods(int count, double longest) {
  std::vector<double> periods;
  for (int i = 1; i <= count; ++i) periods.push_back(longest / i);
  return periods;
}

void PaintCandidatesOfOwnPeriods(benchmark::State& state) {
  PaintCandidates(state, [](int curve, int count) { return CandidatePeriods(count, 163.84 + 1e-6 * curve); });
}

void PaintCandidatesOfEqualPeriods(benchmark::State& state) {
  PaintCandidates(state, [](int, int count) { return CandidatePeriods(count, 163.84); });
}

// What one move of the mouse costs: the nearest of all points, and a repaint.
void PointAtWave(benchmark::State& state) {
  CDrawTimeAccGal graph({});
  graph.AddWave(Noise(), 0.005, {});
  graph.ComputeRange();
  int x = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(graph.PointAt(QRect(QPoint(), kSize), QPoint(100 + ++x % 900, 300)));
}

// Number of curves, scale of the screen in per cent.
BENCHMARK(PaintManySpectra)
    ->Args({60, 100})
    ->Args({600, 100})
    ->Args({600, 200})
    ->Unit(benchmark::kMillisecond);
// Pen width, scale of the screen in per cent.
BENCHMARK(PaintWave)->Args({1, 100})->Args({2, 100})->Args({5, 100})->Args({2, 200})->Unit(
    benchmark::kMillisecond);
BENCHMARK(PaintWaveDotted)->Args({1, 100})->Args({2, 100})->Unit(benchmark::kMillisecond);
BENCHMARK(PaintSpectrum)
    ->Args({1, 100})
    ->Args({2, 100})
    ->Args({5, 100})
    ->Args({2, 200})
    ->Unit(benchmark::kMillisecond);
// Number of curves; the baseline shares no periods, so that each curve takes its own logarithms.
BENCHMARK(PaintCandidatesOfOwnPeriods)->Name("PaintCandidates/plain")->Arg(27)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintCandidatesOfEqualPeriods)
    ->Name("PaintCandidates/shared")
    ->Arg(27)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PointAtWave)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  tremlo::InstallJapaneseFonts();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
