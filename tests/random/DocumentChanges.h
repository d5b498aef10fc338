#pragma once

#include "core/project/MorvaneDoc.h"
#include "support/DocumentState.h"

#include <string>
#include <vector>

namespace tremlo::test {

/// What is remembered of a document to judge the next action by.
struct DocumentMoment {
  explicit DocumentMoment(const CMorvaneDoc& doc);

  std::uint64_t generation;
  bool modified;
  QString path;
  std::string bytes;  ///< as the project file holds them
  std::vector<CSeismicWave> waves;
  SiteRecord site;
  std::size_t faultCount;
  bool guidelineRoute;
  bool inFile;  ///< it is not modified, and the file that it is named after holds just that
  DocumentState state;
};

/// What one action did to a document and must not have done: a change without the mark of one, a mark gone
/// without a file that holds the project, results kept for data that have gone. Nothing is said where a new
/// project took the place of the old.
std::vector<std::string> WrongChanges(const DocumentMoment& before, const DocumentMoment& after);

/// The members in which two moments differ, for a message.
std::string DifferingMembers(const DocumentMoment& before, const DocumentMoment& after);

}  // namespace tremlo::test
