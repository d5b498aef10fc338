#include "core/records/RecordFindings.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

constexpr double kCoarseStep = 0.02;   // s
constexpr double kLargeOffset = 10.0;  // times the PGA
constexpr double kSmallPga = 1.0;      // gal
constexpr double kLargePga = 3500.0;   // gal
constexpr std::size_t kFewSamples = 100;
constexpr std::size_t kManySamples = 65536;
constexpr std::size_t kClipRun = 3;     // samples
constexpr double kRepeatTime = 2.0;     // s
constexpr std::size_t kRepeatRun = 20;  // samples

QString Figure(double value) {
  return QString::number(value, 'g', 4);
}

double Rms(const std::vector<double>& a, std::size_t from) {
  double sum = 0.0;
  for (std::size_t i = from; i < a.size(); ++i) sum += a[i] * a[i];
  return a.size() > from ? std::sqrt(sum / static_cast<double>(a.size() - from)) : 0.0;
}

/// Root mean squares of many parts of a record, however long: each takes two sums.
class PartRms {
 public:
  explicit PartRms(const std::vector<double>& a) : m_sums(a.size() + 1) {
    for (std::size_t i = 0; i < a.size(); ++i) m_sums[i + 1] = m_sums[i] + a[i] * a[i];
  }
  double operator()(std::size_t from, std::size_t to) const {
    return to > from ? std::sqrt((m_sums[to] - m_sums[from]) / static_cast<double>(to - from)) : 0.0;
  }

 private:
  std::vector<double> m_sums;  ///< of the squares before each sample
};

/// What the PGA would be if the numbers were meant in other units. Counts with a factor of their own are in
/// none.
QString WithOtherUnits(const RecordComponent& component, double pga) {
  if (!component.factorText.isEmpty()) return {};
  struct Other {
    const char* name;
    double gal;
  };
  QStringList others;
  for (const Other& other : {Other{"gal", 1.0}, Other{"m/s2", 100.0}, Other{"g", 980.665}})
    if (other.gal != component.factor)
      others << QStringLiteral("%1 なら %2 gal")
                    .arg(QLatin1String(other.name), Figure(pga / component.factor * other.gal));
  return QStringLiteral("（%1）").arg(others.join(u'、'));
}

/// How many times the value stands three or more times in a row.
std::size_t Runs(const std::vector<double>& acc, double value) {
  std::size_t runs = 0;
  std::size_t length = 0;
  for (const double a : acc) {
    length = a == value ? length + 1 : 0;
    if (length == kClipRun) ++runs;
  }
  return runs;
}

/// The first sample that stands out alone; the count when there is none.
std::size_t FindSpike(const std::vector<double>& a, double pga, double timeStep) {
  const auto half = static_cast<std::size_t>(std::clamp(0.5 / timeStep, 1.0, 1e7));
  std::optional<PartRms> rms;  // hardly any record needs it
  for (std::size_t i = 1; i + 1 < a.size(); ++i) {
    const double height = std::fabs(a[i]);
    if (height <= 0.2 * pga || height <= 5.0 * std::fabs(a[i - 1]) || height <= 5.0 * std::fabs(a[i + 1]))
      continue;
    if (!rms) rms.emplace(a);
    const double left = (*rms)(i > half ? i - half : 0, i);
    const double right = (*rms)(i + 1, std::min(a.size(), i + 1 + half));
    if (height > 8.0 * left && height > 8.0 * right) return i;
  }
  return a.size();
}

/// The first sample of a part that comes once more 2 s later; the count when there is none.
std::size_t FindRepeat(const std::vector<double>& acc, const std::vector<double>& rest, double pga,
                       double timeStep) {
  const double lag = kRepeatTime / timeStep;
  if (lag < 1.0 || lag >= static_cast<double>(acc.size())) return acc.size();
  const auto shift = static_cast<std::size_t>(std::llround(lag));
  std::size_t strong = 0;
  std::size_t first = 0;
  for (std::size_t i = 0; i + shift < acc.size(); ++i) {
    if (acc[i] != acc[i + shift]) {
      strong = 0;
      first = i + 1;
      continue;
    }
    if (std::fabs(rest[i]) > 0.05 * pga && ++strong == kRepeatRun) return first;
  }
  return acc.size();
}

}  // namespace

std::vector<QString> FindDoubts(const RecordComponent& component) {
  std::vector<QString> doubts;
  const std::vector<double>& acc = component.acc;
  if (acc.empty() || !std::isfinite(component.factor) || !std::isfinite(component.timeStep)) return doubts;
  if (!std::all_of(acc.begin(), acc.end(), [](double a) { return std::isfinite(a); })) return doubts;
  const QString name = component.name.isEmpty() ? QString() : component.name + QStringLiteral("：");
  const auto say = [&](const QString& text) { doubts.push_back(name + text); };
  const RecordPeak peak = PeakOf(acc);
  std::vector<double> rest(acc);
  for (double& a : rest) a -= peak.mean;
  const std::size_t n = acc.size();
  const double step = component.timeStep;
  const auto at = [&](std::size_t i) { return QString::number(static_cast<double>(i) * step, 'g', 6); };

  if (step > kCoarseStep * (1.0 + 1e-9))
    say(QStringLiteral("時間間隔が粗い：%1 秒では、周期 %2 秒より短い成分を表せません。")
            .arg(Figure(step), Figure(2.0 * step)));
  if (std::fabs(peak.mean) > kLargeOffset * peak.pga)
    say(QStringLiteral("オフセット：平均値 %1 gal が最大加速度 %2 gal の 10 倍を超えています。")
            .arg(Figure(peak.mean), Figure(peak.pga)));
  if (peak.pga < kSmallPga || peak.pga > kLargePga) {
    say(QStringLiteral("単位の疑い：最大加速度が %1 gal です%2。")
            .arg(Figure(peak.pga), WithOtherUnits(component, peak.pga)));
  }
  const auto [smallest, largest] = std::minmax_element(acc.begin(), acc.end());
  if (*smallest != *largest && Runs(acc, *smallest) + Runs(acc, *largest) >= 2)
    say(QStringLiteral("クリップ：%1 gal または %2 gal が 3 点以上続く所があります。")
            .arg(Figure(*smallest), Figure(*largest)));
  if (const std::size_t i = FindSpike(rest, peak.pga, step); i < n)
    say(QStringLiteral("スパイク：%1 秒の値 %2 gal が前後から飛び出しています。").arg(at(i), Figure(acc[i])));
  if (const std::size_t i = FindRepeat(acc, rest, peak.pga, step); i < n)
    say(QStringLiteral("繰り返し区間：%1 秒からの値が 2 秒後と同じです。").arg(at(i)));
  if (const double last = Rms(rest, n - n / 20); last > 0.1 * peak.pga)
    say(QStringLiteral("末尾が静止していない：最後の 5 % の実効値が %1 gal です。").arg(Figure(last)));
  if (std::fabs(rest.front()) > 0.05 * peak.pga)
    say(QStringLiteral("始まりが静止していない：最初の値が平均から %1 gal 離れています。")
            .arg(Figure(rest.front())));
  if (n < kFewSamples) say(QStringLiteral("点数・長さ：%1 点しかありません。").arg(n));
  if (n > kManySamples)
    say(QStringLiteral("点数・長さ：%1 点あり、計算に時間がかかります。静かな両端を切ると速くなります。")
            .arg(n));
  return doubts;
}

}  // namespace tremlo
