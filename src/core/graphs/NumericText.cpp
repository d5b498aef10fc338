#include "core/graphs/NumericText.h"

#include "core/files/Cp932Text.h"
#include "core/files/NumberText.h"
#include "core/files/TextScan.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tremlo {

namespace {

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

std::int64_t BytesOf(const QString& text) {
  return static_cast<std::int64_t>(EncodeCp932(text).size());
}

bool TakesCharacter(EntryKind kind, const EntryState& state, const QString& character) {
  if (kind == EntryKind::Text) return true;
  if (character.size() != 1) return false;
  const QChar c = character[0];
  if (IsDigit(c)) return true;
  const QString rest = state.WithoutSelection();
  if (c == u'-') return state.start == 0 && !rest.contains(u'-');
  return c == u'.' && kind == EntryKind::Decimal && !rest.contains(u'.');
}

bool IsNumberText(const QString& text, bool withPoint) {
  bool point = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (IsDigit(text[i]) || (i == 0 && text[i] == u'-')) continue;
    if (!withPoint || point || text[i] != u'.') return false;
    point = true;
  }
  return true;
}

bool IsWithin(double value, double low, double high, double none) {
  return (low == none || value >= low) && (high == none || value <= high);
}

/// Whole numbers are compared as such; the limits stay doubles, since a field's -9e32 has no place in an
/// integer.
bool IsInRange(const EntryRule& rule, const QString& text) {
  if (rule.kind == EntryKind::Decimal)
    return IsWithin(TextToDouble(text), rule.minValue, rule.maxValue, kNoNumber);
  return IsWithin(WholeNumberOfText(text), std::trunc(rule.minValue), std::trunc(rule.maxValue),
                  kNoIntegerLimit);
}

bool HasZerosFrom(const QString& text, qsizetype from) {
  const qsizetype sign = text.startsWith(u'-') ? 1 : 0;
  const auto first = text.begin() + std::clamp(from, sign, text.size());
  return std::all_of(first, text.end(), [](QChar c) { return c == u'0' || c == u'.'; });
}

bool HasAllowedDigits(const QString& text, std::int32_t decimals) {
  const qsizetype point = text.indexOf(u'.');
  if (decimals >= 0) return point < 0 || HasZerosFrom(text, point + 1 + decimals);
  return HasZerosFrom(text, (point < 0 ? text.size() : point) + decimals);
}

}  // namespace

std::int32_t RoomForText(const EntryRule& rule, const EntryState& state) {
  if (rule.maxBytes <= 0) return std::numeric_limits<std::int32_t>::max();
  const std::int64_t room = rule.maxBytes - BytesOf(state.WithoutSelection());
  return static_cast<std::int32_t>(std::max<std::int64_t>(room, 0));
}

QString FilterTyped(const EntryRule& rule, EntryState state, const QString& typed) {
  const QString text = rule.kind == EntryKind::Text ? typed : HalfWidthNumber(typed);
  QString passed;
  for (qsizetype i = 0; i < text.size();) {
    const qsizetype units = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    const QString character = text.mid(i, units);
    i += units;
    if (!TakesCharacter(rule.kind, state, character) || !FitsInto(rule, state, character)) continue;
    passed += character;
    state.text = state.text.replace(state.start, state.length, character);
    state.start += units;
    state.length = 0;
  }
  return passed;
}

QString PastedText(const EntryRule& rule, const QString& text) {
  const auto lineEnd =
      std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
  const QString line = text.left(lineEnd - text.begin());
  return rule.kind == EntryKind::Text ? line : HalfWidthNumber(line);
}

bool FitsInto(const EntryRule& rule, const EntryState& state, const QString& text) {
  return rule.maxBytes <= 0 || BytesOf(text) <= RoomForText(rule, state);
}

EntryFault CheckEntry(const EntryRule& rule, const QString& text) {
  if (rule.kind == EntryKind::Text || text.isEmpty()) return EntryFault::None;
  if (!IsNumberText(text, rule.kind == EntryKind::Decimal)) return EntryFault::NoNumber;
  if (!IsInRange(rule, text)) return EntryFault::OutOfRange;
  if (rule.kind == EntryKind::Decimal && !std::isfinite(TextToDouble(text))) return EntryFault::NoNumber;
  return HasAllowedDigits(text, rule.decimals) ? EntryFault::None : EntryFault::Digits;
}

QString EntryFaultText(const EntryRule& rule, EntryFault fault) {
  switch (fault) {
    case EntryFault::None:
      return {};
    case EntryFault::NoNumber:
      return QStringLiteral("値が正しくありません。\n\n（数値を入力してください。）");
    case EntryFault::OutOfRange:
      return QStringLiteral("数値が範囲外です。\n\n（%1 ～ %2 までの範囲で入力してください。）")
          .arg(FixedText(rule.minValue, rule.decimals), FixedText(rule.maxValue, rule.decimals));
    case EntryFault::Digits:
      break;
  }
  if (rule.decimals < 0)
    return QStringLiteral("整数部下 %1桁 はゼロで入力してください。").arg(-rule.decimals);
  return QStringLiteral("少数桁がオーバーしています。\n\n（少数 %1桁 以内で入力してください。）")
      .arg(rule.decimals);
}

QString EntryText(const EntryRule& rule, double value) {
  return value == rule.emptyValue ? QString() : FixedText(value, rule.decimals);
}

double EntryNumber(const EntryRule& rule, const QString& text) {
  return NumberOfText(text, rule.emptyValue);
}

std::int32_t WholeNumberOfText(const QString& text) {
  const std::string bytes = text.toStdString();
  std::int32_t value = 0;
  LineScanner(bytes).Whole(value);
  return value;
}

}  // namespace tremlo
