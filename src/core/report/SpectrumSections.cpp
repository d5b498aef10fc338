#include "core/files/NumberText.h"
#include "core/project/BaseCandidates.h"
#include "core/project/BaseSpectrumView.h"
#include "core/project/CandidateFigures.h"
#include "core/project/SpectrumCurves.h"
#include "core/report/ReportParts.h"
#include "core/report/ReportWave.h"
#include "numeric/waves/SpectrumFigures.h"

namespace tremlo {

namespace {

QString MarkText(bool marked) {
  return marked ? QStringLiteral("○") : QString();
}

QString CountText(std::size_t count) {
  return QString::number(count);
}

ReportSection LowerLimitSection(const CSeismicWave& limit) {
  return {QStringLiteral("下限スペクトル"),
          {PropertyTable({}, {{QStringLiteral("下限スペクトル"), limit.name},
                              {QStringLiteral("周期の数"), CountText(limit.periods.size())},
                              {QStringLiteral("最大値 (gal)"), FixedText(LargestValue(limit.accSpec), 2)}}),
           ReportFigure{ReportPicture::LowerLimit, QStringLiteral("下限スペクトル（減衰定数 5 %）")}}};
}

std::vector<ReportSection> NeighbourSections(const CMorvaneDoc& doc) {
  if (!doc.flowNeighbourWave || doc.seedWaves.IsEmpty()) return {};
  ReportTable waves{
      QStringLiteral("観測波形"),
      {QStringLiteral("No."), QStringLiteral("波形名"), QStringLiteral("データ数"),
       QStringLiteral("時間間隔 (s)"), QStringLiteral("応答の最大値 (gal)"), QStringLiteral("利用")},
      {},
      {true, false, true, true, true, false}};
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    waves.rows.push_back({QString::number(waves.rows.size() + 1), wave.name, CountText(wave.acc.size()),
                          ShortestText(wave.timeStep),
                          wave.spectrumValid ? FixedText(LargestValue(wave.accSpec), 2) : QStringLiteral("-"),
                          MarkText(wave.siteUse)});
  ReportSection section{QStringLiteral("現場近隣地震波形"), {std::move(waves)}};
  if (!NeighbourCurves(doc).empty())
    section.blocks.emplace_back(
        ReportFigure{ReportPicture::NeighbourSpectra,
                     QStringLiteral("現場近隣地震波形の加速度応答スペクトル（減衰定数 5 %）")});
  return {section};
}

std::vector<ReportSection> BaseSections(const CMorvaneDoc& doc) {
  const std::vector<BaseCandidate> candidates = BaseCandidates(doc);
  if (candidates.empty()) return {};
  ReportTable table{
      QStringLiteral("基準スペクトルの候補"),
      {QStringLiteral("No."), QStringLiteral("スペクトル名"), QStringLiteral("面積 (gal・sec)"),
       QStringLiteral("最大値 (gal)"), QStringLiteral("下限スペクトルを下回る周期"), QStringLiteral("基準")},
      {},
      {true, false, true, true, false, false}};
  for (const BaseCandidate& candidate : candidates)
    table.rows.push_back({QString::number(table.rows.size() + 1), candidate.label,
                          FixedText(candidate.area, 2), FixedText(candidate.maximum, 2),
                          BelowLimitText(doc, candidate.item), MarkText(candidate.base)});
  ReportSection section{QStringLiteral("基準スペクトル"), {}};
  const QString chosen = ViewOfBase(doc).label;
  section.blocks.emplace_back(PropertyTable(
      {}, {{QStringLiteral("基準スペクトル"), chosen.isEmpty() ? QStringLiteral("（なし）") : chosen}}));
  if (!CandidateCurves(doc).empty())
    section.blocks.emplace_back(
        ReportFigure{ReportPicture::Candidates, QStringLiteral("基準スペクトルの候補（減衰定数 5 %）")});
  section.blocks.emplace_back(std::move(table));
  return {section};
}

std::vector<ReportSection> TargetSections(const CMorvaneDoc& doc) {
  if (doc.respSpectra.IsEmpty()) return {};
  const CSeismicWave& target = doc.respSpectra.At(0);
  return {{QStringLiteral("目標スペクトル"),
           {PropertyTable({}, {{QStringLiteral("目標スペクトル"), target.name},
                               {QStringLiteral("周期の数"), CountText(target.periods.size())},
                               {QStringLiteral("最大値 (gal)"), FixedText(LargestValue(target.accSpec), 2)}}),
            ReportFigure{ReportPicture::Target, QStringLiteral("目標スペクトル（減衰定数 5 %）")}}}};
}

}  // namespace

std::vector<ReportSection> SpectrumSections(const CMorvaneDoc& doc) {
  if (!doc.guidelineRoute) return TargetSections(doc);
  std::vector<ReportSection> sections;
  if (const CSeismicWave* const limit = doc.lowerSpectra.Selected())
    sections.push_back(LowerLimitSection(*limit));
  for (const auto& more : {NeighbourSections(doc), BaseSections(doc)})
    sections.insert(sections.end(), more.begin(), more.end());
  return sections;
}

}  // namespace tremlo
