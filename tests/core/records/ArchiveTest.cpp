#include "core/records/RecordArchive.h"
#include "core/records/RecordFixtures.h"

#include <QDir>
#include <QStringList>

#include <archive.h>
#include <archive_entry.h>
#include <cstdint>

namespace tremlo {
namespace {

using test::FixturePath;
using test::TestFolder;

enum class Pack { Tar, TarGz, Gz, Zip };

/// One entry of an archive that a test makes up.
struct Entry {
  QByteArray name;
  QByteArray content;
  unsigned type = AE_IFREG;
};

QByteArray Packed(Pack pack, const std::vector<Entry>& entries) {
  QByteArray bytes(64 * 1024 * 1024, Qt::Uninitialized);
  archive* const writer = archive_write_new();
  if (pack == Pack::Zip) {
    archive_write_set_format_zip(writer);
  } else if (pack == Pack::Gz) {
    archive_write_set_format_raw(writer);
  } else {
    archive_write_set_format_ustar(writer);
  }
  if (pack == Pack::Gz || pack == Pack::TarGz) archive_write_add_filter_gzip(writer);
  archive_write_set_bytes_in_last_block(writer, 1);
  std::size_t used = 0;
  EXPECT_EQ(archive_write_open_memory(writer, bytes.data(), static_cast<std::size_t>(bytes.size()), &used),
            ARCHIVE_OK);
  for (const Entry& item : entries) {
    archive_entry* const entry = archive_entry_new();
    archive_entry_set_pathname(entry, item.name.constData());
    archive_entry_set_filetype(entry, item.type);
    if (item.type == AE_IFLNK) archive_entry_set_symlink(entry, "elsewhere");
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, item.content.size());
    EXPECT_GE(archive_write_header(writer, entry), ARCHIVE_WARN);
    archive_write_data(writer, item.content.constData(), static_cast<std::size_t>(item.content.size()));
    archive_entry_free(entry);
  }
  archive_write_close(writer);
  archive_write_free(writer);
  bytes.truncate(static_cast<qsizetype>(used));
  return bytes;
}

struct Found {
  QStringList members;
  qint64 bytes = 0;
  QString error;
};

Found WalkOver(const QByteArray& content, const ArchiveBounds& bounds = {}) {
  Found found;
  found.error = WalkArchive(
                    content,
                    [&](const QString& member, const QByteArray& bytes) {
                      found.members << member;
                      found.bytes += bytes.size();
                      return true;
                    },
                    bounds)
                    .error;
  return found;
}

TEST(RecordArchive, EveryKindGivesItsMembers) {
  const std::vector<Entry> entries = {{"a.txt", "one"}, {"b/c.txt", "two"}};
  for (const Pack pack : {Pack::Tar, Pack::TarGz, Pack::Zip}) {
    const QByteArray bytes = Packed(pack, entries);
    EXPECT_TRUE(IsArchive(bytes));
    const Found found = WalkOver(bytes);
    EXPECT_EQ(found.error, QString());
    EXPECT_EQ(found.members, (QStringList{QStringLiteral("a.txt"), QStringLiteral("b/c.txt")}));
  }
  const Found lone = WalkOver(Packed(Pack::Gz, {{"x", "some text\n"}}));
  EXPECT_EQ(lone.error, QString());
  EXPECT_EQ(lone.members, QStringList{QString()});
  EXPECT_EQ(lone.bytes, 10);
  EXPECT_FALSE(IsArchive("A, 0.01, 1\n"));
}

TEST(RecordArchive, ALonePackedRecordReads) {
  const TestFolder folder;
  const QString path =
      folder.Write(QStringLiteral("x.gz"),
                   Packed(Pack::Gz, {{"x", test::Fixture(QStringLiteral("knet/SMP0010001010000.EW"))}}));
  const std::vector<RecordReading> readings = ReadRecordFile(path);
  ASSERT_EQ(readings.size(), 1U);
  EXPECT_EQ(readings.front().error, QString());
  EXPECT_EQ(readings.front().components.front().acc.size(), 300U);
}

TEST(RecordArchive, LinksAndFoldersArePassedOver) {
  const Found found =
      WalkOver(Packed(Pack::Tar, {{"folder/", "", AE_IFDIR}, {"link", "", AE_IFLNK}, {"a", "1"}}));
  EXPECT_EQ(found.members, QStringList{QStringLiteral("a")});
  EXPECT_EQ(found.error, QString());
}

TEST(RecordArchive, TwoLevelsDeepWithTheirPaths) {
  const std::vector<RecordReading> readings =
      ReadRecordFile(FixturePath(QStringLiteral("knet/20000101000000.tar")));
  ASSERT_EQ(readings.size(), 9U);
  EXPECT_EQ(readings.front().member, QStringLiteral("20000101000000.knt.tar.gz/SMP0010001010000.EW"));
}

TEST(RecordArchive, NothingIsWrittenAndBadNamesAreForShow) {
  const TestFolder folder;
  folder.Write(QStringLiteral("x.tar.gz"), test::Fixture(QStringLiteral("broken/path_outside.knt.tar.gz")));
  const std::vector<RecordReading> readings = ReadRecordFile(folder.Path(QStringLiteral("x.tar.gz")));
  ASSERT_EQ(readings.size(), 2U);
  EXPECT_EQ(readings.front().member, QStringLiteral("../../SMP0010001010000.EW"));
  EXPECT_EQ(ProposedName(readings.front(), readings.front().components.front()), QStringLiteral("SMP001 EW"));
  EXPECT_EQ(folder.Names(), QStringList{QStringLiteral("x.tar.gz")});
}

TEST(RecordArchive, NamesInCp932AndBrokenNames) {
  const Found found = WalkOver(Packed(Pack::Tar, {{"\x8C\xA9\x96\x7B.EW", "1"}, {"\x93", "2"}}));
  EXPECT_EQ(found.members, (QStringList{QStringLiteral("見本.EW"), QStringLiteral("\uFFFD")}));
}

TEST(RecordArchive, ACutGivesWhatStoodBeforeIt) {
  const QString path = FixturePath(QStringLiteral("broken/cut.knt.tar.gz"));
  const std::vector<RecordReading> readings = ReadRecordFile(path);
  EXPECT_TRUE(readings.back().error.startsWith(QDir::toNativeSeparators(path)));
  EXPECT_TRUE(readings.back().error.contains(QStringLiteral("途中で切れています")));
  // Whole to the last byte, or not at all.
  for (std::size_t i = 0; i + 1 < readings.size(); ++i)
    EXPECT_EQ(readings[i].components.front().acc.size(), 300U);
}

TEST(RecordArchive, CutAnywhereItEnds) {
  for (const char* name : {"knet/20000101000000.tar", "knet/20000101000000.knt.tar.gz"}) {
    const QByteArray whole = test::Fixture(QString::fromLatin1(name));
    for (qsizetype size = 0; size < whole.size(); size += 97) WalkOver(whole.left(size));
  }
  const QByteArray zip = Packed(Pack::Zip, {{"a.txt", "one one one one"}, {"b.txt", "two"}});
  for (qsizetype size = 0; size < zip.size(); ++size) WalkOver(zip.left(size));
  SUCCEED();
}

TEST(RecordArchive, MembersAreBounded) {
  ArchiveBounds bounds;
  bounds.mostMemberBytes = 1000;
  const Found found = WalkOver(Packed(Pack::TarGz, {{"a", "1"}, {"bomb", QByteArray(1000000, '0')}}), bounds);
  EXPECT_EQ(found.members, QStringList{QStringLiteral("a")});
  EXPECT_EQ(found.error, QStringLiteral("bomb：展開すると 1000 バイトを超えます。"));
  EXPECT_EQ(WalkOver(Packed(Pack::TarGz, {{"a", QByteArray(1000, '0')}}), bounds).error, QString());
}

TEST(RecordArchive, TheWholeIsBounded) {
  ArchiveBounds bounds;
  bounds.mostBytes = 2500;
  const QByteArray kilo(1000, '0');
  const Found found = WalkOver(Packed(Pack::Zip, {{"a", kilo}, {"b", kilo}, {"c", kilo}}), bounds);
  EXPECT_EQ(found.members.size(), 2);
  EXPECT_EQ(found.error, QStringLiteral("展開すると全体で 2500 バイトを超えます。"));
}

TEST(RecordArchive, TheirNumberIsBoundedOverAllLevels) {
  ArchiveBounds bounds;
  bounds.mostMembers = 5;
  const QByteArray inner = Packed(Pack::TarGz, {{"a", "1"}, {"b", "", AE_IFDIR}, {"c", "2"}});
  const Found found = WalkOver(Packed(Pack::Tar, {{"1.tar.gz", inner}, {"2.tar.gz", inner}}), bounds);
  EXPECT_EQ(found.members, (QStringList{QStringLiteral("1.tar.gz/a"), QStringLiteral("1.tar.gz/c")}));
  EXPECT_EQ(found.error, QStringLiteral("ファイルが 5 個を超えています。"));
}

TEST(RecordArchive, TwentyThousandMembersAreEnough) {
  std::vector<Entry> entries(20001, Entry{"a", ""});
  const Found found = WalkOver(Packed(Pack::Tar, entries));
  EXPECT_EQ(found.members.size(), 20000);
  EXPECT_EQ(found.error, QStringLiteral("ファイルが 20000 個を超えています。"));
}

TEST(RecordArchive, ArchivesInArchivesAreBounded) {
  QByteArray bytes = Packed(Pack::Gz, {{"x", "text\n"}});
  for (int level = 0; level < 5; ++level) bytes = Packed(Pack::TarGz, {{"x", bytes}});
  const Found found = WalkOver(bytes);
  EXPECT_TRUE(found.members.isEmpty());
  EXPECT_TRUE(found.error.contains(QStringLiteral("書庫の入れ子が 3 段を超えています")));
}

TEST(RecordArchive, PackedInPackedIsBoundedToo) {
  QByteArray bytes = "text\n";
  for (int level = 0; level < 5; ++level) bytes = Packed(Pack::Gz, {{"x", bytes}});
  const Found found = WalkOver(bytes);
  EXPECT_TRUE(found.members.isEmpty());
  EXPECT_TRUE(found.error.contains(QStringLiteral("書庫の入れ子が 3 段を超えています")))
      << found.error.toStdString();
  EXPECT_EQ(WalkOver(Packed(Pack::Gz, {{"x", Packed(Pack::Gz, {{"x", "text\n"}})}})).bytes, 5);
}

TEST(RecordArchive, WhatLiesBetweenTwoLevelsCounts) {
  // The inner level unpacks to nothing, over and over.
  const QByteArray nothing = Packed(Pack::Gz, {{"x", ""}});
  ASSERT_LT(nothing.size(), 100);
  ArchiveBounds bounds;
  bounds.mostBytes = 100000;
  EXPECT_EQ(WalkOver(Packed(Pack::Gz, {{"x", nothing.repeated(20000)}}), bounds).error,
            QStringLiteral("展開すると全体で 100000 バイトを超えます。"));
}

TEST(RecordArchive, AFaultNamesItsPlace) {
  const QByteArray whole = Packed(Pack::Tar, {{"a", QByteArray(700, '1')}, {"b", QByteArray(900, '2')}});
  EXPECT_EQ(WalkOver(whole.left(512 + 1024 + 512 + 300)).error,
            QStringLiteral("b：書庫が 2 個目のファイル（展開して 700 バイト）の後で壊れているか、"
                           "途中で切れています（「Truncated tar archive」）。"));
}

TEST(RecordArchive, AWrongChecksumIsTold) {
  QByteArray lone = Packed(Pack::Gz, {{"x", "some text\n"}});
  const qsizetype checksum = lone.size() - 8;
  lone[checksum] = static_cast<char>(lone[checksum] ^ 1);
  const Found found = WalkOver(lone);
  EXPECT_TRUE(found.members.isEmpty());
  EXPECT_TRUE(found.error.contains(QStringLiteral("（「gzip：incorrect data check」）。")))
      << found.error.toStdString();
  QByteArray archive = test::Fixture(QStringLiteral("knet/20000101000000.knt.tar.gz"));
  archive[archive.size() - 8] = static_cast<char>(archive[archive.size() - 8] ^ 1);
  EXPECT_TRUE(WalkOver(archive).error.contains(QStringLiteral("incorrect data check")));
  EXPECT_TRUE(WalkOver(Packed(Pack::Tar, {{"x.tar.gz", archive}}))
                  .error.contains(QStringLiteral("incorrect data check")));
}

TEST(RecordArchive, StreamsOneBehindTheOtherAreOneFile) {
  const QByteArray one = Packed(Pack::Gz, {{"x", "some "}});
  const QByteArray two = Packed(Pack::Gz, {{"x", "text\n"}});
  EXPECT_EQ(WalkOver(one + two).bytes, 10);
  // Filling behind the last one is none of them.
  EXPECT_EQ(WalkOver(one + two + QByteArray(100, '\0')).error, QString());
}

TEST(RecordArchive, WithoutFilesThereIsNoRecord) {
  const TestFolder folder;
  const QString path = folder.Write(QStringLiteral("x.tar"), Packed(Pack::Tar, {{"folder/", "", AE_IFDIR}}));
  EXPECT_EQ(ReadRecordFile(path).front().error,
            QDir::toNativeSeparators(path) + QStringLiteral(": 書庫に記録が入っていません（「0 個」）。"));
}

TEST(RecordArchive, WhatCameBeforeACutIsGiven) {
  const Found found = WalkOver(test::Fixture(QStringLiteral("broken/cut.knt.tar.gz")));
  EXPECT_EQ(found.members, QStringList{QStringLiteral("SMP0010001010000.EW")});
}

TEST(RecordArchive, OnlyTheWantedMembersAreRead) {
  QStringList names;
  QStringList read;
  WalkRecords(
      FixturePath(QStringLiteral("knet/20000101000000.knt.tar.gz")), {},
      [&](RecordReading&& reading) { read << reading.member; },
      [&](const QString& member) {
        names << member;
        return member.endsWith(QStringLiteral(".NS"));
      });
  EXPECT_EQ(names.size(), 3);
  EXPECT_EQ(read, QStringList{QStringLiteral("SMP0010001010000.NS")});
}

TEST(RecordArchive, AnInnerArchiveMayBeLargerThanAMember) {
  ArchiveBounds bounds;
  bounds.mostMemberBytes = 2000;
  std::vector<Entry> entries;
  QByteArray noise(1500, '0');
  std::uint32_t random = 1;
  for (int i = 0; i < 20; ++i) {
    for (char& c : noise)
      c = static_cast<char>('0' + ((random = random * 1664525U + 1013904223U) >> 24U) % 61U);
    entries.push_back({"m" + QByteArray::number(i), noise});
  }
  const QByteArray inner = Packed(Pack::TarGz, entries);
  ASSERT_GT(inner.size(), bounds.mostMemberBytes);
  const Found found = WalkOver(Packed(Pack::Tar, {{"inner.tar.gz", inner}, {"after", "1"}}), bounds);
  EXPECT_EQ(found.error, QString());
  EXPECT_EQ(found.members.size(), 21);
  EXPECT_EQ(found.bytes, 20 * 1500 + 1);
}

TEST(RecordArchive, ABombWithinIsBoundedByTheWhole) {
  ArchiveBounds bounds;
  bounds.mostBytes = 100000;
  const QByteArray inner =
      Packed(Pack::TarGz, {{"a", QByteArray(50000, '0')}, {"b", QByteArray(50000, '0')}});
  const Found found = WalkOver(Packed(Pack::Tar, {{"inner.tar.gz", inner}}), bounds);
  EXPECT_EQ(found.members, QStringList{QStringLiteral("inner.tar.gz/a")});
  EXPECT_EQ(found.error, QStringLiteral("展開すると全体で 100000 バイトを超えます。"));
}

TEST(RecordArchive, OnlyTheUsualPackingOfZipIsRead) {
  // Others ask for as much memory as the file likes: 256 MiB for 42 bytes.
  QByteArray zip = Packed(Pack::Zip, {{"a.txt", "one one one one one one one"}});
  constexpr qsizetype kMethod = 8;
  ASSERT_EQ(WalkOver(zip).error, QString());
  zip[kMethod] = 98;
  EXPECT_EQ(WalkOver(zip).error,
            QStringLiteral("a.txt：この圧縮方式の ZIP は読めません（「ZIP 2.0 (ppmd-1)」）。"));
  zip[kMethod] = 14;
  EXPECT_EQ(WalkOver(zip).error,
            QStringLiteral("a.txt：この圧縮方式の ZIP は読めません（「ZIP 2.0 (lzma)」）。"));
}

TEST(RecordArchive, TheTakerCanEndIt) {
  int count = 0;
  const ArchiveOutcome outcome = WalkArchive(Packed(Pack::Tar, {{"a", "1"}, {"b", "2"}}),
                                             [&](const QString&, const QByteArray&) { return ++count < 1; });
  EXPECT_EQ(count, 1);
  EXPECT_EQ(outcome.error, QString());
}

}  // namespace
}  // namespace tremlo
