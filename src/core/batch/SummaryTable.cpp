#include "core/batch/SummaryTable.h"

#include "core/batch/SummaryRow.h"
#include "core/files/WholeFile.h"

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kPausesPerWrite = 19;  // as long as the last write took
constexpr std::chrono::seconds kLongestPause{1};

}  // namespace

SummaryTable::SummaryTable(QString path, BatchEncoding encoding, std::size_t count)
    : m_path(std::move(path)), m_encoding(encoding), m_rows(count) {}

void SummaryTable::Put(std::size_t job, const QString& row) {
  m_rows[job] = Encoded(row, m_encoding) + '\n';
  m_changed = true;
}

bool SummaryTable::Write() {
  const Clock::time_point begin = Clock::now();
  std::string content = MarkOf(m_encoding) + Encoded(SummaryHeading(), m_encoding) + '\n';
  for (const std::string& row : m_rows) content += row;
  const bool written = WriteWholeFile(m_path, content);
  const Clock::time_point end = Clock::now();
  m_due = end + std::min<Clock::duration>(kPausesPerWrite * (end - begin), kLongestPause);
  m_changed = m_changed && !written;
  return written;
}

bool SummaryTable::WriteIfDue() {
  return !m_changed || Clock::now() < m_due || Write();
}

}  // namespace tremlo
