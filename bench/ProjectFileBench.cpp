// A large project, written to and read from memory. The measure is the plain copy of as many bytes into fresh
// memory, taken in turn with each run: both shares of the machine change alike.

#include "core/project/ProjectFile.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tremlo {
namespace {

constexpr double kLeastShareOfCopy = 1.0 / 3.0;

std::vector<double> Wave(std::size_t count, double phase) {
  std::vector<double> values(count);
  for (std::size_t i = 0; i < count; ++i) values[i] = 100.0 * std::sin(0.01 * static_cast<double>(i) + phase);
  return values;
}

FaultInfo Fault(int rank) {
  constexpr std::size_t kPlanes = 3;
  constexpr std::size_t kPeriods = 92;
  FaultInfo fault;
  fault.rank = QString::number(rank);
  fault.ltecode = QStringLiteral("F%1").arg(rank, 6, 10, QChar(u'0'));
  fault.ltename = QStringLiteral("断層帯 %1").arg(rank);
  for (QString* text : {&fault.magnitude, &fault.ijma, &fault.i45_ps, &fault.i50_ps, &fault.i55_ps,
                        &fault.i60_ps, &fault.avract, &fault.newact, &fault.t30p, &fault.t50p, &fault.magu})
    *text = QStringLiteral("7.25");
  fault.geomNum = kPlanes;
  fault.groundClass.assign(kPlanes, QStringLiteral("A"));
  for (std::vector<QString>* texts :
       {&fault.lon, &fault.lat, &fault.dep, &fault.len, &fault.wid, &fault.str, &fault.dip})
    texts->assign(kPlanes, QStringLiteral("136.12345"));
  for (std::vector<double>* numbers :
       {&fault.corner1Lon, &fault.corner1Lat, &fault.corner1Dep, &fault.corner2Lon, &fault.corner2Lat,
        &fault.corner2Dep, &fault.corner3Lon, &fault.corner3Lat, &fault.corner3Dep, &fault.corner4Lon,
        &fault.corner4Lat, &fault.corner4Dep, &fault.planeDepth, &fault.furtherA, &fault.furtherB,
        &fault.shortestDistance, &fault.equivalentDistance, &fault.shortArea, &fault.equivArea})
    numbers->assign(kPlanes, 12.5);
  for (auto* rows :
       {&fault.shortestPeriods, &fault.shortestSpectrum, &fault.equivalentPeriods, &fault.equivalentSpectrum})
    rows->assign(kPlanes, Wave(kPeriods, rank));
  for (auto* colors : {&fault.attenColor, &fault.shortBaseColor, &fault.equivBaseColor})
    colors->assign(kPlanes, 0xFF);
  for (auto* flags :
       {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.shortBaseSelected,
        &fault.equivBaseShow, &fault.equivBaseSelected, &fault.adjustShow, &fault.adjustShowEquiv})
    flags->assign(kPlanes, true);
  return fault;
}

/// Gives freed memory back to the system, so that a read takes its memory as fresh as the copy does.
void DropFreedMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

/// 20 adjusted waves of 65,536 samples and 100 faults of 3 planes. The folder has no tables.
CMorvaneDoc LargeProject(const QString& folder) {
  constexpr std::size_t kSamples = 65'536;
  CMorvaneDoc doc(folder);
  doc.ResetDocument();
  for (int i = 0; i < 20; ++i) {
    doc.seedWaves.Add(QStringLiteral("波形 %1").arg(i + 1));
    CSeismicWave& wave = doc.seedWaves.At(doc.seedWaves.Count() - 1);
    wave.timeStep = 0.01;
    wave.acc = wave.adjustedAcc = Wave(kSamples, i);
    wave.periods = wave.accSpec = wave.adjustedPeriods = wave.adjustedSpec = Wave(kSamples / 2, i);
    wave.spectrumValid = wave.adjusted = true;
  }
  for (int i = 0; i < 100; ++i) doc.faults.push_back(Fault(i + 1));
  return doc;
}

class LargeProjectBench : public benchmark::Fixture {
 public:
  LargeProjectBench() : m_doc(LargeProject(m_folder.path())), m_bytes(ProjectBytes(m_doc)) {}

 protected:
  template <class Work>
  static double Seconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  double CopySeconds() const {
    return Seconds([&] {
      const std::unique_ptr<char[]> copy(new char[m_bytes.size()]);
      std::memcpy(copy.get(), m_bytes.data(), m_bytes.size());
      benchmark::DoNotOptimize(copy.get());
      benchmark::ClobberMemory();
    });
  }

  /// Times `work` and a copy in turn.
  template <class Work>
  void Compare(benchmark::State& state, Work work) const {
    double workSeconds = 0.0;
    double copySeconds = 0.0;
    for ([[maybe_unused]] auto _ : state) {
      DropFreedMemory();
      copySeconds += CopySeconds();
      const double seconds = Seconds(work);
      state.SetIterationTime(seconds);
      workSeconds += seconds;
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(m_bytes.size()));
    const double share = copySeconds / workSeconds;
    state.counters["memcpy_ratio"] = share;
    if (share < kLeastShareOfCopy) state.SkipWithError("slower than a third of a copy");
  }

  QTemporaryDir m_folder;
  CMorvaneDoc m_doc;
  std::string m_bytes;
};

BENCHMARK_DEFINE_F(LargeProjectBench, WriteToMemory)(benchmark::State& state) {
  Compare(state, [&] { benchmark::DoNotOptimize(ProjectBytes(m_doc)); });
}
BENCHMARK_REGISTER_F(LargeProjectBench, WriteToMemory)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(LargeProjectBench, ReadFromMemory)(benchmark::State& state) {
  Compare(state, [&] {
    CMorvaneDoc doc(m_folder.path());
    if (!LoadProject(doc, m_bytes).whole) state.SkipWithError("not read");
    benchmark::DoNotOptimize(doc);
  });
}
BENCHMARK_REGISTER_F(LargeProjectBench, ReadFromMemory)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(LargeProjectBench, SaveWithFlushToDisk)(benchmark::State& state) {
  const QString path = m_folder.filePath(QStringLiteral("p.trml"));
  for ([[maybe_unused]] auto _ : state)
    if (!SaveProject(m_doc, path)) state.SkipWithError("not saved");
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(m_bytes.size()));
}
BENCHMARK_REGISTER_F(LargeProjectBench, SaveWithFlushToDisk)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
