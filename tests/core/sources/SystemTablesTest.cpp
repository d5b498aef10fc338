#include "core/files/Cp932Text.h"
#include "core/sources/SystemTables.h"
#include "support/CommaLocale.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;
using Numbers = std::vector<double>;

QByteArray Cp932(const QString& text) {
  return QByteArray::fromStdString(EncodeCp932(text));
}

class SystemTablesTest : public testing::Test {
 protected:
  TableFile File(const QString& folder, const QString& name, const QByteArray& content) {
    const QString path = m_folder.Write(folder + u'/' + name, content);
    for (const TableFile& file : ListTableFiles(m_folder.Path(), folder))
      if (file.path == path) return file;
    ADD_FAILURE() << "not listed";
    return {};
  }
  std::optional<TableFailure> LoadCoefficients(const QByteArray& content) {
    return LoadDamCoefFile(File("DamCoef", "x.csv", content), m_set);
  }
  void ExpectFailure(const std::optional<TableFailure>& failure, const QString& text, int status) const {
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, text);
    EXPECT_EQ(failure->exitStatus, status);
  }

  TestFolder m_folder;
  DamCoefSet m_set;
  const QByteArray m_horizontal = Cp932(QStringLiteral("(水平)H20ダム距離減衰\n"));
  const QByteArray m_vertical = Cp932(QStringLiteral("(鉛直)H20ダム距離減衰\r\n"));
};

TEST_F(SystemTablesTest, TheListingIsByNameWithoutCaseAndTakesCsvFilesOnly) {
  for (const char* name : {"b.csv", "A.CSV", "c.csv.bak", "Z.csv", "a1.csv", ".x.csv", "見本.txt"})
    m_folder.Write(QStringLiteral("LowSpec/") + QString::fromUtf8(name), "");
  QDir().mkpath(m_folder.Path("LowSpec/folder.csv"));
  QStringList names;
  for (const TableFile& file : ListTableFiles(m_folder.Path(), "LowSpec")) names << file.name;
  EXPECT_EQ(names, (QStringList{"A.CSV", "a1.csv", "b.csv", "Z.csv"}));
  EXPECT_TRUE(ListTableFiles(m_folder.Path(), "absent").empty());
}

TEST_F(SystemTablesTest, CoefficientsOfAFolderStandInTheOrderOfTheListing) {
  for (const char* name : {"b", "C", "a", "B", "10", "9"})
    m_folder.Write(QStringLiteral("DamCoef/%1.csv").arg(QLatin1String(name)),
                   m_horizontal + "0\n" + name + '\n');
  std::vector<DamCoefSet> sets;
  ASSERT_FALSE(LoadDamCoefFolder(m_folder.Path(), sets));
  QStringList titles;
  for (const DamCoefSet& set : sets) titles << set.title;
#ifdef Q_OS_WIN
  // There "b" and "B" are one file, under the name that came first.
  EXPECT_EQ(titles, (QStringList{"10", "9", "a", "B", "C"}));
#else
  EXPECT_EQ(titles, (QStringList{"10", "9", "a", "B", "b", "C"}));
#endif
}

TEST_F(SystemTablesTest, AFolderOfTheUsersIsNeverFilledUpFromAnother) {
  const TestFolder shared;
  test::CopyTables(shared);
  const ProgramFolders folders(m_folder.Path(), {shared.Path()});
  EXPECT_FALSE(CheckTableFolders(folders));
  EXPECT_EQ(SampleTableFolders(folders), (std::vector<QString>{"DamCoef", "LowSpec", "SystemData"}));
  m_folder.Write(QStringLiteral("LowSpec/h17.csv"), "mine\n1,2\n");
  const std::optional<TableFailure> failure = CheckTableFolders(folders);
  ExpectFailure(failure, QStringLiteral("LowSpec\\h20_h.csvがありません。"), 0);
  EXPECT_EQ(failure->place, m_folder.Path());
  EXPECT_EQ(SampleTableFolders(folders), (std::vector<QString>{"DamCoef", "SystemData"}));
  std::vector<DamCoefSet> sets;
  EXPECT_FALSE(LoadDamCoefFolder(folders, sets));
  EXPECT_EQ(sets.size(), 4u);
  CSeismicWaveSet spectra;
  EXPECT_FALSE(LoadLowSpecFolder(folders, spectra));
  ASSERT_EQ(spectra.Count(), 1u);
  EXPECT_EQ(spectra.Records()[0].name, QStringLiteral("mine"));
}

