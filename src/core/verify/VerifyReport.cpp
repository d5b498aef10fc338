#include "core/verify/VerifyReport.h"

#include <algorithm>
#include <limits>

namespace tremlo {

VerifyOutcome OutcomeOf(const std::vector<VerifyItem>& items) {
  const auto any = [&](VerifyOutcome outcome) {
    return std::any_of(items.begin(), items.end(),
                       [outcome](const VerifyItem& item) { return item.outcome == outcome; });
  };
  for (const VerifyOutcome outcome : {VerifyOutcome::Differs, VerifyOutcome::Close, VerifyOutcome::Equal})
    if (any(outcome)) return outcome;
  return items.empty() ? VerifyOutcome::Equal : VerifyOutcome::Unchecked;
}

QString OutcomeText(VerifyOutcome outcome) {
  switch (outcome) {
    case VerifyOutcome::Equal:
      return QStringLiteral("一致");
    case VerifyOutcome::Close:
      return QStringLiteral("1e-9 以内で一致");
    case VerifyOutcome::Differs:
      return QStringLiteral("相違");
    case VerifyOutcome::Unchecked:
      break;
  }
  return QStringLiteral("確認できない");
}

const char* OutcomeWord(VerifyOutcome outcome) {
  switch (outcome) {
    case VerifyOutcome::Equal:
      return "equal";
    case VerifyOutcome::Close:
      return "close";
    case VerifyOutcome::Differs:
      return "differs";
    case VerifyOutcome::Unchecked:
      break;
  }
  return "unchecked";
}

VerifyItem UncheckedItem(const QString& key, const QString& name, const QString& reason) {
  VerifyItem item;
  item.key = key;
  item.name = name;
  item.outcome = VerifyOutcome::Unchecked;
  item.difference = std::numeric_limits<double>::quiet_NaN();
  item.reason = reason;
  return item;
}

}  // namespace tremlo
