#pragma once

#include <QString>

#include <cstdint>
#include <string_view>

namespace tremlo {

/// Reads a line field by field, as a scan with "%lf", "%ld" and literal commas does, always in the C locale:
/// blanks before a number are skipped, blanks before a comma are not. Every step returns false, and leaves
/// its target as it was, when the text does not match; the caller stops there, so that later targets keep
/// their values.
class LineScanner {
 public:
  explicit LineScanner(std::string_view line) : m_rest(line) {}

  bool Number(double& value);       ///< "%lf": decimal, hexadecimal, "inf" and "nan" too
  bool Whole(std::int32_t& value);  ///< "%ld", saturated at the limits of 32 bits
  bool Literal(char expected);      ///< one character
  std::string_view Rest() const { return m_rest; }

 private:
  void SkipBlanks();

  std::string_view m_rest;
};

/// The number at the start of the text, the rest ignored; 0 for a text that starts with none.
double TextToDouble(const QString& text);

/// Walks over the lines of a text. A line ends at the line feed; one carriage return before it is dropped; a
/// text that ends in a line feed has no further line.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : m_rest(text) {}
  bool Next(std::string_view& line);

 private:
  std::string_view m_rest;
};

}  // namespace tremlo
