#pragma once

#include "core/batch/BatchText.h"

#include <chrono>
#include <vector>

namespace tremlo {

/// The summary file while its rows come in, in any order: it always holds those that there are, in the order
/// of the jobs, and is written whole each time. Writing takes about a twentieth of the time at most, so that
/// a summary of many rows does not hold up the work, but never waits for more than a second: what a killed
/// run has not told of are the lines of its last second.
class SummaryTable {
 public:
  SummaryTable(QString path, BatchEncoding encoding, std::size_t count);

  /// The text of a row, which replaces an earlier one.
  void Put(std::size_t job, const QString& row);

  /// False when the file cannot be written; an older one is then as it was.
  bool Write();
  /// Writes if rows have come in since and it is time.
  bool WriteIfDue();

  const QString& Path() const { return m_path; }

 private:
  using Clock = std::chrono::steady_clock;

  QString m_path;
  BatchEncoding m_encoding;
  std::vector<std::string> m_rows;  ///< encoded; empty while a row is not there
  bool m_changed = false;
  Clock::time_point m_due;
};

}  // namespace tremlo
