#include "window/shell/MainFrame.h"
#include "window/shell/ShellParts.h"

#include <QDialog>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainFrameTest : public test::ShellTest {
 protected:
  void SetUp() override { StartNew(TopChoice::ResponseRoute); }

  SwitchOutcome Switch(ScreenId id) { return app->Procedure().SwitchScreen(id); }
  /// Drops what the urls name on the frame; false when the drag is not taken.
  bool Drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    if (!Enters(app->Frame(), data)) return false;
    QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(app->Frame(), &drop);
    QCoreApplication::processEvents();
    return true;
  }
  static bool Enters(QWidget* widget, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &enter);
    return enter.isAccepted();
  }
};

TEST_F(MainFrameTest, SwitchLeavesTheOldScreenAndEntersTheNew) {
  EXPECT_EQ(Switch(ScreenId::RespAdjustSpectrum), SwitchOutcome::Open);
  EXPECT_THAT(TakeLog(), ElementsAre("prepare 59663", "left 59662", "entered 59663"));
  EXPECT_EQ(OnDisplay(), app->Frame()->ScreenOf(ScreenId::RespAdjustSpectrum));
  EXPECT_TRUE(OnDisplay()->isVisible());
  EXPECT_FALSE(app->Frame()->ScreenOf(ScreenId::RespOrigSeismicWave)->isVisible());
}

TEST_F(MainFrameTest, SwitchToTheActiveScreenEntersNothing) {
  EXPECT_EQ(Switch(ScreenId::RespOrigSeismicWave), SwitchOutcome::Open);
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(MainFrameTest, ReturnFromMinimisedEntersNothing) {
  app->Frame()->showMinimized();
  app->Frame()->showNormal();
  QCoreApplication::processEvents();
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(MainFrameTest, FocusMovesToTheNewScreensFirstControl) {
  app->Frame()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  Switch(ScreenId::RespAdjustSpectrum);
  EXPECT_TRUE(OnDisplay()->first->hasFocus());
}

TEST_F(MainFrameTest, ScreensBearTheirNames) {
  EXPECT_EQ(app->Frame()->ScreenOf(ScreenId::RespOrigSeismicWave)->objectName(), u"RespAdjustSpectrum");
  EXPECT_EQ(app->Frame()->ScreenOf(ScreenId::RespAdjustSpectrum)->objectName(), u"RespAdjustSpectrum");
  EXPECT_EQ(app->Frame()->ScreenOf(ScreenId::RespOrigSeismicWave)->accessibleName(),
            QStringLiteral("原種波形設定"));
  EXPECT_EQ(app->Frame()->ScreenOf(ScreenId::FlowCheck)->objectName(), u"FlowCheck");
  EXPECT_EQ(app->Frame()->ScreenOf(ScreenId::Flowchart3)->objectName(), u"Flowchart3");
}

TEST_F(MainFrameTest, UnknownScreenEndsTheProgramWithStatusOne) {
  app.reset();
  // A screen with a switch of its own to a screen that nothing may ask for by name.
  ScreenTable screens = test::LoggingScreens(log);
  screens.screens[ScreenId::Field] = [this](const ScreenParts& parts) -> Screen* {
    auto* const screen = new test::LoggingScreen(ScreenId::Field, log);
    QObject::connect(screen->first, &QLineEdit::returnPressed, screen,
                     [&parts] { parts.follow(parts.procedure.SwitchScreen(ScreenId::Flowchart3)); });
    return screen;
  };
  app = std::make_unique<CMorvaneApp>(settings, std::move(screens),
                                      DoorsWith([](QWidget*) { return TopChoice::GuidelineRoute; }));
  ExpectOffline();
  ASSERT_EQ(Start(), std::nullopt);
  prompt.ExpectMessage(QStringLiteral("予期せぬフォームの呼び出しが発生しました。"));
  QTest::keyClick(OnDisplay()->first, Qt::Key_Return);
  EXPECT_THAT(ended, ElementsAre(1));
}

TEST_F(MainFrameTest, HintInTheStatusBarGivesWayToReady) {
  auto* ready = app->Frame()->findChild<QLabel*>(QStringLiteral("readyPane"));
  ASSERT_NE(ready, nullptr);
  EXPECT_EQ(ready->text(), QStringLiteral("レディ"));
  QStatusTipEvent hint(QStringLiteral("周期 0.5"));
  QCoreApplication::sendEvent(OnDisplay(), &hint);
  EXPECT_EQ(app->Frame()->statusBar()->currentMessage(), QStringLiteral("周期 0.5"));
  EXPECT_FALSE(ready->isVisible());
  QStatusTipEvent gone{QString()};
  QCoreApplication::sendEvent(OnDisplay(), &gone);
  EXPECT_TRUE(ready->isVisible());
}

TEST_F(MainFrameTest, MarkOfModifiedWindowsIsTextInATitle) {
  app->Frame()->SetTitle(QStringLiteral("a[*].trml - Tremlo"));
  app->Frame()->show();
  EXPECT_EQ(app->Frame()->windowTitle(), u"a[*][*].trml - Tremlo");
}

TEST_F(MainFrameTest, DroppedProjectIsOpened) {
  const QString path = SavedProject(QStringLiteral("落とす.trml"), false);
  EXPECT_TRUE(Drop({QUrl::fromLocalFile(path)}));
  EXPECT_EQ(Doc().PathName(), path);
  EXPECT_TRUE(Title().startsWith(QStringLiteral("落とす.trml - ")));
}

TEST_F(MainFrameTest, FileDroppedOnAFieldIsOpenedToo) {
  const QString path = SavedProject(QStringLiteral("落とす.trml"), false);
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  data.setText(QUrl::fromLocalFile(path).toString());  // as file managers do
  QLineEdit* field = OnDisplay()->first;
  ASSERT_TRUE(Enters(field, data));
  QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(field, &drop);
  QCoreApplication::processEvents();
  EXPECT_EQ(field->text(), QString());
  EXPECT_EQ(Doc().PathName(), path);
}

TEST_F(MainFrameTest, TextIsStillDroppedOnAField) {
  QMimeData data;
  data.setText(QStringLiteral("0.01"));
  QLineEdit* field = OnDisplay()->first;
  ASSERT_TRUE(Enters(field, data));
  QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(field, &drop);
  EXPECT_EQ(field->text(), u"0.01");
}

TEST_F(MainFrameTest, NothingIsTakenBehindADialog) {
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  QDialog dialog(app->Frame());
  dialog.setModal(true);
  dialog.show();
  EXPECT_FALSE(Drop({QUrl::fromLocalFile(path)}));
  Doc().SetModified(true);
  EXPECT_FALSE(app->Frame()->close()) << "and no question comes on top of it";
  EXPECT_THAT(ended, IsEmpty());
  dialog.hide();
  Doc().SetModified(false);
  EXPECT_TRUE(Drop({QUrl::fromLocalFile(path)}));
  EXPECT_TRUE(app->Frame()->close());
}

TEST_F(MainFrameTest, ADragThatADialogOvertakesIsNotTaken) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(SavedProject(QStringLiteral("a.trml"), false))});
  ASSERT_TRUE(Enters(app->Frame(), data));
  QDialog dialog(app->Frame());
  dialog.setModal(true);
  dialog.show();
  QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(app->Frame(), &drop);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Doc().PathName().isEmpty());
}

