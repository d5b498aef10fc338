#include "FaultJson.h"

namespace tremlo::cli {

namespace {

void WriteServiceTexts(JsonWriter& json, const FaultInfo& fault) {
  json.Member("rank", fault.rank);
  json.Member("ltecode", fault.ltecode);
  json.Member("ltename", fault.ltename);
  json.Member("groundClass", fault.groundClass);
  json.Member("magnitude", fault.magnitude);
  json.Member("ijma", fault.ijma);
  json.Member("i45_ps", fault.i45_ps);
  json.Member("i50_ps", fault.i50_ps);
  json.Member("i55_ps", fault.i55_ps);
  json.Member("i60_ps", fault.i60_ps);
  json.Member("geomNum", fault.geomNum);
  json.Member("avract", fault.avract);
  json.Member("newact", fault.newact);
  json.Member("t30p", fault.t30p);
  json.Member("t50p", fault.t50p);
  json.Member("magu", fault.magu);
}

void WriteRectangles(JsonWriter& json, const FaultInfo& fault) {
  json.Member("lon", fault.lon);
  json.Member("lat", fault.lat);
  json.Member("dep", fault.dep);
  json.Member("len", fault.len);
  json.Member("wid", fault.wid);
  json.Member("str", fault.str);
  json.Member("dip", fault.dip);
  json.Member("corner1Lon", fault.corner1Lon);
  json.Member("corner1Lat", fault.corner1Lat);
  json.Member("corner1Dep", fault.corner1Dep);
  json.Member("corner2Lon", fault.corner2Lon);
  json.Member("corner2Lat", fault.corner2Lat);
  json.Member("corner2Dep", fault.corner2Dep);
  json.Member("corner3Lon", fault.corner3Lon);
  json.Member("corner3Lat", fault.corner3Lat);
  json.Member("corner3Dep", fault.corner3Dep);
  json.Member("corner4Lon", fault.corner4Lon);
  json.Member("corner4Lat", fault.corner4Lat);
  json.Member("corner4Dep", fault.corner4Dep);
}

void WriteResults(JsonWriter& json, const FaultInfo& fault) {
  json.Member("planeDepth", fault.planeDepth);
  json.Member("furtherA", fault.furtherA);
  json.Member("furtherB", fault.furtherB);
  json.Member("shortestDistance", fault.shortestDistance);
  json.Member("equivalentDistance", fault.equivalentDistance);
  json.Member("shortestPeriods", fault.shortestPeriods);
  json.Member("shortestSpectrum", fault.shortestSpectrum);
  json.Member("equivalentPeriods", fault.equivalentPeriods);
  json.Member("equivalentSpectrum", fault.equivalentSpectrum);
}

void WriteScreenState(JsonWriter& json, const FaultInfo& fault) {
  json.Member("attenColor", fault.attenColor);
  json.Member("attenShow", fault.attenShow);
  json.Member("attenUse", fault.attenUse);
  json.Member("shortBaseColor", fault.shortBaseColor);
  json.Member("shortBaseShow", fault.shortBaseShow);
  json.Member("shortBaseSelected", fault.shortBaseSelected);
  json.Member("shortArea", fault.shortArea);
  json.Member("equivBaseColor", fault.equivBaseColor);
  json.Member("equivBaseShow", fault.equivBaseShow);
  json.Member("equivBaseSelected", fault.equivBaseSelected);
  json.Member("equivArea", fault.equivArea);
  json.Member("adjustSpare", fault.adjustSpare);
  json.Member("adjustShow", fault.adjustShow);
  json.Member("adjustShowEquiv", fault.adjustShowEquiv);
}

}  // namespace

void WriteFault(JsonWriter& json, const FaultInfo& fault) {
  json.BeginObject();
  WriteServiceTexts(json, fault);
  WriteRectangles(json, fault);
  WriteResults(json, fault);
  WriteScreenState(json, fault);
  json.EndObject();
}

}  // namespace tremlo::cli
