#include "core/records/RecordText.h"

#include "core/files/Cp932Text.h"

#include <QStringDecoder>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tremlo {

namespace {

constexpr qsizetype kLongestValue = 40;  // in a message

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\r' || c == '\n';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
bool IsWordChar(char c) {
  return IsDigit(c) || (Upper(c) >= 'A' && Upper(c) <= 'Z');
}

/// Decimal text, an exponent mark D taken for E; the characters used, 0 when it starts with no number.
std::size_t ScanNumber(std::string_view text, double& value) {
  std::size_t end = 0;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  const std::size_t digits = end;
  std::size_t count = 0;
  bool point = false;
  while (end < text.size() && (IsDigit(text[end]) || (text[end] == '.' && !point))) {
    if (text[end] == '.') {
      point = true;
    } else {
      ++count;
    }
    ++end;
  }
  if (count == 0) return 0;
  bool fortran = false;
  if (end < text.size() && (Upper(text[end]) == 'E' || Upper(text[end]) == 'D')) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    if (exponent < text.size() && IsDigit(text[exponent])) {
      fortran = Upper(text[end]) == 'D';
      while (exponent < text.size() && IsDigit(text[exponent])) ++exponent;
      end = exponent;
    }
  }
  double magnitude = 0.0;
  const char* const from = text.data() + digits;
  std::from_chars_result result{};
  if (fortran) {
    std::string copy(from, end - digits);
    for (char& c : copy)
      if (Upper(c) == 'D') c = 'e';
    result = std::from_chars(copy.data(), copy.data() + copy.size(), magnitude);
  } else {
    result = std::from_chars(from, text.data() + end, magnitude);
  }
  if (result.ec != std::errc()) return 0;
  value = text.front() == '-' ? -magnitude : magnitude;
  return end;
}

}  // namespace

RecordText::RecordText(const QByteArray& content, QString name)
    : m_content(content), m_name(std::move(name)) {
  if (content.size() > kMostBytes) {
    m_tooLong = true;
    return;
  }
  std::string_view bytes(m_content.constData(), static_cast<std::size_t>(m_content.size()));
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    const auto encoding = bytes.starts_with("\xFF\xFE") ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE;
    QStringDecoder decoder(encoding);
    const QString wide = decoder.decode(m_content.mid(2));
    m_converted = wide.toUtf8();
    bytes = std::string_view(m_converted.constData(), static_cast<std::size_t>(m_converted.size()));
  } else if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.remove_prefix(3);
  } else {
    m_utf8 = QUtf8StringView(m_content.constData(), m_content.size()).isValidUtf8();
  }
  m_bytes = bytes;
  FindLines();
}

void RecordText::FindLines() {
  // The next end of either kind is looked for once, not once a line: a file may have one kind alone.
  std::size_t feed = m_bytes.find('\n');
  std::size_t carriage = m_bytes.find('\r');
  m_lines.reserve(std::min(kMostLines, m_bytes.size() / 64));
  for (std::size_t from = 0; from < m_bytes.size();) {
    const std::size_t end = std::min(feed, carriage);
    const std::string_view line = m_bytes.substr(from, end - from);
    if (m_lines.size() == kMostLines || line.size() > kLongestLine) {
      m_tooLong = true;
      m_lines.clear();
      return;
    }
    m_lines.push_back(line);
    if (end == std::string_view::npos) return;
    const bool pair = carriage < feed && feed == carriage + 1;
    from = end + (pair ? 2 : 1);
    if (feed < from) feed = m_bytes.find('\n', from);
    if (carriage < from) carriage = m_bytes.find('\r', from);
  }
}

std::optional<std::size_t> RecordText::LineWithZero() const {
  if (m_bytes.find('\0') == std::string_view::npos) return std::nullopt;
  const auto hasZero = [](std::string_view line) { return line.find('\0') != std::string_view::npos; };
  const auto found = std::find_if(m_lines.begin(), m_lines.end(), hasZero);
  // Of what is too long there are no lines.
  return found == m_lines.end() ? 0 : static_cast<std::size_t>(found - m_lines.begin());
}

std::size_t RecordText::LineOfLargest(std::string_view& value) const {
  std::size_t found = 0;
  double largest = -1.0;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    std::string_view rest = m_lines[line];
    std::size_t at = 0;
    while ((at = rest.find_first_of("+-.0123456789")) != std::string_view::npos) {
      rest.remove_prefix(at);
      double number = 0.0;
      const std::size_t used = std::max<std::size_t>(ScanNumber(rest, number), 1);
      if (std::fabs(number) > largest) {
        largest = std::fabs(number);
        found = line;
        value = rest.substr(0, used);
      }
      rest.remove_prefix(used);
    }
  }
  return found;
}

