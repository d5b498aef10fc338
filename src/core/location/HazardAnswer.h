#pragma once

#include "core/location/FaultInfo.h"

#include <string_view>
#include <vector>

namespace tremlo {

/// What asking the hazard service came to.
enum class ServiceOutcome {
  Done,
  BadParameter,  ///< a parameter is out of its range: nothing was asked
  NoAnswer,      ///< the service cannot be reached, fell silent, or its answer cannot be kept
  BadAnswer,     ///< the answer is no JSON, or holds more than a service has to say
  NothingFound,  ///< the service says that it has no data
  TypeFault,     ///< JSON whose values are not of the expected kinds
};

/// A parsed answer: Done, BadAnswer, NothingFound or TypeFault with the parser's text.
struct AnswerResult {
  ServiceOutcome outcome = ServiceOutcome::Done;
  QString faultText;
};

/// Reads the answer of the mesh search and appends a record per entry, in the order of the answer. A value
/// that is left out or empty stands as "-", a name as "No Name"; the exceedance probabilities are read only
/// `withProbabilities`. More than 1,000 sources, or a text of more than 10,000 bytes, are a bad answer. A type
/// fault keeps the records before it. Any bytes are survived.
AnswerResult ParseMeshAnswer(std::string_view text, bool withProbabilities, std::vector<FaultInfo>& faults);

/// Reads the answer of the activity model into `fault`: number of planes, activity texts, the planes with
/// their corners and the class "A" for each. `erase` is set when the source has a geometry other than
/// rectangles and must leave the list. More than 100 planes, or a text of more than 10,000 bytes, are a bad
/// answer. Unless the outcome is Done with `erase` clear, the record stays as it
/// was. Any bytes are survived.
AnswerResult ParseActivityAnswer(std::string_view text, FaultInfo& fault, bool& erase);

}  // namespace tremlo
