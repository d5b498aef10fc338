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

/// The text with the full-width digits, signs and points of an input method made half-width, and without
/// blanks at its ends.
QString HalfWidthNumber(const QString& text);

}  // namespace tremlo