TEST_F(SystemTablesTest, NumbersOfAllTablesHaveAPointInALocaleWithAComma) {
  const test::CommaLocale locale;
  ASSERT_FALSE(LoadCoefficients(m_horizontal + "0\n\n\n0.5,1.5,2.5,3.5,4.5,5.5,6.5,7.5,8.5,9.5,10.5,11.5\n"));
  EXPECT_EQ(m_set.period, Numbers{0.5});
  EXPECT_EQ(m_set.ampA, Numbers{1.5});
  EXPECT_EQ(m_set.coefNear, Numbers{11.5});
  std::vector<MainFaultRow> rows;
  ASSERT_FALSE(LoadFaultDataFile(
      File("SystemData", "FaultData.csv", "F1,a,1,1.5,2,3,4,5,6,7,8,9,10,11,12.5,137.5,36.25\n"), rows));
  EXPECT_EQ(rows.at(0).cornerA[0], 1.5);
  EXPECT_EQ(rows.at(0).cornerC[3], 12.5);
  EXPECT_EQ(rows.at(0).lon, 137.5);
  EXPECT_EQ(rows.at(0).lat, 36.25);
  QString name;
  Numbers periods, values;
  ASSERT_FALSE(LoadLowSpecFile(File("LowSpec", "x.csv", "n\n4.5,28.25\n"), name, periods, values));
  EXPECT_EQ(periods, Numbers{4.5});
  EXPECT_EQ(values, Numbers{28.25});
}

TEST_F(SystemTablesTest, ShippedTablesAreComplete) {
  test::CopyTables(m_folder);
  EXPECT_FALSE(CheckTableFolders(m_folder.Path()));
}

TEST_F(SystemTablesTest, EveryMissingTableIsToldByItsName) {
  const std::pair<const char*, const char*> cases[] = {
      {"DamCoef/H20_Ehd_H.csv", "DamCoef\\H20_Ehd_H.csv"},
      {"DamCoef/H20_Ehd_V.csv", "DamCoef\\H20_Ehd_V.csv"},
      {"DamCoef/H20_MinDis_H.csv", "DamCoef\\H20_MinDis_H.csv"},
      {"DamCoef/H20_MinDis_V.csv", "DamCoef\\H20_MinDis_V.csv"},
      {"LowSpec/h17.csv", "LowSpec\\h17.csv"},
      {"LowSpec/h20_h.csv", "LowSpec\\h20_h.csv"},
      {"LowSpec/h20_v.csv", "LowSpec\\h20_v.csv"},
      {"SystemData/keiarea.csv", "SystemData\\keiarea.csv"},
      {"SystemData/FaultData.csv", "FaultData.csv"}};
  for (const auto& [path, shown] : cases) {
    const TestFolder folder;
    test::CopyTables(folder);
    ASSERT_TRUE(QFile::remove(folder.Path(QString::fromUtf8(path))));
    ExpectFailure(CheckTableFolders(folder.Path()),
                  QString::fromUtf8(shown) + QStringLiteral("がありません。"), 0);
  }
}

TEST_F(SystemTablesTest, RequiredNamesAreComparedExactly) {
  test::CopyTables(m_folder);
  ASSERT_TRUE(QFile::remove(m_folder.Path("LowSpec/h17.csv")));
  m_folder.Write(QStringLiteral("LowSpec/H17.csv"), "other\n1,2\n");
  ExpectFailure(CheckTableFolders(m_folder.Path()), QStringLiteral("LowSpec\\h17.csvがありません。"), 0);
}

