#include "support/DocumentState.h"

#include <array>
#include <type_traits>

namespace tremlo::test {

namespace {

/// Lays values behind one another. Every list is led by its count, so that no two contents give the same
/// bytes.
class Bytes {
 public:
  template <class T>
  requires std::is_arithmetic_v<T>
  void Add(T value) { m_bytes.append(reinterpret_cast<const char*>(&value), sizeof value); }
  void Add(const QString& text) {
    Add(text.size());
    m_bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
  }
  template <class T>
  void Add(const std::vector<T>& values) {
    Add(values.size());
    for (const auto& value : values) Add(value);
  }
  void Add(const std::vector<bool>& values) {
    Add(values.size());
    for (const bool value : values) Add(value);
  }
  template <class T, std::size_t n>
  void Add(const std::array<T, n>& values) {
    for (const T& value : values) Add(value);
  }
  void Add(const CSeismicWaveSet& set) { Add(set.Records()); }
  void Add(const WaveGraphSetting& graph);
  void Add(const CSeismicWave& wave);
  void Add(const RecordNote& record);
  void Add(const FaultInfo& fault);
  void Add(const SiteRecord& site);
  void Add(const ApiParameterSet& parameters);
  void Add(const DamCoefSet& set);
  void Add(const MainFaultRow& row);
  void Add(const AcquisitionReport& report);
  template <class T>
  void Add(const std::optional<T>& value) {
    Add(value.has_value());
    if (value) Add(*value);
  }

  template <class... Values>
  void AddAll(const Values&... values) {
    (Add(values), ...);
  }

  const QByteArray& Taken() const { return m_bytes; }

