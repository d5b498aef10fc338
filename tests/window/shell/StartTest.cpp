#include "core/project/ProjectFile.h"
#include "support/CurrentFolder.h"
#include "support/LocalService.h"
#include "support/UpdateChecker.h"
#include "window/shell/ShellParts.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QScreen>
#include <QTimer>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::LocalService;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kDamagedTable = QStringLiteral("DamCoef\\H20_Ehd_H.csvの1行目が正しい文字列ではありません。");

/// Logs when the splash comes up and when it goes.
class SplashWatch : public QObject {
 public:
  explicit SplashWatch(QStringList& log) : m_log(log) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (object->isWidgetType() && object->objectName() == u"dlgSplash" && event->type() == QEvent::Show)
      m_log.append(QStringLiteral("splash"));
    if (object->isWidgetType() && object->objectName() == u"mainFrame" && event->type() == QEvent::Show)
      m_log.append(QStringLiteral("frame"));
    return false;
  }

 private:
  QStringList& m_log;
};

class StartTest : public test::ShellTest {
 protected:
  QString GuidelineProject(bool fixed) {
    CMorvaneDoc doc(folder.Path());
    EXPECT_EQ(doc.ResetDocument(), std::nullopt);
    doc.guidelineRoute = doc.flowNeighbourWave = true;
    doc.flowFixed = fixed;
    const QString path = folder.Path(fixed ? QStringLiteral("fixed.trml") : QStringLiteral("open.trml"));
    EXPECT_TRUE(SaveProject(doc, path));
    return path;
  }
};

TEST_F(StartTest, ComesUpInItsOrder) {
  const SplashWatch watch(log);
  Make();
  ExpectOffline();
  choices = {TopChoice::ResponseRoute};
  EXPECT_EQ(Start(), std::nullopt);
  constexpr qsizetype kScreens = 16;
  EXPECT_EQ(log.filter(QStringLiteral("make")), log.mid(4, kScreens));
  log.remove(4, kScreens);
  EXPECT_THAT(log, ElementsAre("splash", "box", "box", "top", "refresh 59662", "entered 59662", "frame"));
  EXPECT_TRUE(app->Frame()->isVisible());
  EXPECT_FALSE(Doc().IsModified());
  EXPECT_THAT(ended, IsEmpty());
}

TEST_F(StartTest, ScreensAreMadeInTheirOrder) {
  Make();
  ExpectOffline();
  choices = {TopChoice::GuidelineRoute};
  EXPECT_EQ(Start(), std::nullopt);
  const QStringList made = log.filter(QStringLiteral("make"));
  EXPECT_THAT(made,
              ElementsAre("make 59649", "make 59650", "make 59651", "make 59652", "make 59654", "make 59655",
                          "make 59656", "make 59657", "make 59658", "make 59659", "make 59660", "make 59661",
                          "make 59653", "make 59662", "make 59663", "make 59664"));
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Field);
}

TEST_F(StartTest, FrameStandsInTheMiddleOfTheMonitorOrFillsASmallerOne) {
  StartNew(TopChoice::ResponseRoute);
  const CMainFrame* frame = app->Frame();
  const QRect monitor = frame->screen()->geometry();
  // ctest runs this on larger monitors too; the file that describes one bears its size.
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
  if (platform.contains(u"configfile=")) {
    EXPECT_TRUE(
        platform.endsWith(QStringLiteral("monitor-%1x%2.json").arg(monitor.width()).arg(monitor.height())))
        << platform.toStdString();
  }
  const QRect stated(monitor.x() + monitor.width() / 2 - 600, monitor.y() + monitor.height() / 2 - 400, 1200,
                     800);
  // Where it fits exactly, this platform pushes it by the frame that it puts around windows.
  if (monitor.size() != stated.size()) {
    EXPECT_EQ(frame->normalGeometry(), stated);
  }
  EXPECT_EQ(frame->isMaximized(), monitor.width() < 1200 || monitor.height() < 800);
}

