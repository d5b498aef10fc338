#pragma once

#include "window/shell/FlowPane.h"
#include "window/shell/MainMenu.h"
#include "window/shell/ScreenTable.h"

#include <QMainWindow>

#include <functional>
#include <map>
#include <vector>

class QLabel;
class QScrollArea;
class QStackedWidget;

namespace tremlo {

/// The top window: menu, flow pane at the left, status bar, and one client area in which exactly one screen
/// is visible. It carries out what the work procedure decides and decides nothing itself.
class CMainFrame : public QMainWindow, public ScreenHost {
  Q_OBJECT
 public:
  CMainFrame();

  MainMenu* Menu() const { return m_menu; }
  CPaneFlow* Pane() const { return m_flowPane; }

  /// Takes a screen over, hidden.
  void AddScreen(ScreenId id, Screen* screen);
  Screen* ScreenOf(ScreenId id) const;  ///< null when there is none of that number
  Screen* ScreenOnDisplay() const;      ///< null before the first
  /// The calculations of the gates.
  void SetRuns(std::function<bool()> missingSpectra, std::function<bool()> faultSpectra,
               std::function<AdjustResult()> respAdjustment);
  /// Asked when the window is to close; false keeps it open.
  void SetCloseQuestion(std::function<bool()> mayClose) { m_mayClose = std::move(mayClose); }

  void SetTitle(const QString& title);
  /// Folders whose tables are samples: while there are any, a pane of the status bar names them.
  void ShowSampleFolders(const std::vector<QString>& folders);
  /// 1200 by 800 in the middle of the monitor; maximised on a smaller one.
  void ShowCentred();

  bool Has(ScreenId id) const override { return ScreenOf(id) != nullptr; }
  void Prepare(ScreenId id) override;
  void Show(ScreenId id) override;
  void Entered(ScreenId id) override;
  void Left(ScreenId id) override;
  void Refresh(ScreenId id) override;
  bool ComputeMissingSpectra() override;
  bool CalculateFaultSpectra() override;
  AdjustResult RunRespAdjustment() override;

 Q_SIGNALS:
  void FileDropped(const QString& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeStatusBar();

  MainMenu* m_menu;
  CPaneFlow* m_flowPane;
  QStackedWidget* m_clientArea;
  QLabel* m_samplePane = nullptr;
  /// A screen, and the page of the client area that scrolls it.
  struct Page {
    Screen* screen = nullptr;
    QScrollArea* area = nullptr;
  };
  std::map<ScreenId, Page> m_pages;
  std::function<bool()> m_missingSpectra;
  std::function<bool()> m_faultSpectra;
  std::function<AdjustResult()> m_respAdjustment;
  std::function<bool()> m_mayClose;
};

}  // namespace tremlo
