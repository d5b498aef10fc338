#include "core/project/AcquisitionEntries.h"

namespace tremlo {

namespace {

bool IsRefused(const QString& text) {
  return !text.isEmpty() && WholeNumberOfText(text) == kNoInteger;
}

}  // namespace

EntryRule SearchRangeRule() {
  EntryRule rule;
  rule.kind = EntryKind::Integer;
  rule.minValue = kNoIntegerLimit;
  rule.maxValue = kNoIntegerLimit;
  return rule;
}

QString SearchRangeRefusal(const QString& text) {
  // These are the words of the time step's field, and the same here.
  return IsRefused(text) ? QStringLiteral("時間間隔の入力エラーです。") : QString();
}

EntryRule CatastropheWeightRule() {
  EntryRule rule;
  rule.kind = EntryKind::Decimal;
  rule.maxBytes = 10;
  rule.minValue = -1.0;
  rule.maxValue = 1.0;
  rule.decimals = 7;
  return rule;
}

QString CatastropheWeightRefusal(const QString& text) {
  return IsRefused(text) ? QStringLiteral("入力エラーです。") : QString();
}

double EnteredNumber(const QString& text, double stored) {
  return NumberOfText(text, stored);
}

}  // namespace tremlo
