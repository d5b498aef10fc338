#pragma once

#include "core/batch/BatchText.h"

#include <limits>
#include <vector>

namespace tremlo {

/// What became of a line, as the exit status of `adjust` says it.
enum class JobStatus { Converged = 0, Unreadable = 2, NotConverged = 3 };

/// One line of a summary. A number that is not there is NaN and makes an empty cell, as do passes below 0.
struct SummaryRow {
  int line = 0;
  QString seed, target;  ///< as the job table names them
  JobStatus status = JobStatus::Unreadable;
  int passes = -1;                                               ///< response sweeps made
  double deviation = std::numeric_limits<double>::quiet_NaN();   ///< of the last sweep; a fraction
  double overshoot = std::numeric_limits<double>::quiet_NaN();   ///< a fraction
  double undershoot = std::numeric_limits<double>::quiet_NaN();  ///< a fraction
  double pga = std::numeric_limits<double>::quiet_NaN();         ///< of the adjusted wave, gal
  double pgv = std::numeric_limits<double>::quiet_NaN();         ///< cm/s
  double pgd = std::numeric_limits<double>::quiet_NaN();         ///< cm
  QStringList files;                                             ///< names without their folder
  QString hash;
  QString note;  ///< why the line failed, or what is doubtful about its record
};

/// The heading, and a row under it. Numbers have as many digits as they need to read back the same.
QString SummaryHeading();
QString RowText(const SummaryRow& row);

/// What a run that goes on from an earlier one needs to know of a row; the text of it stays as it is.
struct KeptRow {
  int line = 0;
  QString seed, target;
  JobStatus status = JobStatus::Unreadable;
  QString hash;
  QString note;
  QString text;
};

/// The rows of an earlier summary. What is no such row, as in a file of something else, is left out.
std::vector<KeptRow> ParseSummary(const QByteArray& content);

}  // namespace tremlo