TEST_F(MainFrameTest, SeveralFilesAndAddressesAreNotTaken) {
  const QUrl file = QUrl::fromLocalFile(SavedProject(QStringLiteral("a.trml"), false));
  EXPECT_FALSE(Drop({file, file}));
  EXPECT_FALSE(Drop({QUrl(QStringLiteral("https://127.0.0.1/a.trml"))}));
  EXPECT_FALSE(Drop({}));
  EXPECT_TRUE(Doc().PathName().isEmpty());
}

TEST_F(MainFrameTest, ClosingAnUnchangedProjectEndsWithoutAQuestion) {
  EXPECT_TRUE(app->Frame()->close());
  EXPECT_THAT(ended, ElementsAre(0));
}

TEST_F(MainFrameTest, AWindowThatClosesBehindTheEndKeepsItsStatus) {
  app->EndProgram(1);
  Doc().SetModified(true);
  EXPECT_TRUE(app->Frame()->close()) << "without a question";
  EXPECT_THAT(ended, ElementsAre(1));
}

TEST_F(MainFrameTest, ClosingAModifiedProjectAsksAndCancelKeepsTheWindow) {
  Doc().SetModified(true);
  const PromptBox question{.text = QStringLiteral("「無題」は変更されています。保存しますか？"),
                           .buttons = PromptButtons::YesNoCancel};
  prompt.ExpectBox(question, PromptAnswer::Cancel);
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_THAT(ended, IsEmpty());
  prompt.ExpectBox(question, PromptAnswer::No);
  EXPECT_TRUE(app->Frame()->close());
  EXPECT_THAT(ended, ElementsAre(0));
}

TEST_F(MainFrameTest, YesSavesBeforeTheWindowCloses) {
  Doc().SetModified(true);
  prompt.ExpectBox({.text = QStringLiteral("「無題」は変更されています。保存しますか？"),
                    .buttons = PromptButtons::YesNoCancel},
                   PromptAnswer::Yes);
  files.Expect("save", folder.Path(QStringLiteral("x.trml")));
  EXPECT_TRUE(app->Frame()->close());
  EXPECT_TRUE(QFile::exists(folder.Path(QStringLiteral("x.trml"))));
}

TEST_F(MainFrameTest, SaveWithoutANameKeepsTheWindow) {
  Doc().SetModified(true);
  prompt.ExpectBox({.text = QStringLiteral("「無題」は変更されています。保存しますか？"),
                    .buttons = PromptButtons::YesNoCancel},
                   PromptAnswer::Yes);
  files.Expect("save", {});
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_TRUE(Doc().IsModified());
}

TEST_F(MainFrameTest, FailedSaveKeepsTheWindow) {
  Doc().SetModified(true);
  const QString path = folder.Write(QStringLiteral("file"), "") + QStringLiteral("/x.trml");
  prompt.ExpectBox({.text = QStringLiteral("「無題」は変更されています。保存しますか？"),
                    .buttons = PromptButtons::YesNoCancel},
                   PromptAnswer::Yes);
  files.Expect("save", path);
  prompt.ExpectMessage(QStringLiteral("ファイルを保存できませんでした。\n") + path);
  EXPECT_FALSE(app->Frame()->close());
  EXPECT_TRUE(Doc().IsModified());
  EXPECT_THAT(ended, IsEmpty());
}

}  // namespace
}  // namespace tremlo
