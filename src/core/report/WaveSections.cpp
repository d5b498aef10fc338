#include "core/files/NumberText.h"
#include "core/graphs/CellNumber.h"
#include "core/report/ReportParts.h"
#include "core/report/ReportWave.h"
#include "core/waves/FiguresText.h"
#include "core/waves/FitText.h"
#include "numeric/waves/WaveFigures.h"

namespace tremlo {

namespace {

QString CountText(std::size_t count) {
  return QString::number(count);
}

ReportSection SeedSection(const CSeismicWave& wave) {
  const double length = wave.acc.empty() ? 0.0 : static_cast<double>(wave.acc.size() - 1) * wave.timeStep;
  return {QStringLiteral("原種波形"),
          {PropertyTable({}, {{QStringLiteral("波形名"), wave.name},
                              {QStringLiteral("データ数"), CountText(wave.acc.size())},
                              {QStringLiteral("時間間隔 (s)"), ShortestText(wave.timeStep)},
                              {QStringLiteral("長さ (s)"), FixedText(length, 2)}})}};
}

QString ExtremeText(double size, double period) {
  if (!(period > 0.0)) return QStringLiteral("なし");
  return QStringLiteral("%1（周期 %2 s）").arg(PercentText(size), QString::number(period, 'g', 4));
}

/// What is to be said of a run that does not give the wave as it is stored.
QString RunNote(const CSeismicWave& wave, const AdjustResult& run) {
  if (run.passes == 0)
    return QStringLiteral(
        "保存されている設定、原種波形、目標スペクトルでは計算し直せません。調整後波形と目標スペクトルとの偏差"
        "は"
        "分かりません。");
  if (run.converged && run.acc == wave.adjustedAcc) return {};
  return (run.converged
              ? QStringLiteral("保存されている設定と目標スペクトルで計算し直すと、調整後波形と一致しません")
              : QStringLiteral("保存されている設定と目標スペクトルでは、調整計算は収束しません")) +
         QStringLiteral(
             "（付録「検算」を参照）。上の繰り返し回数と偏差は、計算し直した波形のもので、調整後波形のもので"
             "はあり"
             "ません。");
}

/// Settings and outcome of the adjustment, as a run with the project's settings makes it again.
ReportSection AdjustSection(const CMorvaneDoc& doc, const CSeismicWave& wave, const AdjustResult& run) {
  ReportSection section{QStringLiteral("振幅調整"), {}};
  std::vector<QStringList> rows = {
      {QStringLiteral("目標スペクトル"), TargetName(doc)},
      {QStringLiteral("繰り返し回数の上限"), QString::number(doc.adjustMaxIterations)},
      {QStringLiteral("収束判定 (%)"), FixedText(doc.adjustTolerancePercent * 100.0, 2)},
      {QStringLiteral("調整後波形のデータ数"), CountText(wave.adjustedAcc.size())}};
  if (run.passes > 0) {
    rows.push_back({QStringLiteral("繰り返し回数"), QString::number(run.passes)});
    rows.push_back({QStringLiteral("偏差（RMS）"), PercentText(run.fit.deviation)});
    rows.push_back(
        {QStringLiteral("目標を上回る最大"), ExtremeText(run.fit.overshoot, run.fit.overshootPeriod)});
    rows.push_back(
        {QStringLiteral("目標を下回る最大"), ExtremeText(run.fit.undershoot, run.fit.undershootPeriod)});
  }
  section.blocks.emplace_back(PropertyTable({}, std::move(rows)));
  if (const QString note = RunNote(wave, run); !note.isEmpty()) section.blocks.emplace_back(note);
  return section;
}

ReportTable FiguresTable(const CSeismicWave& wave) {
  ReportTable table{QStringLiteral("原種波形と調整後波形の諸元"), {QStringLiteral("諸元")}, {}, {false}};
  const std::vector<FiguresLine> lines = FiguresOf(wave);
  for (const FiguresLine& line : lines) {
    table.headings << line.title;
    table.numbers.push_back(true);
  }
  for (std::size_t i = 0; !lines.empty() && i < lines.front().figures.size(); ++i) {
    QStringList row{lines.front().figures[i].label};
    for (const FiguresLine& line : lines) row << line.figures[i].value;
    table.rows.push_back(row);
  }
  return table;
}

QString DefinitionsText(const CSeismicWave& wave) {
  QStringList sentences;
  for (const FiguresLine& line : FiguresOf(wave)) {
    for (const FigureText& figure : line.figures) sentences << figure.label + u'：' + figure.definition;
    break;  // the same for both waves
  }
  return sentences.join(u'\n');
}

}  // namespace

std::vector<ReportSection> WaveSections(const CMorvaneDoc& doc, const ReportFacts& facts) {
  const CSeismicWave& wave = *ReportWave(doc);
  const auto figure = [](ReportPicture picture, const QString& caption) {
    return ReportFigure{picture, caption};
  };
  return {SeedSection(wave),
          AdjustSection(doc, wave, facts.run),
          {QStringLiteral("時刻歴"),
           {figure(ReportPicture::TimeHistories,
                   QStringLiteral("加速度時刻歴（上：原種波形、下：調整後波形）"))}},
          {QStringLiteral("加速度応答スペクトル"),
           {figure(ReportPicture::Spectra, QStringLiteral("加速度応答スペクトル（減衰定数 5 %）"))}},
          {QStringLiteral("フーリエスペクトル"),
           {figure(ReportPicture::Fourier, QStringLiteral("フーリエスペクトル"))}},
          {QStringLiteral("波形の諸元"), {FiguresTable(wave), DefinitionsText(wave)}}};
}

}  // namespace tremlo
