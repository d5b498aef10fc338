#include "core/report/ReportSections.h"
#include "core/verify/VerifyProject.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;

std::vector<ReportSection> SectionsOf(const CMorvaneDoc& doc) {
  return ReportSections(doc, GatherReportFacts(doc, QDate(2026, 1, 2)), VerifyProject(doc));
}

QStringList Titles(const CMorvaneDoc& doc) {
  QStringList titles;
  for (const ReportSection& section : SectionsOf(doc)) titles << section.title;
  return titles;
}

ReportSection Section(const CMorvaneDoc& doc, const QString& title) {
  for (const ReportSection& section : SectionsOf(doc))
    if (section.title.endsWith(title)) return section;
  ADD_FAILURE() << "no section " << title.toStdString();
  return {};
}

std::vector<ReportTable> TablesOf(const ReportSection& section) {
  std::vector<ReportTable> tables;
  for (const ReportBlock& block : section.blocks)
    if (const auto* const table = std::get_if<ReportTable>(&block)) tables.push_back(*table);
  return tables;
}

std::vector<ReportPicture> PicturesOf(const ReportSection& section) {
  std::vector<ReportPicture> pictures;
  for (const ReportBlock& block : section.blocks)
    if (const auto* const figure = std::get_if<ReportFigure>(&block)) pictures.push_back(figure->picture);
  return pictures;
}

QStringList TextsOf(const ReportSection& section) {
  QStringList texts;
  for (const ReportBlock& block : section.blocks)
    if (const auto* const text = std::get_if<QString>(&block)) texts << *text;
  return texts;
}

/// Of a table of two columns.
QString ValueOf(const ReportTable& table, const QString& name) {
  for (const QStringList& row : table.rows)
    if (row[0] == name) return row[1];
  return QStringLiteral("no row ") + name;
}

TEST(ReportSectionsTest, TheSectionsFollowTheWork) {
  CMorvaneDoc doc = test::SoundProject();
  doc.site.comments[3] = QStringLiteral("備考");
  EXPECT_THAT(
      Titles(doc),
      ElementsAre("1　業務とダム地点", "2　作業手順", "3　想定する断層", "4　距離減衰式による応答スペクトル",
                  "5　下限スペクトル", "6　現場近隣地震波形", "7　基準スペクトル", "8　原種波形",
                  "9　振幅調整", "10　時刻歴", "11　加速度応答スペクトル", "12　フーリエスペクトル",
                  "13　波形の諸元", "14　備考", "付録　サービスのデータ", "付録　表の出所",
                  "付録　プログラムとファイル", "付録　検算"));
}

TEST(ReportSectionsTest, StepsThatWereNotTakenHaveNoSection) {
  CMorvaneDoc doc = test::SoundProject();
  doc.flowFixed = doc.flowFaultSource = doc.flowNeighbourWave = false;
  EXPECT_THAT(Titles(doc),
              ElementsAre("1　業務とダム地点", "2　下限スペクトル", "3　基準スペクトル", "4　原種波形",
                          "5　振幅調整", "6　時刻歴", "7　加速度応答スペクトル", "8　フーリエスペクトル",
                          "9　波形の諸元", "付録　表の出所", "付録　プログラムとファイル", "付録　検算"));
}

TEST(ReportSectionsTest, TheOtherRouteHasItsOwn) {
  CMorvaneDoc doc = test::SoundResponseProject();
  const auto expected =
      ElementsAre("1　目標スペクトル", "2　原種波形", "3　振幅調整", "4　時刻歴", "5　加速度応答スペクトル",
                  "6　フーリエスペクトル", "7　波形の諸元", "付録　プログラムとファイル", "付録　検算");
  EXPECT_THAT(Titles(doc), expected);
  doc.site.title = QStringLiteral("業務名");
  EXPECT_EQ(Titles(doc).first(), u"1　業務");
}