TEST_F(StartTest, SecondInstanceIsTold) {
  StartNew(TopChoice::ResponseRoute);
  test::ScriptedPrompt told;
  told.ExpectMessage(QStringLiteral("既に起動されています。"), PromptIcon::Stop);
  CMorvaneApp second(settings, test::LoggingScreens(log),
                     {.prompt = &told, .files = nullptr, .askRoute = {}, .endProgram = {}});
  EXPECT_EQ(second.Start({QStringLiteral("tremlo")}), 0);
  EXPECT_EQ(second.Frame(), nullptr);
}

TEST_F(StartTest, NextInstanceStartsOnceTheFirstHasEnded) {
  StartNew(TopChoice::ResponseRoute);
  app->EndProgram(0);
  app.reset();
  StartNew(TopChoice::ResponseRoute);
}

TEST_F(StartTest, FolderThatCannotBeFoundEndsTheStartBehindTheProbes) {
  settings.folders = QString();
  Make();
  ExpectOffline();
  prompt.ExpectMessage(QStringLiteral("EXEファイルのパスを取得できませんでした。"), PromptIcon::Stop);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(app->Frame(), nullptr);
}

TEST_F(StartTest, TablesOfTheSystemServeAUserWhoseFolderTheStartMakes) {
  const QString own = folder.Path(QStringLiteral("home/data/tremlo"));
  settings.folders = ProgramFolders(own, {folder.Path()});
  StartNew(TopChoice::GuidelineRoute);
  EXPECT_TRUE(QFileInfo(own).isDir());
  EXPECT_EQ(Doc().damCoefSets.size(), 4u);
}

TEST_F(StartTest, ServicesThatAnswerAreNotCalledOfflineForLackOfAFolder) {
  const test::CurrentFolder here(folder.Path());
  const QStringList names = folder.Names();
  const LocalService service;
  ASSERT_TRUE(service.IsReady());
  settings.services = service.Settings();
  settings.folders = QString();
  Make();
  prompt.ExpectMessage(QStringLiteral("EXEファイルのパスを取得できませんでした。"), PromptIcon::Stop);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(service.Paths().size(), 4);
  EXPECT_EQ(folder.Names(), names) << "and nothing is left where the program was started";
}

TEST_F(StartTest, DialogsOfQtKeepNothing) {
  StartNew(TopChoice::ResponseRoute);
  const QDir kept(qEnvironmentVariable("XDG_CONFIG_HOME"));
  QFile::remove(kept.filePath(QStringLiteral("QtProject.conf")));
  FileDialogBoxes boxes(Doc());
  test::WhenModal(QStringLiteral("fileDialog"), [](QWidget* dialog) {
    dialog->resize(777, 555);
    dialog->close();
  });
  boxes.AskOpenPath({.title = {}, .nameFilters = QStringLiteral("(*)"), .suffix = {}, .proposedName = {}});
  {
    QColorDialog dialog;
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    QColorDialog::setCustomColor(0, QColor(1, 2, 3));
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    dialog.exec();
  }
  EXPECT_FALSE(kept.exists(QStringLiteral("QtProject.conf")));
}

TEST_F(StartTest, MissingTableEndsTheStartWithStatusZero) {
  QFile::remove(folder.Path(QStringLiteral("DamCoef/H20_Ehd_H.csv")));
  QFile::remove(folder.Path(QStringLiteral("LowSpec/h17.csv")));
  Make();
  ExpectOffline();
  prompt.ExpectMessage(QStringLiteral("LowSpec\\h17.csvがありません。"), PromptIcon::None);
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(app->Frame(), nullptr);
}

TEST_F(StartTest, DamagedTableEndsTheStartWithStatusOne) {
  folder.Write(QStringLiteral("DamCoef/H20_Ehd_H.csv"), "");
  Make();
  ExpectOffline();
  choices = {TopChoice::ResponseRoute};
  prompt.ExpectMessage(kDamagedTable, PromptIcon::None);
  EXPECT_EQ(Start(), 1);
  EXPECT_FALSE(app->Frame()->isVisible());
}

