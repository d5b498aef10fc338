#include "core/project/ChangeQuestions.h"
#include "core/project/ProjectFile.h"
#include "core/shell/ProjectCommands.h"
#include "support/DocumentState.h"
#include "window/graphs/ExpEdit.h"
#include "window/shell/ShellParts.h"

#include <QAction>
#include <QDir>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The commands on projects by their entries in the menu.
class ProjectMenuTest : public test::ShellTest {
 protected:
  void OpenFile(const QString& path) {
    files.Expect("open", path);
    Menu()->openProject->trigger();
  }
  void OpenRecent(int entry) {
    Menu()->RecentEntries().at(entry)->trigger();
    QCoreApplication::processEvents();
  }
  void ExpectSaveQuestion(const QString& name, PromptAnswer answer) {
    prompt.ExpectBox(
        {.text = QStringLiteral("「") + name + QStringLiteral("」は変更されています。保存しますか？"),
         .buttons = PromptButtons::YesNoCancel},
        answer);
  }
  QString Failure(const QString& path) { return QStringLiteral("ファイルを開けませんでした。\n") + path; }
  const QString unnamedTitle = QStringLiteral("無題 - Tremlo Version1.00　(オフライン)");
};

TEST_F(ProjectMenuTest, OpenShowsTheProjectAndItsName) {
  StartNew(TopChoice::ResponseRoute);
  const QString path = SavedProject(QStringLiteral("計画.trml"), false);
  OpenFile(path);
  EXPECT_EQ(files.last.nameFilters, u"Tremlo files (*.trml);;All Files (*.*)");
  EXPECT_EQ(files.last.suffix, u"trml");
  EXPECT_EQ(Title(), QStringLiteral("計画.trml - Tremlo Version1.00　(オフライン)"));
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_THAT(RecentTexts(), ElementsAre(QStringLiteral("&1 ") + path));
  EXPECT_THAT(TakeLog(), ElementsAre("refresh 59662"));
}

TEST_F(ProjectMenuTest, OpenLeadsBackToTheFirstScreenOfTheRoute) {
  StartNew(TopChoice::ResponseRoute);
  Press(FlowStep::RespAdjustSpectrum);
  Doc().SetModified(false);
  OpenFile(SavedProject(QStringLiteral("a.trml"), false));
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::RespOrigSeismicWave);
}

TEST_F(ProjectMenuTest, CancelledOpenChangesNothing) {
  StartNew(TopChoice::ResponseRoute);
  const test::DocumentState before(Doc());
  OpenFile({});
  EXPECT_THAT(test::DocumentState(Doc()).DifferencesTo(before), IsEmpty());
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ProjectMenuTest, BrokenFileLeavesAnUnnamedProject) {
  StartNew(TopChoice::ResponseRoute);
  OpenFile(SavedProject(QStringLiteral("a.trml"), false));
  const QByteArray whole = test::ReadAll(Doc().PathName());
  const QString broken = folder.Write(QStringLiteral("broken.trml"), whole.left(whole.size() - 5));
  prompt.ExpectMessage(Failure(broken));
  OpenFile(broken);
  EXPECT_TRUE(Doc().PathName().isEmpty());
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_EQ(Title(), unnamedTitle);
  EXPECT_EQ(RecentTexts().size(), 1);
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::RespOrigSeismicWave);
  EXPECT_THAT(ended, IsEmpty());
}

TEST_F(ProjectMenuTest, FileThatIsNotThereLeavesTheProjectAlone) {
  StartNew(TopChoice::ResponseRoute);
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  OpenFile(path);
  Press(FlowStep::RespAdjustSpectrum);
  Doc().SetModified(true);
  const QString missing = folder.Path(QStringLiteral("none.trml"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::No);
  prompt.ExpectMessage(Failure(missing));
  OpenFile(missing);
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_TRUE(Doc().IsModified()) << "what was not saved is still there";
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::RespAdjustSpectrum);
}

