#include "core/graphs/GraphCsv.h"
#include "support/RecordedMessages.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/GraphPicture.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/WaveGraphPanel.h"

#include <QAccessible>
#include <QDialog>
#include <QMenu>
#include <QSvgRenderer>
#include <QWindow>

#include <csignal>
#include <gmock/gmock.h>
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr QSize kWindow(700, 420);

/// A file dialog in which the graph changes behind the user's back.
class ChangingFiles : public ScriptedFiles {
 public:
  QString AskSavePath(const FileQuestion& question) override {
    QString path = ScriptedFiles::AskSavePath(question);
    if (change) change();
    return path;
  }
  std::function<void()> change;
};

class GraphMenuTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  std::unique_ptr<CDrawGraph> Made() const {
    if (!hasGraph) return nullptr;
    return std::make_unique<CDrawFreqAccSpec>(WaveGraphSetting{}, curves);
  }
  GraphView& View() { return driver.Find<GraphView>("graph"); }
  QMenu& Menu() { return driver.Find<QMenu>("graphMenu"); }
  /// Right click in the middle of the graph.
  void OpenByMouse() {
    QWindow* const window = View().window()->windowHandle();
    QTest::mouseClick(window, Qt::RightButton, {}, View().mapTo(View().window(), View().rect().center()));
    Settle();
  }
  void OpenByKey() {
    View().setFocus();
    driver.Key(Qt::Key_F10, Qt::ShiftModifier);
  }
  /// Opens the menu and chooses its first or second entry by keys.
  void Choose(int entry) {
    OpenByKey();
    ASSERT_TRUE(Menu().isVisible());
    for (int i = 0; i < entry; ++i) QTest::keyClick(&Menu(), Qt::Key_Down);
    QTest::keyClick(&Menu(), Qt::Key_Return);
    Settle();
    EXPECT_FALSE(Menu().isVisible());
  }
  void ChoosePicture() { Choose(1); }
  void ChooseCurves() { Choose(2); }

  TestFolder folder;
  ChangingFiles files;
  RecordedMessages messages;
  CommandGate gate{messages};
  bool hasGraph = true;
  std::vector<GraphSeries> curves{{QStringLiteral("A"), {10, 1, 0.1}, {100, 900, 300}, {0x0000FF, 2}},
                                  {QStringLiteral("B"), {10, 1, 0.1}, {1.0 / 3, 0.1, 7}, {0xFF0000, 2}}};
  WaveGraphPanel panel{
      {GraphKind::Spectrum}, [this](GraphKind) { return Made(); }, {}, {gate, files, messages}, nullptr};
  ScreenDriver driver{panel, kWindow};
};

TEST_F(GraphMenuTest, TheRightButtonOpensTheTwoCommands) {
  OpenByMouse();
  ASSERT_TRUE(Menu().isVisible());
  QStringList texts, names;
  for (const QAction* const action : Menu().actions()) {
    texts << action->text();
    names << action->objectName();
    EXPECT_TRUE(action->isEnabled());
  }
  EXPECT_THAT(texts, ElementsAre("画像をファイルに保存...", "データをCSVで保存..."));
  EXPECT_THAT(names, ElementsAre("savePictureAction", "saveCurvesAction"));
  EXPECT_EQ(Menu().accessibleName(), "グラフ");
  QTest::keyClick(&Menu(), Qt::Key_Escape);
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(GraphMenuTest, KeysOpenItOverTheGraph) {
  OpenByKey();
  EXPECT_TRUE(Menu().isVisible());
  EXPECT_TRUE(QRect(View().mapToGlobal(QPoint()), View().size()).contains(Menu().pos()));
  QTest::keyClick(&Menu(), Qt::Key_Escape);
  // The menu key comes as this event.
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(&View(), &byKey);
  EXPECT_TRUE(Menu().isVisible());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
}

TEST_F(GraphMenuTest, TheAccessibilityBusOpensIt) {
  QAccessibleActionInterface* const actions =
      QAccessible::queryAccessibleInterface(&View())->actionInterface();
  ASSERT_NE(actions, nullptr);
  EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::setFocusAction()));
  ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
  actions->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(Menu().isVisible());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
}

