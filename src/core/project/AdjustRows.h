#pragma once

#include "core/graphs/TitledRows.h"
#include "core/project/AdjustCheck.h"
#include "core/project/ChangeRules.h"

namespace tremlo {

/// A run of the adjustment with what it was given.
struct AdjustAttempt {
  std::uint64_t generation = 0;  ///< of the project
  QString wave;                  ///< name of the seed wave
  AdjustInput input;
  AdjustResult result;
};

/// The grid of the seed waves that are held against the base spectrum: area, largest value and colour, drawn
/// or not, adopted (one at a time), adjusted. The box of the adjustment is locked and grey unless the wave is
/// the adopted one.
class AdjustRows : public TitledRows {
 public:
  AdjustRows(CMorvaneDoc& doc, ChangeRules& rules, Prompt& prompt, AdjustRunner run);

  int RowCount() const override { return static_cast<int>(m_doc.seedWaves.Count()); }
  CellFormat Format(int row, int column) const override;
  /// "全表示" and "全非表示", of the base spectrum too.
  void ShowAll(bool shown);
  /// The last run; nothing before the first.
  const std::optional<AdjustAttempt>& LastRun() const { return m_lastRun; }
  /// How the last run fits its target, in one line behind the name of its wave. Empty when there was none,
  /// or what it tells of is no more: its result, or after a failure the wave and target that it was made for.
  QString LastRunText() const;

 protected:
  QString CellText(int row, int column) const override;
  void Take(int row, int column, const QString& text) override;

 private:
  CMorvaneDoc& m_doc;
  ChangeRules& m_rules;
  Prompt& m_prompt;
  AdjustRunner m_run;
  std::optional<AdjustAttempt> m_lastRun;
};

}  // namespace tremlo
