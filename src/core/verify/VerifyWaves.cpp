#include "core/verify/VerifyWaves.h"

#include "core/verify/Agreement.h"
#include "core/verify/StoredResults.h"
#include "numeric/waves/ResponseSpectrum.h"

namespace tremlo {

namespace {

QString PeriodPlace(const std::vector<double>& periods, std::size_t index) {
  if (index >= periods.size()) return QStringLiteral("%1 番目").arg(index + 1);
  return QStringLiteral("周期 %1 秒（%2 番目）").arg(QString::number(periods[index], 'g', 6)).arg(index + 1);
}

struct Curve {
  const std::vector<double>& periods;
  const std::vector<double>& values;
};

/// Both lists of a spectrum, each as an item of its own.
void VerifyCurve(const CSeismicWave& wave, std::size_t index, const Curve& stored, const Curve& anew,
                 ResultKind periods, ResultKind values, std::vector<VerifyItem>& items) {
  if (stored.periods.empty() && stored.values.empty() && anew.values.empty()) return;
  items.push_back(RecordItem(periods, index, wave.name));
  TellCurve(items.back(), stored.periods, anew.periods, anew.periods);
  items.push_back(RecordItem(values, index, wave.name));
  TellCurve(items.back(), stored.values, anew.values, anew.periods);
}

}  // namespace

void TellCurve(VerifyItem& item, const std::vector<double>& stored, const std::vector<double>& anew,
               const std::vector<double>& periods) {
  const Agreement agreement = Compare(stored, anew);
  item.outcome = agreement.outcome;
  item.difference = agreement.difference;
  if (agreement.outcome == VerifyOutcome::Equal) return;
  item.at = item.key + u'[' + QString::number(agreement.index) + u']';
  item.place = PeriodPlace(periods, agreement.index);
  item.reason = BothValues(agreement, stored.size(), anew.size());
}

void VerifyWaveSpectrum(const CMorvaneDoc& doc, std::size_t index, std::vector<VerifyItem>& items) {
  const CSeismicWave& wave = doc.seedWaves.At(index);
  if (!wave.spectrumValid) {
    if (wave.periods.empty() && wave.accSpec.empty()) return;
    const QString reason = QStringLiteral(
        "波形が変わった後で計算されていません。保存されているのは前の波形のスペクトルで、次に使うときに計算し"
        "直されます。");
    for (const ResultKind kind : {ResultKind::WavePeriods, ResultKind::WaveSpectrum}) {
      const VerifyItem item = RecordItem(kind, index, wave.name);
      items.push_back(UncheckedItem(item.key, item.name, reason));
    }
    return;
  }
  std::vector<double> periods;
  std::vector<double> values;
  ComputeResponseSpectrum(WithoutBlanks(wave.acc), periods, values, wave.timeStep);
  VerifyCurve(wave, index, {wave.periods, wave.accSpec}, {periods, values}, ResultKind::WavePeriods,
              ResultKind::WaveSpectrum, items);
}

void VerifyAdjustedSpectrum(const CMorvaneDoc& doc, std::size_t index, std::vector<VerifyItem>& items) {
  const CSeismicWave& wave = doc.seedWaves.At(index);
  if (!wave.adjusted) return;
  std::vector<double> periods;
  std::vector<double> values;
  ComputeResponseSpectrum(wave.adjustedAcc, periods, values, wave.timeStep);
  VerifyCurve(wave, index, {wave.adjustedPeriods, wave.adjustedSpec}, {periods, values},
              ResultKind::AdjustedPeriods, ResultKind::AdjustedSpectrum, items);
}

}  // namespace tremlo
