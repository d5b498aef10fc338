#include "window/shell/MainMenu.h"

#include <QAction>
#include <QDir>

namespace tremlo {

namespace {

QAction* Entry(QMenu* menu, const char* name, const QString& text, const QString& hint,
               const QKeySequence& keys = {}) {
  QAction* action = menu->addAction(text);
  action->setObjectName(QLatin1String(name));
  action->setStatusTip(hint);
  if (!keys.isEmpty()) action->setShortcut(keys);
  return action;
}

}  // namespace

MainMenu::MainMenu(QWidget* parent) : QMenuBar(parent) {
  setObjectName(QStringLiteral("menuBar"));
  AddFileMenu();
  AddSettingsMenu();
  AddHelpMenu();
}

void MainMenu::AddFileMenu() {
  QMenu* menu = addMenu(QStringLiteral("ファイル(&F)"));
  menu->setObjectName(QStringLiteral("fileMenu"));
  newProject = Entry(menu, "newProject", QStringLiteral("新規作成(&N)"),
                     QStringLiteral("新しいプロジェクトを作成します。"), Qt::CTRL | Qt::Key_N);
  openProject = Entry(menu, "openProject", QStringLiteral("開く(&O)..."),
                      QStringLiteral("保存したプロジェクトを開きます。"), Qt::CTRL | Qt::Key_O);
  saveProject = Entry(menu, "saveProject", QStringLiteral("上書き保存(&S)"),
                      QStringLiteral("プロジェクトを同じ名前で保存します。"), Qt::CTRL | Qt::Key_S);
  saveProjectAs = Entry(menu, "saveProjectAs", QStringLiteral("名前を付けて保存(&A)..."),
                        QStringLiteral("プロジェクトを別の名前で保存します。"));
  writeReport = Entry(menu, "writeReport", QStringLiteral("報告書の出力(PDF)..."),
                      QStringLiteral("プロジェクトの報告書をPDFで保存します。"));
  menu->addSeparator();
  m_recent = menu->addMenu(QStringLiteral("最近使ったファイル"));
  m_recent->setObjectName(QStringLiteral("recentMenu"));
  m_recent->menuAction()->setStatusTip(QStringLiteral("最近使ったプロジェクトを開きます。"));
  menu->addSeparator();
  exitProgram = Entry(menu, "exitProgram", QStringLiteral("アプリケーションの終了(&X)"),
                      QStringLiteral("プログラムを終了します。"));
}

void MainMenu::AddSettingsMenu() {
  QMenu* menu = addMenu(QStringLiteral("設定(&E)"));
  menu->setObjectName(QStringLiteral("settingsMenu"));
  apiParameters = Entry(menu, "apiParameters", QStringLiteral("断層APIパラメータ設定"),
                        QStringLiteral("断層データを検索する条件を設定します。"));
  adjustSettings = Entry(menu, "adjustSettings", QStringLiteral("波形調整設定"),
                         QStringLiteral("振幅調整の収束条件を設定します。"));
  clearMapCache = Entry(menu, "clearMapCache", QStringLiteral("地図画像キャッシュのクリア"),
                        QStringLiteral("保存してある地図画像を削除します。"));
  online = Entry(menu, "online", QStringLiteral("オンライン"),
                 QStringLiteral("オンラインとオフラインを切り替えます。"));
  online->setCheckable(true);
}

void MainMenu::AddHelpMenu() {
  QMenu* menu = addMenu(QStringLiteral("ヘルプ(&H)"));
  menu->setObjectName(QStringLiteral("helpMenu"));
  manual = Entry(menu, "manual", QStringLiteral("取り扱い説明書（PDF）"),
                 QStringLiteral("取り扱い説明書を開きます。"));
  supportPage = Entry(menu, "supportPage", QStringLiteral("サポートページ"),
                      QStringLiteral("サポートページをブラウザーで開きます。"));
  portalPage = Entry(menu, "portalPage", QStringLiteral("土木情報サービス「トレムネット」"),
                     QStringLiteral("土木情報サービスをブラウザーで開きます。"));
  updateCheck = Entry(menu, "updateCheck", QStringLiteral("アップデート確認"),
                      QStringLiteral("新しい版があるか確認します。"));
  menu->addSeparator();
  about = Entry(menu, "about", QStringLiteral("バージョン情報(&A)..."),
                QStringLiteral("プログラムの版と著作権を表示します。"));
}

void MainMenu::ShowRecent(const QStringList& paths) {
  m_recent->clear();
  int number = 0;
  for (const QString& path : paths) {
    QString shown = QDir::toNativeSeparators(path);
    shown.replace(u'&', QStringLiteral("&&"));
    QAction* action = m_recent->addAction(QStringLiteral("&%1 ").arg(++number % 10) + shown);
    connect(action, &QAction::triggered, this, [this, path] { Q_EMIT RecentChosen(path); });
  }
  m_recent->setEnabled(!paths.isEmpty());
}

QList<QAction*> MainMenu::RecentEntries() const {
  return m_recent->actions();
}

}  // namespace tremlo
