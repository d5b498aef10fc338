#include "support/SmallProject.h"

#include "support/TestFolder.h"

#include <utility>

namespace tremlo::test {

namespace {

// Each value is the order of its field in the file, beside a number of the record that holds it.

std::vector<double> Quarters(double first, int count) {
  std::vector<double> values;
  for (int i = 0; i < count; ++i) values.push_back(first + 0.25 * i);
  return values;
}

std::vector<QString> Texts(int order) {
  return {QStringLiteral("a%1").arg(order), QStringLiteral("b%1").arg(order)};
}

std::vector<std::vector<double>> Rows(int order) {
  return {{order + 0.0}, {order + 0.25, order + 0.5}};
}

std::vector<bool> Bits(int order) {
  std::vector<bool> bits;
  for (int i = 0; i < 6; ++i) bits.push_back(((order >> i) & 1) != 0);
  return bits;
}

void FillGraph(WaveGraphSetting& graph, int base) {
  graph.autoRange = base + 1;
  graph.timeXMin = base + 2;
  graph.timeXMax = base + 3;
  graph.timeXStep = base + 4;
  graph.timeYMin = base + 5;
  graph.timeYMax = base + 6;
  graph.timeYStep = base + 7;
  graph.specLog = base + 8;
  graph.specXMin = base + 9;
  graph.specXMax = base + 10;
  graph.specXStep = base + 11;
  graph.specLogXMin = base + 12;
  graph.specLogXMax = base + 13;
  graph.specYMin = base + 14;
  graph.specYMax = base + 15;
  graph.specYStep = base + 16;
  graph.fourierLog = base + 17;
  graph.fourierXMin = base + 18;
  graph.fourierXMax = base + 19;
  graph.fourierXStep = base + 20;
  graph.fourierLogXMin = base + 21;
  graph.fourierLogXMax = base + 22;
  graph.fourierYMin = base + 23;
  graph.fourierYMax = base + 24;
  graph.fourierYStep = base + 25;
  graph.timeColor = base + 26;
  graph.specColor = base + 27;
  graph.fourierColor = base + 28;
  for (std::size_t i = 0; i < graph.reserved.size(); ++i) graph.reserved[i] = base + 29 + static_cast<int>(i);
}

void FillWave(CSeismicWave& wave, int number, bool withSamples) {
  const int base = 1000 * (number + 1);
  const auto flag = [&](int order) { return ((order >> number) & 1) != 0; };
  const auto list = [&](int order, int count) {
    return withSamples ? Quarters(base + order, count) : std::vector<double>();
  };
  wave.spectrumValid = flag(1);
  wave.timeStep = base + 2.5;
  wave.acc = list(3, 4);
  wave.current = flag(4);
  FillGraph(wave.origGraph, base + 100);
  wave.siteColor = base + 6;
  wave.siteShow = flag(7);
  wave.siteUse = flag(8);
  wave.periods = list(9, 2);
  wave.accSpec = list(10, 2);
  wave.lowerSelected = flag(11);
  FillGraph(wave.lowerGraph, base + 200);
  wave.baseColor = base + 13;
  wave.baseShow = flag(14);
  wave.baseSelected = flag(15);
  wave.spectrumArea = base + 16.5;
  wave.adjustColor = base + 17;
  wave.baseAdjustShow = flag(18);
  wave.adjustShow = flag(19);
  wave.adopted = flag(20);
  wave.adjustChecked = flag(21);
  wave.adjustedAcc = list(22, 2);
  wave.adjustedPeriods = list(23, 2);
  wave.adjustedSpec = list(24, 2);
  wave.adjusted = flag(25);
}

FaultInfo Fault() {
  FaultInfo fault;
  fault.rank = QStringLiteral("F1");
  fault.ltecode = QStringLiteral("F2");
  fault.ltename = QStringLiteral("断層3");
  fault.groundClass = Texts(4);
  fault.magnitude = QStringLiteral("F5");
  fault.ijma = QStringLiteral("F6");
  fault.i45_ps = QStringLiteral("F7");
  fault.i50_ps = QStringLiteral("F8");
  fault.i55_ps = QStringLiteral("F9");
  fault.i60_ps = QStringLiteral("F10");
  fault.geomNum = 2;
  fault.avract = QStringLiteral("F12");
  fault.newact = QStringLiteral("F13");
  fault.t30p = QStringLiteral("F14");
  fault.t50p = QStringLiteral("F15");
  fault.magu = QStringLiteral("F16");
  fault.lon = Texts(17);
  fault.lat = Texts(18);
  fault.dep = Texts(19);
  fault.len = Texts(20);
  fault.wid = Texts(21);
  fault.str = Texts(22);
  fault.dip = Texts(23);
  fault.corner1Lon = {24.0, 24.5};
  fault.corner1Lat = {25.0, 25.5};
  fault.corner1Dep = {26.0, 26.5};
  fault.corner2Lon = {27.0, 27.5};
  fault.corner2Lat = {28.0, 28.5};
  fault.corner2Dep = {29.0, 29.5};
  fault.corner3Lon = {30.0, 30.5};
  fault.corner3Lat = {31.0, 31.5};
  fault.corner3Dep = {32.0, 32.5};
  fault.corner4Lon = {33.0, 33.5};
  fault.corner4Lat = {34.0, 34.5};
  fault.corner4Dep = {35.0, 35.5};
  fault.planeDepth = {36.0, 36.5};
  fault.furtherA = {37.0, 37.5};
  fault.furtherB = {38.0, 38.5};
  fault.shortestDistance = {39.0, 39.5};
  fault.equivalentDistance = {40.0, 40.5};
  fault.shortestPeriods = Rows(41);
  fault.shortestSpectrum = Rows(42);
  fault.equivalentPeriods = Rows(43);
  fault.equivalentSpectrum = Rows(44);
  fault.attenColor = {45, -45};
  fault.attenShow = Bits(46);
  fault.attenUse = Bits(47);
  fault.shortBaseColor = {48, -48};
  fault.shortBaseShow = Bits(49);
  fault.shortBaseSelected = Bits(50);
  fault.shortArea = {51.0, 51.5};
  fault.equivBaseColor = {52, -52};
  fault.equivBaseShow = Bits(53);
  fault.equivBaseSelected = Bits(54);
  fault.equivArea = {55.0, 55.5};
  fault.adjustShow = Bits(56);
  fault.adjustShowEquiv = Bits(57);
  return fault;
}

void FillSet(CSeismicWaveSet& set, const std::vector<std::pair<QString, int>>& waves) {
  set.Clear();
  for (const auto& [name, number] : waves) {
    set.Add(name);
    FillWave(set.At(set.Count() - 1), number, true);
  }
}

}  // namespace

void FillSmallProject(CMorvaneDoc& doc) {
  doc.guidelineRoute = true;
  doc.site.title = QStringLiteral("震度2");
  doc.site.subtitle = QStringLiteral("P3");
  doc.site.siteName = QStringLiteral("P4");
  doc.site.workDate = QStringLiteral("P5");
  doc.site.company = QStringLiteral("P6");
  doc.site.phone = QStringLiteral("P7");
  doc.site.fax = QStringLiteral("P8");
  doc.site.address = QStringLiteral("P9");
  doc.site.latDeg = 10.5;
  doc.site.latMin = 11.5;
  doc.site.latSec = 12.5;
  doc.site.lonDeg = 13.5;
  doc.site.lonMin = 14.5;
  doc.site.lonSec = 15.5;
  doc.site.planeZone = QStringLiteral("P16");
  for (int i = 0; i < 10; ++i)
    doc.site.comments[static_cast<std::size_t>(i)] = QStringLiteral("c%1").arg(i + 1);
  doc.site.mapZoom = -18;
  doc.site.mapScale = 19.5;
  doc.flowQ1Yes = false;
  doc.flowQ2Yes = true;
  doc.flowCollect = false;
  doc.flowFaultSource = true;
  doc.flowNeighbourWave = false;
  doc.flowFixed = true;
  FillSet(doc.seedWaves, {{QStringLiteral("w"), 0}});
  FillWave(doc.graphDamsite, 1, false);
  doc.faults = {Fault()};
  doc.faultAcquireMode = -30;
  doc.searchRangeKm = 31.5;
  doc.attenuationMethod = QStringLiteral("P32");
  FillWave(doc.graphAttenuation, 2, false);
  doc.apiParameters.intensityIndex = 34;
  doc.apiParameters.catastropheWeight = 35.5;
  doc.apiParameters.modeIndex = 36;
  doc.apiParameters.versionIndex = 37;
  doc.apiParameters.activityVersionIndex = 38;
  doc.apiParameters.caseIndex = 39;
  doc.apiParameters.periodIndex = 40;
  FillSet(doc.lowerSpectra, {{QStringLiteral("L1"), 3}, {QStringLiteral("L2"), 8}});
  FillWave(doc.graphBase, 4, false);
  doc.seedAdopted = false;
  doc.seedAdoptedName = QStringLiteral("P44");
  doc.baseSpectrumName = QStringLiteral("P45");
  FillWave(doc.graphAdjust, 5, false);
  doc.adjustMaxIterations = 47;
  doc.adjustTolerancePercent = 48.5;
  FillWave(doc.graphSpare, 6, false);
  doc.visualShowOrig = 50;
  doc.visualShowAdjusted = 51;
  doc.visualShowSpare = 52;
  doc.visualColorOrig = 53;
  doc.visualColorAdjusted = 54;
  doc.visualColorSpare = 55;
  FillSet(doc.respSpectra, {{QStringLiteral("R"), 7}});
}

CMorvaneDoc DocWithoutTables() {
  CMorvaneDoc doc(SourcePath(QStringLiteral("CMakeLists.txt/no folder")));
  doc.ResetDocument();
  return doc;
}

std::string SmallProjectBytes() {
  std::string bytes;
  for (QByteArray line : ReadAll(SourcePath(QStringLiteral("tests/data/small-project.hex"))).split('\n')) {
    if (const qsizetype comment = line.indexOf('#'); comment >= 0) line.truncate(comment);
    bytes += QByteArray::fromHex(line).toStdString();
  }
  return bytes;
}

}  // namespace tremlo::test
