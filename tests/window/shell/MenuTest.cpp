#include "core/location/OnlineMode.h"
#include "core/project/ChangeQuestions.h"
#include "core/shell/ProgramCommit.h"
#include "core/shell/TitleText.h"
#include "support/CurrentFolder.h"
#include "support/LocalService.h"
#include "support/UpdateChecker.h"
#include "window/shell/AboutDlg.h"
#include "window/shell/MainMenu.h"
#include "window/shell/ShellParts.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QLabel>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::LocalService;
using testing::ElementsAre;
using testing::IsEmpty;

/// Takes the place of the desktop's programs.
class Desktop : public QObject {
  Q_OBJECT
 public:
  Desktop() {
    for (const char* scheme : {"file", "https"})
      QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Open");
  }
  ~Desktop() override {
    for (const char* scheme : {"file", "https"}) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
  }
  QList<QUrl> opened;

 public Q_SLOTS:
  void Open(const QUrl& url) { opened << url; }
};

class MenuTest : public test::ShellTest {
 protected:
  QStringList Entries(int menu) {
    QStringList texts;
    for (const QAction* entry : Menu()->actions().at(menu)->menu()->actions())
      if (!entry->isSeparator()) texts << entry->text();
    return texts;
  }
  void PressHelp() {
    app->Frame()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
    QTest::keyClick(app->Frame(), Qt::Key_F1);
  }
};

TEST_F(MenuTest, EntriesStandInTheirOrder) {
  StartNew(TopChoice::ResponseRoute);
  QStringList menus;
  for (const QAction* menu : Menu()->actions()) menus << menu->text();
  EXPECT_THAT(menus, ElementsAre("ファイル(&F)", "設定(&E)", "ヘルプ(&H)"));
  EXPECT_THAT(Entries(0),
              ElementsAre("新規作成(&N)", "開く(&O)...", "上書き保存(&S)", "名前を付けて保存(&A)...",
                          "報告書の出力(PDF)...", "最近使ったファイル", "アプリケーションの終了(&X)"));
  EXPECT_THAT(Entries(1), ElementsAre("断層APIパラメータ設定", "波形調整設定", "地図画像キャッシュのクリア",
                                      "オンライン"));
  EXPECT_THAT(Entries(2),
              ElementsAre("取り扱い説明書（PDF）", "サポートページ", "土木情報サービス「トレムネット」",
                          "アップデート確認", "バージョン情報(&A)..."));
}