TEST_F(ProjectMenuTest, FailedRecentFileLeavesTheList) {
  StartNew(TopChoice::ResponseRoute);
  const QString gone = SavedProject(QStringLiteral("gone.trml"), false);
  const QString here = SavedProject(QStringLiteral("here.trml"), false);
  OpenFile(gone);
  OpenFile(here);
  QFile::remove(gone);
  prompt.ExpectMessage(Failure(gone));
  OpenRecent(1);
  EXPECT_THAT(RecentTexts(), ElementsAre(QStringLiteral("&1 ") + here));
  EXPECT_THAT(RecentFiles().Paths(), ElementsAre(here));
}

TEST_F(ProjectMenuTest, RecentFileIsOpenedAndMovesUp) {
  StartNew(TopChoice::ResponseRoute);
  const QString a = SavedProject(QStringLiteral("a&b.trml"), false);
  const QString b = SavedProject(QStringLiteral("b.trml"), false);
  OpenFile(a);
  OpenFile(b);
  OpenRecent(1);
  EXPECT_EQ(Doc().PathName(), a);
  EXPECT_EQ(RecentTexts().front(), QStringLiteral("&1 ") + QString(a).replace(u'&', QStringLiteral("&&")));
}

TEST_F(ProjectMenuTest, RecentFileThatHasBecomeSomethingElseLeavesTheList) {
  StartNew(TopChoice::ResponseRoute);
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  OpenFile(path);
  folder.Write(QStringLiteral("a.trml"), "%PDF-1.7\n1 0 obj\n");
  prompt.ExpectMessage(Failure(path));
  OpenRecent(0);
  EXPECT_THAT(RecentTexts(), IsEmpty());
}

TEST_F(ProjectMenuTest, GuidelineProjectOpensWhereItsScreensAre) {
  StartNew(TopChoice::GuidelineRoute);
  OpenFile(SavedProject(QStringLiteral("指針.trml"), true));
  EXPECT_THAT(TakeLog(), ElementsAre("refresh 59649", "refresh 59654", "refresh 59656", "refresh 59657",
                                     "refresh 59658"));
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Field);
}

TEST_F(ProjectMenuTest, RouteChangesWithTheProject) {
  StartNew(TopChoice::GuidelineRoute);
  EXPECT_TRUE(Menu()->online->isEnabled());
  OpenFile(SavedProject(QStringLiteral("a.trml"), false));
  EXPECT_EQ(app->Frame()->Pane()->StepsOnDisplay()->objectName(), u"respDialog");
  EXPECT_FALSE(Menu()->online->isEnabled());
}

TEST_F(ProjectMenuTest, DamagedTableAtAnOpenEndsTheProgramWithItsStatus) {
  StartNew(TopChoice::ResponseRoute);
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  folder.Write(QStringLiteral("DamCoef/H20_Ehd_H.csv"), "");
  prompt.ExpectMessage(QStringLiteral("DamCoef\\H20_Ehd_H.csvの1行目が正しい文字列ではありません。"),
                       PromptIcon::None);
  OpenFile(path);
  EXPECT_THAT(ended, ElementsAre(1));
}

TEST_F(ProjectMenuTest, FirstSaveAsksForAName) {
  StartNew(TopChoice::ResponseRoute);
  Doc().SetModified(true);
  const QString path = folder.Path(QStringLiteral("新しい 名.trml"));
  files.Expect("save", path);
  Menu()->saveProject->trigger();
  EXPECT_EQ(files.last.proposedName, QStringLiteral("無題.trml"));
  EXPECT_EQ(Title(), QStringLiteral("新しい 名.trml - Tremlo Version1.00　(オフライン)"));
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_THAT(RecentTexts(), ElementsAre(QStringLiteral("&1 ") + path));
  Doc().site.siteName = QStringLiteral("堤");
  Doc().SetModified(true);
  Menu()->saveProject->trigger();
  EXPECT_FALSE(Doc().IsModified());
}

TEST_F(ProjectMenuTest, SaveUnderANameProposesThePresentOne) {
  StartNew(TopChoice::ResponseRoute);
  OpenFile(SavedProject(QStringLiteral("計画.trml"), false));
  files.Expect("save", folder.Path(QStringLiteral("写し.trml")));
  Menu()->saveProjectAs->trigger();
  EXPECT_EQ(files.last.proposedName, QStringLiteral("計画.trml"));
  EXPECT_EQ(Doc().PathName(), folder.Path(QStringLiteral("写し.trml")));
  EXPECT_EQ(test::ReadAll(folder.Path(QStringLiteral("写し.trml"))),
            test::ReadAll(folder.Path(QStringLiteral("計画.trml"))));
}

