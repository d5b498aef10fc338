// Commands that come while something stands in front of the window, as the accessibility bus gives them and
// as they come in one batch with the input that opened it.

#include "core/project/ProjectFile.h"
#include "support/DocumentState.h"
#include "window/graphs/ExpEdit.h"
#include "window/shell/ShellParts.h"

#include <QAction>
#include <QDialog>
#include <QMimeData>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

class BadTimeTest : public test::ShellTest {
 protected:
  void SetUp() override {
    StartNew(TopChoice::GuidelineRoute);
    path = SavedProject(QStringLiteral("a.trml"), true);
    files.Expect("open", path);
    Menu()->openProject->trigger();
    TakeLog();
  }

  std::vector<QAction*> Entries() {
    MainMenu* menu = Menu();
    return {menu->newProject,     menu->openProject,
            menu->saveProject,    menu->saveProjectAs,
            menu->exitProgram,    menu->apiParameters,
            menu->adjustSettings, menu->clearMapCache,
            menu->online,         menu->manual,
            menu->supportPage,    menu->portalPage,
            menu->about,          Menu()->RecentEntries().front()};
  }
  void Drop(const QString& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(app->Frame(), &enter);
    QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(app->Frame(), &drop);
  }
  void PressByBus(FlowStep step) { app->Frame()->Pane()->StepsOf(step)->Button(step)->click(); }
  test::LoggingScreen* ScreenAt(ScreenId id) {
    return static_cast<test::LoggingScreen*>(app->Frame()->ScreenOf(id));
  }

  QString path;
};

TEST_F(BadTimeTest, NothingHappensBehindADialog) {
  const DocumentState before(Doc());
  OnDisplay()->commands.clear();
  const bool online = Menu()->online->isChecked();
  QDialog dialog(app->Frame());
  dialog.setModal(true);
  dialog.show();
  for (QAction* entry : Entries()) {
    entry->trigger();
    EXPECT_EQ(Menu()->online->isChecked(), online) << "the mark is put back";
  }
  for (int step = 0; step <= static_cast<int>(FlowStep::RespVisualization); ++step)
    PressByBus(static_cast<FlowStep>(step));
  QCoreApplication::processEvents();
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_THAT(OnDisplay()->commands, IsEmpty());
  EXPECT_THAT(ended, IsEmpty());
  EXPECT_THAT(DocumentState(Doc()).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(app->Frame()->Pane()->StepsOnDisplay()->CurrentStep(), FlowStep::Field);
}

TEST_F(BadTimeTest, WhatWasQueuedIsLookedAtWhenItRuns) {
  const QString other = SavedProject(QStringLiteral("b.trml"), true);
  Menu()->RecentEntries().front()->trigger();
  Drop(other);
  QDialog dialog(app->Frame());
  dialog.setModal(true);
  dialog.show();  // in the same batch of input
  QCoreApplication::processEvents();
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_EQ(Doc().PathName(), path);
  dialog.hide();
  Drop(other);
  QCoreApplication::processEvents();
  EXPECT_EQ(Doc().PathName(), other);
}

TEST_F(BadTimeTest, ARecentFileChosenBehindADialogIsNotOpenedOnceTheDialogHasGone) {
  SavedProject(QStringLiteral("b.trml"), true);
  {
    QDialog dialog(app->Frame());
    dialog.setModal(true);
    dialog.show();
    Menu()->RecentEntries().front()->trigger();
  }
  QCoreApplication::processEvents();
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_EQ(Doc().PathName(), path);
}

TEST_F(BadTimeTest, NoCommandRunsWithinAnother) {
  app.reset();
  Make();
  std::vector<QStringList> inner;
  ProgramDoors doors = DoorsWith([&](QWidget*) {
    if (app->Frame()) {
      TakeLog();
      for (QAction* entry : Entries()) entry->trigger();
      PressByBus(FlowStep::FlowCheck);
      EXPECT_FALSE(app->Frame()->close());
      inner.push_back(TakeLog());
    }
    return TopChoice::GuidelineRoute;
  });
  app.reset();
  app = std::make_unique<CMorvaneApp>(settings, test::LoggingScreens(log), std::move(doors));
  ExpectOffline();
  ASSERT_EQ(Start(), std::nullopt);
  Menu()->newProject->trigger();
  EXPECT_THAT(inner, ElementsAre(QStringList()));
  EXPECT_THAT(ended, IsEmpty());
}

TEST_F(BadTimeTest, NoCommandRunsBehindTheEndOfTheProgram) {
  choices = {TopChoice::Cancelled};
  Menu()->newProject->trigger();
  EXPECT_THAT(ended, ElementsAre(0));
  TakeLog();
  for (QAction* entry : Entries()) entry->trigger();
  PressByBus(FlowStep::FlowCheck);
  QCoreApplication::processEvents();
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_THAT(ended, ElementsAre(0));
}

TEST_F(BadTimeTest, TheScreenIsToldOfEveryCommandAndOfItsEndWhereItStays) {
  test::LoggingScreen* field = ScreenAt(ScreenId::Field);
  const auto told = [field] { return std::exchange(field->commands, {}); };
  told();
  files.Expect("open", {});
  Menu()->openProject->trigger();
  EXPECT_THAT(told(), ElementsAre("begins", "ended"));
  PressByBus(FlowStep::Field);
  EXPECT_THAT(told(), ElementsAre("begins", "ended"));
  PressByBus(FlowStep::FlowCheck);
  EXPECT_THAT(told(), ElementsAre("begins")) << "it has left the display";
  EXPECT_THAT(ScreenAt(ScreenId::FlowCheck)->commands, IsEmpty()) << "it was entered";
  PressByBus(FlowStep::Field);
  Menu()->RecentEntries().front()->trigger();
  QCoreApplication::processEvents();
  EXPECT_THAT(told(), ElementsAre("begins", "ended"));
  Doc().SetModified(true);
  prompt.ExpectBox({.text = QStringLiteral("「a.trml」は変更されています。保存しますか？"),
                    .buttons = PromptButtons::YesNoCancel},
                   PromptAnswer::Cancel);
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_THAT(told(), ElementsAre("begins", "ended"));
  Doc().SetModified(false);
  EXPECT_TRUE(app->Frame()->close());
  EXPECT_THAT(told(), ElementsAre("begins")) << "the program has ended";
}

TEST_F(BadTimeTest, AnOpenEntryIsTakenBeforeAStep) {
  Doc().flowFixed = true;
  app->Procedure().ApplyFlowState();
  ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  auto* const field = new CExpEdit(OnDisplay());
  QObject::connect(field, &CExpEdit::Entered, field, [&] { Doc().site.siteName = field->text(); });
  field->SetOwnerCheck([](const QString& text) { return text == u"bad" ? text : QString(); });
  QStringList told;
  field->SetShowWarning([&](QWidget*, const QString&, const QString& text) { told << text; });
  field->show();
  field->setFocus();
  QTest::keyClicks(field, QStringLiteral("bad"));
  PressByBus(FlowStep::LowerSpectrum);
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::Field);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }));
  field->setFocus();
  QTest::keyClicks(field, QStringLiteral("dam"));
  PressByBus(FlowStep::LowerSpectrum);
  EXPECT_EQ(Doc().site.siteName, u"dam");
  EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::LowerSpectrum);
}

}  // namespace
}  // namespace tremlo
