#include "core/files/TextScan.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace tremlo {

namespace {

bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsHexDigit(char c) {
  const char lower = static_cast<char>(c | 0x20);
  return IsDigit(c) || (lower >= 'a' && lower <= 'f');
}

/// Whether the magnitude of a number that a double cannot hold is too large, not too small. `digits` is the
/// matched text without sign; only the sign of the exponent of its leading digit matters.
bool IsTooLarge(std::string_view digits, bool hexadecimal) {
  const char exponentMark = hexadecimal ? 'p' : 'e';
  const auto mark =
      std::find_if(digits.begin(), digits.end(), [&](char c) { return (c | 0x20) == exponentMark; });
  std::int64_t exponent = 0;
  if (mark != digits.end()) {
    const char* from = &*mark + 1;
    const char* const end = digits.data() + digits.size();
    const bool negative = from != end && *from == '-';
    if (from != end && (*from == '-' || *from == '+')) ++from;
    // Far beyond any place of a digit, and far enough from the end of the type to be added to one.
    constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max() / 8;
    const bool tooLong = std::from_chars(from, end, exponent).ec == std::errc::result_out_of_range;
    exponent = tooLong ? kFar : std::min(exponent, kFar);
    if (negative) exponent = -exponent;
  }
  const std::string mantissa(digits.begin(), mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t leading = std::min(mantissa.find_first_of("123456789abcdefABCDEF"), mantissa.size());
  const std::int64_t place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
  return place * (hexadecimal ? 4 : 1) + exponent > 0;
}

}  // namespace

bool LineScanner::Number(double& value) {
  SkipBlanks();
  std::string_view text = m_rest;
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  if (text.empty() || text.front() == '-' || text.front() == '+') return false;

  const auto hexStart = [&] {
    if (text.size() < 3 || text[0] != '0' || (text[1] | 0x20) != 'x') return false;
    return IsHexDigit(text[2]) || (text[2] == '.' && text.size() > 3 && IsHexDigit(text[3]));
  };
  const bool hexadecimal = hexStart();
  if (hexadecimal) {
    text.remove_prefix(2);
    // The library of GCC 12 takes the two signs of "p+-1" for one.
    text = text.substr(0, text.find("+-"));
  }
  const char* const end = text.data() + text.size();
  double magnitude = 0.0;
  const auto [stop, error] = std::from_chars(
      text.data(), end, magnitude, hexadecimal ? std::chars_format::hex : std::chars_format::general);
  if (error == std::errc::invalid_argument) return false;
  if (error == std::errc::result_out_of_range) {
    const std::string_view matched = text.substr(0, static_cast<std::size_t>(stop - text.data()));
    magnitude = IsTooLarge(matched, hexadecimal) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  value = negative ? -magnitude : magnitude;
  m_rest.remove_prefix(static_cast<std::size_t>(stop - m_rest.data()));
  return true;
}

bool LineScanner::Whole(std::int32_t& value) {
  SkipBlanks();
  std::string_view text = m_rest;
  const bool plus = !text.empty() && text.front() == '+';
  if (plus) text.remove_prefix(1);
  if (text.empty() || (plus && !IsDigit(text.front()))) return false;
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::invalid_argument) return false;
  if (error == std::errc::result_out_of_range)
    number = text.front() == '-' ? std::numeric_limits<std::int32_t>::min()
                                 : std::numeric_limits<std::int32_t>::max();
  value = number;
  m_rest.remove_prefix(static_cast<std::size_t>(stop - m_rest.data()));
  return true;
}

bool LineScanner::Literal(char expected) {
  if (m_rest.empty() || m_rest.front() != expected) return false;
  m_rest.remove_prefix(1);
  return true;
}

void LineScanner::SkipBlanks() {
  while (!m_rest.empty() && IsBlank(m_rest.front())) m_rest.remove_prefix(1);
}

double TextToDouble(const QString& text) {
  const std::string bytes = text.toStdString();
  double value = 0.0;
  LineScanner(bytes).Number(value);
  return value;
}

bool LineReader::Next(std::string_view& line) {
  if (m_rest.empty()) return false;
  const std::size_t feed = m_rest.find('\n');
  line = m_rest.substr(0, feed);
  m_rest.remove_prefix(feed == std::string_view::npos ? m_rest.size() : feed + 1);
  if (!line.empty() && line.back() == '\r' && feed != std::string_view::npos) line.remove_suffix(1);
  return true;
}

}  // namespace tremlo
