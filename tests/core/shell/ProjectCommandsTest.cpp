#include "core/project/ChangeQuestions.h"
#include "core/project/ProjectFile.h"
#include "core/shell/ProjectCommands.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScriptedFiles.h"
#include "support/SmallProject.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kTopNotShown = QStringLiteral("トップ画面を表示させることができませんでした。");
const QString kDamagedTable = QStringLiteral("DamCoef\\H20_Ehd_H.csvの1行目が正しい文字列ではありません。");

/// A window that writes down what it is asked for, and chooses the route by a script.
class RecordingShell : public ProjectShell {
 public:
  explicit RecordingShell(QStringList& log) : m_log(log) {}

  TopChoice AskRoute() override {
    m_log.append(QStringLiteral("top"));
    return choice;
  }
  void ProjectChanged() override { m_log.append(QStringLiteral("changed")); }
  void EndProgram(int status) override { m_log.append(QStringLiteral("end %1").arg(status)); }

  TopChoice choice = TopChoice::ResponseRoute;

 private:
  QStringList& m_log;
};

class ProjectCommandsTest : public testing::Test {
 protected:
  ProjectCommandsTest() {
    for (const QString& path : recent.Paths()) recent.Remove(path);
  }

  /// A saved project of either route with a name in it that tells it from others.
  QString Saved(const QString& name, bool guidelineRoute = false) {
    CMorvaneDoc doc = test::DocWithoutTables();
    doc.guidelineRoute = guidelineRoute;
    doc.site.siteName = name;
    if (!guidelineRoute) doc.seedWaves.Add(QStringLiteral("地震波形"));
    EXPECT_TRUE(SaveProject(doc, folder.Path(name)));
    return folder.Path(name);
  }
  /// Has a project on display.
  void Show(const QString& path) {
    commands.OpenDropped(path);
    ASSERT_EQ(Doc().PathName(), path);
    parts.log.clear();
  }
  void DamageTable() {
    parts.doc = CMorvaneDoc(folder.Path());
    folder.Write(QStringLiteral("DamCoef/H20_Ehd_H.csv"), "");
  }
  void ExpectSaveQuestion(const QString& name, PromptAnswer answer) {
    parts.prompt.ExpectBox(
        {.text = QStringLiteral("「") + name + QStringLiteral("」は変更されています。保存しますか？"),
         .buttons = PromptButtons::YesNoCancel},
        answer);
  }
  void ExpectSame(const DocumentState& before) {
    EXPECT_THAT(DocumentState(Doc()).DifferencesTo(before), IsEmpty());
  }
  CMorvaneDoc& Doc() { return parts.doc; }
  QStringList Log() { return parts.TakeLog(); }

  test::TestFolder folder;
  test::ProcedureParts parts;
  test::ScriptedFiles files;
  RecentFiles recent;
  RecordingShell shell{parts.log};
  ProjectCommands commands{{parts.doc, parts.prompt, files, parts.procedure, recent, shell}};
};

// --- Start ---

TEST_F(ProjectCommandsTest, AStartWithoutAFileHasAnEmptyProjectAndAResetPane) {
  Doc().site.siteName = QStringLiteral("old");
  EXPECT_TRUE(commands.StartNew());
  EXPECT_EQ(Doc().site.siteName, QString());
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_THAT(parts.pane.EnabledSteps(), IsEmpty());
  EXPECT_THAT(Log(), ElementsAre("highlight")) << "screens and route come later";
}

TEST_F(ProjectCommandsTest, AStartWithADamagedTableEnds) {
  DamageTable();
  parts.prompt.ExpectMessage(kDamagedTable, PromptIcon::None);
  EXPECT_FALSE(commands.StartNew());
  EXPECT_THAT(Log(), ElementsAre("box", "end 1"));
  const QString path = Saved(QStringLiteral("a.trml"));
  parts.prompt.ExpectMessage(kDamagedTable, PromptIcon::None);
  EXPECT_FALSE(commands.StartWithFile(path));
  EXPECT_THAT(Log(), ElementsAre("box", "end 1"));
}