TEST_F(SystemTablesTest, CoefficientsAreReadColumnByColumn) {
  ASSERT_FALSE(LoadCoefficients(m_vertical + Cp932(QStringLiteral(" 1\r\n表題, 二\r\n見出し\r\n")) +
                                "0.1,1,2,3,4,5,6,7,8,9,10,11\r\n0.2, 21,22\r\n"));
  EXPECT_EQ(m_set.method, QString::fromUtf16(kVerticalMethod));
  EXPECT_EQ(m_set.distanceKind, 1);
  EXPECT_EQ(m_set.title, QStringLiteral("表題, 二"));
  EXPECT_EQ(m_set.period, (Numbers{0.1, 0.2}));
  EXPECT_EQ(m_set.ampA, (Numbers{1, 21}));
  EXPECT_EQ(m_set.ampB, (Numbers{2, 22}));
  EXPECT_EQ(m_set.ampC, (Numbers{3, 3}));
  EXPECT_EQ(m_set.ampD, (Numbers{4, 4}));
  EXPECT_EQ(m_set.coefM, (Numbers{5, 5}));
  EXPECT_EQ(m_set.coefM2, (Numbers{6, 6}));
  EXPECT_EQ(m_set.coefD, (Numbers{7, 7}));
  EXPECT_EQ(m_set.coefX, (Numbers{8, 8}));
  EXPECT_EQ(m_set.coefDX, (Numbers{9, 9}));
  EXPECT_EQ(m_set.coefC, (Numbers{10, 10}));
  EXPECT_EQ(m_set.coefNear, (Numbers{11, 11}));
}

TEST_F(SystemTablesTest, FourHeaderLinesAloneGiveTwelveEmptyVectors) {
  ASSERT_FALSE(LoadCoefficients(m_horizontal + "0\ntitle\nheading\n"));
  EXPECT_TRUE(m_set.period.empty() && m_set.coefNear.empty());
  EXPECT_EQ(m_set.title, QString("title"));
  ASSERT_FALSE(LoadCoefficients(m_horizontal + "0"));
  EXPECT_EQ(m_set.title, QString());
}

TEST_F(SystemTablesTest, OnlyTheNumberOfTheSecondLineCounts) {
  EXPECT_FALSE(LoadCoefficients(m_horizontal + "1x\n"));
  EXPECT_EQ(m_set.distanceKind, 1);
}

TEST_F(SystemTablesTest, AWrongSecondLineIsRefused) {
  const QString text = QStringLiteral("DamCoef\\x.csvの2行目に正しい数値与えられていません。");
  for (const char* line : {"2\n", "-1\n", "x\n", "\n", ""})
    ExpectFailure(LoadCoefficients(m_horizontal + line), text, 1);
}

TEST_F(SystemTablesTest, AWrongFirstLineIsRefusedAndTheSetStays) {
  m_set.title = "before";
  const QString text = QStringLiteral("DamCoef\\x.csvの1行目が正しい文字列ではありません。");
  ExpectFailure(LoadCoefficients(""), text, 1);
  ExpectFailure(LoadCoefficients(Cp932(QStringLiteral("(水平)H20ダム距離減衰 \n0\n"))), text, 1);
  EXPECT_EQ(m_set.title, QString("before"));
}

TEST_F(SystemTablesTest, AFileThatCannotBeOpenedIsTold) {
  const TableFile file = {"x.csv", m_folder.Path("absent.csv"), "DamCoef\\x.csv"};
  ExpectFailure(LoadDamCoefFile(file, m_set),
                QStringLiteral("DamCoef\\x.csvを開けません。（読み取りオープン）"), 1);
}