TEST_F(MenuTest, ShortcutsReachTheCommands) {
  StartNew(TopChoice::ResponseRoute);
  ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  files.Expect("open", {});
  QTest::keyClick(app->Frame(), Qt::Key_O, Qt::ControlModifier);
  files.Expect("save", {});
  QTest::keyClick(app->Frame(), Qt::Key_S, Qt::ControlModifier);
  choices = {TopChoice::ResponseRoute};
  QTest::keyClick(app->Frame(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_THAT(TakeLog(), ElementsAre("top", "refresh 59662"));
}

TEST_F(MenuTest, EntriesOfTheGuidelineRouteAreGreyInTheOther) {
  StartNew(TopChoice::ResponseRoute);
  for (const QAction* entry : {Menu()->apiParameters, Menu()->clearMapCache, Menu()->online})
    EXPECT_FALSE(entry->isEnabled()) << entry->text().toStdString();
  EXPECT_TRUE(Menu()->adjustSettings->isEnabled());
  app.reset();
  StartNew(TopChoice::GuidelineRoute);
  for (const QAction* entry : {Menu()->apiParameters, Menu()->clearMapCache, Menu()->online})
    EXPECT_TRUE(entry->isEnabled()) << entry->text().toStdString();
}

TEST_F(MenuTest, TheReportIsOfferedWhileTheWaveOnDisplayIsAdjusted) {
  StartNew(TopChoice::ResponseRoute);
  // Nobody opens the menu.
  const auto offered = [&] {
    QEventLoop loop;
    QTimer::singleShot(std::chrono::milliseconds(1), &loop, &QEventLoop::quit);
    loop.exec();
    return Menu()->writeReport->isEnabled();
  };
  EXPECT_FALSE(offered());
  Doc().seedWaves.Add(QStringLiteral("A"));
  CSeismicWave& wave = Doc().seedWaves.At(0);
  wave.adjusted = true;
  wave.adjustedAcc = {1.0};
  EXPECT_TRUE(offered());
  Menu()->writeReport->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("report"));
  wave.adjusted = false;
  EXPECT_FALSE(offered());
  Menu()->writeReport->trigger();
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(MenuTest, FailedAttemptToGoOnlineLeavesMarkAndTitle) {
  StartNew(TopChoice::GuidelineRoute);
  const QString title = Title();
  ExpectOffline();
  Menu()->online->trigger();
  EXPECT_FALSE(Menu()->online->isChecked());
  EXPECT_FALSE(app->Online().IsOnline());
  EXPECT_EQ(Title(), title);
  EXPECT_THAT(TakeLog(), ElementsAre("box", "box", "refresh 59649"));
}

TEST_F(MenuTest, OnlineGoesOffWithoutARequestAndComesBackWithTheProbes) {
  const LocalService service;
  ASSERT_TRUE(service.IsReady());
  settings.services = service.Settings();
  Make();
  choices = {TopChoice::GuidelineRoute};
  ASSERT_EQ(Start(), std::nullopt);
  EXPECT_TRUE(Menu()->online->isChecked());
  TakeLog();
  Menu()->online->trigger();
  EXPECT_FALSE(Menu()->online->isChecked());
  EXPECT_TRUE(Title().endsWith(QStringLiteral("　(オフライン)")));
  EXPECT_EQ(service.Paths().size(), 4);
  EXPECT_THAT(TakeLog(), ElementsAre("refresh 59649")) << "the active screen shows the change";
  Menu()->online->trigger();
  EXPECT_TRUE(Menu()->online->isChecked());
  EXPECT_EQ(Title(), QStringLiteral("無題 - Tremlo Version1.00 "));
  EXPECT_EQ(service.Paths().size(), 8);
}

TEST_F(MenuTest, HazardServiceDownIsOfflineWithOneMessage) {
  const LocalService service;
  ASSERT_TRUE(service.IsReady());
  settings.services = service.Settings();
  settings.services.hazardAddress = service.Address(QStringLiteral("refused"));
  Make();
  choices = {TopChoice::GuidelineRoute};
  prompt.ExpectMessage(QStringLiteral("J-SHIS OffLine"));
  ASSERT_EQ(Start(), std::nullopt);
  EXPECT_FALSE(Menu()->online->isChecked());
}

TEST_F(MenuTest, AdjustSettingsOpenAfterTheirQuestion) {
  StartNew(TopChoice::GuidelineRoute);
  Menu()->adjustSettings->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("adjust dialog"));
  Doc().seedWaves.Add(QStringLiteral("A"));
  Doc().seedWaves.At(0).adjusted = true;
  prompt.ExpectQuestion(AdjustSettingsQuestion(), PromptAnswer::No);
  Menu()->adjustSettings->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("box"));
  EXPECT_TRUE(Doc().seedWaves.At(0).adjusted);
  prompt.ExpectQuestion(AdjustSettingsQuestion(), PromptAnswer::Yes);
  Menu()->adjustSettings->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("box", "refresh 59649", "adjust dialog"));
  EXPECT_FALSE(Doc().seedWaves.At(0).adjusted);
}