TEST_F(ProjectMenuTest, FailedSaveKeepsNameAndMark) {
  StartNew(TopChoice::ResponseRoute);
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  OpenFile(path);
  Doc().SetModified(true);
  const QString bad = path + QStringLiteral("/b.trml");
  files.Expect("save", bad);
  prompt.ExpectMessage(QStringLiteral("ファイルを保存できませんでした。\n") + bad);
  Menu()->saveProjectAs->trigger();
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_TRUE(Doc().IsModified());
}

TEST_F(ProjectMenuTest, NewProjectAsksForTheRouteAndIsNotModified) {
  StartNew(TopChoice::ResponseRoute);
  OpenFile(SavedProject(QStringLiteral("a.trml"), false));
  TakeLog();
  choices = {TopChoice::ResponseRoute};
  Menu()->newProject->trigger();
  EXPECT_EQ(Title(), unnamedTitle);
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_EQ(Doc().seedWaves.Count(), 1u) << "the route's wave is there at once";
  EXPECT_THAT(TakeLog(), ElementsAre("top", "refresh 59662"));
}

TEST_F(ProjectMenuTest, NewProjectTakesTheChosenRoute) {
  Make();
  StartNew(TopChoice::ResponseRoute);
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::RespOrigSeismicWave);
  choices = {TopChoice::GuidelineRoute};
  Menu()->newProject->trigger();
  EXPECT_TRUE(Doc().guidelineRoute);
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Field);
  EXPECT_FALSE(app->Procedure().StepEnabled(FlowStep::OrigSeismicWave));
}

TEST_F(ProjectMenuTest, CancelledTopScreenEndsTheProgramWithStatusZero) {
  StartNew(TopChoice::ResponseRoute);
  choices = {TopChoice::Cancelled};
  Menu()->newProject->trigger();
  EXPECT_THAT(ended, ElementsAre(0));
}

TEST_F(ProjectMenuTest, TopScreenThatCannotBeShownFailsTheNew) {
  StartNew(TopChoice::ResponseRoute);
  choices = {TopChoice::NotShown};
  prompt.ExpectMessage(QStringLiteral("トップ画面を表示させることができませんでした。"));
  Menu()->newProject->trigger();
  EXPECT_THAT(ended, IsEmpty());
  EXPECT_THAT(TakeLog(), ElementsAre("top", "box", "refresh 59662"))
      << "the screen shows the emptied project";
}

TEST_F(ProjectMenuTest, ModifiedProjectIsAskedAboutBeforeTheTopScreen) {
  StartNew(TopChoice::ResponseRoute);
  OpenFile(SavedProject(QStringLiteral("計画.trml"), false));
  Doc().SetModified(true);
  TakeLog();
  ExpectSaveQuestion(QStringLiteral("計画.trml"), PromptAnswer::Cancel);
  Menu()->newProject->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("box"));
  EXPECT_TRUE(Doc().IsModified());
  ExpectSaveQuestion(QStringLiteral("計画.trml"), PromptAnswer::Yes);
  choices = {TopChoice::ResponseRoute};
  Doc().site.siteName = QStringLiteral("変更");
  Menu()->newProject->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("box", "top", "refresh 59662"));
  OpenFile(folder.Path(QStringLiteral("計画.trml")));
  EXPECT_EQ(Doc().site.siteName, QStringLiteral("変更"));
}

TEST_F(ProjectMenuTest, ModifiedProjectIsAskedAboutBeforeAnOpen) {
  StartNew(TopChoice::ResponseRoute);
  Doc().SetModified(true);
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  ExpectSaveQuestion(QStringLiteral("無題"), PromptAnswer::Cancel);
  OpenFile(path);
  EXPECT_TRUE(Doc().PathName().isEmpty());
  ExpectSaveQuestion(QStringLiteral("無題"), PromptAnswer::No);
  OpenFile(path);
  EXPECT_EQ(Doc().PathName(), path);
}

