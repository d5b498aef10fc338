#include "core/project/BaseSpectrum.h"

#include <algorithm>

namespace tremlo {

namespace {

/// The planes that can be chosen.
std::size_t CandidateCount(const FaultInfo& fault) {
  return PlaneCount(fault, fault.attenUse);
}

QString PlaneLabel(const QString& distance, const FaultInfo& fault, std::size_t plane) {
  if (CandidateCount(fault) < 2) return distance + fault.ltename;
  return distance + u'(' + QString::number(plane + 1) + u')' + fault.ltename;
}

bool FlagAt(const std::vector<bool>& flags, std::size_t index) {
  return index < flags.size() && flags[index];
}

bool AnySet(const std::vector<bool>& flags) {
  return std::find(flags.begin(), flags.end(), true) != flags.end();
}

void SetFlag(std::vector<bool>& flags, std::size_t index) {
  if (index < flags.size()) flags[index] = true;
}

std::optional<BaseItem> FindNeighbourWave(const CSeismicWaveSet& waves, const QString& label) {
  for (std::size_t i = 0; i < waves.Count(); ++i)
    if (waves.At(i).siteUse && waves.At(i).name == label) return BaseItem{BaseSource::Wave, i, 0};
  return std::nullopt;
}

std::optional<BaseItem> FindPlane(const std::vector<FaultInfo>& faults, const QString& label) {
  for (std::size_t i = 0; i < faults.size(); ++i) {
    for (std::size_t plane = 0; plane < CandidateCount(faults[i]); ++plane) {
      if (!faults[i].attenUse[plane]) continue;
      if (ShortestLabel(faults[i], plane) == label) return BaseItem{BaseSource::ShortestPlane, i, plane};
      if (EquivalentLabel(faults[i], plane) == label) return BaseItem{BaseSource::EquivalentPlane, i, plane};
    }
  }
  return std::nullopt;
}

std::optional<BaseItem> MarkedWave(const CSeismicWaveSet& waves) {
  for (std::size_t i = 0; i < waves.Count(); ++i)
    if (waves.At(i).baseSelected) return BaseItem{BaseSource::Wave, i, 0};
  return std::nullopt;
}

std::optional<BaseItem> MarkedPlane(const std::vector<FaultInfo>& faults, std::vector<bool> FaultInfo::*marks,
                                    BaseSource source) {
  for (std::size_t i = 0; i < faults.size(); ++i) {
    const std::vector<bool>& flags = faults[i].*marks;
    const auto found = std::find(flags.begin(), flags.end(), true);
    if (found != flags.end()) return BaseItem{source, i, static_cast<std::size_t>(found - flags.begin())};
  }
  return std::nullopt;
}

}  // namespace

QString ShortestLabel(const FaultInfo& fault, std::size_t plane) {
  return PlaneLabel(QStringLiteral("(最短距離)"), fault, plane);
}

QString EquivalentLabel(const FaultInfo& fault, std::size_t plane) {
  return PlaneLabel(QStringLiteral("(等価震源距離)"), fault, plane);
}

BaseItem FindBaseItem(const CMorvaneDoc& doc, const QString& label) {
  if (doc.flowNeighbourWave)
    if (const auto wave = FindNeighbourWave(doc.seedWaves, label)) return *wave;
  if (doc.flowFaultSource)
    if (const auto plane = FindPlane(doc.faults, label)) return *plane;
  return {};
}

std::optional<BaseItem> MarkedBase(const CMorvaneDoc& doc) {
  if (const auto wave = MarkedWave(doc.seedWaves)) return wave;
  if (const auto plane = MarkedPlane(doc.faults, &FaultInfo::shortBaseSelected, BaseSource::ShortestPlane))
    return plane;
  if (const auto plane = MarkedPlane(doc.faults, &FaultInfo::equivBaseSelected, BaseSource::EquivalentPlane))
    return plane;
  if (doc.lowerSpectra.SelectedBaseSelected()) return BaseItem{};
  return std::nullopt;
}

bool IsBasePlane(const FaultInfo& fault, std::size_t plane) {
  return FlagAt(fault.shortBaseSelected, plane) || FlagAt(fault.equivBaseSelected, plane);
}

bool AnyPlaneIsBase(const CMorvaneDoc& doc) {
  return std::any_of(doc.faults.begin(), doc.faults.end(), [](const FaultInfo& fault) {
    return AnySet(fault.shortBaseSelected) || AnySet(fault.equivBaseSelected);
  });
}

bool IsBaseWave(const CMorvaneDoc& doc, const QString& name) {
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  return std::any_of(waves.begin(), waves.end(),
                     [&](const CSeismicWave& wave) { return wave.baseSelected && wave.name == name; });
}

void SetBase(CMorvaneDoc& doc, const QString& label) {
  const BaseItem item = FindBaseItem(doc, label);
  doc.ClearSpectrumSelection();
  switch (item.source) {
    case BaseSource::Wave:
      doc.seedWaves.At(item.index).baseSelected = true;
      break;
    case BaseSource::ShortestPlane:
      SetFlag(doc.faults[item.index].shortBaseSelected, item.plane);
      break;
    case BaseSource::EquivalentPlane:
      SetFlag(doc.faults[item.index].equivBaseSelected, item.plane);
      break;
    case BaseSource::LowerLimit:
      doc.lowerSpectra.SetSelectedBaseSelected();
      break;
  }
  doc.baseSpectrumName = label;
  doc.SetModified(true);
}

}  // namespace tremlo
