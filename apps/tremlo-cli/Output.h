#pragma once

#include "JsonWriter.h"
#include "core/files/ProgramFolders.h"

#include <QString>

namespace tremlo::cli {

class Arguments;

/// Call it last: writes what is left. Returns `status`, or kBadFile, with a line on standard error, when not
/// everything reached standard output.
int FinishOutput(int status);

/// Prints a line for people on standard output.
void PrintLine(const QString& line);

/// Prints the one object on standard output.
void PrintJson(const JsonWriter& json);

/// Prints one line on standard error and returns `status`.
int Fail(int status, const QString& line);

/// The fault of a command line: what is wrong, and where the usage stands. Returns the exit status.
int FailUsage(const QString& reason);

/// Prints a line about a spectrum: points, range of periods (longest first, s), largest value in `unit`.
void PrintSpectrum(const QString& title, const std::vector<double>& periods,
                   const std::vector<double>& values, const QString& unit);

/// A number as summaries show it, six significant digits.
QString NumberText(double value);

/// Says how far a long calculation has come, on standard error and only when that is a terminal.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  bool IsShown() const { return m_terminal; }
  void Show(const QString& text);
  /// Shows the text with `done` of `count` in per cent, each whole number once.
  void ShowShare(const QString& text, std::size_t done, std::size_t count);

 private:
  bool m_terminal = false;
  bool m_used = false;
  std::size_t m_percent = 101;
};

/// The line that says which table folders hold samples; nothing when none does.
void PrintSampleNotice(const ProgramFolders& folders);

}  // namespace tremlo::cli