TEST(ReportSectionsTest, TheSiteHasItsMap) {
  CMorvaneDoc doc = test::SoundProject();
  doc.site.siteName = QStringLiteral("ダム");
  const ReportSection section = Section(doc, QStringLiteral("業務とダム地点"));
  EXPECT_THAT(PicturesOf(section), ElementsAre(ReportPicture::Map));
  ASSERT_EQ(TablesOf(section).size(), 1U);
  const ReportTable table = TablesOf(section)[0];
  EXPECT_EQ(ValueOf(table, QStringLiteral("現場名")), u"ダム");
  EXPECT_EQ(ValueOf(table, QStringLiteral("位置")), u"北緯 38°15′20.660″　東経 137°46′37.000″");
  EXPECT_EQ(ValueOf(table, QStringLiteral("住所")), u"no row 住所");
}

TEST(ReportSectionsTest, TheProcedureIsToldInWordsToo) {
  const ReportSection section = Section(test::SoundProject(), QStringLiteral("作業手順"));
  EXPECT_THAT(PicturesOf(section), ElementsAre(ReportPicture::Chart));
  const ReportTable table = TablesOf(section).at(0);
  EXPECT_EQ(
      ValueOf(table, QStringLiteral("位相特性　Q3　震度4以上または最大25gal以上の加速度波形が得られている")),
      u"採用中");
  EXPECT_EQ(ValueOf(table, QStringLiteral("位相特性　Q4　ダム周辺の断層・過去の地震動の資料を収集する")),
            u"未採用");
}

TEST(ReportSectionsTest, EveryPlaneHasItsRow) {
  CMorvaneDoc doc = test::SoundProject();
  doc.faults[1].attenUse[0] = false;
  const std::vector<ReportTable> faults = TablesOf(Section(doc, QStringLiteral("想定する断層")));
  ASSERT_EQ(faults.size(), 3U);
  EXPECT_EQ(ValueOf(faults[0], QStringLiteral("断層面の数")), u"3");
  ASSERT_EQ(faults[1].rows.size(), 3U);
  EXPECT_EQ(faults[1].headings.value(3), u"最短距離 (km)");
  EXPECT_EQ(faults[1].rows[2][3], QString::number(doc.faults[1].shortestDistance[1], 'f', 4));
  ASSERT_EQ(faults[2].rows.size(), 3U);
  EXPECT_EQ(faults[2].rows[1].mid(0, 5), (QStringList{"(1)北", "138.1", "38.3", "3.0", "21.5"}));

  const std::vector<ReportTable> spectra =
      TablesOf(Section(doc, QStringLiteral("距離減衰式による応答スペクトル")));
  ASSERT_EQ(spectra.size(), 2U);
  const double largest =
      *std::max_element(doc.faults[0].shortestSpectrum[0].begin(), doc.faults[0].shortestSpectrum[0].end());
  EXPECT_EQ(spectra[1].rows[0][3], QString::number(largest, 'f', 2));
  EXPECT_EQ(spectra[1].rows[0].last(), u"○");
  EXPECT_EQ(spectra[1].rows[1].last(), QString());
}

TEST(ReportSectionsTest, TheChosenBaseIsMarkedAmongTheCandidates) {
  const CMorvaneDoc doc = test::SoundProject();
  const std::vector<ReportTable> tables = TablesOf(Section(doc, QStringLiteral("基準スペクトル")));
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_EQ(ValueOf(tables[0], QStringLiteral("基準スペクトル")), doc.baseSpectrumName);
  QStringList marked;
  for (const QStringList& row : tables[1].rows)
    if (row.last() == u"○") marked << row[1];
  EXPECT_EQ(marked, QStringList{doc.baseSpectrumName});
  EXPECT_EQ(tables[1].rows.size(), 8U);  // a wave, three planes in two forms, the lower limit
}

TEST(ReportSectionsTest, TheAdjustmentTellsSettingsAndFit) {
  const ReportSection section = Section(test::SoundProject(), QStringLiteral("振幅調整"));
  const ReportTable table = TablesOf(section).at(0);
  EXPECT_EQ(ValueOf(table, QStringLiteral("繰り返し回数の上限")), u"100");
  EXPECT_EQ(ValueOf(table, QStringLiteral("収束判定 (%)")), u"5.00");
  EXPECT_EQ(ValueOf(table, QStringLiteral("繰り返し回数")), u"6");
  EXPECT_THAT(TextsOf(section), testing::IsEmpty());
}

