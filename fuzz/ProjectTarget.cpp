#include "core/project/ProjectFile.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/Rules.h"

#include <numeric>
#include <string>
#include <string_view>

namespace tremlo::fuzz {

namespace {

/// A document without system tables: a folder that does not exist lists none.
CMorvaneDoc EmptyDocument() {
  return CMorvaneDoc(QStringLiteral("/no such folder"));
}

void CheckReading(const std::string& written, std::string_view bytes, const char* rule) {
  CMorvaneDoc doc = EmptyDocument();
  Require(LoadProject(doc, bytes).whole, rule);
  Require(ProjectBytes(doc) == written, rule);
}

/// A place in `written` that depends on every byte of it.
std::size_t AnyPlace(const std::string& written) {
  const auto mix = [](std::size_t sum, char byte) { return sum * 31 + static_cast<unsigned char>(byte); };
  return std::accumulate(written.begin(), written.end(), std::size_t{0}, mix) % written.size();
}

}  // namespace

void FuzzProject(const std::uint8_t* data, std::size_t size) {
  CMorvaneDoc doc = EmptyDocument();
  const LoadOutcome outcome = LoadProject(doc, {reinterpret_cast<const char*>(data), size});
  Require(!outcome.tableFailure, "no table, no failure of a table");

  // Also what a broken file leaves in the document can be saved.
  const std::string written = ProjectBytes(doc);
  Require(!written.empty(), "what was read can be written");
  CheckReading(written, written, "what was written reads back and is written alike");
  CheckReading(written, written + "behind", "bytes behind the end are left alone");
  CMorvaneDoc cut = EmptyDocument();
  Require(!LoadProject(cut, std::string_view(written).substr(0, AnyPlace(written))).whole,
          "a cut file does not load whole");
}

}  // namespace tremlo::fuzz
