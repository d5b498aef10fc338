#include "core/files/Cp932Text.h"

#include <array>
#include <cstdint>

namespace tremlo {

namespace {

constexpr char16_t kNone = u'\uFFFD';

/// The characters of one first byte, in the order of the second bytes 40 to 7E and 80 to FC; kNone where the
/// pair has no meaning.
struct Row {
  unsigned first;
  const char16_t* characters;
};

constexpr Row kRows[] = {
#include "core/files/Cp932Rows.inc"
};

constexpr unsigned kRowLength = 188;
constexpr unsigned SecondByte(unsigned index) {
  return index + (index < 0x3F ? 0x40 : 0x41);
}

/// Signs that are only written: the page has no code of their own for them, but one for the form that every
/// reader takes for the same. Input methods give the one form or the other.
struct WrittenAs {
  char16_t character;
  std::uint16_t code;
};
constexpr WrittenAs kWrittenAs[] = {
    {u'\u00A2', 0x8191},  // cent: full-width cent
    {u'\u00A3', 0x8192},  // pound: full-width pound
    {u'\u00A5', 0x005C},  // yen: the backslash, which Japanese fonts show as yen
    {u'\u00AC', 0x81CA},  // not: full-width not
    {u'\u2014', 0x815C},  // em dash: horizontal bar
    {u'\u2016', 0x8161},  // double vertical line: parallel to
    {u'\u203E', 0x007E},  // overline: the tilde, which Japanese fonts show as overline
    {u'\u2212', 0x817C},  // minus: full-width hyphen-minus
    {u'\u301C', 0x8160},  // wave dash: full-width tilde
};

/// Some characters have two codes or three. Windows writes that of JIS X 0208, else that of NEC's row 13,
/// else that of IBM's extension; NEC's selection of the latter is only read.
int Rank(unsigned code) {
  const unsigned first = code >> 8;
  if (first == 0xED || first == 0xEE) return 3;
  if (first >= 0xFA) return 2;
  return first == 0x87 ? 1 : 0;
}

class Tables {
 public:
  Tables() {
    m_characters.fill(kNone);
    for (unsigned byte = 0; byte < 0x80; ++byte) Add(byte, static_cast<char16_t>(byte));
    for (unsigned byte = 0xA1; byte < 0xE0; ++byte) Add(byte, static_cast<char16_t>(0xFF61 + byte - 0xA1));
    for (const Row& row : kRows)
      for (unsigned i = 0; i < kRowLength; ++i)
        if (row.characters[i] != kNone) Add(row.first << 8 | SecondByte(i), row.characters[i]);
    for (unsigned row = 0; row < 10; ++row)  // the user's own characters
      for (unsigned i = 0; i < kRowLength; ++i)
        Add((0xF0 + row) << 8 | SecondByte(i), static_cast<char16_t>(0xE000 + row * kRowLength + i));
    for (const WrittenAs& sign : kWrittenAs) m_codes[sign.character] = sign.code;
  }

  /// The character of a byte, or of a pair with the first byte above; kNone when it has none.
  char16_t Character(unsigned code) const { return m_characters[code]; }
  /// The code of a character; 0 for U+0000 and for characters without one.
  unsigned Code(char16_t character) const { return m_codes[character]; }

 private:
  void Add(unsigned code, char16_t character) {
    m_characters[code] = character;
    std::uint16_t& written = m_codes[character];
    if (written == 0 || Rank(code) < Rank(written)) written = static_cast<std::uint16_t>(code);
  }

  std::array<char16_t, 0x10000> m_characters{};
  std::array<std::uint16_t, 0x10000> m_codes{};
};

const Tables& Page() {
  static const Tables tables;
  return tables;
}

}  // namespace

QString DecodeCp932(std::string_view bytes) {
  const Tables& page = Page();
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  QChar* end = text.data();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    char16_t character = page.Character(byte);
    if (character == kNone && i + 1 < bytes.size()) {
      character = page.Character(static_cast<unsigned>(byte) << 8 | static_cast<unsigned char>(bytes[i + 1]));
      if (character != kNone) ++i;
    }
    *end++ = QChar(character);
  }
  text.truncate(end - text.constData());
  return text;
}

std::string EncodeCp932(const QString& text) {
  const Tables& page = Page();
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()) * 2);
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t character = text[i].unicode();
    const unsigned code = page.Code(character);
    if (code == 0 && character != 0) {
      bytes += '?';
      if (QChar::isHighSurrogate(character) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
      continue;
    }
    if (code > 0xFF) bytes += static_cast<char>(code >> 8);
    bytes += static_cast<char>(code & 0xFF);
  }
  return bytes;
}

}  // namespace tremlo
