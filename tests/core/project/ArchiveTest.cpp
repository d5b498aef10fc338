#include "core/project/Archive.h"
#include "support/TestFolder.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

std::string Bytes(const char* hex) {
  return QByteArray::fromHex(hex).toStdString();
}

std::string Hex(const std::string& bytes) {
  return QByteArray::fromStdString(bytes).toHex(' ').toUpper().toStdString();
}

template <class T>
std::string Written(const T& value) {
  ArchiveWriter archive;
  archive.Value(value);
  EXPECT_FALSE(archive.Failed());
  return archive.TakeBytes();
}

/// The value is stored as these bytes, read back from them, and left alone by an archive that lacks any of
/// them.
template <class T>
void ExpectStored(const T& value, const char* hex, const T& other = T{}) {
  const std::string bytes = Written(value);
  EXPECT_EQ(Hex(bytes), Hex(Bytes(hex)));

  ArchiveSize size;
  size.Value(value);
  EXPECT_EQ(size.Bytes(), bytes.size());

  ArchiveReader archive(bytes);
  T read = other;
  archive.Value(read);
  EXPECT_FALSE(archive.Failed());
  EXPECT_EQ(read, value);

  for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
    ArchiveReader stump(std::string_view(bytes).substr(0, cut));
    T kept = other;
    stump.Value(kept);
    EXPECT_TRUE(stump.Failed()) << "cut at " << cut;
    EXPECT_EQ(kept, other) << "cut at " << cut;
  }
}

void ExpectText(const std::string& bytes, const QString& text) {
  ArchiveReader archive(bytes);
  QString read;
  archive.Value(read);
  EXPECT_FALSE(archive.Failed());
  EXPECT_EQ(read, text);
}

void ExpectNoText(const char* hex) {
  const std::string bytes = Bytes(hex);
  ArchiveReader archive(bytes);
  QString read = QStringLiteral("kept");
  archive.Value(read);
  EXPECT_TRUE(archive.Failed()) << hex;
  EXPECT_EQ(read, QStringLiteral("kept"));
}

template <class T>
void ExpectNoList(const char* hex) {
  const std::string bytes = Bytes(hex);
  ArchiveReader archive(bytes);
  std::vector<T> read(3);
  archive.Value(read);
  EXPECT_TRUE(archive.Failed()) << hex;
  EXPECT_EQ(read, std::vector<T>(3));
}

std::string LengthForm(std::uint64_t length) {
  ArchiveWriter archive;
  archive.StringLength(length);
  return Hex(archive.TakeBytes());
}

std::string TextHead(qsizetype length) {
  return Hex(Written(QString(length, u'x')).substr(0, 12));
}

TEST(Archive, FlagsAreOneByte) {
  ExpectStored(true, "01", false);
  ExpectStored(false, "00", true);
}

TEST(Archive, AnyByteButZeroIsTrue) {
  for (const char* hex : {"02", "80", "FF"}) {
    const std::string bytes = Bytes(hex);
    ArchiveReader archive(bytes);
    bool flag = false;
    archive.Value(flag);
    EXPECT_TRUE(flag) << hex;
  }
}

TEST(Archive, NumbersAreLittleEndian) {
  ExpectStored(std::int32_t{0x01020304}, "04 03 02 01", 7);
  ExpectStored(std::int32_t{-2}, "FE FF FF FF", 7);
  ExpectStored(1.0, "00 00 00 00 00 00 F0 3F", 7.0);
  ExpectStored(-0.1, "9A 99 99 99 99 99 B9 BF", 7.0);
}

TEST(Archive, DoublesKeepTheirBits) {
  for (const std::uint64_t bits :
       {0x7FF8'0000'0000'0000ULL, 0xFFF8'0000'DEAD'BEEFULL, 0x7FF0'0000'0000'0001ULL,
        0x7FF0'0000'0000'0000ULL, 0x8000'0000'0000'0000ULL, 0x0000'0000'0000'0001ULL}) {
    const auto number = std::bit_cast<double>(bits);
    const std::vector<double> list{number, number};
    const std::string bytes = Written(number) + Written(list);
    ArchiveReader archive(bytes);
    double read = 0.0;
    std::vector<double> readList;
    archive.Value(read);
    archive.Value(readList);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), bits);
    ASSERT_EQ(readList.size(), 2U);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(readList[1]), bits);
  }
}

