#include "core/files/Cp932Text.h"
#include "core/waves/WaveFile.h"
#include "support/CommaLocale.h"
#include "support/CurrentFolder.h"
#include "support/TestFolder.h"

#include <QDir>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tremlo {
namespace {

using test::TestFolder;

struct Wave {
  QString name = "before";
  double timeStep = 7.0;
  std::vector<double> acc = {7.0};
};

class WaveFileTest : public testing::Test {
 protected:
  Wave Read(const QByteArray& content) const {
    Wave wave;
    EXPECT_FALSE(ReadWaveFile(m_folder.Write("読む.csv", content), wave.name, wave.timeStep, wave.acc));
    return wave;
  }
  void ExpectWave(const QByteArray& content, const QString& name, double timeStep,
                  const std::vector<double>& acc) const {
    const Wave wave = Read(content);
    EXPECT_EQ(wave.name, name);
    EXPECT_EQ(wave.timeStep, timeStep);
    EXPECT_EQ(wave.acc, acc);
  }
  QByteArray Written(const QString& name, double timeStep, const std::vector<double>& x,
                     const std::vector<double>& y) const {
    EXPECT_TRUE(WriteCsv(m_folder.Path("書く.csv"), name, timeStep, x, y));
    return test::ReadAll(m_folder.Path("書く.csv"));
  }

