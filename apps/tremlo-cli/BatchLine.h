#pragma once

#include "core/batch/InputDigest.h"
#include "core/batch/SummaryRow.h"

#include <QDir>

#include <atomic>

namespace tremlo::cli {

/// One line of a job table on its way to a row of the summary.
class BatchLine {
 public:
  /// `jobs` is the folder from which the table's paths start, `out` that of the results.
  BatchLine(const BatchJob& job, const QDir& jobs, const QDir& out) : m_job(job), m_jobs(jobs), m_out(out) {}

  QString SeedPath() const { return m_jobs.absoluteFilePath(m_job.seed); }
  QString TargetPath() const { return m_jobs.absoluteFilePath(m_job.target); }
  std::vector<QString> OutputPaths() const;  ///< of the three files

  /// Whether this row of an earlier run still tells what the line would come to: the same input, and files
  /// that are as that run wrote them.
  bool IsStill(const KeptRow& row) const;

  /// Reads, adjusts and writes the three files of a run that converges. Nothing once `stop` is set: the line
  /// has then written all of them or none. Does not throw.
  std::optional<SummaryRow> Run(const std::atomic<bool>& stop) const;

 private:
  SummaryRow RunToItsEnd(const std::atomic<bool>& stop) const;
  /// The names of files that an earlier run has left where a run that converges writes.
  QStringList LeftFiles() const;
  SummaryRow Row() const;
  QStringList Words() const;
  InputDigest Digest() const;

  const BatchJob& m_job;
  const QDir& m_jobs;
  const QDir& m_out;
};

}  // namespace tremlo::cli
