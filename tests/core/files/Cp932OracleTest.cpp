#include "core/files/Cp932Text.h"
#include "support/TestFolder.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace tremlo {
namespace {

using testing::IsEmpty;

std::string Hex(std::string_view bytes) {
  return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())).toHex(' ').toStdString();
}
std::string Units(const QString& text) {
  std::string units;
  for (const QChar unit : text)
    units += (units.empty() ? "" : " ") + QString::number(unit.unicode(), 16).toStdString();
  return units;
}

/// Every pair of bytes, the second of which is then a character of its own or the first of a cut pair.
std::vector<std::string> AllPairs() {
  std::vector<std::string> pairs;
  for (int first = 0; first < 256; ++first)
    for (int second = 0; second < 256; ++second)
      pairs.push_back({static_cast<char>(first), static_cast<char>(second)});
  return pairs;
}

std::vector<QString> AllCharacters() {
  std::vector<QString> all;
  for (char32_t character = 0; character <= QChar::LastValidCodePoint; ++character)
    all.push_back(QStringView(QChar::fromUcs4(character)).toString());
  // What stands for half a pair in text is no character.
  for (int unit = 0xD800; unit < 0xE000; ++unit) all[static_cast<std::size_t>(unit)] = QChar(unit);
  return all;
}

const std::map<char16_t, std::string> kNineSigns = {
    {u'\u00A2', "\x81\x91"}, {u'\u00A3', "\x81\x92"}, {u'\u00A5', "\\"},
    {u'\u00AC', "\x81\xCA"}, {u'\u2014', "\x81\x5C"}, {u'\u2016', "\x81\x61"},
    {u'\u203E', "~"},        {u'\u2212', "\x81\x7C"}, {u'\u301C', "\x81\x60"},
};

#ifdef _WIN32

/// The system's own page. It reads a lone 80 and A0, FD to FF as control and private characters and swallows
/// the second byte of a bad pair; such bytes are left out here.
bool IsSoundToTheSystem(const std::string& bytes) {
  wchar_t wide[4];
  const int count =
      MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()), wide, 4);
  if (count <= 0) return false;
  for (const char byte : bytes)
    if (byte == '\x80' || byte == '\xA0' || static_cast<unsigned char>(byte) >= 0xFD) return count == 1;
  return true;
}

QString SystemDecode(const std::string& bytes) {
  wchar_t wide[4];
  return QString::fromWCharArray(
      wide, MultiByteToWideChar(932, 0, bytes.data(), static_cast<int>(bytes.size()), wide, 4));
}

std::string SystemEncode(const QString& text) {
  char bytes[8];
  const std::wstring wide = text.toStdWString();
  const int count = WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                                        bytes, sizeof bytes, "?", nullptr);
  return {bytes, static_cast<std::size_t>(count)};
}

TEST(Cp932Oracle, EverySoundPairOfBytesReadsAsTheSystemReadsIt) {
  std::vector<std::string> differences;
  for (const std::string& pair : AllPairs())
    if (IsSoundToTheSystem(pair) && DecodeCp932(pair) != SystemDecode(pair))
      differences.push_back(Hex(pair) + ": " + Units(DecodeCp932(pair)) + " not " +
                            Units(SystemDecode(pair)));
  EXPECT_THAT(differences, IsEmpty());
}

TEST(Cp932Oracle, EveryCharacterIsWrittenAsTheSystemWritesItButForTheNineSigns) {
  std::vector<std::string> differences;
  for (const QString& character : AllCharacters()) {
    if (character.size() != 1) continue;
    const char16_t unit = character[0].unicode();
    // The other side of the bytes that it reads and the program does not.
    if (unit == 0x80 || (unit >= 0xF8F0 && unit <= 0xF8F3)) continue;
    const auto sign = kNineSigns.find(unit);
    const std::string expected = sign == kNineSigns.end() ? SystemEncode(character) : sign->second;
    if (EncodeCp932(character) != expected)
      differences.push_back(Units(character) + ": " + Hex(EncodeCp932(character)) + " not " + Hex(expected));
  }
  EXPECT_THAT(differences, IsEmpty());
}

