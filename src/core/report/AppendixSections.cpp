#include "core/location/HazardTables.h"
#include "core/project/LastAcquisition.h"
#include "core/report/ReportParts.h"
#include "core/shell/ProgramIdentity.h"
#include "core/shell/TitleText.h"

#include <cmath>

namespace tremlo {

namespace {

ReportSection ServiceSection(const CMorvaneDoc& doc) {
  ReportSection section{QStringLiteral("付録　サービスのデータ"), {}};
  const ApiParameterSet& set = doc.apiParameters;
  section.blocks.emplace_back(PropertyTable(
      QStringLiteral("断層データの取得の設定"),
      {{QStringLiteral("地図バージョン（被害地検索）"), SearchVersionLabel(set.versionIndex)},
       {QStringLiteral("地図バージョン（地震活動モデル）"), ActivityVersionLabel(set.activityVersionIndex)},
       {QStringLiteral("想定地震コード"), ModeLabel(set.modeIndex)},
       {QStringLiteral("確率ケース"), CaseLabel(set.caseIndex)},
       {QStringLiteral("発生確率評価期間"), PeriodLabel(set.periodIndex)},
       {QStringLiteral("超過確率しきい震度"), IntensityLabel(set.intensityIndex)},
       {QStringLiteral("評価パラメータ（カタストロフ重視度）"),
        CatastropheWeightLabel(set.catastropheWeight)}}));
  const QString asked = LastAcquisitionLine(doc);
  section.blocks.emplace_back(
      asked.isEmpty()
          ? QStringLiteral("上は保存されている設定です。プロジェクトファイルは、断層データを取得した"
                           "ときの設定を別には保存しません。")
          : asked);
  return section;
}

ReportSection TableSection(const ReportFacts& facts) {
  ReportTable table{QStringLiteral("プログラムが読み込んだ表"),
                    {QStringLiteral("表"), QStringLiteral("出所"), QStringLiteral("SHA-256")},
                    {},
                    {false, false, false}};
  for (const TableOrigin& origin : facts.tables)
    table.rows.push_back({origin.name, origin.sample ? QStringLiteral("見本") : QStringLiteral("利用者の表"),
                          origin.hash.isEmpty() ? QStringLiteral("読み込めません") : origin.hash});
  return {QStringLiteral("付録　表の出所"), {std::move(table)}};
}

ReportSection ProgramSection(const ReportFacts& facts) {
  ReportSection section{QStringLiteral("付録　プログラムとファイル"), {}};
  section.blocks.emplace_back(
      PropertyTable({}, {{QStringLiteral("プログラム"),
                          QStringLiteral("Tremlo ") + AboutVersionText(kVersionMajor, kVersionMinor)},
                         {QStringLiteral("プロジェクト"), facts.projectName},
                         {QStringLiteral("プロジェクトの SHA-256"), facts.projectHash},
                         {QStringLiteral("調整後波形のファイルの SHA-256"), facts.waveHash}}));
  if (facts.unsaved)
    section.blocks.emplace_back(QStringLiteral(
        "プロジェクトは保存されていません。SHA-256 は、この内容のまま保存したファイルのものです。"));
  return section;
}

QString DifferenceText(const VerifyItem& item) {
  if (std::isnan(item.difference) || item.outcome == VerifyOutcome::Equal) return {};
  if (std::isinf(item.difference)) return QStringLiteral("－");
  return QString::number(item.difference, 'g', 3);
}

ReportSection CheckSection(const VerifyReport& check) {
  ReportTable table{QStringLiteral("検算の結果"),
                    {QStringLiteral("項目"), QStringLiteral("結果"), QStringLiteral("最大の差"),
                     QStringLiteral("場所と理由")},
                    {},
                    {false, false, true, false}};
  for (const VerifyItem& item : check.items) {
    QStringList notes;
    for (const QString& note : {item.place, item.reason})
      if (!note.isEmpty()) notes << note;
    table.rows.push_back({item.name, OutcomeText(item.outcome), DifferenceText(item), notes.join(u'　')});
  }
  ReportSection section{
      QStringLiteral("付録　検算"),
      {QStringLiteral("プロジェクトに保存されている結果を、保存されている入力から計算し直して比べました。"
                      "差は相対的な大きさです。"),
       PropertyTable({}, {{QStringLiteral("検算の結果"), OutcomeText(check.outcome)}})}};
  if (!table.rows.empty()) section.blocks.emplace_back(std::move(table));
  return section;
}

}  // namespace

std::vector<ReportSection> AppendixSections(const CMorvaneDoc& doc, const ReportFacts& facts,
                                            const VerifyReport& check) {
  std::vector<ReportSection> sections;
  if (doc.guidelineRoute && doc.flowFaultSource && !doc.faults.empty())
    sections.push_back(ServiceSection(doc));
  if (!facts.tables.empty()) sections.push_back(TableSection(facts));
  sections.push_back(ProgramSection(facts));
  sections.push_back(CheckSection(check));
  return sections;
}

}  // namespace tremlo