TEST_F(StartTest, CancelledTopScreenEndsWithNoWindowShown) {
  Make();
  ExpectOffline();
  choices = {TopChoice::Cancelled};
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(app->Frame(), nullptr);
}

TEST_F(StartTest, TopScreenThatCannotBeShownIsToldAndEnds) {
  Make();
  ExpectOffline();
  choices = {TopChoice::NotShown};
  prompt.ExpectMessage(QStringLiteral("トップ画面を表示させることができませんでした。"));
  EXPECT_EQ(Start(), 0);
  EXPECT_EQ(app->Frame(), nullptr);
}

TEST_F(StartTest, FileOnTheCommandLineIsOpenedWithoutTheTopScreen) {
  const QString path = SavedProject(QStringLiteral("計画 1.trml"), false);
  Make();
  ExpectOffline();
  EXPECT_EQ(Start({path}), std::nullopt);
  EXPECT_EQ(Title(), QStringLiteral("計画 1.trml - Tremlo Version1.00　(オフライン)"));
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_THAT(RecentTexts(), ElementsAre(QStringLiteral("&1 ") + path));
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::RespOrigSeismicWave);
}

TEST_F(StartTest, RelativePathIsMeantFromTheWorkingFolder) {
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  const test::CurrentFolder here(folder.Path());
  Make();
  ExpectOffline();
  EXPECT_EQ(Start({QStringLiteral("a.trml")}), std::nullopt);
  EXPECT_EQ(Doc().PathName(), path);
}

TEST_F(StartTest, CutFileEndsTheStartWithTheMessage) {
  const QString path = folder.Path(QStringLiteral("cut.trml"));
  const QByteArray whole = test::ReadAll(SavedProject(QStringLiteral("whole.trml"), false));
  folder.Write(QStringLiteral("cut.trml"), whole.left(whole.size() / 2));
  Make();
  ExpectOffline();
  prompt.ExpectMessage(QStringLiteral("ファイルを開けませんでした。\n") + path);
  EXPECT_EQ(Start({path}), 0);
  EXPECT_FALSE(app->Frame()->isVisible());
}

TEST_F(StartTest, FixedProcedureOfAFileEnablesItsSteps) {
  Make();
  ExpectOffline();
  EXPECT_EQ(Start({GuidelineProject(true)}), std::nullopt);
  const FlowSteps* steps = app->Frame()->Pane()->StepsOnDisplay();
  EXPECT_TRUE(steps->Button(FlowStep::DamsiteWave)->isEnabled());
  EXPECT_TRUE(steps->Button(FlowStep::Print)->isEnabled());
  EXPECT_FALSE(steps->Button(FlowStep::FaultSpectra)->isEnabled());
}

TEST_F(StartTest, FileMovesTheHighlightToTheFirstStepWithAFixedProcedureAlone) {
  StartNew(TopChoice::GuidelineRoute);
  const FlowSteps* steps = app->Frame()->Pane()->StepsOnDisplay();
  const auto marked = [&](FlowStep step) { return steps->Button(step)->IsCurrent(); };
  Press(FlowStep::FlowCheck);
  ASSERT_TRUE(marked(FlowStep::FlowCheck));
  for (const bool fixed : {false, true}) {
    Doc().SetModified(false);
    files.Expect("open", GuidelineProject(fixed));
    Trigger(Menu()->openProject);
    EXPECT_EQ(steps->CurrentStep(), fixed ? FlowStep::Field : FlowStep::FlowCheck);
    EXPECT_EQ(marked(FlowStep::Field), fixed);
    EXPECT_EQ(marked(FlowStep::FlowCheck), !fixed);
  }
}

TEST_F(StartTest, NewProjectOfTheGuidelineRouteHasTwoStepsEnabled) {
  StartNew(TopChoice::GuidelineRoute);
  const FlowSteps* steps = app->Frame()->Pane()->StepsOnDisplay();
  EXPECT_TRUE(steps->Button(FlowStep::Field)->isEnabled());
  EXPECT_TRUE(steps->Button(FlowStep::FlowCheck)->isEnabled());
  for (const FlowStep step : kStepsBehindProcedure) EXPECT_FALSE(steps->Button(step)->isEnabled());
}

