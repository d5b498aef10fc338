#include "RecordJson.h"

#include "core/project/ProjectFields.h"

namespace tremlo::cli {

namespace {

/// Writes each field that it visits as a member of the object that is open.
class FieldPrinter {
 public:
  explicit FieldPrinter(JsonWriter& json) : m_json(json) {}

  template <class T>
  void operator()(std::string_view name, const T& member) {
    m_json.Key(name);
    Print(member);
  }

 private:
  template <class T>
  void Print(const T& value) {
    m_json.Value(value);
  }
  void Print(const WaveGraphSetting& graph) {
    m_json.BeginObject();
    VisitGraphFields(*this, graph);
    m_json.EndObject();
  }
  void Print(const CSeismicWave& wave) {
    m_json.BeginObject();
    VisitWaveBody(*this, wave);
    m_json.EndObject();
  }
  void Print(const CSeismicWaveSet& set) {
    m_json.BeginArray();
    for (const CSeismicWave& wave : set.Records()) {
      m_json.BeginObject();
      m_json.Member("name", wave.name);
      VisitWaveBody(*this, wave);
      m_json.EndObject();
    }
    m_json.EndArray();
  }
  void Print(const std::vector<FaultInfo>& faults) {
    m_json.BeginArray();
    for (const FaultInfo& fault : faults) WriteFault(m_json, fault, FaultFields::Stored);
    m_json.EndArray();
  }

  JsonWriter& m_json;
};

}  // namespace

void WriteFault(JsonWriter& json, const FaultInfo& fault, FaultFields fields) {
  FieldPrinter printer(json);
  const auto print = [&](std::string_view name, const auto& member) {
    // The field that no file holds has its place before this one.
    if (fields == FaultFields::All && name == "adjustShow") printer("adjustSpare", fault.adjustSpare);
    printer(name, member);
  };
  json.BeginObject();
  VisitFaultFields(print, fault);
  json.EndObject();
}

void WriteProject(JsonWriter& json, const CMorvaneDoc& doc) {
  FieldPrinter printer(json);
  json.BeginObject();
  VisitProjectFields(printer, doc);
  json.EndObject();
}

}  // namespace tremlo::cli