TEST(Archive, EmptyTextIsFourBytes) {
  ExpectStored(QString(), "FF FE FF 00", QStringLiteral("other"));
}

TEST(Archive, TextIsTaggedUtf16) {
  ExpectStored(QStringLiteral("a地"), "FF FE FF 02 61 00 30 57");
  ExpectStored(QString::fromUtf8("\xF0\xA0\xAE\x9F"), "FF FE FF 02 42 D8 9F DF");
}

TEST(Archive, HalvesOfSurrogatePairsAndZerosAreKept) {
  constexpr char16_t units[] = {0xD842, u'x', 0xDC00, 0xFEFF, 0xFFFE, 0};
  const QString text = QStringView(units, std::size(units)).toString();
  ExpectStored(text, "FF FE FF 06 42 D8 78 00 00 DC FF FE FE FF 00 00");
}

TEST(Archive, LengthsTakeTheShortestForm) {
  EXPECT_EQ(LengthForm(0), "00");
  EXPECT_EQ(LengthForm(254), "FE");
  EXPECT_EQ(LengthForm(255), "FF FF 00");
  EXPECT_EQ(LengthForm(0xFFFD), "FF FD FF");
  EXPECT_EQ(LengthForm(0xFFFE), "FF FF FF FE FF 00 00");
  EXPECT_EQ(LengthForm(0xFFFF), "FF FF FF FF FF 00 00");
  EXPECT_EQ(LengthForm(0xFFFFFFFE), "FF FF FF FE FF FF FF");
  EXPECT_EQ(LengthForm(0xFFFFFFFF), "FF FF FF FF FF FF FF FF FF FF FF 00 00 00 00");
  EXPECT_EQ(LengthForm(0x0102030405060708), "FF FF FF FF FF FF FF 08 07 06 05 04 03 02 01");
}

TEST(Archive, TextsOfEveryLengthFormAreReadBack) {
  for (const qsizetype length : {0, 1, 254, 255, 256, 0xFFFD, 0xFFFE, 0xFFFF, 0x10001}) {
    const QString text(length, QChar(0x5730));
    ExpectText(Written(text), text);
  }
  EXPECT_EQ(TextHead(254), "FF FE FF FE 78 00 78 00 78 00 78 00");
  EXPECT_EQ(TextHead(255), "FF FE FF FF FF 00 78 00 78 00 78 00");
}

TEST(Archive, LongerFormsOfAShortLengthAreRead) {
  ExpectText(Bytes("FFFEFF FF 0200 6100 6200"), QStringLiteral("ab"));
  ExpectText(Bytes("FFFEFF FF FFFF 02000000 6100 6200"), QStringLiteral("ab"));
  ExpectText(Bytes("FFFEFF FF FFFF FFFFFFFF 0200000000000000 6100 6200"), QStringLiteral("ab"));
}

TEST(Archive, NarrowTextIsCp932InEveryLengthForm) {
  ExpectText(Bytes("00"), QString());
  ExpectText(Bytes("04 926E 906B"), QStringLiteral("地震"));
  ExpectText(Bytes("FF 0400 926E 906B"), QStringLiteral("地震"));
  ExpectText(Bytes("FF FFFF 04000000 926E 906B"), QStringLiteral("地震"));
  ExpectText(Bytes("FF FFFF FFFFFFFF 0400000000000000 926E 906B"), QStringLiteral("地震"));
  ExpectText(Bytes("03 87 40 B1"), QStringLiteral("①ｱ"));
}

TEST(Archive, NarrowTextsOfEveryLengthFormAreReadBack) {
  for (const std::size_t length : {254U, 255U, 0xFFFDU, 0xFFFEU, 0x10001U}) {
    ArchiveWriter archive;
    archive.StringLength(length);
    ExpectText(archive.TakeBytes() + std::string(length, 'n'), QString(static_cast<qsizetype>(length), u'n'));
  }
}