TEST_F(MenuTest, ApiParametersOpenAfterTheirQuestion) {
  StartNew(TopChoice::GuidelineRoute);
  Menu()->apiParameters->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("API dialog"));
  Doc().faults.resize(1);
  prompt.ExpectQuestion(ApiParametersQuestion(Doc().apiParameters), PromptAnswer::No);
  Menu()->apiParameters->trigger();
  EXPECT_THAT(TakeLog(), ElementsAre("box"));
  EXPECT_EQ(Doc().faults.size(), 1u);
  prompt.ExpectQuestion(ApiParametersQuestion(Doc().apiParameters), PromptAnswer::Yes);
  Menu()->apiParameters->trigger();
  EXPECT_EQ(TakeLog().back(), u"API dialog");
  EXPECT_TRUE(Doc().faults.empty());
}

TEST_F(MenuTest, MapCacheGoesOnYesAlone) {
  StartNew(TopChoice::GuidelineRoute);
  const QString tile = folder.Write(QStringLiteral("_cache/15/1.png"), "x");
  const QString question = QString::fromUtf16(kClearMapCacheQuestion);
  prompt.ExpectQuestion(question, PromptAnswer::No);
  Menu()->clearMapCache->trigger();
  EXPECT_TRUE(QFile::exists(tile));
  prompt.ExpectQuestion(question, PromptAnswer::Yes);
  Menu()->clearMapCache->trigger();
  EXPECT_FALSE(QDir(folder.Path(QStringLiteral("_cache"))).exists());
}

TEST_F(MenuTest, ManualIsOpenedOrItsPlaceIsTold) {
  Desktop desktop;
  StartNew(TopChoice::ResponseRoute);
  const QString path = folder.Path(QStringLiteral("SystemData/manual.pdf"));
  const QString missing = QStringLiteral("取り扱い説明書がありません。次の場所に置いてください。\n") + path +
                          QStringLiteral("\n\nソースからは、コマンド scripts/manual で作れます。");
  prompt.ExpectMessage(missing);
  Menu()->manual->trigger();
  prompt.ExpectMessage(missing);
  PressHelp();
  EXPECT_THAT(desktop.opened, IsEmpty());
  EXPECT_EQ(app->Frame()->statusBar()->currentMessage(), QString());
  folder.Write(QStringLiteral("SystemData/manual.pdf"), "%PDF");
  Menu()->manual->trigger();
  EXPECT_THAT(desktop.opened, ElementsAre(QUrl::fromLocalFile(path)));
  // A desktop without a viewer does not tell so: the user can open the file otherwise.
  EXPECT_EQ(app->Frame()->statusBar()->currentMessage(), QStringLiteral("取り扱い説明書：") + path);
}

TEST_F(MenuTest, ManualOfTheSystemIsOpened) {
  Desktop desktop;
  settings.folders = ProgramFolders(folder.Path(QStringLiteral("own")), {folder.Path()});
  StartNew(TopChoice::ResponseRoute);
  const QString path = folder.Write(QStringLiteral("SystemData/manual.pdf"), "%PDF");
  Menu()->manual->trigger();
  EXPECT_THAT(desktop.opened, ElementsAre(QUrl::fromLocalFile(path)));
}

TEST_F(MenuTest, TheHelpKeyOpensTheManualWhereTheScreenIsDescribed) {
  Desktop desktop;
  StartNew(TopChoice::GuidelineRoute);
  const QString path = folder.Write(QStringLiteral("SystemData/manual.pdf"), "%PDF");
  folder.Write(QStringLiteral("SystemData/manual.pages"), "guideline\t9\nguideline/作業手順の確認\t12\n");
  PressHelp();
  Press(FlowStep::FlowCheck);
  PressHelp();
  QUrl chapter = QUrl::fromLocalFile(path);
  chapter.setFragment(QStringLiteral("page=9"));
  QUrl section = QUrl::fromLocalFile(path);
  section.setFragment(QStringLiteral("page=12"));
  EXPECT_THAT(desktop.opened, ElementsAre(chapter, section));
  EXPECT_EQ(app->Frame()->statusBar()->currentMessage(),
            QStringLiteral("取り扱い説明書の 12 ページ：") + path);
}

