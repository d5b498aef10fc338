#include "core/sources/FaultAcquisition.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"
#include "core/location/Coordinates.h"
#include "core/location/HazardService.h"
#include "core/location/PlaneZone.h"
#include "core/sources/FaultConversion.h"
#include "core/sources/MainFaultSearch.h"

namespace tremlo {

namespace {

struct SiteKm {
  double east = 0.0;
  double north = 0.0;
};

SiteKm ProjectSite(const FaultAcquisitionInput& input) {
  constexpr double kMetresPerKm = 1000.0;
  const PlanePoint site = ToPlaneRectangular(input.zone, input.latitude, input.longitude);
  return {site.easting / kMetresPerKm, site.northing / kMetresPerKm};
}

/// The requests of one acquisition.
class Asking {
 public:
  Asking(const FaultAcquisitionInput& input, const ServiceSettings& settings, Prompt& prompt,
         std::vector<FaultInfo>& faults, const AcquisitionProgress& progress, const std::stop_token& stop)
      : m_input(input),
        m_prompt(prompt),
        m_faults(faults),
        m_progress(progress),
        m_service(settings, prompt, stop),
        m_stop(stop),
        m_request(input.parameters, input.latitude, input.longitude) {
    m_result.changed = true;
  }

  void AskRanking();
  void AskRange(const SiteKm& site);
  const FaultAcquisitionResult& Result() const { return m_result; }

 private:
  bool FetchModel(FaultInfo& fault, bool& erase, std::size_t index, std::size_t count);
  void Remove(std::size_t place);
  void Note(ServiceOutcome outcome);

