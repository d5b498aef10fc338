#include "StepTable.h"

#include <algorithm>
#include <cstdio>

namespace tremlo {

namespace {

const char* NoteOf(StepKind kind) {
  if (kind == StepKind::Spectrum) return "computes the spectrum under the wait cursor";
  return kind == StepKind::ModalRun ? "behind the dialog of the run" : "";
}

}  // namespace

StepTable::Row& StepTable::RowOf(const char* step, StepKind kind) {
  auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& r) { return r.step == step; });
  if (row == m_rows.end()) row = m_rows.insert(m_rows.end(), {step, kind, {}});
  row->longest.resize(m_round);
  return *row;
}

void StepTable::Do(const char* step, const std::function<void()>& act, StepKind kind) {
  m_watch.RunTicks(1);
  m_watch.Forget();
  QTimer::singleShot(0, qApp, act);
  m_watch.RunTicks(kTicksToPaint);
  double& longest = RowOf(step, kind).longest.back();
  longest = std::max(longest, m_watch.LongestMs());
}

void StepTable::Print() const {
  std::printf("| step | longest stall, ms (median of %zu rounds) | of all rounds | |\n|---|---|---|---|\n",
              m_round);
  for (const Row& row : m_rows) {
    std::vector<double> sorted = row.longest;
    std::sort(sorted.begin(), sorted.end());
    std::printf("| %s | %.0f | %.0f | %s |\n", row.step.c_str(), sorted[sorted.size() / 2], sorted.back(),
                NoteOf(row.kind));
  }
}

}  // namespace tremlo
