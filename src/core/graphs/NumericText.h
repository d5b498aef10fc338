#pragma once

#include "core/graphs/CellNumber.h"

#include <QString>

#include <cstdint>

namespace tremlo {

enum class EntryKind : std::int32_t { Text = 0, Integer = 1, Decimal = 2 };

/// "No limit" of a whole number field; that of a decimal field is kNoNumber. A whole number field whose
/// limits are left at kNoNumber refuses every value.
inline constexpr double kNoIntegerLimit = 2147483648.0;

/// What an entry field takes.
struct EntryRule {
  EntryKind kind = EntryKind::Text;
  std::int32_t maxBytes = 30000;  ///< of the text in CP932; 0 means no limit
  double minValue = kNoNumber, maxValue = kNoNumber;
  double emptyValue = kNoNumber;  ///< value of an empty field, and the value shown as one
  /// Places behind the point; if negative, so many digits before it must be zero.
  std::int32_t decimals = 0;
};

/// A field's text and what of it is selected; without a selection `start` is the caret.
struct EntryState {
  QString text;
  qsizetype start = 0, length = 0;

  QString WithoutSelection() const { return QString(text).remove(start, length); }
};

/// Bytes that a text inserted now may have; the largest 32-bit number if there is no limit.
std::int32_t RoomForText(const EntryRule& rule, const EntryState& state);

/// What of a typed text gets through to the field, character by character: digits, one minus sign at the
/// first place and one point, as the kind has it, and no more than there is room for. Full-width digits,
/// signs and points reach a number field half-width.
QString FilterTyped(const EntryRule& rule, EntryState state, const QString& typed);

/// What a paste brings: the first line of the text, for a number field half-width. Its content is not
/// checked.
QString PastedText(const EntryRule& rule, const QString& text);
bool FitsInto(const EntryRule& rule, const EntryState& state, const QString& text);

enum class EntryFault : std::int32_t { None = 0, NoNumber = 1, OutOfRange = 2, Digits = 3 };

/// Checks a text as the field is left. A text field takes everything, and every field takes the empty text.
EntryFault CheckEntry(const EntryRule& rule, const QString& text);
QString EntryFaultText(const EntryRule& rule, EntryFault fault);

/// The text that shows a value, and the value of a text.
QString EntryText(const EntryRule& rule, double value);
double EntryNumber(const EntryRule& rule, const QString& text);

/// The whole number at the start of a text, saturated at 32 bits; 0 if there is none.
std::int32_t WholeNumberOfText(const QString& text);

}  // namespace tremlo
