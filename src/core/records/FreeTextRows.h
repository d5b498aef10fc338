#pragma once

#include "core/records/RecordText.h"

namespace tremlo {

/// The rows of numbers in a text of unknown layout. They begin with the first ten lines in a row that hold
/// the same count (1 to 12) of plain numbers and nothing else, or where the answers say, and end at the first
/// line that is no such row; the last one may be shorter. Comments (#, %, !, //, |) between rows are passed
/// over.
class FreeTextRows {
 public:
  /// Count and step on a line of their own above the data ("300 0.0100").
  struct CountStep {
    std::size_t count = 0;
    double timeStep = 0.0;  ///< s
  };

  FreeTextRows(const RecordText& text, const RecordAnswers& answers);

  /// Whether commas may be decimal points and nobody has said; there are no rows then.
  bool AsksDecimalComma() const { return m_asks; }
  std::size_t CommaLine() const { return m_commaLine; }
  /// The question where rows begin and end, when there are numbers but no ten lines of them; no rows then.
  const QString& LinesQuestion() const { return m_linesQuestion; }
  const QString& Error() const { return m_error; }  ///< no rows, or a row with what is no number

  std::size_t First() const { return m_first; }  ///< line of the first row
  std::size_t Columns() const { return m_columns; }
  std::size_t Size() const { return m_lines.size() - (m_short ? 1 : 0); }  ///< full rows
  bool HasShortRow() const { return m_short; }
  std::size_t LineOfRow(std::size_t row) const { return m_lines[row]; }
  const std::vector<double>& Values() const { return m_values; }  ///< row by row, of the short one too
  std::vector<double> Column(std::size_t column) const;           ///< of the full rows
  /// What one step of the last decimal of the first column is worth.
  double TimeUnit() const { return m_timeUnit; }
  const std::optional<CountStep>& CountAndStep() const { return m_countStep; }
  /// The line that ended the rows, when text follows them.
  const std::optional<std::size_t>& StopLine() const { return m_stopLine; }

 private:
  struct Line;
  std::vector<std::string> SplitCells(const std::string& line) const;
  Line Read(std::size_t index) const;
  bool AsksComma(const RecordAnswers& answers);
  bool FindFirst();
  bool TakeFirst(std::size_t first);
  void FindCountAndStep();
  void ReadRows();
  bool LooksBroken(const Line& line) const;

  const RecordText& m_text;
  bool m_decimalComma = false;
  bool m_asks = false;
  std::size_t m_commaLine = 0;
  std::size_t m_end = 0;  ///< behind the last line to look at
  QString m_linesQuestion;
  QString m_error;
  std::size_t m_first = 0;
  std::size_t m_columns = 0;
  std::vector<std::size_t> m_lines;
  bool m_short = false;
  std::vector<double> m_values;
  double m_timeUnit = 1.0;
  std::optional<CountStep> m_countStep;
  std::optional<std::size_t> m_stopLine;
};

}  // namespace tremlo