TEST_F(SystemTablesTest, AFaultLineIsReadFieldByField) {
  std::vector<MainFaultRow> rows;
  const QByteArray line =
      Cp932(QStringLiteral("F1, 断層（主部）, 2,1,2,3,4,5,6,7,8,9,10,11,12,137.5,36.25\nF1,b,3\n"));
  ASSERT_FALSE(LoadFaultDataFile(File("SystemData", "FaultData.csv", line), rows));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].code, QString("F1"));
  EXPECT_EQ(rows[0].name, QStringLiteral("断層（主部）"));
  EXPECT_EQ(rows[0].segment, 2);
  EXPECT_EQ(rows[0].cornerA, (Numbers{1, 4, 7, 10}));
  EXPECT_EQ(rows[0].cornerB, (Numbers{2, 5, 8, 11}));
  EXPECT_EQ(rows[0].cornerC, (Numbers{3, 6, 9, 12}));
  EXPECT_EQ(rows[0].lon, 137.5);
  EXPECT_EQ(rows[0].lat, 36.25);
  EXPECT_EQ(rows[1].name, QString("b"));
  EXPECT_EQ(rows[1].segment, 3);
  EXPECT_EQ(rows[1].lat, 36.25);
}

TEST_F(SystemTablesTest, ABlankFaultLineRepeatsTheRowBefore) {
  std::vector<MainFaultRow> rows;
  ASSERT_FALSE(LoadFaultDataFile(
      File("SystemData", "FaultData.csv", "F1,a,1,1,2,3,4,5,6,7,8,9,10,11,12,137.5,36.25\n\n"), rows));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0], rows[1]);
}

TEST_F(SystemTablesTest, ABlankFirstFaultLineGivesAnEmptyRow) {
  std::vector<MainFaultRow> rows;
  ASSERT_FALSE(LoadFaultDataFile(File("SystemData", "FaultData.csv", "\n"), rows));
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].code, QString());
  EXPECT_EQ(rows[0].cornerA, (Numbers{0, 0, 0, 0}));
}

TEST_F(SystemTablesTest, FaultTextsAreCutAt260Characters) {
  std::vector<MainFaultRow> rows;
  ASSERT_FALSE(LoadFaultDataFile(File("SystemData", "FaultData.csv", QByteArray(261, 'c') + ",n,1\n"), rows));
  EXPECT_EQ(rows[0].code.size(), 260);
  EXPECT_EQ(rows[0].name, QString());
}

TEST_F(SystemTablesTest, TheFaultTableThatEqualsItsNameIsRead) {
  m_folder.Write("SystemData/A_FaultData.csv", "old,a,1\n");
  m_folder.Write("SystemData/FaultData.csv", "new,a,1\n");
  std::vector<MainFaultRow> rows;
  ASSERT_FALSE(LoadFaultTable(m_folder.Path(), rows));
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].code, QString("new"));
}

TEST_F(SystemTablesTest, AbsentTablesAreSilentlyNotRead) {
  std::vector<MainFaultRow> rows(1);
  std::vector<DamCoefSet> sets(1);
  CSeismicWaveSet spectra;
  spectra.Add("old");
  EXPECT_FALSE(LoadFaultTable(m_folder.Path(), rows));
  EXPECT_FALSE(LoadDamCoefFolder(m_folder.Path(), sets));
  EXPECT_FALSE(LoadLowSpecFolder(m_folder.Path(), spectra));
  EXPECT_TRUE(rows.empty() && sets.empty() && spectra.IsEmpty());
}

class LowSpecTest : public SystemTablesTest {
 protected:
  void ExpectSpectrum(const QByteArray& content, const Numbers& periods, const Numbers& values) {
    QString name;
    Numbers gotPeriods;
    Numbers gotValues;
    ASSERT_FALSE(LoadLowSpecFile(File("LowSpec", "x.csv", content), name, gotPeriods, gotValues));
    EXPECT_EQ(gotPeriods, periods);
    EXPECT_EQ(gotValues, values);
  }
  QStringList NamesOf(const CSeismicWaveSet& spectra) const {
    QStringList names;
    for (const QString& name : spectra.Names()) names << name;
    return names;
  }
};

