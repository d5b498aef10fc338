#pragma once

#include "core/project/ChangeQuestions.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "window/shell/ScreenTable.h"

#include <gmock/gmock.h>
#include <memory>

namespace tremlo::test {

/// One screen of the program's own table, in a window of the size of the client area, with the tables that
/// the program ships. It is opened through the procedure, as its step does.
class SourceScreenTest : public testing::Test {
 protected:
  explicit SourceScreenTest(ScreenId id);
  ~SourceScreenTest() override;

  /// Opens the screen over the document as it stands, which then counts as not modified.
  void Open(QSize window = {1000, 720});

  void ExpectQuestion(PromptAnswer answer) {
    prompt.ExpectQuestion(BaseChangeQuestion(doc.baseSpectrumName), answer);
  }
  /// `act` asks and hears No: the document stays bit for bit as it was.
  void ExpectDeclined(const std::function<void()>& act);
  /// `act` changes nothing in the document and asks nothing.
  void ExpectUnchanged(const std::function<void()>& act);

  /// Does what a screen reader makes of a check cell.
  void ToggleByReader(const char* grid, int row, int column);
  /// What the graph tells of the curves.
  QString GraphDescription();
  std::vector<std::string> ColumnTexts(const char* grid, int column);
  /// The names of the controls that the tab key leads to from this one on, itself the first.
  std::vector<std::string> TabOrder(const char* first, int count);
  /// Writes the picture of the screen for the eye, if the environment says where to.
  void KeepPicture(const char* name);

  TestFolder folder;
  QStringList log;
  CMorvaneDoc doc{folder.Path()};
  ScriptedPrompt prompt{&log};
  ScriptedFiles files;
  OnlineMode online;
  ServiceSettings services;
  std::vector<SwitchOutcome> followed;
  Screen* screen = nullptr;
  std::unique_ptr<ScreenDriver> driver;
  class Host;
  std::unique_ptr<Host> host;
  RecordingPane pane{log};
  std::unique_ptr<WorkProcedure> procedure;
  std::unique_ptr<ChangeRules> rules;
  std::unique_ptr<CommandGate> gate;
  std::unique_ptr<ScreenParts> parts;
  ScreenTable table = ProgramScreens();

 private:
  ScreenId m_id;
};

}  // namespace tremlo::test