TEST_F(ProjectCommandsTest, AStartWithAFileOpensItAndKeepsTheHighlight) {
  EXPECT_TRUE(commands.StartWithFile(QDir::current().relativeFilePath(Saved(QStringLiteral("a.trml")))));
  EXPECT_EQ(Doc().PathName(), folder.Path(QStringLiteral("a.trml"))) << "absolute";
  EXPECT_THAT(recent.Paths(), ElementsAre(folder.Path(QStringLiteral("a.trml"))));
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(ProjectCommandsTest, AStartWithAFileThatCannotBeOpenedIsToldAndGoesNoFurther) {
  const QString path = folder.Path(QStringLiteral("none.trml"));
  parts.prompt.ExpectMessage(OpenFailureText(path));
  EXPECT_FALSE(commands.StartWithFile(path));
  EXPECT_THAT(recent.Paths(), IsEmpty());
}

// --- "新規作成" ---

TEST_F(ProjectCommandsTest, NewGoesThroughItsStepsInOrder) {
  Show(Saved(QStringLiteral("a.trml"), true));
  const std::uint64_t generation = Doc().Generation();
  shell.choice = TopChoice::GuidelineRoute;
  commands.New();
  EXPECT_THAT(Log(),
              ElementsAre("changed", "highlight", "top", "refresh 59649", "refresh 59654", "refresh 59656",
                          "refresh 59657", "refresh 59658", "pane of the guideline route", "changed"));
  EXPECT_TRUE(Doc().guidelineRoute);
  EXPECT_EQ(Doc().PathName(), QString());
  EXPECT_EQ(Doc().site.siteName, QString());
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_NE(Doc().Generation(), generation) << "what began in the project before has no place in this one";
}

TEST_F(ProjectCommandsTest, NewAsksAboutTheChartThenAboutUnsavedWork) {
  Show(Saved(QStringLiteral("a.trml"), true));
  parts.Enter(ScreenId::Flowchart2);
  Doc().SetModified(true);
  const DocumentState before(Doc());
  parts.prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  commands.New();
  EXPECT_THAT(Log(), ElementsAre("box"));
  parts.prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  commands.New();
  EXPECT_THAT(Log(), ElementsAre("box", "box"));
  ExpectSame(before);
}

TEST_F(ProjectCommandsTest, ACancelledTopScreenEndsTheProgram) {
  shell.choice = TopChoice::Cancelled;
  commands.New();
  EXPECT_THAT(Log(), ElementsAre("changed", "highlight", "top", "end 0"));
}

TEST_F(ProjectCommandsTest, ATopScreenThatCannotBeShownFailsTheNewAndTheScreenShowsTheEmptyProject) {
  Show(Saved(QStringLiteral("a.trml")));
  shell.choice = TopChoice::NotShown;
  parts.prompt.ExpectMessage(kTopNotShown);
  commands.New();
  EXPECT_THAT(Log(), ElementsAre("changed", "highlight", "top", "box", "refresh 59662"));
}

TEST_F(ProjectCommandsTest, NewWithADamagedTableEndsTheProgramWithItsStatus) {
  DamageTable();
  parts.prompt.ExpectMessage(kDamagedTable, PromptIcon::None);
  commands.New();
  EXPECT_THAT(Log(), ElementsAre("box", "end 1"));
}

TEST_F(ProjectCommandsTest, TheMarkOfTheResponseRouteGoesToItsFirstStepWithEachProject) {
  const QString path = Saved(QStringLiteral("a.trml"));
  const auto leaveFirstStep = [this] {
    parts.procedure.PressStep(FlowStep::RespAdjustSpectrum);
    EXPECT_EQ(parts.pane.marked, FlowStep::RespAdjustSpectrum);
    Doc().SetModified(false);
  };
  const auto expectFirst = [this] {
    EXPECT_EQ(parts.pane.current, FlowStep::RespOrigSeismicWave);
    EXPECT_EQ(parts.pane.drawn, FlowStep::RespOrigSeismicWave);
    EXPECT_EQ(parts.procedure.ActiveScreen(), ScreenId::RespOrigSeismicWave);
  };
  Show(path);
  leaveFirstStep();
  commands.New();
  expectFirst();
  leaveFirstStep();
  commands.OpenRecent(path);
  expectFirst();
}

// --- "開く", recent files, drops ---

TEST_F(ProjectCommandsTest, OpenAsksForAProjectAndShowsIt) {
  Show(Saved(QStringLiteral("before.trml")));
  const std::uint64_t generation = Doc().Generation();
  const QString path = Saved(QStringLiteral("a.trml"));
  files.Choose(path);
  commands.Open();
  EXPECT_EQ(files.opened.back().title, u"開く");
  EXPECT_EQ(files.opened.back().nameFilters, u"Tremlo files (*.trml);;All Files (*.*)");
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_EQ(Doc().site.siteName, u"a.trml");
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_NE(Doc().Generation(), generation);
  EXPECT_THAT(recent.Paths(), ElementsAre(path, folder.Path(QStringLiteral("before.trml"))));
  EXPECT_EQ(Log().back(), u"changed");
}

TEST_F(ProjectCommandsTest, ACancelledOpenChangesNothing) {
  Show(Saved(QStringLiteral("a.trml")));
  const DocumentState before(Doc());
  files.Cancel();
  commands.Open();
  ExpectSame(before);
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(ProjectCommandsTest, AFileThatIsNotThereLeavesTheProjectAlone) {
  Show(Saved(QStringLiteral("a.trml")));
  Doc().SetModified(true);
  const DocumentState before(Doc());
  const std::uint64_t generation = Doc().Generation();
  const QString missing = folder.Path(QStringLiteral("none.trml"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::No);
  parts.prompt.ExpectMessage(OpenFailureText(missing));
  commands.OpenDropped(missing);
  ExpectSame(before);
  EXPECT_EQ(Doc().Generation(), generation);
}

TEST_F(ProjectCommandsTest, ABrokenFileLeavesAnUnnamedProject) {
  Show(Saved(QStringLiteral("a.trml")));
  const QByteArray whole = test::ReadAll(Doc().PathName());
  const QString broken = folder.Write(QStringLiteral("b.trml"), whole.left(whole.size() - 5));
  parts.prompt.ExpectMessage(OpenFailureText(broken));
  commands.OpenDropped(broken);
  EXPECT_EQ(Doc().PathName(), QString());
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_EQ(Log().back(), u"changed");
  EXPECT_THAT(recent.Paths(), ElementsAre(folder.Path(QStringLiteral("a.trml"))));
}

TEST_F(ProjectCommandsTest, ARecentFileThatCannotBeOpenedLeavesTheList) {
  const QString path = Saved(QStringLiteral("a.trml"));
  Show(path);
  QFile::remove(path);
  parts.prompt.ExpectMessage(OpenFailureText(path));
  commands.OpenRecent(path);
  EXPECT_THAT(recent.Paths(), IsEmpty());
  EXPECT_EQ(Log().back(), u"changed") << "the menu follows";
}

TEST_F(ProjectCommandsTest, ARecentFileThatTheUserStaysAwayFromKeepsItsPlace) {
  const QString path = Saved(QStringLiteral("a.trml"));
  Show(path);
  Doc().SetModified(true);
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  commands.OpenRecent(path);
  EXPECT_THAT(recent.Paths(), ElementsAre(path));
}

TEST_F(ProjectCommandsTest, ADamagedTableEndsTheProgramButKeepsTheSoundProjectInTheList) {
  const QString path = Saved(QStringLiteral("a.trml"));
  recent.Add(path);
  DamageTable();
  parts.prompt.ExpectMessage(kDamagedTable, PromptIcon::None);
  commands.OpenRecent(path);
  EXPECT_THAT(Log(), ElementsAre("box", "end 1"));
  EXPECT_THAT(recent.Paths(), ElementsAre(path));
}

// --- Saving ---

TEST_F(ProjectCommandsTest, AnUnnamedProjectIsSavedUnderTheNameThatIsAskedFor) {
  const QString path = folder.Path(QStringLiteral("新.trml"));
  Doc().SetModified(true);
  files.Cancel();
  EXPECT_FALSE(commands.Save());
  EXPECT_TRUE(Doc().IsModified());
  files.Choose(path);
  EXPECT_TRUE(commands.Save());
  EXPECT_EQ(files.saved.back().proposedName, QStringLiteral("無題.trml"));
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_THAT(recent.Paths(), ElementsAre(path));
  EXPECT_THAT(Log(), ElementsAre("changed"));
  Doc().site.siteName = QStringLiteral("堤");
  EXPECT_TRUE(commands.Save()) << "and now without a question";
}

TEST_F(ProjectCommandsTest, ASaveThatFailsIsToldAndKeepsNameAndMark) {
  const QString path = Saved(QStringLiteral("a.trml"));
  Show(path);
  Doc().SetModified(true);
  const QString bad = path + QStringLiteral("/b.trml");
  files.Choose(bad);
  parts.prompt.ExpectMessage(SaveFailureText(bad));
  EXPECT_FALSE(commands.SaveAs());
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_TRUE(Doc().IsModified());
  EXPECT_THAT(recent.Paths(), ElementsAre(path));
}

TEST_F(ProjectCommandsTest, LeavingAProjectAsksOnlyWhereThereIsSomethingToLose) {
  Show(Saved(QStringLiteral("a.trml")));
  EXPECT_TRUE(commands.MayLeaveProject());
  Doc().SetModified(true);
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  EXPECT_FALSE(commands.MayLeaveProject());
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::No);
  EXPECT_TRUE(commands.MayLeaveProject());
  EXPECT_TRUE(Doc().IsModified());
  Doc().site.siteName = QStringLiteral("saved");
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Yes);
  EXPECT_TRUE(commands.MayLeaveProject());
  CMorvaneDoc saved = test::DocWithoutTables();
  EXPECT_EQ(OpenProject(saved, Doc().PathName()).result, OpenResult::kOpened);
  EXPECT_EQ(saved.site.siteName, u"saved");
}

}  // namespace
}  // namespace tremlo
