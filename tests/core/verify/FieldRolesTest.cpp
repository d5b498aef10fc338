#include "core/project/ProjectFields.h"
#include "core/verify/StoredResults.h"
#include "support/SmallProject.h"

#include <gmock/gmock.h>
#include <map>
#include <string>

namespace tremlo {
namespace {

/// What a field of the project file is.
enum Role {
  I,  ///< input: typed, read, fetched, chosen, or a mark of the state of a result
  S,  ///< setting of a screen, a graph or a request
  R,  ///< result: follows from the others
  U,  ///< carried along: nothing writes it there, or nothing reads it
};

// The fields of a wave, of which each list uses its own.
using WaveRoles = std::map<std::string, Role>;

WaveRoles SeedWaveRoles() {
  return {{"spectrumValid", I}, {"timeStep", I},        {"acc", I},
          {"current", S},       {"origGraph", S},       {"siteColor", S},
          {"siteShow", S},      {"siteUse", I},         {"periods", R},
          {"accSpec", R},       {"lowerSelected", U},   {"lowerGraph", U},
          {"baseColor", S},     {"baseShow", S},        {"baseSelected", I},
          {"spectrumArea", R},  {"adjustColor", S},     {"baseAdjustShow", S},
          {"adjustShow", S},    {"adopted", I},         {"adjustChecked", I},
          {"adjustedAcc", R},   {"adjustedPeriods", R}, {"adjustedSpec", R},
          {"adjusted", I}};
}

WaveRoles LowerSpectrumRoles() {
  WaveRoles roles = SeedWaveRoles();
  for (auto& [name, role] : roles) role = U;
  roles["periods"] = roles["accSpec"] = roles["lowerSelected"] = roles["baseSelected"] = I;
  roles["lowerGraph"] = roles["baseColor"] = roles["baseShow"] = roles["baseAdjustShow"] = S;
  roles["spectrumArea"] = R;
  return roles;
}

WaveRoles TargetRoles() {
  WaveRoles roles = SeedWaveRoles();
  for (auto& [name, role] : roles) role = U;
  roles["periods"] = roles["accSpec"] = I;
  return roles;
}

WaveRoles LooseRoles() {
  WaveRoles roles = SeedWaveRoles();
  for (auto& [name, role] : roles) role = U;
  roles["origGraph"] = S;
  return roles;
}

std::map<std::string, Role> FaultRoles() {
  std::map<std::string, Role> roles;
  for (const char* name : {"rank",
                           "ltecode",
                           "ltename",
                           "groundClass",
                           "magnitude",
                           "ijma",
                           "i45_ps",
                           "i50_ps",
                           "i55_ps",
                           "i60_ps",
                           "geomNum",
                           "avract",
                           "newact",
                           "t30p",
                           "t50p",
                           "magu",
                           "lon",
                           "lat",
                           "dep",
                           "len",
                           "wid",
                           "str",
                           "dip",
                           "corner1Lon",
                           "corner1Lat",
                           "corner1Dep",
                           "corner2Lon",
                           "corner2Lat",
                           "corner2Dep",
                           "corner3Lon",
                           "corner3Lat",
                           "corner3Dep",
                           "corner4Lon",
                           "corner4Lat",
                           "corner4Dep",
                           "attenUse",
                           "shortBaseSelected",
                           "equivBaseSelected"})
    roles[name] = I;
  for (const char* name :
       {"planeDepth", "shortestDistance", "equivalentDistance", "shortestPeriods", "shortestSpectrum",
        "equivalentPeriods", "equivalentSpectrum", "shortArea", "equivArea"})
    roles[name] = R;
  for (const char* name : {"attenColor", "attenShow", "shortBaseColor", "shortBaseShow", "equivBaseColor",
                           "equivBaseShow", "adjustShow", "adjustShowEquiv"})
    roles[name] = S;
  roles["furtherA"] = roles["furtherB"] = U;
  return roles;
}

/// Every field of the file by its path, "faults.planeDepth".
std::map<std::string, Role> AllRoles() {
  std::map<std::string, Role> all;
  const auto add = [&](const std::string& list, const std::map<std::string, Role>& roles) {
    for (const auto& [name, role] : roles) all[list + "." + name] = role;
  };
  add("seedWaves", SeedWaveRoles());
  add("lowerSpectra", LowerSpectrumRoles());
  add("respSpectra", TargetRoles());
  add("faults", FaultRoles());
  for (const char* loose : {"graphDamsite", "graphAttenuation", "graphBase", "graphAdjust"})
    add(loose, LooseRoles());
  WaveRoles spare = LooseRoles();
  spare["origGraph"] = U;
  add("graphSpare", spare);
  for (const char* name : {"guidelineRoute",
                           "title",
                           "subtitle",
                           "siteName",
                           "workDate",
                           "company",
                           "phone",
                           "fax",
                           "address",
                           "latDeg",
                           "latMin",
                           "latSec",
                           "lonDeg",
                           "lonMin",
                           "lonSec",
                           "planeZone",
                           "comments",
                           "flowQ1Yes",
                           "flowQ2Yes",
                           "flowCollect",
                           "flowFaultSource",
                           "flowNeighbourWave",
                           "flowFixed",
                           "attenuationMethod",
                           "seedAdopted",
                           "seedAdoptedName",
                           "baseSpectrumName",
                           "adjustMaxIterations",
                           "adjustTolerancePercent"})
    all[name] = I;
  for (const char* name :
       {"mapZoom", "mapScale", "faultAcquireMode", "searchRangeKm", "intensityIndex", "catastropheWeight",
        "modeIndex", "versionIndex", "activityVersionIndex", "caseIndex", "periodIndex", "visualShowOrig",
        "visualShowAdjusted", "visualColorOrig", "visualColorAdjusted"})
    all[name] = S;
  all["visualShowSpare"] = all["visualColorSpare"] = U;
  return all;
}

/// Gathers the path of every field of the one list that reads and writes the file.
class Paths {
 public:
  template <class T>
  void operator()(const char* name, const T& member) {
    Enter(name, member);
  }
  std::vector<std::string> paths;

 private:
  template <class T>
  void Enter(const std::string& name, const T&) {
    paths.push_back(m_list + name);
  }
  void Enter(const std::string& name, const CSeismicWave& wave) {
    m_list = name + ".";
    VisitWaveBody(*this, wave);
    m_list.clear();
  }
  void Enter(const std::string& name, const CSeismicWaveSet& set) { Enter(name, set.At(0)); }
  void Enter(const std::string& name, const std::vector<FaultInfo>& faults) {
    m_list = name + ".";
    VisitFaultFields(*this, faults.at(0));
    m_list.clear();
  }

  std::string m_list;
};

TEST(FieldRoles, EveryFieldOfTheFileHasOne) {
  CMorvaneDoc doc = test::DocWithoutTables();
  test::FillSmallProject(doc);
  doc.lowerSpectra.Resize(1);
  Paths paths;
  VisitProjectFields(paths, doc);
  std::vector<std::string> known;
  for (const auto& [path, role] : AllRoles()) known.push_back(path);
  EXPECT_THAT(paths.paths, testing::UnorderedElementsAreArray(known));
}

TEST(FieldRoles, TheVerificationKnowsEveryResultAndNoOther) {
  std::vector<std::string> results;
  for (const auto& [path, role] : AllRoles())
    if (role == R) results.push_back(path);
  std::vector<std::string> verified;
  for (const StoredResult& result : StoredResults())
    verified.push_back(std::string(result.list) + "." + result.member);
  EXPECT_THAT(verified, testing::UnorderedElementsAreArray(results));
}

}  // namespace
}  // namespace tremlo