TEST_F(StartTest, ServicesThatAnswerMakeItOnline) {
  const LocalService service;
  ASSERT_TRUE(service.IsReady());
  settings.services = service.Settings(QStringLiteral("https"));
  Make();
  choices = {TopChoice::ResponseRoute};
  EXPECT_EQ(Start(), std::nullopt);
  EXPECT_TRUE(app->Online().IsOnline());
  EXPECT_EQ(service.Paths().size(), 4);
  EXPECT_EQ(Title(), QStringLiteral("無題 - Tremlo Version1.00 "));
  EXPECT_TRUE(QFile::exists(folder.Path(QStringLiteral("RecvTemp"))))
      << "the answer is kept beside the program";
}

TEST_F(StartTest, TextsOfQtAreJapanese) {
  Make();
  const auto text = [](const char* context, const char* english) {
    return QCoreApplication::translate(context, english);
  };
  EXPECT_EQ(text("QPlatformTheme", "Cancel"), QStringLiteral("キャンセル"));
  EXPECT_EQ(text("QFileDialog", "File &name:"), QStringLiteral("ファイル名(&N):"));
  EXPECT_EQ(text("QColorDialog", "&Basic colors"), QStringLiteral("基本カラー(&B)"));
  EXPECT_EQ(text("QWidgetTextControl", "&Copy"), QStringLiteral("コピー(&C)"));
}

TEST_F(StartTest, UpdateCheckerOfTheWorkingFolderIsStarted) {
  const test::CurrentFolder here(folder.Path());
  test::WriteUpdateChecker(folder);
  StartNew(TopChoice::ResponseRoute);
  EXPECT_EQ(test::UpdateCheckerArguments(folder), "TRML|");
}

TEST_F(StartTest, FurtherArgumentsAreLeftAlone) {
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  Make();
  ExpectOffline();
  EXPECT_EQ(Start({path, SavedProject(QStringLiteral("b.trml"), false)}), std::nullopt);
  EXPECT_EQ(Doc().PathName(), path);
}

/// Words of the status bar about sample tables; empty while it says none.
class SampleTablesTest : public test::ShellTest {
 protected:
  QString Told() {
    const auto* pane = app->Frame()->findChild<QLabel*>(QStringLiteral("samplePane"));
    return pane->isVisible() ? pane->text() : QString();
  }
  void RemoveMark(const char* name) {
    EXPECT_TRUE(QFile::remove(folder.Path(QLatin1String(name) + QStringLiteral("/見本.txt"))));
  }
};

TEST_F(SampleTablesTest, FoldersAreNamedInTheStatusBar) {
  StartNew(TopChoice::ResponseRoute);
  EXPECT_EQ(Told(), QStringLiteral("見本の表を使用中：DamCoef、LowSpec、SystemData"));
}

TEST_F(SampleTablesTest, PublishedTablesAreNotCalledSamples) {
  for (const char* name : {"DamCoef", "LowSpec", "SystemData"}) RemoveMark(name);
  StartNew(TopChoice::ResponseRoute);
  EXPECT_EQ(Told(), QString());
}

TEST_F(SampleTablesTest, PaneFollowsTheTablesThatTheNextProjectReads) {
  StartNew(TopChoice::ResponseRoute);
  RemoveMark("LowSpec");
  RemoveMark("SystemData");
  files.Expect("open", SavedProject(QStringLiteral("a.trml"), false));
  Menu()->openProject->trigger();
  EXPECT_EQ(Told(), QStringLiteral("見本の表を使用中：DamCoef"));
  RemoveMark("DamCoef");
  choices = {TopChoice::ResponseRoute};
  Menu()->newProject->trigger();
  EXPECT_EQ(Told(), QString());
  folder.Write(QStringLiteral("LowSpec/見本.txt"), "");
  choices = {TopChoice::ResponseRoute};
  Menu()->newProject->trigger();
  EXPECT_EQ(Told(), QStringLiteral("見本の表を使用中：LowSpec"));
}

}  // namespace
}  // namespace tremlo
