#include "core/location/HazardAnswer.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace tremlo::fuzz {

namespace {

/// What stands in every text that the service has left out.
const QString kNone = QStringLiteral("-");

constexpr std::size_t kMostSources = 1000;
constexpr std::size_t kMostPlanes = 100;

constexpr std::string_view kBehind = " and more {[";

void CheckOutcome(const AnswerResult& result) {
  const bool known = result.outcome == ServiceOutcome::Done || result.outcome == ServiceOutcome::BadAnswer ||
                     result.outcome == ServiceOutcome::NothingFound ||
                     result.outcome == ServiceOutcome::TypeFault;
  Require(known, "an answer is sound, no JSON, an error, or of another kind");
  Require((result.outcome == ServiceOutcome::TypeFault) != result.faultText.isEmpty(),
          "a type fault has a text, and nothing else has");
}

void RemoveProbabilities(std::vector<FaultInfo>& faults) {
  for (FaultInfo& fault : faults) fault.i45_ps = fault.i50_ps = fault.i55_ps = fault.i60_ps = kNone;
}

void CheckMesh(std::string_view text) {
  const FaultInfo before;
  std::vector<FaultInfo> faults{before};
  const AnswerResult result = ParseMeshAnswer(text, true, faults);
  CheckOutcome(result);
  Require(!faults.empty() && faults.front() == before, "records are appended");
  if (result.outcome == ServiceOutcome::BadAnswer || result.outcome == ServiceOutcome::NothingFound)
    Require(faults.size() == 1, "without an answer there is no record");
  for (std::size_t i = 1; i < faults.size(); ++i)
    for (const QString& entry : {faults[i].rank, faults[i].ltecode, faults[i].ltename, faults[i].magnitude,
                                 faults[i].ijma, faults[i].i45_ps, faults[i].i60_ps})
      Require(!entry.isEmpty(), "no text of a record is empty");
  Require(faults.size() <= 1 + kMostSources, "the number of records is bounded");
  if (result.outcome != ServiceOutcome::Done) return;

  std::vector<FaultInfo> plain{before};
  Require(ParseMeshAnswer(text, false, plain).outcome == ServiceOutcome::Done,
          "an answer stays sound when its probabilities are not read");
  std::vector<FaultInfo> longer{before};
  Require(ParseMeshAnswer(std::string(text).append(kBehind), true, longer).outcome == ServiceOutcome::Done,
          "what stands behind an answer is left alone");
  Require(longer == faults, "what stands behind an answer changes no record");
  RemoveProbabilities(faults);
  faults.front() = plain.front();
  Require(plain == faults, "without probabilities a record differs by them alone");
}

void CheckPlanes(const FaultInfo& fault) {
  const std::size_t planes = fault.groundClass.size();
  Require(planes <= kMostPlanes, "the number of planes is bounded");
  for (const QString& ground : fault.groundClass) Require(ground == u"A", "every plane starts on class A");
  for (const auto& texts : {fault.lon, fault.lat, fault.dep, fault.len, fault.wid, fault.str, fault.dip})
    Require(texts.size() == planes && std::find(texts.begin(), texts.end(), QString()) == texts.end(),
            "every plane has its texts");
  for (const auto& ordinates : {fault.corner1Lon, fault.corner1Lat, fault.corner1Dep, fault.corner2Lon,
                                fault.corner2Lat, fault.corner2Dep, fault.corner3Lon, fault.corner3Lat,
                                fault.corner3Dep, fault.corner4Lon, fault.corner4Lat, fault.corner4Dep})
    Require(ordinates.size() == planes && std::all_of(ordinates.begin(), ordinates.end(),
                                                      [](double value) { return std::isfinite(value); }),
            "every plane has its corners");
}

void CheckActivity(std::string_view text) {
  FaultInfo before;
  before.ltecode = QStringLiteral("F000000");
  before.magu = QStringLiteral("before");
  before.lon = {QStringLiteral("before")};
  FaultInfo fault = before;
  bool erase = false;
  const AnswerResult result = ParseActivityAnswer(text, fault, erase);
  CheckOutcome(result);
  const bool done = result.outcome == ServiceOutcome::Done;
  Require(done || !erase, "only a sound answer takes a source from the list");
  if (!done || erase) {
    Require(fault == before, "a record that is not filled stays as it was");
    return;
  }
  Require(fault.ltecode == before.ltecode && !fault.magu.isEmpty(), "a record is filled");
  CheckPlanes(fault);
  FaultInfo longer = before;
  ParseActivityAnswer(std::string(text).append(kBehind), longer, erase);
  Require(longer == fault, "what stands behind a model changes no record");
}

}  // namespace

void FuzzAnswer(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckMesh(text);
  CheckActivity(text);
}

}  // namespace tremlo::fuzz