#else

/// The C library's page. Where it cannot go on `standIn` is put and `step` bytes are passed over.
class Oracle {
 public:
  Oracle(const char* to, const char* from, std::string standIn, std::size_t step)
      : m_handle(iconv_open(to, from)), m_standIn(std::move(standIn)), m_step(step) {}
  ~Oracle() { iconv_close(m_handle); }
  Oracle(const Oracle&) = delete;
  Oracle& operator=(const Oracle&) = delete;

  std::string Convert(std::string bytes) const {
    std::string result;
    char* in = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
      char block[64];
      char* out = block;
      std::size_t room = sizeof block;
      const std::size_t status = iconv(m_handle, &in, &left, &out, &room);
      result.append(block, out);
      if (status != static_cast<std::size_t>(-1)) continue;
      iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
      result += m_standIn;
      const std::size_t passed = std::min(left, m_step);
      in += passed;
      left -= passed;
    }
    return result;
  }

 private:
  iconv_t m_handle;
  std::string m_standIn;
  std::size_t m_step;
};

TEST(Cp932Oracle, EveryPairOfBytesReadsAsTheCLibraryReadsIt) {
  const Oracle oracle("UTF-8", "CP932", "\xEF\xBF\xBD", 1);
  std::vector<std::string> differences;
  std::size_t count = 0;
  for (const std::string& pair : AllPairs()) {
    ++count;
    const QString expected = QString::fromStdString(oracle.Convert(pair));
    if (DecodeCp932(pair) != expected)
      differences.push_back(Hex(pair) + ": " + Units(DecodeCp932(pair)) + " not " + Units(expected));
  }
  EXPECT_EQ(count, 65536U);
  EXPECT_THAT(differences, IsEmpty());
}

/// The C library leaves the invisible tags of flags and languages out without a word. They are characters
/// without a code like any other.
bool IsTag(const QString& character) {
  const auto code = character.toUcs4().constFirst();
  return code >= 0xE0000 && code <= 0xE007F;
}

TEST(Cp932Oracle, EveryCharacterIsWrittenAsTheCLibraryWritesItButForTags) {
  const Oracle oracle("CP932", "UTF-32LE", "?", 4);
  std::vector<std::string> differences;
  std::size_t tags = 0;
  for (const QString& character : AllCharacters()) {
    std::string bytes;
    for (const uint code : character.toUcs4())
      for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(code >> shift & 0xFF);
    std::string expected = oracle.Convert(bytes);
    if (IsTag(character)) {
      EXPECT_EQ(expected, "");
      expected = "?";
      ++tags;
    }
    if (EncodeCp932(character) != expected)
      differences.push_back(Units(character) + ": " + Hex(EncodeCp932(character)) + " not " + Hex(expected));
  }
  EXPECT_EQ(tags, 128U);
  EXPECT_THAT(differences, IsEmpty());
}

#endif

TEST(Cp932Oracle, TheNineSignsAreWrittenAsTheFormOfThePage) {
  for (const auto& [sign, bytes] : kNineSigns)
    EXPECT_EQ(EncodeCp932(QString(QChar(sign))), bytes) << int{sign};
}

/// The rows are those of a second, independent codec.
TEST(Cp932Oracle, TheRowsAreThoseThatTheScriptMakes) {
  QProcess script;
  script.start(QStringLiteral(TREMLO_PYTHON), {QStringLiteral(TREMLO_SOURCE_DIR "/scripts/make-cp932")});
  ASSERT_TRUE(script.waitForFinished()) << script.errorString().toStdString();
  EXPECT_EQ(script.exitCode(), 0) << script.readAllStandardError().toStdString();
  EXPECT_EQ(script.readAllStandardOutput(),
            test::ReadAll(QStringLiteral(TREMLO_SOURCE_DIR "/src/core/files/Cp932Rows.inc")));
}

}  // namespace
}  // namespace tremlo
