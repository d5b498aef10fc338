#include "core/verify/StoredResults.h"

#include <algorithm>
#include <array>

namespace tremlo {

namespace {

constexpr std::array kResults = {
    StoredResult{ResultKind::WavePeriods, "seedWaves", "periods", u"加速度応答スペクトルの周期"},
    StoredResult{ResultKind::WaveSpectrum, "seedWaves", "accSpec", u"加速度応答スペクトル"},
    StoredResult{ResultKind::WaveArea, "seedWaves", "spectrumArea", u"加速度応答スペクトルの面積"},
    StoredResult{ResultKind::AdjustedWave, "seedWaves", "adjustedAcc", u"調整後波形"},
    StoredResult{ResultKind::AdjustedPeriods, "seedWaves", "adjustedPeriods",
                 u"調整後波形の加速度応答スペクトルの周期"},
    StoredResult{ResultKind::AdjustedSpectrum, "seedWaves", "adjustedSpec",
                 u"調整後波形の加速度応答スペクトル"},
    StoredResult{ResultKind::PlaneDepth, "faults", "planeDepth", u"断層面の中心の深さ"},
    StoredResult{ResultKind::ShortestDistance, "faults", "shortestDistance", u"断層面までの最短距離"},
    StoredResult{ResultKind::EquivalentDistance, "faults", "equivalentDistance", u"断層面までの等価震源距離"},
    StoredResult{ResultKind::ShortestPeriods, "faults", "shortestPeriods",
                 u"距離減衰式によるスペクトルの周期（最短距離）"},
    StoredResult{ResultKind::ShortestSpectrum, "faults", "shortestSpectrum",
                 u"距離減衰式によるスペクトル（最短距離）"},
    StoredResult{ResultKind::ShortestArea, "faults", "shortArea",
                 u"距離減衰式によるスペクトルの面積（最短距離）"},
    StoredResult{ResultKind::EquivalentPeriods, "faults", "equivalentPeriods",
                 u"距離減衰式によるスペクトルの周期（等価震源距離）"},
    StoredResult{ResultKind::EquivalentSpectrum, "faults", "equivalentSpectrum",
                 u"距離減衰式によるスペクトル（等価震源距離）"},
    StoredResult{ResultKind::EquivalentArea, "faults", "equivArea",
                 u"距離減衰式によるスペクトルの面積（等価震源距離）"},
    StoredResult{ResultKind::LowerArea, "lowerSpectra", "spectrumArea", u"下限スペクトルの面積"}};

}  // namespace

std::span<const StoredResult> StoredResults() {
  return kResults;
}

const StoredResult& StoredResultOf(ResultKind kind) {
  return *std::find_if(kResults.begin(), kResults.end(),
                       [kind](const StoredResult& result) { return result.kind == kind; });
}

VerifyItem RecordItem(ResultKind kind, std::size_t index, const QString& recordName) {
  const StoredResult& result = StoredResultOf(kind);
  VerifyItem item;
  item.key = QString::fromLatin1(result.list) + u'[' + QString::number(index) + QStringLiteral("].") +
             QLatin1String(result.member);
  item.name = u'「' + recordName + QStringLiteral("」の") + QString::fromUtf16(result.name);
  return item;
}

VerifyItem PlanesItem(ResultKind kind) {
  const StoredResult& result = StoredResultOf(kind);
  VerifyItem item;
  item.key = QString::fromLatin1(result.list) + u'.' + QLatin1String(result.member);
  item.name = QString::fromUtf16(result.name);
  return item;
}

}  // namespace tremlo
