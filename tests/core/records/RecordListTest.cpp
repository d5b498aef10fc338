#include "core/records/RecordFilter.h"
#include "core/records/RecordFixtures.h"
#include "core/records/RecordHead.h"
#include "core/records/RecordList.h"
#include "core/records/RecordTerms.h"
#include "support/TarBytes.h"

#include <QDir>
#include <QFile>

namespace tremlo {
namespace {

using test::FixturePath;

bool Always(int /*done*/, double /*share*/) {
  return true;
}

TEST(RecordFilter, ANamedSignDecidesUnderEveryFilterAndElseTheFilter) {
  const auto read = [](const QByteArray& content, RecordFilter filter) {
    return FormatToRead(RecordText(content, {}), filter);
  };
  const QByteArray named = test::Fixture(QStringLiteral("knet/SMP0010001010000.EW"));
  for (const RecordFilter filter : {RecordFilter::OwnWave, RecordFilter::All, RecordFilter::FreeText})
    EXPECT_EQ(read(named, filter), RecordFormat::KnetAscii);
  const QByteArray own = test::Fixture(QStringLiteral("text/SAMPLE_own_format.csv"));
  EXPECT_EQ(read(own, RecordFilter::OwnWave), RecordFormat::OwnWave);
  EXPECT_EQ(read(own, RecordFilter::All), RecordFormat::OwnWave);
  EXPECT_EQ(read(own, RecordFilter::FreeText), RecordFormat::FreeText);
  for (const char* content : {"", "no comma\n1\n2\n", "1 2\n3 4\n"}) {
    EXPECT_EQ(read(content, RecordFilter::OwnWave), RecordFormat::OwnWave) << content;
    EXPECT_EQ(read(content, RecordFilter::All), RecordFormat::FreeText) << content;
  }
}

TEST(RecordHead, MarksTheLinesThatSamplesComeFrom) {
  struct Case {
    const char* fixture;
    std::size_t first;  ///< line with data, from 1
  };
  for (const Case& one : {Case{"knet/SMP0010001010000.EW", 18}, Case{"jma/SAMPLE_99901.csv", 8},
                          Case{"peer/SAMPLE_RSN0_360.AT2", 5}, Case{"geonet/SAMPLE_SMPL.V1A", 27},
                          Case{"text/SAMPLE_headers31.txt", 32}, Case{"cosmos/SAMPLE_2ch.v1", 47},
                          Case{"text/SAMPLE_own_format.csv", 2}}) {
    const QByteArray content = test::Fixture(QString::fromLatin1(one.fixture));
    const RecordReading reading = test::ReadText(content);
    const std::vector<HeadLine> head = HeadOf(content, reading.dataLines);
    ASSERT_GE(head.size(), 40U) << one.fixture;
    std::size_t first = 0;
    while (first < head.size() && !head[first].data) ++first;
    EXPECT_EQ(first + 1, one.first) << one.fixture;
    EXPECT_TRUE(head.back().data) << one.fixture;
  }
}

TEST(RecordHead, LongLinesAreCutAndWhatDoesNotShowIsReplaced) {
  const std::vector<HeadLine> head = HeadOf(QByteArray(1000, 'x') +
                                                "\na\x01"
                                                "b\n",
                                            {});
  ASSERT_EQ(head.size(), 2U);
  EXPECT_EQ(head[0].text.size(), 200);
  EXPECT_EQ(head[1].text, QStringLiteral("a\uFFFD") + QStringLiteral("b"));
}

TEST(RecordList, AMemberIsKnownByItsFirstLines) {
  const MemberList list = ListMembers(FixturePath(QStringLiteral("knet/20000101000000.tar")), Always);
  EXPECT_EQ(list.error, QString());
  ASSERT_EQ(list.members.size(), 9U);
  EXPECT_EQ(list.members[0].station, QStringLiteral("SMP001"));
  EXPECT_EQ(list.members[0].components, QStringLiteral("EW"));
  EXPECT_EQ(list.members[0].format, RecordFormat::KnetAscii);
  EXPECT_TRUE(list.members[0].isRecord);
  EXPECT_EQ(list.members[8].format, RecordFormat::KikNetAscii);
}

TEST(RecordList, ChosenMembersComeWholeInTheirOrder) {
  const QString path = FixturePath(QStringLiteral("knet/20000101000000.tar"));
  const MemberList list = ListMembers(path, Always);
  const LoadedMembers loaded = LoadMembers(path, list, {1, 7}, Always);
  EXPECT_EQ(loaded.error, QString());
  ASSERT_EQ(loaded.files.size(), 2U);
  EXPECT_EQ(loaded.files[0].member, list.members[1].path);
  EXPECT_EQ(loaded.files[0].content, test::Fixture(QStringLiteral("knet/SMP0010001010000.NS")));
  EXPECT_EQ(loaded.files[1].member, list.members[7].path);
}

TEST(RecordList, WhatIsNoRecordIsSaidSo) {
  const test::TestFolder folder;
  const QByteArray picture("\x89PNG\r\n\0\0\0", 9);
  const QByteArray record = test::Fixture(QStringLiteral("knet/SMP0010001010000.EW"));
  const MemberList mixed =
      ListMembers(folder.Write(QStringLiteral("m.tar"),
                               test::TarBytes({{"map.png", picture}, {"empty", ""}, {"a.EW", record}})),
                  Always);
  ASSERT_EQ(mixed.members.size(), 3U);
  EXPECT_FALSE(mixed.members[0].isRecord);
  EXPECT_FALSE(mixed.members[1].isRecord);
  EXPECT_TRUE(mixed.members[2].isRecord);
  const MemberList cut = ListMembers(FixturePath(QStringLiteral("broken/cut.knt.tar.gz")), Always);
  EXPECT_TRUE(cut.error.contains(QStringLiteral("途中で切れています")));
  const MemberList bomb = ListMembers(FixturePath(QStringLiteral("broken/zeros_bomb.gz")), Always);
  ASSERT_EQ(bomb.members.size(), 1U);
  EXPECT_FALSE(bomb.members[0].isRecord);
  EXPECT_EQ(bomb.error, QString());
  const QString none = folder.Write(QStringLiteral("x.tar"), picture);
  EXPECT_FALSE(ListMembers(none, Always).error.isEmpty());
  EXPECT_FALSE(ListMembers(folder.Path(QStringLiteral("missing.tar")), Always).error.isEmpty());
}

TEST(RecordList, BothReadingsCanBeGivenUp) {
  const QString path = FixturePath(QStringLiteral("knet/20000101000000.tar"));
  const MemberList two = ListMembers(path, [](int done, double share) {
    EXPECT_GE(share, 0.0);
    EXPECT_LE(share, 1.0);
    return done < 2;
  });
  EXPECT_TRUE(two.ended);
  EXPECT_EQ(two.members.size(), 2U);
  const MemberList all = ListMembers(path, Always);
  const LoadedMembers none = LoadMembers(path, all, {8}, [](int done, double) { return done < 3; });
  EXPECT_TRUE(none.ended);
  EXPECT_TRUE(none.files.empty());
}

TEST(RecordList, AnArchiveThatHasChangedMeanwhileIsRefused) {
  const test::TestFolder folder;
  const QString path =
      folder.Write(QStringLiteral("a.tar"), test::Fixture(QStringLiteral("knet/20000101000000.tar")));
  const MemberList list = ListMembers(path, Always);
  folder.Write(QStringLiteral("a.tar"), test::Fixture(QStringLiteral("kiknet/20000101000000.kik.tar.gz")));
  const LoadedMembers loaded = LoadMembers(path, list, {0}, Always);
  EXPECT_TRUE(loaded.files.empty());
  EXPECT_EQ(loaded.error,
            QDir::toNativeSeparators(path) + QStringLiteral(": 一覧を作った後に書庫の内容が変わりました。"));
}

TEST(RecordList, MoreThanASingleFileMayHaveIsNotChosen) {
  MemberList list;
  for (int i = 0; i < 2; ++i)
    list.members.push_back(
        {QStringLiteral("m"), RecordFormat::KnetAscii, {}, {}, kMostChosenBytes / 2 + 1, true});
  const LoadedMembers loaded = LoadMembers(QStringLiteral("a.tar"), list, {0, 1}, Always);
  EXPECT_TRUE(loaded.error.contains(QStringLiteral("選んだファイルが大きすぎます")));
}

TEST(RecordTerms, EveryOwnerOfRecordsIsNamed) {
  for (const char* name : {"NIED.0004", "気象庁", "PEER", "CESMD", "GNS Science", "CC BY 3.0 NZ"})
    EXPECT_TRUE(RecordTerms().contains(QString::fromUtf8(name))) << name;
  EXPECT_TRUE(CreditOf(RecordFormat::OwnWave).isEmpty());
}

}  // namespace
}  // namespace tremlo
