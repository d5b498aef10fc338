#include "core/project/BaseItemFields.h"

#include "core/project/PlaneNames.h"

#include <algorithm>

namespace tremlo {

namespace {

/// The record of a wave, or of the selected lower limit; null for a plane and for one that is not there.
const CSeismicWave* RecordOf(const CMorvaneDoc& doc, const BaseItem& item) {
  if (item.source == BaseSource::Wave)
    return item.index < doc.seedWaves.Count() ? &doc.seedWaves.At(item.index) : nullptr;
  if (item.source != BaseSource::LowerLimit) return nullptr;
  const std::vector<CSeismicWave>& limits = doc.lowerSpectra.Records();
  const auto selected = std::find_if(limits.begin(), limits.end(),
                                     [](const CSeismicWave& limit) { return limit.lowerSelected; });
  return selected == limits.end() ? nullptr : &*selected;
}

const FaultInfo* FaultOf(const CMorvaneDoc& doc, const BaseItem& item) {
  const bool isPlane = item.source == BaseSource::ShortestPlane || item.source == BaseSource::EquivalentPlane;
  return isPlane && item.index < doc.faults.size() ? &doc.faults[item.index] : nullptr;
}

/// Where a field of a candidate stands: in the record of a wave or lower limit, or in one vector of a fault
/// for either distance.
template <class T>
struct Field {
  T CSeismicWave::*ofRecord;
  std::vector<T> FaultInfo::*ofShortest;
  std::vector<T> FaultInfo::*ofEquivalent;

  std::vector<T> FaultInfo::*OfPlane(const BaseItem& item) const {
    return item.source == BaseSource::ShortestPlane ? ofShortest : ofEquivalent;
  }
};

constexpr Field<std::int32_t> kBaseColor{&CSeismicWave::baseColor, &FaultInfo::shortBaseColor,
                                         &FaultInfo::equivBaseColor};
constexpr Field<bool> kBaseShow{&CSeismicWave::baseShow, &FaultInfo::shortBaseShow,
                                &FaultInfo::equivBaseShow};
constexpr Field<bool> kBaseSelected{&CSeismicWave::baseSelected, &FaultInfo::shortBaseSelected,
                                    &FaultInfo::equivBaseSelected};
constexpr Field<double> kArea{&CSeismicWave::spectrumArea, &FaultInfo::shortArea, &FaultInfo::equivArea};
constexpr Field<bool> kTargetShow{&CSeismicWave::baseAdjustShow, &FaultInfo::adjustShow,
                                  &FaultInfo::adjustShowEquiv};

template <class T>
T Read(const CMorvaneDoc& doc, const BaseItem& item, const Field<T>& field) {
  if (const CSeismicWave* record = RecordOf(doc, item)) return record->*field.ofRecord;
  const FaultInfo* fault = FaultOf(doc, item);
  if (!fault) return T{};
  const std::vector<T>& values = fault->*field.OfPlane(item);
  return item.plane < values.size() ? T(values[item.plane]) : T{};
}

template <class T>
void Write(CMorvaneDoc& doc, const BaseItem& item, const Field<T>& field, T value) {
  if (item.source == BaseSource::Wave && item.index < doc.seedWaves.Count()) {
    doc.seedWaves.At(item.index).*field.ofRecord = value;
  } else if (item.source == BaseSource::LowerLimit) {
    for (std::size_t i = 0; i < doc.lowerSpectra.Count(); ++i)
      if (doc.lowerSpectra.At(i).lowerSelected) doc.lowerSpectra.At(i).*field.ofRecord = value;
  } else if (FaultOf(doc, item)) {
    std::vector<T>& values = doc.faults[item.index].*field.OfPlane(item);
    if (item.plane < values.size()) values[item.plane] = value;
  }
  doc.SetModified(true);
}

std::span<const double> RowOf(const std::vector<std::vector<double>>& rows, std::size_t row) {
  return row < rows.size() ? std::span<const double>(rows[row]) : std::span<const double>();
}

}  // namespace

SpectrumView SpectrumOf(const CMorvaneDoc& doc, const BaseItem& item) {
  if (const CSeismicWave* record = RecordOf(doc, item)) return {record->periods, record->accSpec};
  const FaultInfo* fault = FaultOf(doc, item);
  if (!fault) return {};
  if (item.source == BaseSource::ShortestPlane)
    return {RowOf(fault->shortestPeriods, item.plane), RowOf(fault->shortestSpectrum, item.plane)};
  return {RowOf(fault->equivalentPeriods, item.plane), RowOf(fault->equivalentSpectrum, item.plane)};
}

QString LabelOf(const CMorvaneDoc& doc, const BaseItem& item) {
  if (const CSeismicWave* record = RecordOf(doc, item)) return record->name;
  const FaultInfo* fault = FaultOf(doc, item);
  if (!fault) return {};
  return item.source == BaseSource::ShortestPlane ? ShortestLabel(*fault, item.plane)
                                                  : EquivalentLabel(*fault, item.plane);
}

QString LegendOf(const CMorvaneDoc& doc, const BaseItem& item) {
  const FaultInfo* fault = FaultOf(doc, item);
  if (!fault) return LabelOf(doc, item);
  return item.source == BaseSource::ShortestPlane ? ShortestLegend(*fault, item.plane)
                                                  : EquivalentLegend(*fault, item.plane);
}

std::int32_t BaseColorOf(const CMorvaneDoc& doc, const BaseItem& item) {
  return Read(doc, item, kBaseColor);
}

void SetBaseColor(CMorvaneDoc& doc, const BaseItem& item, std::int32_t color) {
  Write(doc, item, kBaseColor, color);
}

bool IsBaseShown(const CMorvaneDoc& doc, const BaseItem& item) {
  return Read(doc, item, kBaseShow);
}

void SetBaseShown(CMorvaneDoc& doc, const BaseItem& item, bool shown) {
  Write(doc, item, kBaseShow, shown);
}

bool IsBaseSelected(const CMorvaneDoc& doc, const BaseItem& item) {
  return Read(doc, item, kBaseSelected);
}

double StoredArea(const CMorvaneDoc& doc, const BaseItem& item) {
  return Read(doc, item, kArea);
}

void StoreArea(CMorvaneDoc& doc, const BaseItem& item, double area) {
  Write(doc, item, kArea, area);
}

bool IsTargetShown(const CMorvaneDoc& doc, const BaseItem& item) {
  return Read(doc, item, kTargetShow);
}

void SetTargetShown(CMorvaneDoc& doc, const BaseItem& item, bool shown) {
  Write(doc, item, kTargetShow, shown);
}

}  // namespace tremlo