TEST(ReportSectionsTest, AWaveOfOtherSettingsIsNotPassedOffAsTheirs) {
  CMorvaneDoc doc = test::SoundProject();
  doc.adjustTolerancePercent = 0.2;
  ASSERT_EQ(TextsOf(Section(doc, QStringLiteral("振幅調整"))).size(), 1);
  EXPECT_TRUE(TextsOf(Section(doc, QStringLiteral("振幅調整")))[0].contains(u"一致しません"));
  doc.adjustMaxIterations = 1;
  doc.adjustTolerancePercent = 0.001;
  ASSERT_EQ(TextsOf(Section(doc, QStringLiteral("振幅調整"))).size(), 1);
  const QString text = TextsOf(Section(doc, QStringLiteral("振幅調整")))[0];
  EXPECT_TRUE(text.contains(u"収束しません")) << text.toStdString();
  // The figures above are not those of the wave that the report is about.
  EXPECT_TRUE(text.contains(u"計算し直した波形のもの")) << text.toStdString();
}

TEST(ReportSectionsTest, WithoutATargetTheFitIsNotKnown) {
  CMorvaneDoc doc = test::SoundResponseProject();
  doc.respSpectra = {};
  const ReportSection section = Section(doc, QStringLiteral("振幅調整"));
  EXPECT_EQ(ValueOf(TablesOf(section).at(0), QStringLiteral("偏差（RMS）")), u"no row 偏差（RMS）");
  ASSERT_EQ(TextsOf(section).size(), 1);
  EXPECT_TRUE(TextsOf(section)[0].contains(u"計算し直せません")) << TextsOf(section)[0].toStdString();
}

TEST(ReportSectionsTest, BothWavesHaveTheirFigures) {
  const ReportTable table = TablesOf(Section(test::SoundProject(), QStringLiteral("波形の諸元"))).at(0);
  EXPECT_EQ(table.headings.size(), 3);
  EXPECT_EQ(table.rows.size(), 7U);
  EXPECT_EQ(table.rows[0][0], u"最大加速度");
  EXPECT_TRUE(table.rows[0][1].startsWith(u"258.4")) << table.rows[0][1].toStdString();
}

TEST(ReportSectionsTest, TheAppendixTellsTheOutcomeOfTheCheck) {
  CMorvaneDoc doc = test::SoundProject();
  doc.seedWaves.At(0).adjustedSpec[7] *= 1.5;
  const std::vector<ReportTable> tables = TablesOf(Section(doc, QStringLiteral("検算")));
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_EQ(ValueOf(tables[0], QStringLiteral("検算の結果")), OutcomeText(VerifyOutcome::Differs));
  int differing = 0;
  for (const QStringList& row : tables[1].rows)
    if (row[1] == OutcomeText(VerifyOutcome::Differs)) {
      ++differing;
      EXPECT_EQ(row[2], u"0.333");
      EXPECT_FALSE(row[3].isEmpty());
    }
  EXPECT_EQ(differing, 1);
}

TEST(ReportSectionsTest, EveryTableHasARowForEachHeading) {
  for (const CMorvaneDoc& doc : {test::SoundProject(), test::SoundResponseProject()})
    for (const ReportSection& section : SectionsOf(doc))
      for (const ReportTable& table : TablesOf(section)) {
        const qsizetype columns = table.headings.isEmpty() ? 2 : table.headings.size();
        EXPECT_EQ(static_cast<qsizetype>(table.numbers.size()), columns) << section.title.toStdString();
        for (const QStringList& row : table.rows)
          EXPECT_EQ(row.size(), columns) << section.title.toStdString();
      }
}

TEST(ReportSectionsTest, TheCoverHasATitleAtLeast) {
  CMorvaneDoc doc = test::SoundResponseProject();
  EXPECT_THAT(CoverLines(doc), ElementsAre("設計地震波の作成"));
  doc.site.title = QStringLiteral("題");
  doc.site.company = QStringLiteral("社");
  EXPECT_THAT(CoverLines(doc), ElementsAre("題", "社"));
}

}  // namespace
}  // namespace tremlo
