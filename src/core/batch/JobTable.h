#pragma once

#include "core/batch/BatchText.h"

#include <optional>
#include <utility>
#include <vector>

namespace tremlo {

/// One line of a job table.
struct BatchJob {
  int line = 0;  ///< in the file, the heading being line 1
  QString seed, target;
  std::vector<std::pair<QString, QString>> options;  ///< name and value of the cells that are not empty
  QString fault;  ///< why the line cannot be carried out; empty when it can

  bool operator==(const BatchJob&) const = default;
};

struct JobTable {
  BatchEncoding encoding = BatchEncoding::Utf8;
  std::vector<BatchJob> jobs;  ///< lines of blanks alone are left out
};

/// Reads a table whose heading is "seed,target" and then any of `optionNames`. Returns what is wrong with the
/// heading, which no line can do without; what is wrong with a line stands in that line.
std::optional<QString> ParseJobs(const QByteArray& content, const QStringList& optionNames, JobTable& table);

/// What the files of a job are named after: the line in four digits, "_" and the seed's file name, which
/// ends in ".csv" then.
QString OutputName(const BatchJob& job);

}  // namespace tremlo
