#include "FiguresJson.h"

namespace tremlo::cli {

void WriteFigures(JsonWriter& json, std::string_view key, const WaveFigures& figures) {
  json.Key(key);
  json.BeginObject();
  json.Member("pga", figures.pga);
  json.Member("pgv", figures.pgv);
  json.Member("pgd", figures.pgd);
  json.Member("endVelocity", figures.endVelocity);
  json.Member("endDisplacement", figures.endDisplacement);
  json.Member("ariasIntensity", figures.ariasIntensity);
  json.Member("duration", figures.duration);
  json.EndObject();
}

}  // namespace tremlo::cli
