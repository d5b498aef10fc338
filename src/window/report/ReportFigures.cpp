#include "window/report/ReportFigures.h"

#include "core/project/SpectrumCurves.h"
#include "core/project/WorkProcedure.h"
#include "core/report/ReportWave.h"
#include "core/shell/ChartLayout.h"
#include "numeric/waves/FourierSpectrum.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "window/graphs/ChartPaint.h"
#include "window/graphs/DrawFourier.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/report/MapPicture.h"

#include <QPainter>

namespace tremlo {

namespace {

constexpr int kGraphHeight = 400;
constexpr int kHistoryHeight = 260;  ///< of each of the two
constexpr int kMapHeight = 420;
constexpr double kMapRatio = 2.0;

QString SeedName() {
  return QStringLiteral("原種波形");
}

QString AdjustedName() {
  return QStringLiteral("調整後波形");
}

void PaintSpectra(const WaveGraphSetting& block, std::vector<GraphSeries> curves, QPainter& painter) {
  CDrawFreqAccSpec graph(block);
  for (GraphSeries& curve : curves) graph.AddCurve(std::move(curve));
  graph.Draw(painter, QRectF(0, 0, kFigureWidth, kGraphHeight));
}

/// The block with the range that a graph of both waves has, so that each alone gets the same axes.
WaveGraphSetting EqualAxes(const CMorvaneDoc& doc, const CSeismicWave& wave) {
  WaveGraphSetting block = doc.graphAdjust.origGraph;
  CDrawTimeAccGal both(block);
  both.AddWave(WithoutBlanks(wave.acc), wave.timeStep, {});
  both.AddWave(wave.adjustedAcc, wave.timeStep, {});
  both.ComputeRange();
  const GraphRange& range = both.Range();
  block.autoRange = 0;
  block.timeXMin = range.xMin;
  block.timeXMax = range.xMax;
  block.timeXStep = range.xStep;
  block.timeYMin = range.yMin;
  block.timeYMax = range.yMax;
  block.timeYStep = range.yStep;
  return block;
}

void PaintHistories(const CMorvaneDoc& doc, const CSeismicWave& wave, QPainter& painter) {
  const WaveGraphSetting block = EqualAxes(doc, wave);
  const auto paint = [&](const std::vector<double>& samples, std::int32_t color, double top) {
    CDrawTimeAccGal graph(block);
    graph.AddWave(samples, wave.timeStep, {.color = color});
    graph.Draw(painter, QRectF(0, top, kFigureWidth, kHistoryHeight));
  };
  paint(WithoutBlanks(wave.acc), doc.visualColorOrig, 0.0);
  paint(wave.adjustedAcc, doc.visualColorAdjusted, kHistoryHeight);
}

/// Seed, adjusted wave and target, whatever the switches of the screen show.
std::vector<GraphSeries> SpectraOf(const CMorvaneDoc& doc, const CSeismicWave& wave) {
  std::vector<GraphSeries> curves;
  GraphSeries seed{SeedName(), wave.periods, wave.accSpec, {.color = doc.visualColorOrig}};
  if (!wave.spectrumValid) ComputeResponseSpectrum(WithoutBlanks(wave.acc), seed.x, seed.y, wave.timeStep);
  curves.push_back(std::move(seed));
  curves.push_back(
      {AdjustedName(), wave.adjustedPeriods, wave.adjustedSpec, {.color = doc.visualColorAdjusted}});
  if (std::optional<GraphSeries> target = TargetCurve(doc)) curves.push_back(std::move(*target));
  return curves;
}

void PaintFourier(const CMorvaneDoc& doc, const CSeismicWave& wave, QPainter& painter) {
  CDrawFourier graph(doc.graphAdjust.origGraph);
  const auto add = [&](const std::vector<double>& samples, std::int32_t color, const QString& name) {
    GraphSeries curve{name, {}, {}, {.color = color}};
    ComputeFourierSpectrum(samples, curve.x, curve.y, wave.timeStep);
    graph.AddCurve(std::move(curve));
  };
  add(WithoutBlanks(wave.acc), doc.visualColorOrig, SeedName());
  add(wave.adjustedAcc, doc.visualColorAdjusted, AdjustedName());
  graph.Draw(painter, QRectF(0, 0, kFigureWidth, kGraphHeight));
}

void PaintTarget(const CMorvaneDoc& doc, QPainter& painter) {
  const CSeismicWave& target = doc.respSpectra.At(0);
  PaintSpectra(doc.graphBase.origGraph,
               {{target.name, target.periods, target.accSpec, {.color = kTargetColor}}}, painter);
}

QSize MapSize() {
  return {kFigureWidth, kMapHeight};
}

void PaintMap(const CMorvaneDoc& doc, QPainter& painter) {
  const std::optional<QImage> map = MapPicture(doc, MapSize(), kMapRatio);
  if (map) painter.drawImage(QRectF(QPointF(), MapSize()), *map);
}

/// The chart is wider than the figures.
double ChartScale() {
  return static_cast<double>(kFigureWidth) / kChartSize.width();
}

}  // namespace

std::optional<int> FigureHeight(const CMorvaneDoc& doc, ReportPicture picture) {
  switch (picture) {
    case ReportPicture::Map:
      return MapPicture(doc, MapSize(), 1.0) ? std::optional(kMapHeight) : std::nullopt;
    case ReportPicture::Chart:
      return static_cast<int>(kChartSize.height() * ChartScale());
    case ReportPicture::TimeHistories:
      return 2 * kHistoryHeight;
    default:
      return kGraphHeight;
  }
}

void PaintFigure(const CMorvaneDoc& doc, ReportPicture picture, QPainter& painter) {
  const CSeismicWave& wave = *ReportWave(doc);
  switch (picture) {
    case ReportPicture::Map:
      return PaintMap(doc, painter);
    case ReportPicture::Chart:
      painter.scale(ChartScale(), ChartScale());
      return PaintChart(painter, LooksOf(FixedAnswers(doc)));
    case ReportPicture::FaultSpectra:
      return PaintSpectra(doc.graphAttenuation.origGraph, AttenuationCurves(doc), painter);
    case ReportPicture::LowerLimit:
      return PaintSpectra(doc.lowerSpectra.Selected()->lowerGraph, LowerLimitCurve(doc), painter);
    case ReportPicture::NeighbourSpectra:
      return PaintSpectra(doc.graphDamsite.origGraph, NeighbourCurves(doc), painter);
    case ReportPicture::Candidates:
      return PaintSpectra(doc.graphBase.origGraph, CandidateCurves(doc), painter);
    case ReportPicture::Target:
      return PaintTarget(doc, painter);
    case ReportPicture::TimeHistories:
      return PaintHistories(doc, wave, painter);
    case ReportPicture::Spectra:
      return PaintSpectra(doc.graphAdjust.origGraph, SpectraOf(doc, wave), painter);
    case ReportPicture::Fourier:
      return PaintFourier(doc, wave, painter);
  }
}

}  // namespace tremlo
