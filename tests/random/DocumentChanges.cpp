#include "random/DocumentChanges.h"

#include "core/project/ProjectFile.h"

#include <QFile>

#include <cstring>

namespace tremlo::test {

namespace {

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

bool SameData(const CSeismicWave& a, const CSeismicWave& b) {
  return SameBits({a.timeStep}, {b.timeStep}) && SameBits(a.acc, b.acc);
}

bool SamePlace(const SiteRecord& a, const SiteRecord& b) {
  return SameBits({a.latDeg, a.latMin, a.latSec, a.lonDeg, a.lonMin, a.lonSec},
                  {b.latDeg, b.latMin, b.latSec, b.lonDeg, b.lonMin, b.lonSec}) &&
         a.planeZone == b.planeZone;
}

void CheckWaves(const DocumentMoment& before, const DocumentMoment& after, std::vector<std::string>& wrong) {
  if (before.waves.size() != after.waves.size()) return;
  for (std::size_t i = 0; i < before.waves.size(); ++i) {
    const CSeismicWave& was = before.waves[i];
    const CSeismicWave& is = after.waves[i];
    if (was.name != is.name || SameData(was, is)) continue;
    if (was.adjusted && is.adjusted && SameBits(was.adjustedAcc, is.adjustedAcc))
      wrong.push_back("the data of a wave have changed, its fit was kept: " + is.name.toStdString());
    if (was.acc.size() != is.acc.size() && was.spectrumValid && is.spectrumValid && !is.accSpec.empty() &&
        SameBits(was.accSpec, is.accSpec))
      wrong.push_back("the samples of a wave have changed, its spectrum was kept: " + is.name.toStdString());
  }
}

bool FileHolds(const QString& path, const std::string& bytes) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.readAll().toStdString() == bytes;
}

}  // namespace

DocumentMoment::DocumentMoment(const CMorvaneDoc& doc)
    : generation(doc.Generation()),
      modified(doc.IsModified()),
      path(doc.PathName()),
      bytes(ProjectBytes(doc)),
      waves(doc.seedWaves.Records()),
      site(doc.site),
      faultCount(doc.faults.size()),
      guidelineRoute(doc.guidelineRoute),
      inFile(!modified && !path.isEmpty() && FileHolds(path, bytes)),
      state(doc) {}

std::vector<std::string> WrongChanges(const DocumentMoment& before, const DocumentMoment& after) {
  std::vector<std::string> wrong;
  if (before.generation != after.generation) return wrong;
  const bool changed = before.bytes != after.bytes;
  if (!after.modified && !after.inFile && (changed || before.modified))
    wrong.push_back("the project counts as not modified, and its file holds another: " +
                    (changed ? DifferingMembers(before, after) : "it has lost its mark"));
  if (before.guidelineRoute != after.guidelineRoute) wrong.push_back("the route of a project has changed");
  CheckWaves(before, after, wrong);
  if (!SamePlace(before.site, after.site) && before.faultCount > 0 && after.faultCount > 0)
    wrong.push_back("the site has moved, and its faults were kept");
  return wrong;
}

std::string DifferingMembers(const DocumentMoment& before, const DocumentMoment& after) {
  std::string names;
  for (const std::string& name : after.state.DifferencesTo(before.state))
    names += (names.empty() ? "" : ", ") + name;
  return names;
}

}  // namespace tremlo::test
