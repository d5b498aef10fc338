#pragma once

#include "core/batch/JobTable.h"

namespace tremlo {

/// Every `of`-th job beginning with the `index`-th, both from 1: the share of one machine of several.
struct BatchPart {
  int index = 1;
  int of = 1;

  std::vector<BatchJob> JobsOf(const std::vector<BatchJob>& jobs) const;
};

/// "I/N" with 1 <= I <= N; none for any other text.
std::optional<BatchPart> ParsePart(const QString& text);

/// "summary.csv", of a part "summary_IofN.csv".
QString SummaryName(const std::optional<BatchPart>& part);

}  // namespace tremlo
