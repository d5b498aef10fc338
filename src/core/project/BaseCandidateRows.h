#pragma once

#include "core/graphs/TitledRows.h"
#include "core/project/BaseCandidates.h"
#include "core/project/ChangeRules.h"

namespace tremlo {

/// The grid from which the base spectrum is chosen. Its rows are read from the document by Refresh alone and
/// after each click; a click in the last column asks what it has to.
class BaseCandidateRows : public TitledRows {
 public:
  BaseCandidateRows(CMorvaneDoc& doc, ChangeRules& rules);

  /// Reads the document again and changes nothing in it.
  void Refresh() { m_candidates = BaseCandidates(m_doc); }
  const std::vector<BaseCandidate>& Candidates() const { return m_candidates; }

  int RowCount() const override { return static_cast<int>(m_candidates.size()); }

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
  std::vector<BaseCandidate> m_candidates;
};

}  // namespace tremlo