QString RecordText::Decode(std::string_view bytes) const {
  return m_utf8 ? QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())) : DecodeCp932(bytes);
}

std::string RecordText::PlainLine(std::size_t index) const {
  const std::string_view line = Line(index);
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(line.begin(), line.end(), isAscii)) return std::string(line);
  QString wide = Decode(line);
  for (QChar& unit : wide) {
    const char16_t c = unit.unicode();
    if (c >= 0xFF01 && c <= 0xFF5E) unit = QChar(static_cast<char16_t>(c - 0xFF01 + u'!'));
    if (c == 0x3000) unit = u' ';
    if (c == 0x2212) unit = u'-';  // the minus sign, to which CP932 text decodes in places
  }
  return wide.toStdString();
}

QString RecordText::Refusal(std::size_t line, const QString& reason, std::string_view value) const {
  QString shown = Decode(value.substr(0, static_cast<std::size_t>(kLongestValue) * 4));
  if (shown.size() > kLongestValue) shown = shown.left(kLongestValue) + u'…';
  return QStringLiteral("%1: %2行目：%3（「%4」）。")
      .arg(m_name, QString::number(line + 1), reason, WithoutControls(shown));
}

QString RecordText::Refusal(const QString& reason) const {
  return m_name + QStringLiteral(": ") + reason + QStringLiteral("。");
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t FindText(std::string_view text, std::string_view word, std::size_t from) {
  if (from > text.size()) return std::string_view::npos;
  const auto same = [](char a, char b) { return Upper(a) == Upper(b); };
  const auto at = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), word.begin(),
                              word.end(), same);
  return at == text.end() && !word.empty() ? std::string_view::npos
                                           : static_cast<std::size_t>(at - text.begin());
}

bool HasText(std::string_view text, std::string_view word) {
  return FindText(text, word) != std::string_view::npos;
}

std::size_t FindWord(std::string_view text, std::string_view word, std::size_t from) {
  for (std::size_t at = from; (at = FindText(text, word, at)) != std::string_view::npos; ++at) {
    const std::size_t end = at + word.size();
    if ((at == 0 || !IsWordChar(text[at - 1])) && (end == text.size() || !IsWordChar(text[end]))) return at;
  }
  return std::string_view::npos;
}

bool FieldNumber(std::string_view field, double& value) {
  field = Trimmed(field);
  double number = 0.0;
  if (field.empty() || ScanNumber(field, number) != field.size()) return false;
  value = number;
  return true;
}

bool LeadingNumber(std::string_view& text, double& value) {
  std::string_view rest = text;
  while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
  const std::size_t used = ScanNumber(rest, value);
  if (used == 0) return false;
  text = rest.substr(used);
  return true;
}

std::optional<double> NumberBehind(std::string_view line, std::string_view word, std::string_view* behind) {
  for (std::size_t at = 0; (at = FindWord(line, word, at)) != std::string_view::npos; ++at) {
    std::string_view rest = Trimmed(line.substr(at + word.size()));
    while (!rest.empty() && (rest.front() == '=' || rest.front() == ':')) rest = Trimmed(rest.substr(1));
    double value = 0.0;
    if (!LeadingNumber(rest, value)) continue;
    if (behind) *behind = Trimmed(rest);
    return value;
  }
  return std::nullopt;
}

std::optional<FieldFormat> FindFieldFormat(std::string_view text) {
  for (std::size_t at = 0; (at = text.find('(', at)) != std::string_view::npos;) {
    std::string_view rest = text.substr(++at);
    const auto skipBlanks = [&] {
      while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
    };
    const auto whole = [&](std::size_t& number) {
      const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
      if (error != std::errc()) return false;
      rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
      return true;
    };
    FieldFormat format;
    skipBlanks();
    if (!rest.empty() && IsDigit(rest.front()) && !whole(format.repeat)) continue;
    skipBlanks();
    if (rest.empty() || std::string_view("IFEGD").find(Upper(rest.front())) == std::string_view::npos)
      continue;
    rest.remove_prefix(1);
    if (!whole(format.width) || format.width == 0 || format.repeat == 0) continue;
    // No line of a record is longer.
    if (format.width > 100 || format.repeat > 1000) continue;
    return format;
  }
  return std::nullopt;
}

std::vector<std::string_view> Cells(std::string_view line) {
  std::vector<std::string_view> cells;
  for (;;) {
    const std::size_t comma = line.find(',');
    cells.push_back(Trimmed(line.substr(0, comma)));
    if (comma == std::string_view::npos) return cells;
    line.remove_prefix(comma + 1);
  }
}

}  // namespace tremlo
