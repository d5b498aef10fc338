#include "core/location/HazardAnswer.h"

#include "core/files/Cp932Text.h"
#include "core/location/JsonAnswer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tremlo {

namespace {

using Corner = std::array<std::vector<double> FaultInfo::*, 3>;

constexpr std::array<Corner, 4> kCorners = {{
    {&FaultInfo::corner1Lon, &FaultInfo::corner1Lat, &FaultInfo::corner1Dep},
    {&FaultInfo::corner2Lon, &FaultInfo::corner2Lat, &FaultInfo::corner2Dep},
    {&FaultInfo::corner3Lon, &FaultInfo::corner3Lat, &FaultInfo::corner3Dep},
    {&FaultInfo::corner4Lon, &FaultInfo::corner4Lat, &FaultInfo::corner4Dep},
}};

struct PlaneText {
  const char* key;
  std::vector<QString> FaultInfo::*list;
};

constexpr std::array<PlaneText, 7> kPlaneTexts = {{
    {"lon", &FaultInfo::lon},
    {"lat", &FaultInfo::lat},
    {"dep", &FaultInfo::dep},
    {"len", &FaultInfo::len},
    {"wid", &FaultInfo::wid},
    {"str", &FaultInfo::str},
    {"dip", &FaultInfo::dip},
}};

/// Thrown for an answer with more in it than any source has.
struct OutOfBounds {};

constexpr std::size_t kMostSources = 1000;
constexpr std::size_t kMostPlanes = 100;
constexpr std::size_t kLongestText = 10000;

std::string TextOf(const picojson::value& object, const char* key) {
  std::string text = StringOf(object, key);
  if (text.size() > kLongestText) throw OutOfBounds();
  return text;
}

/// A text of the service in the system's code page, which only the fault's name is not in; "-" for none.
QString TextOrDash(const picojson::value& object, const char* key) {
  const std::string text = TextOf(object, key);
  return text.empty() ? QStringLiteral("-") : DecodeCp932(text);
}

FaultInfo ReadMeshEntry(const picojson::value& entry, bool withProbabilities) {
  FaultInfo fault;
  fault.rank = TextOrDash(entry, "rank");
  fault.ltecode = TextOrDash(entry, "ltecode");
  const std::string name = TextOf(entry, "ltename");
  fault.ltename = name.empty() ? QStringLiteral("No Name") : QString::fromStdString(name);
  StringOf(entry, "eqgroup");  // not kept, but of the wrong kind it is a fault like the others
  fault.magnitude = TextOrDash(entry, "magnitude");
  fault.ijma = TextOrDash(entry, "ijma");
  const auto probability = [&](const char* key) {
    return withProbabilities ? TextOrDash(entry, key) : QStringLiteral("-");
  };
  fault.i45_ps = probability("i45_ps");
  fault.i50_ps = probability("i50_ps");
  fault.i55_ps = probability("i55_ps");
  fault.i60_ps = probability("i60_ps");
  return fault;
}

std::int32_t ToWhole(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp(number, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

void ReadRing(const picojson::array& ring, FaultInfo& fault) {
  // The closing position repeats the first.
  for (std::size_t i = 0; i < std::min(ring.size(), kCorners.size()); ++i) {
    std::array<double, 3> ordinates{};
    const auto& position = ring[i].get<picojson::array>();
    for (std::size_t k = 0; k < position.size(); ++k) {
      const double number = position[k].get<double>();
      if (k < ordinates.size()) ordinates[k] = number;
    }
    for (std::size_t k = 0; k < ordinates.size(); ++k) (fault.*kCorners[i][k]).push_back(ordinates[k]);
  }
}

/// Appends the plane of a feature. False when its geometry is no polygon.
bool ReadFeature(const picojson::value& feature, FaultInfo& fault) {
  const picojson::value& geometry = feature.get("geometry");
  if (StringOf(geometry, "type") != "Polygon") return false;
  if (fault.groundClass.size() == kMostPlanes) throw OutOfBounds();
  const picojson::value& properties = feature.get("properties");
  fault.groundClass.push_back(QStringLiteral("A"));
  for (const PlaneText& text : kPlaneTexts) (fault.*text.list).push_back(TextOrDash(properties, text.key));
  for (const picojson::value& ring : geometry.get("coordinates").get<picojson::array>())
    ReadRing(ring.get<picojson::array>(), fault);
  // One element per polygon, whatever the number of its rings and their positions.
  for (const Corner& corner : kCorners)
    for (const auto ordinate : corner) (fault.*ordinate).resize(fault.groundClass.size());
  return true;
}

void ReadActivity(const picojson::value& model, FaultInfo& fault) {
  fault.geomNum = ToWhole(model.get("geom_num").get<double>());
  fault.avract = TextOrDash(model, "avract");
  fault.newact = TextOrDash(model, "newact");
  fault.t30p = TextOrDash(model, "t30p");
  fault.t50p = TextOrDash(model, "t50p");
  fault.magu = TextOrDash(model, "magu");
}

void ClearPlanes(FaultInfo& fault) {
  fault.groundClass.clear();
  for (const PlaneText& text : kPlaneTexts) (fault.*text.list).clear();
  for (const Corner& corner : kCorners)
    for (const auto ordinate : corner) (fault.*ordinate).clear();
}

/// Parses `text` and hands the root to `read` unless the service reports an error. The library tells of a
/// value of another kind by an exception, which ends here.
template <class Reader>
AnswerResult ReadAnswer(std::string_view text, const Reader& read) {
  try {
    picojson::value root;
    if (!ParseJson(text, root)) return {ServiceOutcome::BadAnswer, {}};
    if (StringOf(root, "status") == "Error") return {ServiceOutcome::NothingFound, {}};
    read(root);
    return {};
  } catch (const OutOfBounds&) {
    return {ServiceOutcome::BadAnswer, {}};
  } catch (const std::exception& fault) {
    const QString reason = QString::fromUtf8(fault.what());
    return {ServiceOutcome::TypeFault,
            reason.isEmpty() ? QStringLiteral("J-SHISの回答に扱えない数値があります。") : reason};
  }
}

}  // namespace

AnswerResult ParseMeshAnswer(std::string_view text, bool withProbabilities, std::vector<FaultInfo>& faults) {
  const std::size_t before = faults.size();
  AnswerResult result = ReadAnswer(text, [&](const picojson::value& root) {
    const auto& entries = root.get("Fault").get<picojson::array>();
    if (entries.size() > kMostSources) throw OutOfBounds();
    for (const picojson::value& entry : entries) faults.push_back(ReadMeshEntry(entry, withProbabilities));
  });
  if (result.outcome == ServiceOutcome::BadAnswer) faults.resize(before);
  return result;
}

AnswerResult ParseActivityAnswer(std::string_view text, FaultInfo& fault, bool& erase) {
  erase = false;
  return ReadAnswer(text, [&](const picojson::value& root) {
    FaultInfo read = fault;
    ClearPlanes(read);
    ReadActivity(root.get("seisact_model"), read);
    for (const picojson::value& feature : root.get("features").get<picojson::array>()) {
      if (ReadFeature(feature, read)) continue;
      erase = true;
      return;
    }
    fault = std::move(read);
  });
}

}  // namespace tremlo
