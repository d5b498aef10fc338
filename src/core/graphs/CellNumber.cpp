#include "core/graphs/CellNumber.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"

#include <algorithm>
#include <array>
#include <charconv>

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
      return u'-';
    case u'＋':
      return u'+';
    default:
      return c;
  }
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

QString HalfWidthNumber(const QString& text) {
  const auto isPlain = [](QChar c) { return c > u' ' && c < QChar(0x7F); };
  if (std::all_of(text.begin(), text.end(), isPlain)) return text;
  QString half = text;
  for (QChar& c : half) c = HalfWidth(c);
  return half.trimmed();
}

}  // namespace tremlo
