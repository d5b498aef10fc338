#pragma once

#include <QString>

namespace tremlo {

/// What is asked for: `nameFilters` in Qt's form, parted by ";;"; `suffix` without its point is added to a
/// name that has none.
struct FileQuestion {
  QString title;
  QString nameFilters;
  QString suffix;
  QString proposedName;  ///< a plain name, for saving
};

/// A chosen file and the place, from 0, of the filter that it was chosen under among those of the question.
/// No path when the user has cancelled.
struct FileChoice {
  QString path;
  int filter = 0;
};

/// The one door for questions about files. The window puts up a dialog that starts in the folder of the open
/// project, else in the last one of this run; tests follow a script.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  /// A file that exists; empty when the user has cancelled.
  virtual QString AskOpenPath(const FileQuestion& question) = 0;
  /// The same where the filter matters. One that shows no filters leaves it at the first.
  virtual FileChoice AskOpenFile(const FileQuestion& question) { return {AskOpenPath(question)}; }
  /// Has asked before an existing file is overwritten. Empty when the user has cancelled.
  virtual QString AskSavePath(const FileQuestion& question) = 0;
};

}  // namespace tremlo