TEST(Archive, TextsThatRunOutFail) {
  ExpectNoText("FF FE FF 02 61 00 62");
  ExpectNoText("03 61 62");
  ExpectNoText("FF FE FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 61 00");
  ExpectNoText(
      "FF FE FF FF FF FF FF FF FF FF 01 00 00 00 00 00 00 80 61 00");  // doubled, the length would be 2
  ExpectNoText("FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 61 00");
  ExpectNoText("FF FE FF FF FF FF FE FF FF FF 61 00");
}

TEST(Archive, ASecondWideTagIsNoLength) {
  ExpectNoText("FF FE FF FF FE FF 01 61 00");
}

TEST(Archive, ListsAreACountAndTheirElements) {
  ExpectStored(std::vector<double>{1.0, 2.0}, "02 00 00 00 00 00 00 00 00 00 F0 3F 00 00 00 00 00 00 00 40",
               {7.0});
  ExpectStored(std::vector<double>{}, "00 00 00 00", {7.0});
  ExpectStored(std::vector<std::int32_t>{1, -1}, "02 00 00 00 01 00 00 00 FF FF FF FF", {7});
  ExpectStored(std::vector<bool>{true, false, true}, "03 00 00 00 01 00 01", {true});
  ExpectStored(std::vector<QString>{QStringLiteral("a"), QString()},
               "02 00 00 00 FF FE FF 01 61 00 FF FE FF 00", {QStringLiteral("other")});
  ExpectStored(std::vector<std::vector<double>>{{}, {1.0}},
               "02 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00 00 00 F0 3F", {{7.0}});
}

TEST(Archive, LongListsAreReadBack) {
  for (const std::size_t count : {511U, 512U, 513U, 1023U, 1024U, 1025U, 5000U}) {
    std::vector<double> numbers;
    std::vector<std::int32_t> words;
    for (std::size_t i = 0; i < count; ++i) {
      numbers.push_back(std::sqrt(static_cast<double>(i)));
      words.push_back(static_cast<std::int32_t>(i * i));
    }
    const std::string bytes = '\1' + Written(numbers) + Written(words);  // off the alignment of both
    EXPECT_EQ(bytes.size(), 1 + 4 + 8 * count + 4 + 4 * count);
    ArchiveReader archive(bytes);
    bool flag = false;
    std::vector<double> readNumbers;
    std::vector<std::int32_t> readWords;
    archive.Value(flag);
    archive.Value(readNumbers);
    archive.Value(readWords);
    EXPECT_FALSE(archive.Failed());
    EXPECT_EQ(readNumbers, numbers);
    EXPECT_EQ(readWords, words);
  }
}

TEST(Archive, CountsBeyondTheDataFail) {
  for (const char* hex :
       {"FFFFFFFF", "FFFFFFFF 00 00 00 00 00 00 00 00 00", "02000000 00 00 00 00 01 00 00 00 09"}) {
    ExpectNoList<double>(hex);
    ExpectNoList<std::vector<double>>(hex);
  }
  ExpectNoList<std::int32_t>("03000000 00 00 00 00 00 00 00 00");
  ExpectNoList<bool>("FFFFFFFF 00 01");
  ExpectNoList<QString>("FFFFFFFF 00 00 00");
}

TEST(Archive, AFailureLasts) {
  const std::string bytes = Bytes("05000000 01 02 03");
  ArchiveReader archive(bytes);
  std::vector<double> numbers;
  archive.Value(numbers);
  ASSERT_TRUE(archive.Failed());
  bool flag = false;
  archive.Value(flag);
  EXPECT_FALSE(flag);
  EXPECT_EQ(archive.Count(), 0U);
  EXPECT_TRUE(archive.Failed());
}

TEST(Archive, AListThatACountCannotTellIsNotWritten) {
  ArchiveWriter archive;
  archive.Count(0xFFFFFFFF);
  EXPECT_FALSE(archive.Failed());
  if constexpr (sizeof(std::size_t) > 4) {
    archive.Count(std::size_t{0xFFFFFFFF} + 1);
    EXPECT_TRUE(archive.Failed());
  }
}

}  // namespace
}  // namespace tremlo
