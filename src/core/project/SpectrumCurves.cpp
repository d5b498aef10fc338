#include "core/project/SpectrumCurves.h"

#include "core/project/BaseCandidates.h"
#include "core/project/BaseSpectrumView.h"
#include "core/project/ResponseRoute.h"

namespace tremlo {

namespace {

void AddCurve(std::vector<GraphSeries>& curves, const QString& name, const SpectrumView& spectrum,
              const CurvePen& pen) {
  if (spectrum.periods.empty() || spectrum.values.empty()) return;
  curves.push_back({name,
                    {spectrum.periods.begin(), spectrum.periods.end()},
                    {spectrum.values.begin(), spectrum.values.end()},
                    pen});
}

}  // namespace

std::vector<GraphSeries> AttenuationCurves(const CMorvaneDoc& doc) {
  std::vector<GraphSeries> curves;
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    const FaultInfo& fault = doc.faults[i];
    const std::size_t planes = PlaneCount(fault, fault.attenUse, fault.attenShow);
    for (std::size_t plane = 0; plane < planes; ++plane) {
      if (!fault.attenShow[plane]) continue;
      const std::int32_t color = plane < fault.attenColor.size() ? fault.attenColor[plane] : 0;
      for (const BaseSource source : {BaseSource::ShortestPlane, BaseSource::EquivalentPlane}) {
        const BaseItem item{source, i, plane};
        const CurveLine line = source == BaseSource::EquivalentPlane ? CurveLine::Dotted : CurveLine::Solid;
        AddCurve(curves, LegendOf(doc, item), SpectrumOf(doc, item), {.color = color, .line = line});
      }
    }
  }
  return curves;
}

std::vector<GraphSeries> CandidateCurves(const CMorvaneDoc& doc) {
  std::vector<GraphSeries> curves;
  for (const BaseItem& item : BaseItems(doc))
    if (IsBaseShown(doc, item))
      AddCurve(curves, LegendOf(doc, item), SpectrumOf(doc, item), {.color = BaseColorOf(doc, item)});
  return curves;
}

std::vector<GraphSeries> NeighbourCurves(const CMorvaneDoc& doc) {
  std::vector<GraphSeries> curves;
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.siteShow) AddCurve(curves, wave.name, {wave.periods, wave.accSpec}, {.color = wave.siteColor});
  return curves;
}

std::vector<GraphSeries> LowerLimitCurve(const CMorvaneDoc& doc) {
  std::vector<GraphSeries> curves;
  if (const CSeismicWave* const selected = doc.lowerSpectra.Selected())
    AddCurve(curves, selected->name, {selected->periods, selected->accSpec},
             {.color = selected->lowerGraph.specColor});
  return curves;
}

std::vector<GraphSeries> AdjustCurves(const CMorvaneDoc& doc) {
  std::vector<GraphSeries> curves;
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.adjustShow) AddCurve(curves, wave.name, MeasuredSpectrum(wave), {.color = wave.adjustColor});
  const auto base = MarkedBase(doc);
  if (base && IsTargetShown(doc, *base))
    AddCurve(curves, LegendOf(doc, *base), SpectrumOf(doc, *base), {.color = BaseColorOf(doc, *base)});
  return curves;
}

std::optional<GraphSeries> TargetCurve(const CMorvaneDoc& doc) {
  SpectrumView target;
  if (doc.guidelineRoute) {
    if (const auto base = MarkedBase(doc)) target = SpectrumOf(doc, *base);
  } else if (HasRespTarget(doc)) {
    target = {doc.respSpectra.At(0).periods, doc.respSpectra.At(0).accSpec};
  }
  std::vector<GraphSeries> curves;
  AddCurve(curves, QStringLiteral("目標スペクトル"), target,
           {.color = kTargetColor, .line = CurveLine::Dashed});
  if (curves.empty()) return std::nullopt;
  return std::move(curves.front());
}

}  // namespace tremlo