TEST_F(MenuTest, WithoutItsPagesTheManualIsOpenedAtItsBeginning) {
  Desktop desktop;
  StartNew(TopChoice::ResponseRoute);
  const QString path = folder.Write(QStringLiteral("SystemData/manual.pdf"), "%PDF");
  PressHelp();
  folder.Write(QStringLiteral("SystemData/manual.pages"), "first-wave\tfive\n");
  PressHelp();
  const QUrl plain = QUrl::fromLocalFile(path);
  EXPECT_THAT(desktop.opened, ElementsAre(plain, plain));
  EXPECT_EQ(app->Frame()->statusBar()->currentMessage(), QStringLiteral("取り扱い説明書：") + path);
}

TEST_F(MenuTest, PagesAreOpenedInTheBrowser) {
  Desktop desktop;
  settings.supportPage = QStringLiteral("https://127.0.0.1/support");
  settings.portalPage = QStringLiteral("https://127.0.0.1/portal");
  StartNew(TopChoice::ResponseRoute);
  Menu()->supportPage->trigger();
  Menu()->portalPage->trigger();
  EXPECT_THAT(desktop.opened, ElementsAre(QUrl(settings.supportPage), QUrl(settings.portalPage)));
}

TEST_F(MenuTest, PageWithoutAddressIsTold) {
  Desktop desktop;
  settings.supportPage.clear();
  settings.portalPage.clear();
  StartNew(TopChoice::ResponseRoute);
  for (QAction* entry : {Menu()->supportPage, Menu()->portalPage}) {
    prompt.ExpectMessage(QStringLiteral("ページの宛先が設定されていません。"), PromptIcon::Information);
    entry->trigger();
  }
  EXPECT_THAT(desktop.opened, IsEmpty());
}

TEST_F(MenuTest, UpdateCheckWithoutItsProgramIsSilent) {
  StartNew(TopChoice::ResponseRoute);
  Menu()->updateCheck->trigger();
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(MenuTest, UpdateCheckTellsThatTheUserAsked) {
  StartNew(TopChoice::ResponseRoute);
  const test::CurrentFolder here(folder.Path());
  test::WriteUpdateChecker(folder);
  Menu()->updateCheck->trigger();
  EXPECT_EQ(test::UpdateCheckerArguments(folder), "TRML|FromUser|");
}

TEST_F(MenuTest, AboutBoxTellsVersionLegalLineAndSampleTables) {
  StartNew(TopChoice::ResponseRoute);
  bool shown = false;
  test::WhenModal(QStringLiteral("aboutDlg"), [&](QWidget* window) {
    shown = true;
    EXPECT_EQ(window->windowTitle(), QStringLiteral("バージョン情報"));
    const auto text = [&](const char* name) {
      return window->findChild<QLabel*>(QLatin1String(name))->text();
    };
    EXPECT_TRUE(text("version").contains(QStringLiteral("Version 1.00")));
    EXPECT_EQ(text("legalLine"), LegalLine());
    EXPECT_EQ(text("tablePlaces"), QStringLiteral("使用中の表\n") + TablePlacesText(folder.Path()));
    if (*kProgramCommit) {
      EXPECT_TRUE(text("commit").endsWith(QString::fromLatin1(kProgramCommit)));
    }
    EXPECT_TRUE(text("hazardNotice").contains(QStringLiteral("J-SHIS")));
    EXPECT_TRUE(
        text("sampleTables").startsWith(QStringLiteral("見本の表を使用中：DamCoef、LowSpec、SystemData\n")));
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("ok")), Qt::LeftButton);
  });
  Menu()->about->trigger();
  EXPECT_TRUE(shown);
}

TEST_F(MenuTest, AboutBoxIsSilentOnPublishedTables) {
  const test::TestFolder published;
  const CAboutDlg about(published.Path(), nullptr);
  EXPECT_EQ(about.findChild<QLabel*>(QStringLiteral("sampleTables")), nullptr);
}

}  // namespace
}  // namespace tremlo

#include "MenuTest.moc"