TEST_F(ProjectMenuTest, ChartBeingDecidedIsAskedAboutFirst) {
  StartNew(TopChoice::GuidelineRoute);
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::Flowchart2), SwitchOutcome::Open);
  Doc().SetModified(false);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  Menu()->openProject->trigger();
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Flowchart2);
  // Yes holds for the switch that follows: no second question.
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  OpenFile(SavedProject(QStringLiteral("a.trml"), true));
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Field);
}

TEST_F(ProjectMenuTest, RecentFileAsksAboutTheChartToo) {
  StartNew(TopChoice::GuidelineRoute);
  OpenFile(SavedProject(QStringLiteral("a.trml"), true));
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::Flowchart2), SwitchOutcome::Open);
  Doc().SetModified(false);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  OpenRecent(0);
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Flowchart2);
}

/// An entry field on the screen with text that has not been taken yet: a menu does not take the focus away.
class PendingEntryTest : public ProjectMenuTest {
 protected:
  void SetUp() override {
    StartNew(TopChoice::ResponseRoute);
    OpenFile(SavedProject(QStringLiteral("a.trml"), false));
    field = new CExpEdit(OnDisplay());
    field->SetOwnerCheck(
        [](const QString& text) { return text == u"bad" ? QStringLiteral("wrong") : QString(); });
    field->SetShowWarning([this](QWidget*, const QString&, const QString& text) { told << text; });
    QObject::connect(field, &CExpEdit::Entered, field, [this] {
      Doc().site.siteName = field->text();
      Doc().SetModified(true);
    });
    field->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
    field->setFocus();
    log.clear();
  }

  CExpEdit* field = nullptr;
  QStringList told;
};

TEST_F(PendingEntryTest, SaveTakesIt) {
  QTest::keyClicks(field, QStringLiteral("dam"));
  Menu()->saveProject->trigger();
  CMorvaneDoc saved(folder.Path());
  EXPECT_EQ(OpenProject(saved, Doc().PathName()).result, OpenResult::kOpened);
  EXPECT_EQ(saved.site.siteName, u"dam");
}

TEST_F(PendingEntryTest, LeavingTheProgramAsksAboutIt) {
  QTest::keyClicks(field, QStringLiteral("dam"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  Menu()->exitProgram->trigger();
  EXPECT_EQ(Doc().site.siteName, u"dam");
  EXPECT_THAT(ended, IsEmpty());
}

TEST_F(PendingEntryTest, AnotherProjectAsksAboutIt) {
  QTest::keyClicks(field, QStringLiteral("dam"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  Menu()->newProject->trigger();
  EXPECT_EQ(Doc().site.siteName, u"dam");
  QTest::keyClicks(field, QStringLiteral("2"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  OpenRecent(0);
  EXPECT_EQ(Doc().site.siteName, u"dam2");
  QTest::keyClicks(field, QStringLiteral("3"));
  ExpectSaveQuestion(QStringLiteral("a.trml"), PromptAnswer::Cancel);
  Q_EMIT app->Frame()->FileDropped(Doc().PathName());
  EXPECT_EQ(Doc().site.siteName, u"dam23");
}

TEST_F(PendingEntryTest, RefusedOneStopsTheCommand) {
  const QByteArray before = test::ReadAll(Doc().PathName());
  for (QAction* command : {Menu()->saveProject, Menu()->newProject, Menu()->adjustSettings}) {
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("bad"));
    command->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 1; }));
    told.clear();
  }
  field->setFocus();
  QTest::keyClicks(field, QStringLiteral("bad"));
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_EQ(test::ReadAll(Doc().PathName()), before);
}

TEST_F(ProjectMenuTest, LeavingTheProgramAsksNothingAboutTheChart) {
  StartNew(TopChoice::GuidelineRoute);
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::Flowchart2), SwitchOutcome::Open);
  Doc().SetModified(false);
  Menu()->exitProgram->trigger();
  EXPECT_THAT(ended, ElementsAre(0));
}

}  // namespace
}  // namespace tremlo
