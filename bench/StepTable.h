#pragma once

#include "EventLoopWatch.h"

#include <functional>
#include <string>
#include <vector>

namespace tremlo {

/// What may keep the event loop for long by its nature.
enum class StepKind {
  Plain,
  Spectrum,  ///< the response spectrum that a screen computes when it first paints it, under the wait cursor
  ModalRun,  ///< a run behind its dialog, which leaves the event loop free
};

/// How long each step keeps the event loop from turning. Every action begins from the event loop, which then
/// runs until all is painted that follows from it.
class StepTable {
 public:
  static constexpr int kTickMs = 2;
  /// Longer than the window system waits before it has a window painted.
  static constexpr int kTicksToPaint = 20;

  /// Runs the event loop until all is painted.
  void Settle() { m_watch.RunTicks(kTicksToPaint); }
  /// Acts and notes for the step the longest time in which the event loop did not turn. A step of several
  /// actions counts the longest of all.
  void Do(const char* step, const std::function<void()>& act, StepKind kind = StepKind::Plain);
  /// What is noted from here on belongs to the next round.
  void BeginRound() { ++m_round; }
  /// Prints the steps as a Markdown table.
  void Print() const;

 private:
  struct Row {
    std::string step;
    StepKind kind;
    std::vector<double> longest;  ///< ms, by round
  };

  Row& RowOf(const char* step, StepKind kind);

  EventLoopWatch m_watch{kTickMs};
  std::vector<Row> m_rows;
  std::size_t m_round = 0;
};

}  // namespace tremlo