TEST_F(LowSpecTest, ARisingSpectrumIsReversed) {
  ExpectSpectrum("n\n0.02,300,x\n0.1,700\n5,28\n", {5.0, 0.1, 0.02}, {28.0, 700.0, 300.0});
}

TEST_F(LowSpecTest, AFallingSpectrumStays) {
  ExpectSpectrum("n\r\n5,28\r\n0.1,700\r\n", {5.0, 0.1}, {28.0, 700.0});
}

TEST_F(LowSpecTest, EqualEndsStay) {
  ExpectSpectrum("n\n1,1\n2,2\n1,3\n", {1.0, 2.0, 1.0}, {1.0, 2.0, 3.0});
}

TEST_F(LowSpecTest, NoLineGivesAnEmptySpectrum) {
  ExpectSpectrum("n\n", {}, {});
}

TEST_F(LowSpecTest, StandardSpectraComeFirstAndOthersAsListed) {
  for (const char* name : {"a", "h17", "h20_v", "h20_h", "i", "B"})
    m_folder.Write(QStringLiteral("LowSpec/%1.csv").arg(name), QByteArray(name) + "\n");
  CSeismicWaveSet spectra;
  ASSERT_FALSE(LoadLowSpecFolder(m_folder.Path(), spectra));
  EXPECT_EQ(NamesOf(spectra), (QStringList{"h20_h", "h20_v", "h17", "a", "B", "i"}));
}

TEST_F(LowSpecTest, OfSeveralThatContainTheNameTheEqualOneComesFirst) {
  for (const char* name : {"0_h17", "h17", "h20_h", "old_h20_h", "h20_v"})
    m_folder.Write(QStringLiteral("LowSpec/%1.csv").arg(name), QByteArray(name) + "\n");
  CSeismicWaveSet spectra;
  ASSERT_FALSE(LoadLowSpecFolder(m_folder.Path(), spectra));
  EXPECT_EQ(NamesOf(spectra), (QStringList{"h20_h", "h20_v", "h17", "0_h17", "old_h20_h"}));
}

TEST_F(LowSpecTest, AFolderNamedLikeATableDoesNotCount) {
  const TestFolder odd;
  const QString inner = odd.Path("h20_h.csv");
  odd.Write("h20_h.csv/LowSpec/a.csv", "a\n");
  odd.Write("h20_h.csv/LowSpec/h17.csv", "h17\n");
  CSeismicWaveSet spectra;
  ASSERT_FALSE(LoadLowSpecFolder(inner, spectra));
  EXPECT_EQ(NamesOf(spectra), (QStringList{"h17", "a"}));
}

TEST_F(LowSpecTest, ShippedTablesSayThatTheyAreSamples) {
  test::CopyTables(m_folder);
  EXPECT_EQ(SampleTableFolders(m_folder.Path()), (std::vector<QString>{"DamCoef", "LowSpec", "SystemData"}));
  QFile::remove(m_folder.Path(QStringLiteral("LowSpec/見本.txt")));
  EXPECT_EQ(SampleTableFolders(m_folder.Path()), (std::vector<QString>{"DamCoef", "SystemData"}));
}

TEST_F(LowSpecTest, ShippedSpectraAreReadWhole) {
  test::CopyTables(m_folder);
  CSeismicWaveSet spectra;
  ASSERT_FALSE(LoadLowSpecFolder(m_folder.Path(), spectra));
  ASSERT_EQ(spectra.Count(), 3U);
  EXPECT_EQ(spectra.At(0).name, QString::fromUtf16(kDefaultLowerLongName));
  for (const CSeismicWave& spectrum : spectra.Records()) {
    EXPECT_EQ(spectrum.periods.size(), 92U);
    EXPECT_EQ(spectrum.periods.front(), 5.0);
    EXPECT_EQ(spectrum.periods.back(), 0.02);
  }
  EXPECT_EQ(spectra.At(0).accSpec.front(), 28.0);
  EXPECT_EQ(spectra.At(0).accSpec.back(), 300.0);
}

}  // namespace
}  // namespace tremlo
