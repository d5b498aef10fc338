#include "core/records/MissingSamples.h"

#include <algorithm>

namespace tremlo {

void FillMissing(std::vector<double>& acc, const std::function<bool(double)>& isMissing) {
  for (std::size_t first = 0; first < acc.size(); ++first) {
    if (!isMissing(acc[first])) continue;
    std::size_t behind = first;
    while (behind < acc.size() && isMissing(acc[behind])) ++behind;
    const double right = behind < acc.size() ? acc[behind] : first > 0 ? acc[first - 1] : 0.0;
    const double left = first > 0 ? acc[first - 1] : right;
    const auto gap = static_cast<double>(behind - first + 1);
    for (std::size_t i = first; i < behind; ++i)
      acc[i] = left + (right - left) * static_cast<double>(i - first + 1) / gap;
    first = behind;
  }
}

void TreatMissing(std::vector<double>& acc, const std::function<bool(double)>& isMissing,
                  const std::function<std::size_t(std::size_t)>& lineOf, const RecordAnswers& answers,
                  RecordReading& reading) {
  const auto count = std::count_if(acc.begin(), acc.end(), isMissing);
  if (count == 0) return;
  const auto first = static_cast<std::size_t>(std::find_if(acc.begin(), acc.end(), isMissing) - acc.begin());
  const auto last =
      static_cast<std::size_t>(acc.rend() - std::find_if(acc.rbegin(), acc.rend(), isMissing)) - 1;
  const QString mark = QString::number(acc[first], 'g', 10);
  const QString lines = QStringLiteral("（%1行目から%2行目）").arg(lineOf(first) + 1).arg(lineOf(last) + 1);
  if (!answers.fillMissing) {
    reading.Ask(RecordAsk::Missing,
                QStringLiteral("欠測の印 %1 が %2 点あります%3。").arg(mark).arg(count).arg(lines));
    return;
  }
  FillMissing(acc, isMissing);
  reading.Warn(
      QStringLiteral("欠測：%1%3の %2 点を前後の値から直線で補いました。").arg(mark).arg(count).arg(lines));
}

}  // namespace tremlo
