#include "core/graphs/CellNumber.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tremlo {

namespace {

QChar HalfWidth(QChar c) {
  const char16_t code = c.unicode();
  if ((code >= u'０' && code <= u'９') || code == u'Ｅ' || code == u'ｅ')
    return static_cast<char16_t>(code - u'０' + u'0');
  switch (code) {
    case u'．':
    case u'。':
      return u'.';
    case u'－':
    case u'−':
    case u'ー':  // what an input method leaves of the minus key behind kana
    case u'﹣':
      return u'-';
    case u'＋':
      return u'+';
    case u'，':
      return u',';
    default:
      // Hyphens and dashes, which pages of text have in place of the minus sign.
      return code >= u'\u2010' && code <= u'\u2015' ? QChar(u'-') : c;
  }
}

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

qsizetype BehindSign(const QString& text) {
  return text.startsWith(u'-') || text.startsWith(u'+') ? 1 : 0;
}

qsizetype BehindDigits(const QString& text, qsizetype at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

/// Where the decimal number at the start of the text ends: an incomplete exponent is no part of it; 0 if
/// there is none.
qsizetype EndOfNumber(const QString& text) {
  const qsizetype start = BehindSign(text);
  qsizetype end = BehindDigits(text, start);
  qsizetype digits = end - start;
  if (end < text.size() && text[end] == u'.') {
    const qsizetype behind = BehindDigits(text, end + 1);
    digits += behind - end - 1;
    end = behind;
  }
  if (digits == 0) return 0;
  if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
    qsizetype exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == u'-' || text[exponent] == u'+')) ++exponent;
    const qsizetype behind = BehindDigits(text, exponent);
    if (behind > exponent) end = behind;
  }
  return end;
}

bool MeansBlank(const QString& text) {
  for (const char* const word : {"inf", "+inf", "infinity", "+infinity"})
    if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0) return true;
  return false;
}

}  // namespace

QString NumberToText(double value, int decimals) {
  return value == kNoNumber ? QString() : FixedText(value, decimals);
}

QString IntegerToText(std::int32_t value) {
  return value == kNoInteger ? QString() : QString::number(value);
}

QString ShortestText(double value) {
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
  return QString::fromLatin1(text.data(), end - text.data());
}

double NumberOfText(const QString& text, double fallback) {
  return text.isEmpty() ? fallback : TextToDouble(text);
}

bool IsCheckedText(const QString& text) {
  const QString checked = QStringLiteral("1");
  const qsizetype comma = text.indexOf(u',');
  if (comma < 0) return text == checked;
  return text.left(comma) == checked || text.mid(comma + 1) == checked;
}

QString UngroupedNumber(const QString& text) {
  const qsizetype start = BehindSign(text);
  qsizetype at = BehindDigits(text, start);
  const bool first = at > start && at <= start + 3 && text[start] != u'0';
  if (!first || at == text.size() || text[at] != u',') return {};
  while (at < text.size() && text[at] == u',') {
    const qsizetype end = BehindDigits(text, at + 1);
    if (end != at + 4) return {};
    at = end;
  }
  if (at < text.size() && text[at] == u'.') at = BehindDigits(text, at + 1);
  return at == text.size() ? QString(text).remove(u',') : QString();
}

NumberReading ReadNumber(const QString& text) {
  QString half = HalfWidthNumber(text);
  if (half.isEmpty() || MeansBlank(half)) return {QStringLiteral(""), NumberFault::None};
  if (half.contains(u',')) {
    const QString plain = UngroupedNumber(half);
    if (!plain.isEmpty()) half = plain;
  }
  const qsizetype end = EndOfNumber(half);
  if (end > 0 && end == half.size()) {
    const bool finite = std::isfinite(TextToDouble(half));
    return finite ? NumberReading{half, NumberFault::None} : NumberReading{{}, NumberFault::TooLarge};
  }
  const bool word = std::any_of(half.begin(), half.end(), [](QChar c) { return c.isLetter(); }) ||
                    std::none_of(half.begin(), half.end(), [](QChar c) { return c.isDigit(); });
  if (end > 0 || !word) return {{}, NumberFault::Unclear};
  return {QStringLiteral("0"), NumberFault::None};
}

QString HalfWidthNumber(const QString& text) {
  const auto isPlain = [](QChar c) { return c > u' ' && c < QChar(0x7F); };
  if (std::all_of(text.begin(), text.end(), isPlain)) return text;
  QString half = text;
  for (QChar& c : half) c = HalfWidth(c);
  return half.trimmed();
}

}  // namespace tremlo
