#include "core/batch/BatchPart.h"

#include <QRegularExpression>

namespace tremlo {

std::vector<BatchJob> BatchPart::JobsOf(const std::vector<BatchJob>& jobs) const {
  std::vector<BatchJob> own;
  const auto step = static_cast<std::size_t>(of);
  for (auto i = static_cast<std::size_t>(index - 1); i < jobs.size(); i += step) own.push_back(jobs[i]);
  return own;
}

std::optional<BatchPart> ParsePart(const QString& text) {
  static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,9})/([0-9]{1,9})\\z"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  const BatchPart part{match.captured(1).toInt(), match.captured(2).toInt()};
  if (part.index < 1 || part.index > part.of) return std::nullopt;
  return part;
}

QString SummaryName(const std::optional<BatchPart>& part) {
  return part ? QStringLiteral("summary_%1of%2.csv").arg(part->index).arg(part->of)
              : QStringLiteral("summary.csv");
}

}  // namespace tremlo
