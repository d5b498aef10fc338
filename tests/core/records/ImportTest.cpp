#include "core/records/RecordFixtures.h"
#include "core/records/RecordImport.h"
#include "core/records/RecordUnit.h"

#include <QDir>

#include <numeric>

namespace tremlo {
namespace {

using test::FixturePath;
using test::HasWord;

RecordImport::File FileOf(const QString& fixture) {
  return {FixturePath(fixture), {}, test::Fixture(fixture)};
}
RecordImport ImportOf(const char* fixture, bool onlyOne = false) {
  return RecordImport({FileOf(QString::fromLatin1(fixture))}, onlyOne);
}

double MeanOf(const std::vector<double>& acc) {
  return std::accumulate(acc.begin(), acc.end(), 0.0) / static_cast<double>(acc.size());
}

TEST(RecordImport, OneComponentWhoseFileSaysAllIsPlain) {
  for (const char* fixture :
       {"knet/SMP0010001010000.EW", "kiknet/SMPH010001010000.EW2", "peer/SAMPLE_RSN0_360.AT2",
        "cosmos/SAMPLE_1ch.v2c", "text/SAMPLE_time_value_tab_cp932.txt"})
    EXPECT_TRUE(ImportOf(fixture).IsPlain()) << fixture;
}

TEST(RecordImport, SeveralComponentsAQuestionOrAFindingAreNot) {
  for (const char* fixture :
       {"jma/SAMPLE_99901.csv", "knet/SAMPLE_SMP001.csv", "geonet/SAMPLE_SMPL.V2A", "cosmos/SAMPLE_2ch.v1",
        "text/SAMPLE_label_npts_dt.txt", "warn/SAMPLE_no_unit.txt", "broken/no_dt.AT2",
        "broken/short_data.EW", "warn/SMP0030001010000.UD1", "broken/text_decimal_comma.txt",
        "broken/letter_in_data.EW"})
    EXPECT_FALSE(ImportOf(fixture).IsPlain()) << fixture;
}

TEST(RecordImport, TheMeanOfTheWholeRecordIsTakenOffAndTold) {
  const RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  const ImportedWave wave = import.Wave(0);
  EXPECT_EQ(wave.name, QStringLiteral("SMP001 EW"));
  EXPECT_EQ(wave.timeStep, 0.01);
  ASSERT_EQ(wave.acc.size(), 300U);
  EXPECT_NEAR(MeanOf(wave.acc), 0.0, 1e-12);
  EXPECT_NEAR(wave.note->offset, -7.645948, 1e-6);
  EXPECT_NEAR(wave.acc[0], -7.641855 + 7.645948, 2e-6);
  EXPECT_TRUE(wave.note->warnings.empty());
  EXPECT_EQ(
      NoteLine(*wave.note),
      QStringLiteral("形式：K-NET ASCII　観測点：SMP001　成分：EW　データ数：300　時間間隔：0.01 秒　"
                     "単位：count（係数 3920(gal)/6182761）　オフセット：-7.64595 gal を差し引きました"));
  EXPECT_TRUE(NoteDetails(*wave.note).contains(QStringLiteral("NIED.0004")));
  EXPECT_TRUE(NoteDetails(*wave.note).contains(QStringLiteral("SMP0010001010000.EW")));
}

TEST(RecordImport, WhatIsCorrectedStaysAsItIs) {
  const RecordImport import = ImportOf("peer/SAMPLE_RSN0_360.AT2");
  const ImportedWave wave = import.Wave(0);
  EXPECT_EQ(wave.acc, import.Samples(0).acc);
  EXPECT_EQ(wave.note->offset, 0.0);
  EXPECT_TRUE(NoteLine(*wave.note).contains(QStringLiteral("補正済みの記録のため差し引いていません")));
  EXPECT_TRUE(NoteLine(*wave.note).contains(QStringLiteral("単位：g（係数 980.665）")));
}

TEST(RecordImport, AnOffsetOverTheFirstSecondsIsTheirMean) {
  RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  import.SetOffset(OffsetRule{OffsetRule::First, 0.5});
  const std::vector<double>& raw = import.Samples(0).acc;
  const double mean = MeanOf({raw.begin(), raw.begin() + 50});
  EXPECT_NEAR(import.Wave(0).acc[7], raw[7] - mean, 1e-12);
  import.SetOffset(OffsetRule{OffsetRule::First, 0.0});
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Offset);
}

TEST(RecordImport, AnOffsetThatIsKeptIsAFinding) {
  RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  EXPECT_TRUE(import.Warnings().empty());
  import.SetOffset(OffsetRule{OffsetRule::None, 0.0});
  EXPECT_TRUE(HasWord(import.Warnings(), QStringLiteral("残しています")));
  EXPECT_EQ(import.Wave(0).acc, import.Samples(0).acc);
}

TEST(RecordImport, APartOfTheRecordIsKeptWithTheOffsetOfAllOfIt) {
  RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  const std::vector<double> whole = import.Wave(0).acc;
  import.SetSpan(0.5, 2.0);
  const ImportedWave part = import.Wave(0);
  EXPECT_EQ(part.acc, std::vector<double>(whole.begin() + 50, whole.begin() + 201));
  EXPECT_EQ(part.note->count, 151U);
  EXPECT_TRUE(NoteLine(*part.note).contains(QStringLiteral("範囲：0.5～2 秒")));
  // The end of what is kept lies in the middle of the shaking.
  EXPECT_TRUE(HasWord(import.Warnings(), QStringLiteral("末尾が静止していない")));
  import.SetSpan(3.0, std::nullopt);
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Span);
  import.SetSpan(0.0, 100.0);
  EXPECT_EQ(import.Wave(0).acc, whole);
}

