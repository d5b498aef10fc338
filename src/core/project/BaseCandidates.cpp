#include "core/project/BaseCandidates.h"

#include "numeric/waves/SpectrumFigures.h"

#include <algorithm>
#include <cmath>

namespace tremlo {

namespace {

void AddWaves(const CSeismicWaveSet& waves, std::vector<BaseItem>& items) {
  for (std::size_t i = 0; i < waves.Count(); ++i)
    if (waves.At(i).siteUse) items.push_back({BaseSource::Wave, i, 0});
}

void AddPlanes(const std::vector<FaultInfo>& faults, std::vector<BaseItem>& items) {
  for (std::size_t i = 0; i < faults.size(); ++i) {
    for (std::size_t plane = 0; plane < PlaneCount(faults[i]); ++plane) {
      if (!faults[i].attenUse[plane]) continue;
      items.push_back({BaseSource::ShortestPlane, i, plane});
      items.push_back({BaseSource::EquivalentPlane, i, plane});
    }
  }
}

bool IsSame(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

}  // namespace

std::vector<BaseItem> BaseItems(const CMorvaneDoc& doc) {
  std::vector<BaseItem> items;
  if (doc.flowNeighbourWave) AddWaves(doc.seedWaves, items);
  if (doc.flowFaultSource) AddPlanes(doc.faults, items);
  const std::vector<CSeismicWave>& limits = doc.lowerSpectra.Records();
  if (std::any_of(limits.begin(), limits.end(),
                  [](const CSeismicWave& limit) { return limit.lowerSelected; }))
    items.push_back({BaseSource::LowerLimit, 0, 0});
  return items;
}

std::vector<BaseCandidate> BaseCandidates(const CMorvaneDoc& doc) {
  std::vector<BaseCandidate> candidates;
  for (const BaseItem& item : BaseItems(doc)) {
    const SpectrumView spectrum = SpectrumOf(doc, item);
    candidates.push_back({item, LabelOf(doc, item), SpectrumArea(spectrum.periods, spectrum.values),
                          LargestValue(spectrum.values), BaseColorOf(doc, item), IsBaseShown(doc, item),
                          IsBaseSelected(doc, item)});
  }
  return candidates;
}

void StoreCandidateAreas(CMorvaneDoc& doc) {
  for (const BaseCandidate& candidate : BaseCandidates(doc))
    if (!IsSame(StoredArea(doc, candidate.item), candidate.area))
      StoreArea(doc, candidate.item, candidate.area);
}

void SetCandidateColor(CMorvaneDoc& doc, const QString& label, std::int32_t color) {
  SetBaseColor(doc, FindBaseItem(doc, label), color);
}

void SetCandidateShown(CMorvaneDoc& doc, const QString& label, bool shown) {
  SetBaseShown(doc, FindBaseItem(doc, label), shown);
}

void SetAllCandidatesShown(CMorvaneDoc& doc, bool shown) {
  for (const BaseItem& item : BaseItems(doc)) SetBaseShown(doc, item, shown);
}

}  // namespace tremlo