  TestFolder m_folder;
};

TEST_F(WaveFileTest, ReadsNameStepAndSamples) {
  ExpectWave("A,0.01,0\n0,1.5\n0.01,-2\n", "A", 0.01, {1.5, -2.0});
}

TEST_F(WaveFileTest, ReadsWhatTheWriterWrites) {
  ExpectWave("A, 0.01, 1\n0, 1.5\n", "A", 0.01, {1.5});
}

TEST_F(WaveFileTest, ALineWithoutASecondNumberRepeatsTheSampleBefore) {
  ExpectWave("A,0.01,0\n0,1.5\n0.01,-2\n0.02\n", "A", 0.01, {1.5, -2.0, -2.0});
  ExpectWave("A,0.01,0\n0,1.5\n\nx\n0.01 ,2\n", "A", 0.01, {1.5, 1.5, 1.5, 1.5});
}

TEST_F(WaveFileTest, ABadLineBeforeAnyGoodOneGivesZero) {
  ExpectWave("A,0.01,0\n\n0,1\n", "A", 0.01, {0.0, 1.0});
}

TEST_F(WaveFileTest, TheLastLineCountsWithoutItsLineFeed) {
  ExpectWave("A,1,1\n0,1\n0,2", "A", 1.0, {1.0, 2.0});
}

TEST_F(WaveFileTest, CarriageReturnsAreDropped) {
  ExpectWave("A,0.5,1\r\n0,1\r\n0,2\r\n", "A", 0.5, {1.0, 2.0});
}

TEST_F(WaveFileTest, NoDataLineGivesNoSample) {
  ExpectWave("A,0.01,1\n", "A", 0.01, {});
}

TEST_F(WaveFileTest, AnEmptyFileGivesNothing) {
  ExpectWave("", "", 0.0, {});
}

TEST_F(WaveFileTest, AFirstLineThatStartsWithACommaGivesNoNameAndNoStep) {
  ExpectWave(",0.01,1\n0,5\n", "", 0.0, {5.0});
}

TEST_F(WaveFileTest, AFirstLineWithoutANumberGivesNoStep) {
  ExpectWave("A,x,1\n0,5\n", "A", 0.0, {5.0});
}

TEST_F(WaveFileTest, BlanksInsideTheNameStay) {
  ExpectWave(" A b ,0.01,1\n", " A b ", 0.01, {});
}

TEST_F(WaveFileTest, ANameOf260CharactersIsReadWhole) {
  const QByteArray name(260, 'n');
  ExpectWave(name + ",0.01,1\n", QString::fromLatin1(name), 0.01, {});
}

TEST_F(WaveFileTest, ALongerNameIsCutAndEndsTheScan) {
  ExpectWave(QByteArray(261, 'n') + ",0.01,1\n", QString(260, u'n'), 0.0, {});
}

TEST_F(WaveFileTest, TheTextIsCp932) {
  const QByteArray bytes = QByteArray::fromStdString(EncodeCp932(QStringLiteral("波形～－①")));
  ExpectWave(bytes + ",0.01,1\n", QStringLiteral("波形～－①"), 0.01, {});
}

TEST_F(WaveFileTest, BehindAUtf8MarkTheTextIsUtf8) {
  ExpectWave("\xEF\xBB\xBF" + QStringLiteral("波形é").toUtf8() + ",0.01,1\n0,3\n", QStringLiteral("波形é"),
             0.01, {3.0});
}

TEST_F(WaveFileTest, AnExportedBlankReadsBackAsABlank) {
  ExpectWave("A,0.01,1\n0,inf\n", "A", 0.01, {kBlankSample});
}

TEST_F(WaveFileTest, ABinaryFileIsSurvived) {
  QByteArray bytes;
  for (int i = 0; i < 5000; ++i) bytes += static_cast<char>((i * 7919) >> 3);
  EXPECT_LE(Read(bytes).acc.size(), 5000U);
}

TEST_F(WaveFileTest, AMillionLinesAreRead) {
  QByteArray text = "long,0.005,1\n";
  for (int i = 0; i < 1000000; ++i) text += "0,1.25\n";
  EXPECT_EQ(Read(text).acc, std::vector<double>(1000000, 1.25));
}

TEST_F(WaveFileTest, AFileThatCannotBeOpenedChangesNothing) {
  for (const QString& path : {m_folder.Path("absent.csv"), m_folder.Path(), QStringLiteral("/dev/zero")}) {
    Wave wave;
    const auto message = ReadWaveFile(path, wave.name, wave.timeStep, wave.acc);
    ASSERT_TRUE(message);
    EXPECT_EQ(*message,
              QDir::toNativeSeparators(path) + QStringLiteral("を開けません。（読み取りオープン）"));
    EXPECT_EQ(wave.name, QString("before"));
    EXPECT_EQ(wave.acc, std::vector<double>{7.0});
    std::vector<double> periods = {7.0};
    std::vector<double> values = {7.0};
    EXPECT_EQ(ReadSpectrumFile(path, wave.name, periods, values), message);
    EXPECT_EQ(periods, std::vector<double>{7.0});
  }
}

TEST_F(WaveFileTest, ASpectrumKeepsBothNumbers) {
  QString name;
  std::vector<double> periods;
  std::vector<double> values;
  ASSERT_FALSE(ReadSpectrumFile(m_folder.Write("s.csv", "S, 0.02, 1\n5, 28\n4.7\n\nx\n0.1,700,extra\n"), name,
                                periods, values));
  EXPECT_EQ(name, QString("S"));
  EXPECT_EQ(periods, (std::vector<double>{5.0, 4.7, 4.7, 4.7, 0.1}));
  EXPECT_EQ(values, (std::vector<double>{28.0, 28.0, 28.0, 28.0, 700.0}));
}

TEST_F(WaveFileTest, WritesSixSignificantDigits) {
  EXPECT_EQ(Written("A", 0.005, {0.0, 0.005, 1234567.0, 1e-10}, {-1.23456789, 100000.0, 1e20, 0.1}),
            QByteArray("A, 0.005, 1\n0, -1.23457\n0.005, 100000\n1.23457e+06, 1e+20\n1e-10, 0.1\n"));
}

TEST_F(WaveFileTest, WritesBlanksAsInf) {
  EXPECT_EQ(Written("A", 1.0, {0.0, 1.0}, {kBlankSample, -kBlankSample}),
            QByteArray("A, 1, 1\n0, inf\n1, -inf\n"));
}

TEST_F(WaveFileTest, WritesCp932WithAQuestionMarkForTheRest) {
  EXPECT_EQ(Written(QStringLiteral("é波～"), 1.0, {0.0}, {1.0}),
            QByteArray("?\x94\x67\x81\x60, 1, 1\n0, 1\n"));
}

TEST_F(WaveFileTest, WritesAsManyLinesAsThereAreX) {
  EXPECT_EQ(Written("A", 1.0, {0.0}, {1.0, 2.0}), QByteArray("A, 1, 1\n0, 1\n"));
}

TEST_F(WaveFileTest, NumbersAreWrittenWithAPointInALocaleWithAComma) {
  const test::CommaLocale locale;
  EXPECT_EQ(Written("A", 0.5, {0.5}, {1234.5}), QByteArray("A, 0.5, 1\n0.5, 1234.5\n"));
}

TEST_F(WaveFileTest, NothingToWriteLeavesNoFile) {
  const QString path = m_folder.Path("none.csv");
  EXPECT_FALSE(WriteCsv("", "A", 1.0, {0.0}, {1.0}));
  EXPECT_FALSE(WriteCsv(path, "", 1.0, {0.0}, {1.0}));
  EXPECT_FALSE(WriteCsv(path, "A", 0.0, {0.0}, {1.0}));
  EXPECT_FALSE(WriteCsv(path, "A", 1.0, {}, {1.0}));
  EXPECT_FALSE(WriteCsv(path, "A", 1.0, {0.0}, {}));
  EXPECT_TRUE(m_folder.Names().isEmpty());
}

TEST_F(WaveFileTest, AFailedWriteLeavesTheOlderFile) {
  const QString file = m_folder.Write("file", "old");
  EXPECT_FALSE(WriteCsv(file + "/below.csv", "A", 1.0, {0.0}, {1.0}));
  EXPECT_FALSE(WriteCsv(m_folder.Path("absent/x.csv"), "A", 1.0, {0.0}, {1.0}));
  EXPECT_FALSE(WriteCsv(m_folder.Path(), "A", 1.0, {0.0}, {1.0}));
  EXPECT_EQ(m_folder.Names(), QStringList{"file"});
  EXPECT_EQ(test::ReadAll(file), QByteArray("old"));
}

TEST_F(WaveFileTest, AnExportWritesThreeFiles) {
  const SavePath path = SplitSavePath(m_folder.Path("x.d/y.csv"));
  QDir().mkpath(m_folder.Path("x.d"));
  ExportWave(path, "W", 0.01, {1.0, kBlankSample, 3.0, 4.0}, {0.04, 0.02}, {5.0, 6.0});
  EXPECT_EQ(test::ReadAll(m_folder.Path("x.d/y.csv")),
            QByteArray("W, 0.01, 1\n0, 1\n0.01, inf\n0.02, 3\n0.03, 4\n"));
  EXPECT_EQ(DecodeCp932(test::ReadAll(m_folder.Path("x.d/y_AccSpec.csv")).toStdString()),
            QStringLiteral("W_加速度応答スペクトル, 0.01, 1\n0.04, 5\n0.02, 6\n"));
  const QString fourier = DecodeCp932(test::ReadAll(m_folder.Path("x.d/y_FFT.csv")).toStdString());
  EXPECT_TRUE(fourier.startsWith(QStringLiteral("W_フーリエスペクトル, 0.01, 1\n0.04, ")));
  EXPECT_FALSE(fourier.contains(u"inf") || fourier.contains(u"nan"));
  EXPECT_EQ(fourier.count(u'\n'), 3);
}

TEST_F(WaveFileTest, ACancelledExportStillWritesTheTwoSpectraByTheirBareNames) {
  const test::CurrentFolder here(m_folder.Path());
  ExportWave(SplitSavePath(""), "W", 0.01, {1.0, 2.0}, {0.02}, {5.0});
  EXPECT_EQ(m_folder.Names(), (QStringList{"_AccSpec", "_FFT"}));
}

TEST_F(WaveFileTest, OneFailedFileDoesNotStopTheOthers) {
  QDir().mkpath(m_folder.Path("y.csv"));
  ExportWave(SplitSavePath(m_folder.Path("y.csv")), "W", 0.01, {1.0, 2.0}, {0.02}, {5.0});
  EXPECT_EQ(m_folder.Names(), (QStringList{"y.csv", "y_AccSpec.csv", "y_FFT.csv"}));
}

TEST_F(WaveFileTest, AnImportedWaveTakesAFreeNameAndBecomesCurrent) {
  CSeismicWaveSet waves;
  EXPECT_EQ(AddImportedWave(waves, "A", 0.01, {1.0}), QString("A"));
  EXPECT_EQ(AddImportedWave(waves, "A", 0.01, {1.0}), QString("A_1"));
  waves.SetSpectrumValid("A_1", true);
  EXPECT_EQ(AddImportedWave(waves, "A", 0.02, {2.0, 3.0}), QString("A_2"));
  EXPECT_EQ(waves.CurrentName(), QString("A_2"));
  EXPECT_EQ(waves.GetTimeStep("A_2"), 0.02);
  EXPECT_EQ(waves.GetAcc("A_2"), (std::vector<double>{2.0, 3.0}));
  EXPECT_FALSE(waves.GetSpectrumValid("A_2"));
}

TEST(FileNameOfWave, IsThatOfTheWaveWithWhatNoFileTakesReplaced) {
  EXPECT_EQ(FileNameOfWave("HSES 2016 N80W 0.005s", ""), QString("HSES 2016 N80W 0.005s.csv"));
  EXPECT_EQ(FileNameOfWave("波形", "_調整後"), QString("波形_調整後.csv"));
  EXPECT_EQ(FileNameOfWave(R"(a/b\c:d*e?f"g<h>i|j)", ""), QString("a_b_c_d_e_f_g_h_i_j.csv"));
  EXPECT_EQ(FileNameOfWave("a\tb\x7F", ""), QString("a_b_.csv"));
  EXPECT_EQ(FileNameOfWave("  a ", ""), QString("a.csv"));
  EXPECT_EQ(FileNameOfWave(".hidden", ""), QString("_hidden.csv"));
}

TEST(FileNameOfWave, IsNoneWhereNothingIsLeft) {
  EXPECT_EQ(FileNameOfWave("", "_調整後"), QString());
  EXPECT_EQ(FileNameOfWave(" \t ", ""), QString());
}

TEST(FileNameOfWave, FitsIntoAFolderWithItsSpectraBesideIt) {
  const QString name = FileNameOfWave(QString(300, u'長'), "_調整後");
  EXPECT_TRUE(name.startsWith("長長") && name.endsWith("長_調整後.csv"));
  EXPECT_LE(name.toUtf8().size() + QByteArray("_AccSpec").size(), 255);
  const QString waves = QString::fromUtf8("🌊").repeated(100);
  EXPECT_FALSE(FileNameOfWave("a" + waves, "").toUtf8().contains("?")) << "no half of a character";
  EXPECT_FALSE(FileNameOfWave("ab" + waves, "").toUtf8().contains("?"));
}

TEST(SavePath, IsSplitAtTheLastPointOfTheName) {
  const auto expect = [](const QString& path, const QString& base, const QString& extension) {
    EXPECT_EQ(SplitSavePath(path).base, base);
    EXPECT_EQ(SplitSavePath(path).extension, extension);
  };
  expect("/x/y.csv", "/x/y", ".csv");
  expect("/x.d/y", "/x.d/y", "");
  expect("y.tar.gz", "y.tar", ".gz");
  expect("", "", "");
}

}  // namespace
}  // namespace tremlo