TEST(RecordImport, AMultipleOfTheStepThatIsNoDoubleStandsForItsSample) {
  RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  import.SetSpan(0.07, 0.57);  // 7.000000000000001 and 56.99999999999999 steps
  EXPECT_EQ(import.Wave(0).acc.size(), 51U);
  EXPECT_NEAR(import.Wave(0).note->from, 0.07, 1e-12);
}

TEST(RecordImport, WhatTheFileLeavesOpenStandsInTheWayUntilItIsAnswered) {
  RecordImport import = ImportOf("warn/SAMPLE_no_unit.txt");
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Unit);
  EXPECT_FALSE(import.IsKnown(0));
  RecordAnswers answers;
  answers.unit = UnitOfWord("m/s2");
  import.SetAnswers(answers);
  if (const auto fault = import.Fault()) {
    EXPECT_EQ(fault->field, ImportFault::TimeStep);
    answers.timeStep = 0.01;
    import.SetAnswers(answers);
  }
  EXPECT_FALSE(import.Fault());
  EXPECT_NEAR(PeakOf(import.Wave(0).acc).pga, 90.700143, 1e-5);
  EXPECT_FALSE(import.Asks(RecordAsk::Unit));
  EXPECT_TRUE(import.IsOpen(RecordAsk::Unit));
}

TEST(RecordImport, WhatTheFileStatesIsKnownAlsoBehindAnAnswer) {
  RecordImport import = ImportOf("peer/SAMPLE_RSN0_360.AT2");
  EXPECT_EQ(import.StatedUnit(), QStringLiteral("g"));
  EXPECT_EQ(import.StatedTimeStep(), 0.01);
  RecordAnswers answers;
  answers.unit = UnitOfWord("m/s2");
  answers.timeStep = 0.02;
  import.SetAnswers(answers);
  EXPECT_EQ(import.StatedUnit(), QStringLiteral("g"));
  EXPECT_EQ(import.StatedTimeStep(), 0.01);
  EXPECT_EQ(import.Wave(0).timeStep, 0.02);
  EXPECT_TRUE(HasWord(import.Warnings(), QStringLiteral("ファイルの記載は g")));
}

TEST(RecordImport, AFormatThatTakesNoUnitIsNotAskedForOne) {
  RecordImport import = ImportOf("knet/SMP0010001010000.EW");
  EXPECT_FALSE(import.TakesUnit());
  RecordAnswers answers;
  answers.unit = UnitOfWord("g");
  import.SetAnswers(answers);
  EXPECT_FALSE(import.Fault());
  EXPECT_NEAR(PeakOf(import.Wave(0).acc).pga, 138.989094, 1e-5);
}

TEST(RecordImport, ALayoutChangesTheComponentsAndKeepsTheNames) {
  RecordImport import = ImportOf("text/SAMPLE_time_3comp.csv");
  ASSERT_EQ(import.Components().size(), 3U);
  import.Rename(1, QStringLiteral("mine"));
  import.Choose(2, false);
  RecordAnswers answers;
  answers.timeStep = 0.02;
  import.SetAnswers(answers);
  EXPECT_EQ(import.Components()[1].name, QStringLiteral("mine"));
  EXPECT_FALSE(import.Components()[2].chosen);
  EXPECT_EQ(import.Components()[0].name, QStringLiteral("SAMPLE_time_3comp NS"));
  EXPECT_EQ(import.Waves().size(), 2U);
}

TEST(RecordImport, OnTheRouteOfOneWaveOneIsChosen) {
  RecordImport import = ImportOf("jma/SAMPLE_99901.csv", true);
  ASSERT_EQ(import.Components().size(), 3U);
  ASSERT_EQ(import.Waves().size(), 1U);
  EXPECT_EQ(import.Waves()[0].note->component, QStringLiteral("NS"));
  import.Choose(2, true);
  ASSERT_EQ(import.Waves().size(), 1U);
  EXPECT_EQ(import.Waves()[0].note->component, QStringLiteral("UD"));
  import.Choose(2, false);
  EXPECT_EQ(import.Waves().size(), 1U);
}