TEST_F(GraphMenuTest, APictureIsSavedByTheEndingOfItsName) {
  for (const char* const name : {"図.png", "b.SVG", "c.pdf"}) {
    files.Choose(folder.Path(name));
    ChoosePicture();
  }
  const QImage picture = QImage::fromData(ReadAll(folder.Path("図.png")), "PNG");
  EXPECT_EQ(picture.convertToFormat(QImage::Format_RGB32), View().Picture(2.0));
  EXPECT_EQ(picture.size(), View().Picture(1.0).size() * 2);
  EXPECT_TRUE(QSvgRenderer(ReadAll(folder.Path("b.SVG"))).isValid());
  EXPECT_TRUE(ReadAll(folder.Path("c.pdf")).startsWith("%PDF"));
  EXPECT_EQ(folder.Names(), (QStringList{"b.SVG", "c.pdf", "図.png"}));
  ASSERT_EQ(files.saved.size(), 3u);
  EXPECT_EQ(files.saved[0].title, "画像をファイルに保存");
  EXPECT_EQ(files.saved[0].proposedName, "周期－加速度応答スペクトル.png");
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(GraphMenuTest, ThePictureShowsNeitherPointerNorFocus) {
  const QImage before = View().Picture(2.0);
  QTest::mouseMove(&View(), View().rect().center());
  files.Choose(folder.Path("a.png"));
  ChoosePicture();
  EXPECT_EQ(QImage::fromData(ReadAll(folder.Path("a.png"))).convertToFormat(QImage::Format_RGB32), before);
}

TEST_F(GraphMenuTest, TheCurvesAreSavedAsTheyAreDrawn) {
  files.Choose(folder.Path("a.csv"));
  ChooseCurves();
  EXPECT_EQ(ReadAll(folder.Path("a.csv")).toStdString(), CurvesCsv(GraphKind::Spectrum, curves));
  EXPECT_TRUE(ReadAll(folder.Path("a.csv")).endsWith("\n10,100,0.3333333333333333\n1,900,0.1\n0.1,300,7\n"));
  ASSERT_EQ(files.saved.size(), 1u);
  EXPECT_EQ(files.saved[0].title, "データをCSVで保存");
  EXPECT_EQ(files.saved[0].proposedName, "周期－加速度応答スペクトル.csv");
}

TEST_F(GraphMenuTest, ACancelledDialogSavesNothing) {
  files.Cancel();
  ChoosePicture();
  files.Cancel();
  ChooseCurves();
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(GraphMenuTest, AnEndingThatIsNoPicturesIsRefusedInWords) {
  const QString path = folder.Write("a.jpg", "old");
  files.Choose(path);
  ChoosePicture();
  EXPECT_THAT(messages.shown, ElementsAre(Warning(UnknownPictureText(path))));
  EXPECT_EQ(ReadAll(path), "old");
}

TEST_F(GraphMenuTest, WhatCannotBeWrittenIsTold) {
  folder.Write("plain", "x");
  for (const char* const name : {"plain/a.png", "plain/a.svg", "plain/a.pdf"}) {
    files.Choose(folder.Path(name));
    ChoosePicture();
  }
  files.Choose(folder.Path("plain/a.csv"));
  ChooseCurves();
  std::vector<RecordedMessage> expected;
  for (const char* const name : {"a.png", "a.svg", "a.pdf", "a.csv"})
    expected.push_back(
        Warning(QStringLiteral("ファイルを保存できませんでした。\n") + folder.Path("plain/") + name));
  EXPECT_EQ(messages.shown, expected);
  EXPECT_EQ(folder.Names(), QStringList{"plain"});
}

#ifndef _WIN32

TEST_F(GraphMenuTest, AFullDiskLeavesTheOlderFileAndIsTold) {
  const QString csv = folder.Write("a.csv", "old"), svg = folder.Write("a.svg", "old");
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {40, 40};
    setrlimit(RLIMIT_FSIZE, &limit);
    files.Choose(svg);
    ChoosePicture();
    files.Choose(csv);
    ChooseCurves();
    const QString told = QStringLiteral("ファイルを保存できませんでした。\n");
    _exit(messages.shown == std::vector{Warning(told + svg), Warning(told + csv)} ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(ReadAll(csv), "old");
  EXPECT_EQ(ReadAll(svg), "old");
  EXPECT_EQ(folder.Names(), (QStringList{"a.csv", "a.svg"}));
}

#endif

TEST_F(GraphMenuTest, AnOlderFileIsReplaced) {
  files.Choose(folder.Write("a.csv", QByteArray(100000, 'x')));
  ChooseCurves();
  EXPECT_EQ(ReadAll(folder.Path("a.csv")).toStdString(), CurvesCsv(GraphKind::Spectrum, curves));
}

TEST_F(GraphMenuTest, WithoutAGraphNothingIsOffered) {
  hasGraph = false;
  panel.Refresh();
  OpenByKey();
  for (const QAction* const action : Menu().actions()) EXPECT_FALSE(action->isEnabled());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
  for (QAction* const action : Menu().actions()) {
    action->setEnabled(true);  // as left by another graph
    action->trigger();
  }
  EXPECT_THAT(files.saved, IsEmpty());
}

TEST_F(GraphMenuTest, WithoutALineThereIsOnlyThePicture) {
  curves = {{{}, {1000.0}, {1000.0}, {}}};
  panel.Refresh();
  OpenByKey();
  EXPECT_TRUE(Menu().actions().at(0)->isEnabled());
  EXPECT_FALSE(Menu().actions().at(1)->isEnabled());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
  curves = {{{}, {1.0, 2.0}, {1.0, 2.0}, {}}};
  panel.Refresh();
  OpenByKey();
  EXPECT_TRUE(Menu().actions().at(1)->isEnabled());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
}

TEST_F(GraphMenuTest, WhatTheUserSawIsSavedWhateverComesBehindTheDialog) {
  const std::string seen = CurvesCsv(GraphKind::Spectrum, curves);
  const QImage picture = View().Picture(2.0);
  files.change = [this] {
    hasGraph = false;
    panel.Refresh();
    panel.MakeNow();
  };
  files.Choose(folder.Path("a.csv"));
  ChooseCurves();
  EXPECT_EQ(ReadAll(folder.Path("a.csv")).toStdString(), seen);
  hasGraph = true;
  panel.Refresh();
  files.Choose(folder.Path("a.png"));
  ChoosePicture();
  EXPECT_EQ(QImage::fromData(ReadAll(folder.Path("a.png"))).convertToFormat(QImage::Format_RGB32), picture);
}

TEST_F(GraphMenuTest, BehindADialogNeitherTheMenuNorItsCommandsAct) {
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  View().AskForMenu();
  EXPECT_FALSE(Menu().isVisible());
  for (QAction* const action : Menu().actions()) action->trigger();
  Settle();
  EXPECT_THAT(files.saved, IsEmpty());
  dialog.hide();
  View().AskForMenu();
  EXPECT_TRUE(Menu().isVisible());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
}

}  // namespace
}  // namespace tremlo::test