 private:
  QByteArray m_bytes;
};

// Each record is taken apart by name: a field that is added to it breaks the build here instead of being
// overlooked.

void Bytes::Add(const WaveGraphSetting& graph) {
  const auto& [autoRange, timeXMin, timeXMax, timeXStep, timeYMin, timeYMax, timeYStep, specLog, specXMin,
               specXMax, specXStep, specLogXMin, specLogXMax, specYMin, specYMax, specYStep, fourierLog,
               fourierXMin, fourierXMax, fourierXStep, fourierLogXMin, fourierLogXMax, fourierYMin,
               fourierYMax, fourierYStep, timeColor, specColor, fourierColor, reserved] = graph;
  AddAll(autoRange, timeXMin, timeXMax, timeXStep, timeYMin, timeYMax, timeYStep, specLog, specXMin, specXMax,
         specXStep, specLogXMin, specLogXMax, specYMin, specYMax, specYStep, fourierLog, fourierXMin,
         fourierXMax, fourierXStep, fourierLogXMin, fourierLogXMax, fourierYMin, fourierYMax, fourierYStep,
         timeColor, specColor, fourierColor, reserved);
}

void Bytes::Add(const CSeismicWave& wave) {
  const auto& [name, spectrumValid, timeStep, acc, current, origGraph, siteColor, siteShow, siteUse, periods,
               accSpec, lowerSelected, lowerGraph, baseColor, baseShow, baseSelected, spectrumArea,
               adjustColor, baseAdjustShow, adjustShow, adopted, adjustChecked, adjustedAcc, adjustedPeriods,
               adjustedSpec, adjusted, note] = wave;
  static_cast<void>(note);  // a member of its own, since no file keeps it
  AddAll(name, spectrumValid, timeStep, acc, current, origGraph, siteColor, siteShow, siteUse, periods,
         accSpec, lowerSelected, lowerGraph, baseColor, baseShow, baseSelected, spectrumArea, adjustColor,
         baseAdjustShow, adjustShow, adopted, adjustChecked, adjustedAcc, adjustedPeriods, adjustedSpec,
         adjusted);
}

void Bytes::Add(const RecordNote& record) {
  const auto& [file, member, format, station, component, start, count, timeStep, unit, factor, offset,
               corrected, cut, from, to, warnings] = record;
  AddAll(file, member, static_cast<std::int32_t>(format), station, component, start, count, timeStep, unit,
         factor, offset, corrected, cut, from, to, warnings);
}

void Bytes::Add(const FaultInfo& fault) {
  const auto& [rank, ltecode, ltename, groundClass, magnitude, ijma, i45, i50, i55, i60, geomNum, avract,
               newact, t30p, t50p, magu, lon, lat, dep, len, wid, str, dip, lon1, lat1, dep1, lon2, lat2,
               dep2, lon3, lat3, dep3, lon4, lat4, dep4, planeDepth, furtherA, furtherB, shortestDistance,
               equivalentDistance, shortestPeriods, shortestSpectrum, equivalentPeriods, equivalentSpectrum,
               attenColor, attenShow, attenUse, shortBaseColor, shortBaseShow, shortBaseSelected, shortArea,
               equivBaseColor, equivBaseShow, equivBaseSelected, equivArea, adjustSpare, adjustShow,
               adjustShowEquiv] = fault;
  AddAll(rank, ltecode, ltename, groundClass, magnitude, ijma, i45, i50, i55, i60, geomNum, avract, newact,
         t30p, t50p, magu, lon, lat, dep, len, wid, str, dip, lon1, lat1, dep1, lon2, lat2, dep2, lon3, lat3,
         dep3, lon4, lat4, dep4, planeDepth, furtherA, furtherB, shortestDistance, equivalentDistance,
         shortestPeriods, shortestSpectrum, equivalentPeriods, equivalentSpectrum, attenColor, attenShow,
         attenUse, shortBaseColor, shortBaseShow, shortBaseSelected, shortArea, equivBaseColor, equivBaseShow,
         equivBaseSelected, equivArea, adjustSpare, adjustShow, adjustShowEquiv);
}

void Bytes::Add(const SiteRecord& site) {
  const auto& [title, subtitle, workDate, company, phone, fax, siteName, address, latDeg, latMin, latSec,
               lonDeg, lonMin, lonSec, planeZone, comments, mapZoom, mapScale] = site;
  AddAll(title, subtitle, workDate, company, phone, fax, siteName, address, latDeg, latMin, latSec, lonDeg,
         lonMin, lonSec, planeZone, comments, mapZoom, mapScale);
}

void Bytes::Add(const ApiParameterSet& parameters) {
  const auto& [intensity, weight, mode, version, activityVersion, caseIndex, period] = parameters;
  AddAll(intensity, weight, mode, version, activityVersion, caseIndex, period);
}

void Bytes::Add(const DamCoefSet& set) {
  const auto& [title, method, distanceKind, period, ampA, ampB, ampC, ampD, coefM, coefM2, coefD, coefX,
               coefDX, coefC, coefNear] = set;
  AddAll(title, method, distanceKind, period, ampA, ampB, ampC, ampD, coefM, coefM2, coefD, coefX, coefDX,
         coefC, coefNear);
}

void Bytes::Add(const MainFaultRow& row) {
  const auto& [code, name, segment, cornerA, cornerB, cornerC, lon, lat] = row;
  AddAll(code, name, segment, cornerA, cornerB, cornerC, lon, lat);
}

void Bytes::Add(const AcquisitionReport& report) {
  const auto& [searchVersion, activityVersion, searchUnread, unread] = report;
  AddAll(searchVersion, activityVersion, searchUnread, unread);
}

}  // namespace

DocumentState::DocumentState(const CMorvaneDoc& doc) {
  const auto add = [this](const char* name, const auto& value) {
    Bytes bytes;
    bytes.Add(value);
    m_members.push_back({name, bytes.Taken()});
  };
#define TREMLO_ADD(member) add(#member, doc.member)
  TREMLO_ADD(guidelineRoute);
  TREMLO_ADD(site);
  TREMLO_ADD(flowQ1Yes);
  TREMLO_ADD(flowQ2Yes);
  TREMLO_ADD(flowCollect);
  TREMLO_ADD(flowFaultSource);
  TREMLO_ADD(flowNeighbourWave);
  TREMLO_ADD(flowFixed);
  TREMLO_ADD(seedWaves);
  TREMLO_ADD(graphDamsite);
  TREMLO_ADD(damCoefSets);
  TREMLO_ADD(mainFaultRows);
  TREMLO_ADD(faults);
  TREMLO_ADD(faultAcquireMode);
  TREMLO_ADD(searchRangeKm);
  TREMLO_ADD(attenuationMethod);
  TREMLO_ADD(graphAttenuation);
  TREMLO_ADD(apiParameters);
  TREMLO_ADD(lowerSpectra);
  TREMLO_ADD(graphBase);
  TREMLO_ADD(seedAdopted);
  TREMLO_ADD(seedAdoptedName);
  TREMLO_ADD(baseSpectrumName);
  TREMLO_ADD(graphAdjust);
  TREMLO_ADD(adjustMaxIterations);
  TREMLO_ADD(adjustTolerancePercent);
  TREMLO_ADD(graphSpare);
  TREMLO_ADD(visualShowOrig);
  TREMLO_ADD(visualShowAdjusted);
  TREMLO_ADD(visualShowSpare);
  TREMLO_ADD(visualColorOrig);
  TREMLO_ADD(visualColorAdjusted);
  TREMLO_ADD(visualColorSpare);
  TREMLO_ADD(respSpectra);
  TREMLO_ADD(lastAcquisition);
#undef TREMLO_ADD
  std::vector<std::optional<RecordNote>> notes;
  for (const CSeismicWave& wave : doc.seedWaves.Records()) notes.push_back(wave.note);
  add("recordNotes", notes);
  add("modified", doc.IsModified());
}

std::vector<std::string> DocumentState::DifferencesTo(const DocumentState& other) const {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < m_members.size(); ++i)
    if (m_members[i] != other.m_members[i]) names.push_back(m_members[i].name);
  return names;
}

}  // namespace tremlo::test
