#pragma once

#include <QString>

#include <cstdint>

namespace tremlo {

/// The value that an empty cell stands for, and that writes an empty cell.
inline constexpr double kNoNumber = -9e32;
/// The same for whole numbers. The two are never exchanged: each function knows its own one alone.
inline constexpr std::int32_t kNoInteger = -2147483647 - 1;

/// Text of a cell for a value: empty for kNoNumber, else with six, or with so many, places behind the point.
QString NumberToText(double value, int decimals = 6);

/// Text of a cell for a whole number: empty for kNoInteger.
QString IntegerToText(std::int32_t value);

/// The shortest text that reads back to the same double.
QString ShortestText(double value);

/// Value of a cell's text: `fallback` if it is empty, else the number at its start, 0 if there is none.
double NumberOfText(const QString& text, double fallback = kNoNumber);

/// Whether the text of a check cell means checked: it is "1", or one of the two pieces around its first comma
/// is.
bool IsCheckedText(const QString& text);

/// Why a text is no number that a cell could store without cutting something off.
enum class NumberFault { None, TooLarge, Unclear };

/// What a number cell stores of a text: a number as it was written but half-width and without thousands
/// separators, the empty text for a blank, or nothing and the fault.
struct NumberReading {
  QString text;
  NumberFault fault = NumberFault::None;
};

/// How a number cell reads what the user gives it. A word without a number is 0, as a heading is; "inf" is
/// the blank as which it is exported. A number with something behind it, or that is written in another way
/// (1,23 or ▲5), is unclear: a part of it would be another number. One beyond the doubles is too large.
NumberReading ReadNumber(const QString& text);

/// The number that groups of three digits, separated by commas, show; empty for any other text.
QString UngroupedNumber(const QString& text);

/// The text with the full-width digits, signs, points and commas of an input method made half-width, and
/// without blanks at its ends.
QString HalfWidthNumber(const QString& text);

}  // namespace tremlo