  const FaultAcquisitionInput& m_input;
  Prompt& m_prompt;
  std::vector<FaultInfo>& m_faults;
  const AcquisitionProgress& m_progress;
  HazardService m_service;
  const std::stop_token& m_stop;
  FaultSearchRequest m_request;
  FaultAcquisitionResult m_result;
  bool m_ended = false;  ///< by a type fault or a stop: nothing more is asked
};

void Asking::AskRanking() {
  const ServiceOutcome search = m_service.SearchMeshFaults(m_request, m_faults);
  Note(search);
  // Those of an answer that broke in its midst count for nothing.
  if (search != ServiceOutcome::Done) m_faults.clear();
  const std::size_t count = m_faults.size();
  std::size_t place = 0;
  for (std::size_t i = 0; i < count; ++i) {
    FaultInfo& fault = m_faults[place];
    bool erase = false;
    if (m_ended) m_result.unread.push_back({fault.ltecode, fault.ltename});
    if (!m_ended && FetchModel(fault, erase, i, count)) {
      ++place;
    } else {
      Remove(place);
    }
  }
}

void Asking::AskRange(const SiteKm& site) {
  const std::vector<MainFaultGroup> groups =
      FindMainFaults(m_input.mainFaultRows, m_input.zone, site.east, site.north, m_input.searchRangeKm);
  if (groups.empty()) {
    m_prompt.Tell(QStringLiteral("指定された現場位置の主要断層データはありません。"), PromptIcon::Stop);
    m_result.outcome = ServiceOutcome::NothingFound;
  }
  const QString none = QStringLiteral("-");
  for (std::size_t i = 0; i < groups.size(); ++i) {
    FaultInfo fault;
    fault.rank = QString::number(m_faults.size() + 1);
    fault.ltecode = groups[i].code;
    fault.ltename = groups[i].name;
    fault.magnitude = fault.ijma = fault.i45_ps = fault.i50_ps = fault.i55_ps = fault.i60_ps = none;
    fault.avract = fault.newact = fault.t30p = fault.t50p = fault.magu = none;
    if (m_ended) {
      m_result.unread.push_back({fault.ltecode, fault.ltename});
      continue;
    }
    bool erase = false;
    FetchModel(fault, erase, i, groups.size());
    if (!erase) m_faults.push_back(std::move(fault));
  }
}

/// Asks for a source's model and notes the source when it has no planes then. Returns whether it has.
bool Asking::FetchModel(FaultInfo& fault, bool& erase, std::size_t index, std::size_t count) {
  if (m_progress) m_progress(static_cast<int>(index + 1), static_cast<int>(count), fault.ltename);
  const ServiceOutcome outcome = m_service.FetchActivityModel(m_request, fault.ltecode, fault, erase);
  m_ended = outcome == ServiceOutcome::TypeFault || m_stop.stop_requested();
  const bool answered = outcome == ServiceOutcome::Done || outcome == ServiceOutcome::NothingFound;
  if (!answered) Note(outcome);
  const bool hasPlanes = outcome == ServiceOutcome::Done && !erase && RectangleCount(fault) > 0;
  if (hasPlanes) return true;
  auto& list = erase ? m_result.leftOut : answered ? m_result.withoutPlanes : m_result.unread;
  list.push_back({fault.ltecode, fault.ltename});
  return false;
}

void Asking::Remove(std::size_t place) {
  m_faults.erase(m_faults.begin() + static_cast<std::ptrdiff_t>(place));
  for (std::size_t i = place; i < m_faults.size(); ++i) m_faults[i].rank = QString::number(i + 1);
}

void Asking::Note(ServiceOutcome outcome) {
  if (outcome == ServiceOutcome::Done || m_result.outcome != ServiceOutcome::Done) return;
  m_result.outcome = outcome;
  m_result.url = m_service.LastUrl();
  m_result.message = m_service.LastMessage();
}

void ToPercent(QString& probability) {
  if (probability != u"-") probability = FixedText(TextToDouble(probability) * 100.0, 1);
}

/// What the screens start with for each plane.
void StartPlanes(FaultInfo& fault) {
  const std::size_t planes = RectangleCount(fault);
  fault.attenColor.assign(planes, 0);
  fault.shortBaseColor.assign(planes, 0);
  fault.equivBaseColor.assign(planes, 0);
  fault.shortArea.assign(planes, 0.0);
  fault.equivArea.assign(planes, 0.0);
  fault.shortBaseSelected.assign(planes, false);
  fault.equivBaseSelected.assign(planes, false);
  fault.attenShow.assign(planes, true);
  fault.attenUse.assign(planes, true);
  fault.shortBaseShow.assign(planes, true);
  fault.equivBaseShow.assign(planes, true);
  fault.adjustShow.assign(planes, true);
  fault.adjustShowEquiv.assign(planes, true);
}

void Complete(FaultInfo& fault, const FaultAcquisitionInput& input, const SiteKm& site) {
  const bool ranking = input.mode != kAcquireRange;
  const QString magnitude = ranking ? fault.magnitude : fault.magu;
  ConvertMagnitude(fault, magnitude);
  if (ranking)
    for (QString* probability : {&fault.i45_ps, &fault.i50_ps, &fault.i55_ps, &fault.i60_ps})
      ToPercent(*probability);
  ComputeFaultDistances(fault, input.zone, site.east, site.north);
  StartPlanes(fault);
}

}  // namespace

FaultAcquisitionResult AcquireFaults(const FaultAcquisitionInput& input, const ServiceSettings& settings,
                                     Prompt& prompt, std::vector<FaultInfo>& faults,
                                     const AcquisitionProgress& progress, const std::stop_token& stop) {
  if (input.zone < 1 || input.zone > static_cast<int>(kPlaneZoneCount)) {
    prompt.Tell(QString::fromUtf16(kUnknownZoneText), PromptIcon::Stop);
    FaultAcquisitionResult refused;
    refused.outcome = ServiceOutcome::BadParameter;
    return refused;
  }
  const SiteKm site = ProjectSite(input);
  faults.clear();
  Asking asking(input, settings, prompt, faults, progress, stop);
  if (input.mode == kAcquireRange) {
    asking.AskRange(site);
  } else {
    asking.AskRanking();
  }
  for (FaultInfo& fault : faults) Complete(fault, input, site);
  return asking.Result();
}

}  // namespace tremlo