TEST(RecordImport, NothingChosenAndAnEmptyNameStandInTheWay) {
  RecordImport import = ImportOf("jma/SAMPLE_99901.csv");
  import.Rename(0, QString());
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->text, QStringLiteral("波形名の入力エラーです。"));
  for (std::size_t i = 0; i < 3; ++i) import.Choose(i, false);
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->text, QStringLiteral("成分が選択されていません。"));
}

TEST(RecordImport, ARefusedFileIsNamedWithLineAndValue) {
  const RecordImport import = ImportOf("broken/letter_in_data.EW");
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Format);
  EXPECT_TRUE(import.Fault()->text.startsWith(
      QDir::toNativeSeparators(FixturePath(QStringLiteral("broken/letter_in_data.EW")))));
  EXPECT_TRUE(import.Fault()->text.contains(QStringLiteral("22行目")));
}

TEST(RecordImport, AnotherFormatReadsTheSameFileAnew) {
  RecordImport import({FileOf(QStringLiteral("text/SAMPLE_own_format.csv"))}, false, RecordFormat::FreeText);
  EXPECT_EQ(import.Readings()[0].format, RecordFormat::FreeText);
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Unit);
  import.SetFormat(RecordFormat::OwnWave);
  EXPECT_FALSE(import.Fault());
  import.SetFormat(RecordFormat::KnetAscii);
  ASSERT_TRUE(import.Fault());
  EXPECT_EQ(import.Fault()->field, ImportFault::Format);
}

TEST(RecordImport, OfSeveralFilesEachWarningNamesItsOwn) {
  RecordImport import({{QStringLiteral("a.tar"), QStringLiteral("x/one.EW"),
                        test::Fixture(QStringLiteral("broken/short_data.EW"))},
                       {QStringLiteral("a.tar"), QStringLiteral("x/two.EW"),
                        test::Fixture(QStringLiteral("broken/letter_in_data.EW"))}},
                      false);
  EXPECT_FALSE(import.IsPlain());
  EXPECT_TRUE(HasWord(import.Warnings(), QStringLiteral("one.EW：点数")));
  EXPECT_TRUE(HasWord(import.Warnings(), QStringLiteral("two.EW")));
  EXPECT_EQ(import.Waves().size(), 1U);
}

TEST(RecordImport, FilesThatDifferInWhatIsUsualKeepTheirOwnUntilARuleIsSet) {
  RecordImport import(
      {FileOf(QStringLiteral("geonet/SAMPLE_SMPL.V1A")), FileOf(QStringLiteral("geonet/SAMPLE_SMPL.V2A"))},
      false);
  EXPECT_TRUE(import.UsualOffsetsDiffer());
  EXPECT_EQ(import.OffsetOfFile(0).kind, OffsetRule::Whole);
  EXPECT_EQ(import.OffsetOfFile(1).kind, OffsetRule::None);
  import.SetOffset(OffsetRule{OffsetRule::Whole, 0.0});
  EXPECT_FALSE(import.HasUsualOffset());
  EXPECT_EQ(import.OffsetOfFile(1).kind, OffsetRule::Whole);
  import.SetOffset(std::nullopt);
  EXPECT_EQ(import.OffsetOfFile(1).kind, OffsetRule::None);
  EXPECT_FALSE(ImportOf("jma/SAMPLE_99901.csv").UsualOffsetsDiffer());
}

TEST(OwnImport, IsReadAsEverywhereAndSaysWhatSpeaksAgainstIt) {
  const ImportedWave wave = ReadOwnImport("A, 0.02, 1\n0, 4\nx\n", QStringLiteral("/x/a.csv"));
  EXPECT_EQ(wave.name, QStringLiteral("A"));
  EXPECT_EQ(wave.timeStep, 0.02);
  EXPECT_EQ(wave.acc, (std::vector<double>{4.0, 4.0}));
  EXPECT_EQ(wave.note->format, RecordFormat::OwnWave);
  EXPECT_TRUE(HasWord(wave.note->warnings, QStringLiteral("数値の組でない行")));
  const ImportedWave silent = ReadOwnImport("nothing\n", QStringLiteral("/x/a.csv"));
  EXPECT_EQ(silent.name, QStringLiteral("nothing"));
  EXPECT_EQ(silent.timeStep, 0.0);
  EXPECT_TRUE(silent.acc.empty());
  EXPECT_TRUE(HasWord(silent.note->warnings, QStringLiteral("a.csv: 1行目")));
}

}  // namespace
}  // namespace tremlo
