#include "JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tremlo::cli {

namespace {

void AppendQuoted(std::string& text, std::string_view utf8) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  text += '"';
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      text += '\\';
      text += c;
    } else if (byte < 0x20) {
      text += "\\u00";
      text += kHexDigits[byte >> 4];
      text += kHexDigits[byte & 0xF];
    } else {
      text += c;
    }
  }
  text += '"';
}

}  // namespace

void JsonWriter::Key(std::string_view name) {
  Separate();
  AppendQuoted(m_text, name);
  m_text += ": ";
  m_needsComma = false;
}

void JsonWriter::Value(const QString& text) {
  Separate();
  AppendQuoted(m_text, text.toStdString());
}

void JsonWriter::Value(double number) {
  Separate();
  if (std::isnan(number)) {
    m_text += "\"nan\"";
  } else if (std::isinf(number)) {
    m_text += number > 0.0 ? "\"inf\"" : "\"-inf\"";
  } else {
    std::array<char, 32> digits{};
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 17);
    if (error == std::errc()) m_text.append(digits.data(), end);
  }
}

void JsonWriter::Value(int number) {
  Separate();
  m_text += std::to_string(number);
}

void JsonWriter::Value(bool flag) {
  Separate();
  m_text += flag ? "true" : "false";
}

void JsonWriter::Value(const std::vector<bool>& flags) {
  BeginArray();
  for (const bool flag : flags) Value(flag);
  EndArray();
}

void JsonWriter::Open(char bracket) {
  Separate();
  m_text += bracket;
  m_needsComma = false;
}

void JsonWriter::Close(char bracket) {
  m_text += bracket;
  m_needsComma = true;
}

void JsonWriter::Separate() {
  if (m_needsComma) m_text += ", ";
  m_needsComma = true;
}

}  // namespace tremlo::cli
