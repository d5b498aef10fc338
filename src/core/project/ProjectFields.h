#pragma once

namespace tremlo {

/// The stored fields of every record, each under its own name, in the order of the project file: that file
/// has no header and no version, so this order is the whole format. Each list calls `visit(name, member)`
/// once per field and serves the reading, the writing and the showing of a project alike. The record is const
/// for a visitor that only looks.

template <class Visitor, class Graph>
void VisitGraphFields(Visitor& visit, Graph& graph) {
  visit("autoRange", graph.autoRange);
  visit("timeXMin", graph.timeXMin);
  visit("timeXMax", graph.timeXMax);
  visit("timeXStep", graph.timeXStep);
  visit("timeYMin", graph.timeYMin);
  visit("timeYMax", graph.timeYMax);
  visit("timeYStep", graph.timeYStep);
  visit("specLog", graph.specLog);
  visit("specXMin", graph.specXMin);
  visit("specXMax", graph.specXMax);
  visit("specXStep", graph.specXStep);
  visit("specLogXMin", graph.specLogXMin);
  visit("specLogXMax", graph.specLogXMax);
  visit("specYMin", graph.specYMin);
  visit("specYMax", graph.specYMax);
  visit("specYStep", graph.specYStep);
  visit("fourierLog", graph.fourierLog);
  visit("fourierXMin", graph.fourierXMin);
  visit("fourierXMax", graph.fourierXMax);
  visit("fourierXStep", graph.fourierXStep);
  visit("fourierLogXMin", graph.fourierLogXMin);
  visit("fourierLogXMax", graph.fourierLogXMax);
  visit("fourierYMin", graph.fourierYMin);
  visit("fourierYMax", graph.fourierYMax);
  visit("fourierYStep", graph.fourierYStep);
  visit("timeColor", graph.timeColor);
  visit("specColor", graph.specColor);
  visit("fourierColor", graph.fourierColor);
  visit("reserved", graph.reserved);
}

/// All of a wave but its name: a set stores the names apart, and a loose record has none.
template <class Visitor, class Wave>
void VisitWaveBody(Visitor& visit, Wave& wave) {
  visit("spectrumValid", wave.spectrumValid);
  visit("timeStep", wave.timeStep);
  visit("acc", wave.acc);
  visit("current", wave.current);
  visit("origGraph", wave.origGraph);
  visit("siteColor", wave.siteColor);
  visit("siteShow", wave.siteShow);
  visit("siteUse", wave.siteUse);
  visit("periods", wave.periods);
  visit("accSpec", wave.accSpec);
  visit("lowerSelected", wave.lowerSelected);
  visit("lowerGraph", wave.lowerGraph);
  visit("baseColor", wave.baseColor);
  visit("baseShow", wave.baseShow);
  visit("baseSelected", wave.baseSelected);
  visit("spectrumArea", wave.spectrumArea);
  visit("adjustColor", wave.adjustColor);
  visit("baseAdjustShow", wave.baseAdjustShow);
  visit("adjustShow", wave.adjustShow);
  visit("adopted", wave.adopted);
  visit("adjustChecked", wave.adjustChecked);
  visit("adjustedAcc", wave.adjustedAcc);
  visit("adjustedPeriods", wave.adjustedPeriods);
  visit("adjustedSpec", wave.adjustedSpec);
  visit("adjusted", wave.adjusted);
}

template <class Visitor, class Fault>
void VisitFaultData(Visitor& visit, Fault& fault) {
  visit("rank", fault.rank);
  visit("ltecode", fault.ltecode);
  visit("ltename", fault.ltename);
  visit("groundClass", fault.groundClass);
  visit("magnitude", fault.magnitude);
  visit("ijma", fault.ijma);
  visit("i45_ps", fault.i45_ps);
  visit("i50_ps", fault.i50_ps);
  visit("i55_ps", fault.i55_ps);
  visit("i60_ps", fault.i60_ps);
  visit("geomNum", fault.geomNum);
  visit("avract", fault.avract);
  visit("newact", fault.newact);
  visit("t30p", fault.t30p);
  visit("t50p", fault.t50p);
  visit("magu", fault.magu);
  visit("lon", fault.lon);
  visit("lat", fault.lat);
  visit("dep", fault.dep);
  visit("len", fault.len);
  visit("wid", fault.wid);
  visit("str", fault.str);
  visit("dip", fault.dip);
  visit("corner1Lon", fault.corner1Lon);
  visit("corner1Lat", fault.corner1Lat);
  visit("corner1Dep", fault.corner1Dep);
  visit("corner2Lon", fault.corner2Lon);
  visit("corner2Lat", fault.corner2Lat);
  visit("corner2Dep", fault.corner2Dep);
  visit("corner3Lon", fault.corner3Lon);
  visit("corner3Lat", fault.corner3Lat);
  visit("corner3Dep", fault.corner3Dep);
  visit("corner4Lon", fault.corner4Lon);
  visit("corner4Lat", fault.corner4Lat);
  visit("corner4Dep", fault.corner4Dep);
}

template <class Visitor, class Fault>
void VisitFaultResults(Visitor& visit, Fault& fault) {
  visit("planeDepth", fault.planeDepth);
  visit("furtherA", fault.furtherA);
  visit("furtherB", fault.furtherB);
  visit("shortestDistance", fault.shortestDistance);
  visit("equivalentDistance", fault.equivalentDistance);
  visit("shortestPeriods", fault.shortestPeriods);
  visit("shortestSpectrum", fault.shortestSpectrum);
  visit("equivalentPeriods", fault.equivalentPeriods);
  visit("equivalentSpectrum", fault.equivalentSpectrum);
  visit("attenColor", fault.attenColor);
  visit("attenShow", fault.attenShow);
  visit("attenUse", fault.attenUse);
  visit("shortBaseColor", fault.shortBaseColor);
  visit("shortBaseShow", fault.shortBaseShow);
  visit("shortBaseSelected", fault.shortBaseSelected);
  visit("shortArea", fault.shortArea);
  visit("equivBaseColor", fault.equivBaseColor);
  visit("equivBaseShow", fault.equivBaseShow);
  visit("equivBaseSelected", fault.equivBaseSelected);
  visit("equivArea", fault.equivArea);
  visit("adjustShow", fault.adjustShow);
  visit("adjustShowEquiv", fault.adjustShowEquiv);
}

/// All of a fault but `adjustSpare`.
template <class Visitor, class Fault>
void VisitFaultFields(Visitor& visit, Fault& fault) {
  VisitFaultData(visit, fault);
  VisitFaultResults(visit, fault);
}

/// `siteName` follows `subtitle` here, though not in the record.
template <class Visitor, class Site>
void VisitSiteFields(Visitor& visit, Site& site) {
  visit("title", site.title);
  visit("subtitle", site.subtitle);
  visit("siteName", site.siteName);
  visit("workDate", site.workDate);
  visit("company", site.company);
  visit("phone", site.phone);
  visit("fax", site.fax);
  visit("address", site.address);
  visit("latDeg", site.latDeg);
  visit("latMin", site.latMin);
  visit("latSec", site.latSec);
  visit("lonDeg", site.lonDeg);
  visit("lonMin", site.lonMin);
  visit("lonSec", site.lonSec);
  visit("planeZone", site.planeZone);
  visit("comments", site.comments);
  visit("mapZoom", site.mapZoom);
  visit("mapScale", site.mapScale);
}

template <class Visitor, class Parameters>
void VisitApiParameters(Visitor& visit, Parameters& parameters) {
  visit("intensityIndex", parameters.intensityIndex);
  visit("catastropheWeight", parameters.catastropheWeight);
  visit("modeIndex", parameters.modeIndex);
  visit("versionIndex", parameters.versionIndex);
  visit("activityVersionIndex", parameters.activityVersionIndex);
  visit("caseIndex", parameters.caseIndex);
  visit("periodIndex", parameters.periodIndex);
}

template <class Visitor, class Document>
void VisitProjectFields(Visitor& visit, Document& doc) {
  visit("guidelineRoute", doc.guidelineRoute);
  VisitSiteFields(visit, doc.site);
  visit("flowQ1Yes", doc.flowQ1Yes);
  visit("flowQ2Yes", doc.flowQ2Yes);
  visit("flowCollect", doc.flowCollect);
  visit("flowFaultSource", doc.flowFaultSource);
  visit("flowNeighbourWave", doc.flowNeighbourWave);
  visit("flowFixed", doc.flowFixed);
  visit("seedWaves", doc.seedWaves);
  visit("graphDamsite", doc.graphDamsite);
  visit("faults", doc.faults);
  visit("faultAcquireMode", doc.faultAcquireMode);
  visit("searchRangeKm", doc.searchRangeKm);
  visit("attenuationMethod", doc.attenuationMethod);
  visit("graphAttenuation", doc.graphAttenuation);
  VisitApiParameters(visit, doc.apiParameters);
  visit("lowerSpectra", doc.lowerSpectra);
  visit("graphBase", doc.graphBase);
  visit("seedAdopted", doc.seedAdopted);
  visit("seedAdoptedName", doc.seedAdoptedName);
  visit("baseSpectrumName", doc.baseSpectrumName);
  visit("graphAdjust", doc.graphAdjust);
  visit("adjustMaxIterations", doc.adjustMaxIterations);
  visit("adjustTolerancePercent", doc.adjustTolerancePercent);
  visit("graphSpare", doc.graphSpare);
  visit("visualShowOrig", doc.visualShowOrig);
  visit("visualShowAdjusted", doc.visualShowAdjusted);
  visit("visualShowSpare", doc.visualShowSpare);
  visit("visualColorOrig", doc.visualColorOrig);
  visit("visualColorAdjusted", doc.visualColorAdjusted);
  visit("visualColorSpare", doc.visualColorSpare);
  visit("respSpectra", doc.respSpectra);
}

}  // namespace tremlo
