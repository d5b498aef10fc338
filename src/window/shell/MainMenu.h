#pragma once

#include <QMenuBar>

class QAction;

namespace tremlo {

/// The menu bar of the window. Its entries are told of by their actions.
class MainMenu : public QMenuBar {
  Q_OBJECT
 public:
  explicit MainMenu(QWidget* parent = nullptr);

  void ShowRecent(const QStringList& paths);
  QList<QAction*> RecentEntries() const;

  QAction* newProject = nullptr;
  QAction* openProject = nullptr;
  QAction* saveProject = nullptr;
  QAction* saveProjectAs = nullptr;
  QAction* writeReport = nullptr;
  QAction* exitProgram = nullptr;
  QAction* apiParameters = nullptr;
  QAction* adjustSettings = nullptr;
  QAction* clearMapCache = nullptr;
  QAction* online = nullptr;
  QAction* manual = nullptr;
  QAction* supportPage = nullptr;
  QAction* portalPage = nullptr;
  QAction* updateCheck = nullptr;
  QAction* about = nullptr;

 Q_SIGNALS:
  void RecentChosen(const QString& path);

 private:
  void AddFileMenu();
  void AddSettingsMenu();
  void AddHelpMenu();

  QMenu* m_recent = nullptr;
};

}  // namespace tremlo
