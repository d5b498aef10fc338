#include "window/shell/MainFrame.h"

#include "core/shell/TitleText.h"
#include "window/shell/LockKeyPanes.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>

namespace tremlo {

namespace {

constexpr int kFrameWidth = 1200;
constexpr int kFrameHeight = 800;

/// The step that leads to the screen gives it its name for those who hear the program.
QString TitleOf(ScreenId id) {
  if (id == ScreenId::Flowchart1 || id == ScreenId::Flowchart2 || id == ScreenId::Flowchart3)
    return TitleOf(ScreenId::FlowCheck);
  if (id == ScreenId::MakeSeismicWave2) return TitleOf(ScreenId::MakeSeismicWave1);
  for (int step = 0; step <= static_cast<int>(FlowStep::RespVisualization); ++step) {
    const FlowStepRow& row = RowOf(static_cast<FlowStep>(step));
    if (row.screen == id) return QString::fromUtf16(row.title);
  }
  return {};
}

void FocusFirstControl(QWidget* screen) {
  for (QWidget* next = screen->nextInFocusChain(); next != screen; next = next->nextInFocusChain()) {
    const bool takesFocus = (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabledTo(screen) &&
                            next->isVisibleTo(screen) && !next->focusProxy();
    if (!screen->isAncestorOf(next) || !takesFocus) continue;
    next->setFocus(Qt::OtherFocusReason);
    return;
  }
}

/// The one local file of a drag, or empty.
QString DraggedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

/// A drag enters, moves or ends; null for any other event.
QDropEvent* AsDrag(QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return static_cast<QDropEvent*>(event);
    default:
      return nullptr;
  }
}

/// A question, a dialog or a run stands in front of the window.
bool IsBlocked() {
  return QApplication::activeModalWidget() != nullptr;
}

}  // namespace

CMainFrame::CMainFrame()
    : m_menu(new MainMenu(this)), m_flowPane(new CPaneFlow(this)), m_clientArea(new QStackedWidget(this)) {
  setObjectName(QStringLiteral("mainFrame"));
  setMenuBar(m_menu);
  addDockWidget(Qt::LeftDockWidgetArea, m_flowPane);
  m_clientArea->setObjectName(QStringLiteral("clientArea"));
  m_clientArea->addWidget(new QWidget);  // on display until the first screen is shown
  setCentralWidget(m_clientArea);
  MakeStatusBar();
  setAcceptDrops(true);
  qApp->installEventFilter(this);
}

void CMainFrame::MakeStatusBar() {
  auto* ready = new QLabel(QStringLiteral("レディ"));
  ready->setObjectName(QStringLiteral("readyPane"));
  // A label of the bar, not a message: hints cover it and it comes back by itself.
  statusBar()->addWidget(ready);
  statusBar()->setObjectName(QStringLiteral("statusBar"));
  statusBar()->addPermanentWidget(new LockKeyPanes);
  m_samplePane = new QLabel;
  m_samplePane->setObjectName(QStringLiteral("samplePane"));
  m_samplePane->setTextFormat(Qt::PlainText);
  m_samplePane->setContentsMargins(4, 0, 4, 0);
  m_samplePane->hide();
  statusBar()->addPermanentWidget(m_samplePane);
}

void CMainFrame::AddScreen(ScreenId id, Screen* screen) {
  screen->setObjectName(WindowName(id));
  if (screen->accessibleName().isEmpty()) screen->setAccessibleName(TitleOf(id));
  auto* page = new QScrollArea;
  page->setFrameShape(QFrame::NoFrame);
  page->setFocusPolicy(Qt::NoFocus);
  page->setWidgetResizable(true);
  page->setWidget(screen);
  page->setEnabled(false);
  m_clientArea->addWidget(page);
  m_pages[id] = {screen, page};
}

Screen* CMainFrame::ScreenOf(ScreenId id) const {
  const auto found = m_pages.find(id);
  return found == m_pages.end() ? nullptr : found->second.screen;
}

Screen* CMainFrame::ScreenOnDisplay() const {
  for (const auto& [id, page] : m_pages)
    if (page.area == m_clientArea->currentWidget()) return page.screen;
  return nullptr;
}

void CMainFrame::SetRuns(std::function<bool()> missingSpectra, std::function<bool()> faultSpectra,
                         std::function<AdjustResult()> respAdjustment) {
  m_missingSpectra = std::move(missingSpectra);
  m_faultSpectra = std::move(faultSpectra);
  m_respAdjustment = std::move(respAdjustment);
}

void CMainFrame::SetTitle(const QString& title) {
  // Qt puts the mark of a modified document in place of "[*]"; doubled, it is text.
  QString text = title;
  setWindowTitle(text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void CMainFrame::ShowSampleFolders(const std::vector<QString>& folders) {
  m_samplePane->setText(SampleTablesText(folders));
  m_samplePane->setVisible(!folders.empty());
}

void CMainFrame::ShowCentred() {
  const QRect monitor = screen()->geometry();
  // Of the window itself: what a window manager puts around it comes on top.
  setGeometry(monitor.x() + monitor.width() / 2 - kFrameWidth / 2,
              monitor.y() + monitor.height() / 2 - kFrameHeight / 2, kFrameWidth, kFrameHeight);
  // On a smaller monitor caption and menu would lie outside.
  if (monitor.width() < kFrameWidth || monitor.height() < kFrameHeight)
    showMaximized();
  else
    show();
}

void CMainFrame::Prepare(ScreenId id) {
  if (Screen* screen = ScreenOf(id)) screen->Prepare();
}

void CMainFrame::Show(ScreenId id) {
  const auto found = m_pages.find(id);
  if (found == m_pages.end()) return;
  found->second.area->setEnabled(true);
  m_clientArea->setCurrentWidget(found->second.area);
  FocusFirstControl(found->second.screen);
  // The accessibility bus presses hidden buttons too, and a press takes effect a moment later, when its
  // screen may have left.
  for (const auto& [other, page] : m_pages) page.area->setEnabled(other == id);
  found->second.area->update();
}

void CMainFrame::Entered(ScreenId id) {
  if (Screen* screen = ScreenOf(id)) screen->Entered();
}

void CMainFrame::Left(ScreenId id) {
  if (Screen* screen = ScreenOf(id)) screen->Left();
}

void CMainFrame::Refresh(ScreenId id) {
  if (Screen* screen = ScreenOf(id)) screen->Refresh();
}

bool CMainFrame::ComputeMissingSpectra() {
  return m_missingSpectra();
}

bool CMainFrame::CalculateFaultSpectra() {
  return m_faultSpectra();
}

AdjustResult CMainFrame::RunRespAdjustment() {
  return m_respAdjustment();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
  event->setAccepted(!m_mayClose || m_mayClose());
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!IsBlocked() && !DraggedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
  const QString path = DraggedFile(event->mimeData());
  if (IsBlocked() || path.isEmpty()) return;
  event->acceptProposedAction();
  // Questions come after the drag is over, or the program it comes from would wait for their answers.
  QMetaObject::invokeMethod(
      this, [this, path] { Q_EMIT FileDropped(path); }, Qt::QueuedConnection);
}

bool CMainFrame::eventFilter(QObject* watched, QEvent* event) {
  QDropEvent* const drag = AsDrag(event);
  // A file is for the window, whatever it is dropped on: a field would take its address as text.
  const bool onControl =
      drag && watched != this && watched->isWidgetType() && isAncestorOf(static_cast<QWidget*>(watched));
  if (!onControl || DraggedFile(drag->mimeData()).isEmpty()) return QMainWindow::eventFilter(watched, event);
  event->ignore();
  return true;
}

}  // namespace tremlo
