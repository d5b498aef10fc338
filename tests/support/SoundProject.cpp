#include "support/SoundProject.h"

#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"
#include "core/project/AdjustCheck.h"
#include "core/project/BaseCandidates.h"
#include "core/project/ResponseRoute.h"
#include "core/sources/DamSpectra.h"
#include "core/sources/FaultConversion.h"
#include "core/waves/SpectrumBatch.h"
#include "core/waves/WaveFile.h"
#include "support/TestFolder.h"

namespace tremlo::test {

namespace {

void AddWave(CMorvaneDoc& doc, const QString& name, const QString& file) {
  QString nameOfFile;
  double timeStep = 0.0;
  std::vector<double> acc;
  ReadWaveFile(SourcePath(file), nameOfFile, timeStep, acc);
  AddImportedWave(doc.seedWaves, name, timeStep, acc);
}

FaultInfo Fault(const QString& rank, const QString& name, const std::vector<QString>& lons) {
  FaultInfo fault;
  fault.rank = rank;
  fault.ltecode = QStringLiteral("F0") + rank;
  fault.ltename = name;
  fault.magnitude = QStringLiteral("7.2");
  fault.geomNum = static_cast<std::int32_t>(lons.size());
  fault.lon = lons;
  const auto fill = [&](std::vector<QString>& texts, const char* text) {
    texts.assign(lons.size(), QString::fromLatin1(text));
  };
  fill(fault.groundClass, "B");
  fill(fault.lat, "38.3");
  fill(fault.dep, "3.0");
  fill(fault.len, "21.5");
  fill(fault.wid, "14");
  fill(fault.str, "35");
  fill(fault.dip, "50");
  for (auto* corner : {&fault.corner1Lon, &fault.corner1Lat, &fault.corner1Dep, &fault.corner2Lon,
                       &fault.corner2Lat, &fault.corner2Dep, &fault.corner3Lon, &fault.corner3Lat,
                       &fault.corner3Dep, &fault.corner4Lon, &fault.corner4Lat, &fault.corner4Dep})
    corner->assign(lons.size(), 1.0);
  for (auto* colors : {&fault.attenColor, &fault.shortBaseColor, &fault.equivBaseColor})
    colors->assign(lons.size(), 0xFF);
  for (auto* flags : {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow,
                      &fault.adjustShow, &fault.adjustShowEquiv})
    flags->assign(lons.size(), true);
  for (auto* flags : {&fault.shortBaseSelected, &fault.equivBaseSelected}) flags->assign(lons.size(), false);
  for (auto* areas : {&fault.shortArea, &fault.equivArea}) areas->assign(lons.size(), 0.0);
  return fault;
}

void AddFaults(CMorvaneDoc& doc) {
  doc.site.planeZone = QStringLiteral("VIII (8)");
  const int zone = ZoneFromLabel(doc.site.planeZone);
  const PlanePoint site = ToPlaneRectangular(zone, SiteLatitude(doc.site), SiteLongitude(doc.site));
  doc.faults = {
      Fault(QStringLiteral("1"), QStringLiteral("南"), {QStringLiteral("137.9")}),
      Fault(QStringLiteral("2"), QStringLiteral("北"), {QStringLiteral("138.1"), QStringLiteral("138.25")})};
  for (FaultInfo& fault : doc.faults)
    ComputeFaultDistances(fault, zone, site.easting / 1000.0, site.northing / 1000.0);
  CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults);
}

void ComputeSpectra(CMorvaneDoc& doc) {
  SpectrumBatch batch(doc.seedWaves);
  batch.Compute();
  batch.Store(doc.seedWaves);
}

CMorvaneDoc MakeSoundProject(const QString& tables) {
  CMorvaneDoc doc(tables);
  doc.ResetDocument();
  doc.guidelineRoute = true;
  doc.flowQ2Yes = doc.flowFixed = doc.flowFaultSource = doc.flowNeighbourWave = true;
  AddWave(doc, QStringLiteral("A"), QStringLiteral("samples/waves/hses_2016_n80w_0005_8192.csv"));
  AddWave(doc, QStringLiteral("近隣"), QStringLiteral("samples/waves/elcentro_1940_ns.csv"));
  doc.seedWaves.At(1).siteUse = true;
  ComputeSpectra(doc);
  AddFaults(doc);
  StoreCandidateAreas(doc);
  SetBase(doc, doc.lowerSpectra.SelectedName());
  CSeismicWave& wave = doc.seedWaves.At(0);
  wave.adopted = doc.seedAdopted = true;
  doc.seedAdoptedName = wave.name;
  StoreAdjustment(wave, RunAdjustment(AdjustInputOf(doc, wave)));
  wave.adjustChecked = true;
  return doc;
}

CMorvaneDoc MakeSoundResponseProject() {
  CMorvaneDoc doc(SourcePath(QStringLiteral("data")));
  doc.ResetDocument();
  AddWave(doc, QStringLiteral("A"), QStringLiteral("samples/waves/hses_2016_n80w_0005_8192.csv"));
  ComputeSpectra(doc);
  // A target that rises in period is reversed for the run alone.
  QString name;
  std::vector<double> periods;
  std::vector<double> values;
  ReadSpectrumFile(SourcePath(QStringLiteral("data/LowSpec/h20_h.csv")), name, periods, values);
  doc.respSpectra.AddSpectrum(name, periods, values);
  StoreRespAdjustment(doc, RunAdjustment(RespAdjustInput(doc)));
  return doc;
}

}  // namespace

CMorvaneDoc SoundProject(const QString& tables) {
  if (!tables.isEmpty()) return MakeSoundProject(tables);
  static const CMorvaneDoc doc = MakeSoundProject(SourcePath(QStringLiteral("data")));
  return doc;
}

CMorvaneDoc SoundResponseProject() {
  static const CMorvaneDoc doc = MakeSoundResponseProject();
  return doc;
}

}  // namespace tremlo::test
