#pragma once

#include "support/ScriptedPrompt.h"
#include "support/TestFolder.h"
#include "window/shell/MorvaneApp.h"

#include <QLineEdit>
#include <QPushButton>

#include <deque>
#include <gtest/gtest.h>
#include <memory>

namespace tremlo::test {

/// A screen with two fields that writes down what is done to it: "entered 59662".
class LoggingScreen : public Screen {
 public:
  LoggingScreen(ScreenId id, QStringList& log);

  void Prepare() override { Log("prepare"); }
  void Entered() override { Log("entered"); }
  void Left() override { Log("left"); }
  void CommandBegins() override { commands << QStringLiteral("begins"); }
  void CommandEnded() override { commands << QStringLiteral("ended"); }
  void Refresh() override { Log("refresh"); }

  QLineEdit* first;
  QStringList commands;  ///< what it was told of commands

 private:
  void Log(const char* what);

  ScreenId m_id;
  QStringList& m_log;
};

/// All screens. "make 59662" is logged as each is made.
ScreenTable LoggingScreens(QStringList& log);

/// Answers of file dialogs by a script; an answer that is not used, or a dialog without one, fails the test.
class ScriptedFiles : public FileDialogs {
 public:
  ~ScriptedFiles() override;
  QString AskOpenPath(const FileQuestion& question) override { return Next("open", question); }
  QString AskSavePath(const FileQuestion& question) override { return Next("save", question); }

  void Expect(const char* kind, const QString& path) {
    m_script.push_back({QString::fromLatin1(kind), path});
  }

  FileQuestion last;

 private:
  QString Next(const char* kind, const FileQuestion& question);
  std::deque<std::pair<QString, QString>> m_script;
};

/// Calls `act` with the modal window of that name as soon as it is there.
void WhenModal(const QString& name, std::function<void(QWidget*)> act);

/// A program in a folder of its own with the tables that come with it, before its start. No service answers;
/// the splash is gone at once; boxes, file dialogs and the top screen follow a script.
class ShellTest : public testing::Test {
 protected:
  ShellTest();
  ~ShellTest() override;

  /// The program with screens that log; it has not started.
  void Make();
  /// The same with its own screens and with that answer of the top screen.
  void MakeWithOwnScreens(std::function<TopChoice()> askRoute);
  /// Expects both messages of the probes.
  void ExpectOffline();
  std::optional<int> Start(const QStringList& files = {});
  /// Start with a choice of the route, so far that a window stands. The log is empty then.
  void StartNew(TopChoice choice);

  QString SavedProject(const QString& name, bool guidelineRoute);
  void Trigger(QAction* action) { action->trigger(); }
  void Press(FlowStep step);
  LoggingScreen* OnDisplay() { return static_cast<LoggingScreen*>(app->Frame()->ScreenOnDisplay()); }
  QString Title() { return app->Frame()->windowTitle(); }
  QStringList TakeLog() { return std::exchange(log, {}); }
  MainMenu* Menu() { return app->Frame()->Menu(); }
  CMorvaneDoc& Doc() { return app->Document(); }
  QStringList RecentTexts();

  ProgramDoors DoorsWith(std::function<TopChoice(QWidget*)> askRoute);

  TestFolder folder;
  QStringList log;
  ScriptedPrompt prompt{&log};
  ScriptedFiles files;
  ProgramSettings settings;
  std::deque<TopChoice> choices;  ///< answers of the top screen
  bool faultSpectraWork = true;
  std::vector<int> ended;  ///< status of each call that ends the program
  std::unique_ptr<CMorvaneApp> app;
};

}  // namespace tremlo::test
