#pragma once

#include "core/ask/FileDialogs.h"
#include "core/project/WorkProcedure.h"
#include "core/shell/RecentFiles.h"

namespace tremlo {

/// How the top screen was left.
enum class TopChoice { GuidelineRoute, ResponseRoute, Cancelled, NotShown };

/// What the commands on projects need of the window around them.
class ProjectShell {
 public:
  virtual ~ProjectShell() = default;

  virtual TopChoice AskRoute() = 0;
  /// The document is another project, or bears another name: title, menu and list of recent files follow.
  virtual void ProjectChanged() = 0;
  /// Comes back; nothing more is asked or shown after it.
  virtual void EndProgram(int status) = 0;
};

/// The parts that the commands work on. All outlive them.
struct ProjectCommandParts {
  CMorvaneDoc& doc;
  Prompt& prompt;
  FileDialogs& files;
  WorkProcedure& procedure;
  RecentFiles& recent;
  ProjectShell& shell;
};

/// "新規作成", "開く", the two ways of saving, and what else replaces or leaves a project, with their
/// questions and messages.
class ProjectCommands {
 public:
  explicit ProjectCommands(const ProjectCommandParts& parts) : m_parts(parts) {}

  /// The first project of a run. False: the user has been told and the program ends. The route, the screens
  /// and their first showing are still to come.
  bool StartNew();
  bool StartWithFile(const QString& path);

  void New();
  void Open();
  void OpenRecent(const QString& path);  ///< a failed open takes the path off the list
  void OpenDropped(const QString& path);
  bool Save();
  bool SaveAs();

  /// Asks whether a modified project is to be saved, and saves it. False: the user stays with it.
  bool MayLeaveProject();

 private:
  enum class OpenEnd {
    Opened,
    Failed,    ///< the file is none of a project, or is not there
    Declined,  ///< by the user, or because the program ends
  };

  OpenEnd OpenFile(const QString& path);
  bool ResetDocument();
  bool SaveTo(const QString& path);
  void EndAfter(const TableFailure& failure);
  void Follow(SwitchOutcome outcome);

  ProjectCommandParts m_parts;
};

}  // namespace tremlo
