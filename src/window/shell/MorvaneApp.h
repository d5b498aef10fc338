#pragma once

#include "core/shell/InstanceLock.h"
#include "core/shell/ProjectCommands.h"
#include "window/shell/FileDialogBoxes.h"
#include "window/shell/MainFrame.h"
#include "window/shell/MessageBoxPrompt.h"
#include "window/shell/ProgramSettings.h"

#include <QTranslator>

#include <memory>
#include <optional>

namespace tremlo {

/// Ways out of the program that tests put others in place of.
struct ProgramDoors {
  Prompt* prompt = nullptr;                            ///< null: message boxes
  FileDialogs* files = nullptr;                        ///< null: Qt's dialogs
  std::function<TopChoice(QWidget* parent)> askRoute;  ///< the top screen
  /// Ends the event loop.
  std::function<void(int status)> endProgram;
};

/// The program: brings it up in a fixed order and owns the commands of the menu that are not bound to a
/// screen. Made once, behind the application object.
class CMorvaneApp : private ProjectShell {
 public:
  CMorvaneApp(ProgramSettings settings, ScreenTable screens, ProgramDoors doors = {});
  ~CMorvaneApp() override;

  /// `arguments`: those of the process that are left when Qt has taken its own, the program's name first.
  /// Returns the exit status when the start has ended the program, else the window stands.
  std::optional<int> Start(const QStringList& arguments);

  /// Null until the window is made.
  CMainFrame* Frame() const { return m_frame.get(); }
  CMorvaneDoc& Document() { return m_doc; }
  WorkProcedure& Procedure() { return *m_procedure; }
  const OnlineMode& Online() const { return m_online; }

  /// From any depth: lets a next instance start and ends the event loop. The caller returns at once.
  void EndProgram(int status) override;

 private:
  bool ReadyToStart();
  bool MayClose();
  void MakeFrame();
  void MakeScreens();
  void ConnectFrame();
  void ConnectFileMenu();
  void ConnectSettingsMenu();
  void ConnectHelpMenu();
  /// Has an entry of the menu carry out a command.
  void Connect(QAction* entry, std::function<void()> command);
  void Run(const std::function<void()>& command);
  void Probe(const ServiceSettings& services);
  void ToggleOnline();
  void EditApiParameters();
  void ClearMapImages();
  /// Where the screen on display is described, by the table beside the manual.
  std::optional<int> ManualPageHere() const;
  void OpenManual(std::optional<int> page);
  void OpenPage(const QString& address);
  void RebuildTitle();
  void UpdateMenu();
  void UpdateReportEntry();
  void Follow(SwitchOutcome outcome);

  TopChoice AskRoute() override;
  void ProjectChanged() override;

  ProgramSettings m_settings;
  ScreenTable m_table;
  ProgramDoors m_doors;
  QTranslator m_qtTexts;
  MessageBoxPrompt m_boxes;
  Prompt& m_prompt;
  CommandGate m_gate;
  InstanceLock m_instance;
  RecentFiles m_recent;
  OnlineMode m_online;
  CMorvaneDoc m_doc;
  FileDialogBoxes m_fileBoxes;
  FileDialogs& m_files;
  std::optional<WorkProcedure> m_procedure;
  std::optional<ChangeRules> m_rules;
  std::optional<ProjectCommands> m_projects;
  std::optional<ScreenParts> m_parts;
  std::unique_ptr<CMainFrame> m_frame;  ///< last: its screens hold on to all of the above
  std::optional<int> m_ended;
};

}  // namespace tremlo
