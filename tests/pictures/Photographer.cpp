#include "pictures/Photographer.h"

#include "window/graphs/FrontWindow.h"
#include "window/graphs/MessageBox.h"
#include "window/graphs/Spread7.h"
#include "window/location/MapControl.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace tremlo::pictures {

namespace {

constexpr int kLongestWaitMs = 120000;
constexpr int kMargin = 12;  // pixels
constexpr char kAnswered[] = "answered";
constexpr char kProgramFolder[] = "tremlo";  // in the current folder: pictures show its path

void CopyTables(const QString& to) {
  for (const char* name : {"DamCoef", "LowSpec", "SystemData"}) {
    const QDir from(QStringLiteral(TREMLO_SOURCE_DIR "/data/") + QLatin1String(name));
    const QDir target(QDir(to).filePath(QLatin1String(name)));
    if (!target.mkpath(QStringLiteral("."))) qFatal("no folder for the tables");
    for (const QString& file : from.entryList(QDir::Files))
      if (!QFile::copy(from.filePath(file), target.filePath(file))) qFatal("a table cannot be copied");
  }
}

void Await(const char* what, const std::function<bool()>& there) {
  QElapsedTimer clock;
  clock.start();
  while (!there()) {
    if (clock.hasExpired(kLongestWaitMs)) qFatal("%s did not come", what);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
  }
}

}  // namespace

void Settle() {
  for (int i = 0; i < 6; ++i) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
}

PromptAnswer Photographer::Answers::Show(const PromptBox& box) {
  if (const char* const picture = std::exchange(m_owner.nextBox, nullptr)) {
    m_owner.OnDialog("prompt", [this, picture](QWidget& window) {
      m_owner.Take(picture, window);
      window.close();
    });
    return ShowMessageBox(FrontWindow(), box);
  }
  if (box.buttons == PromptButtons::Ok) {
    std::fprintf(stderr, "The program tells: %s\n", qUtf8Printable(box.text));
    return PromptAnswer::Ok;
  }
  // Whether a modified project is to be saved: no.
  return box.buttons == PromptButtons::YesNoCancel ? PromptAnswer::No : PromptAnswer::Yes;
}

QString Photographer::ProgramFolder() {
  return QLatin1String(kProgramFolder);
}

Photographer::Photographer(const QString& folder, const test::LocalService& service, TopChoice route)
    : m_folder(folder) {
  QDir(ProgramFolder()).removeRecursively();
  CopyTables(ProgramFolder());
  ProgramSettings settings;
  settings.services = service.Settings();
  settings.services.probePauseMs = 0;
  settings.splashMs = 0;
  settings.folders = ProgramFolders(ProgramFolder());
  ProgramDoors doors;
  doors.prompt = &m_answers;
  doors.files = &m_files;
  doors.askRoute = [route](QWidget*) { return route; };
  doors.endProgram = [](int status) {
    if (status != 0) qFatal("the program has ended with %d", status);
  };
  m_app = std::make_unique<CMorvaneApp>(settings, ProgramScreens(), doors);
  if (m_app->Start({QStringLiteral("tremlo")})) qFatal("the program has not started");
  Frame().activateWindow();
  Settle();
}

Photographer::~Photographer() {
  Doc().SetModified(false);
}

void Photographer::Press(const char* button) {
  auto& control = Find<QAbstractButton>(button);
  QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
  Settle();
}

void Photographer::PressStep(FlowStep step) {
  QTest::mouseClick(Frame().Pane()->StepsOf(step)->Button(step), Qt::LeftButton);
  Settle();
  Frame().activateWindow();
  Settle();
}

void Photographer::ClickCell(const char* grid, int row, int column) {
  auto& cells = Find<CSpread7>(grid);
  const QModelIndex index = cells.model()->index(row - 1, column - 1);
  cells.scrollTo(index);
  Settle();
  QTest::mouseClick(cells.viewport(), Qt::LeftButton, {}, cells.visualRect(index).center());
  Settle();
}

void Photographer::TypeCell(const char* grid, int row, int column, const QString& text) {
  auto& cells = Find<CSpread7>(grid);
  cells.setFocus();
  cells.SelectCell(row, column);
  QTest::keyClick(&cells, Qt::Key_F2);
  auto* const editor = cells.viewport()->findChild<QLineEdit*>();
  if (!editor) qFatal("no editor in %s", grid);
  editor->selectAll();
  editor->insert(text);
  QTest::keyClick(editor, Qt::Key_Return);
  Settle();
}

void Photographer::ZoomMap(int turns) {
  AwaitMap();
  auto& map = Find<MapControl>("map");
  const QPointF centre = map.rect().center();
  for (int i = 0; i < turns; ++i) {
    QWheelEvent turn(centre, map.mapToGlobal(centre), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&map, &turn);
    Settle();
  }
  AwaitMap();
}

void Photographer::AwaitMap() {
  auto& map = Find<MapControl>("map");
  Await("the map", [&map] { return !map.accessibleDescription().isEmpty(); });
  // Its tiles arrive one after the other.
  QImage before;
  int still = 0;
  Await("the last tile", [&] {
    QTest::qWait(50);
    const QImage now = map.grab().toImage();
    still = now == before ? still + 1 : 0;
    before = now;
    return still >= 10;
  });
}

void Photographer::Keep(const char* picture, const QPixmap& pixmap) {
  const QString path = m_folder.filePath(QLatin1String(picture) + QStringLiteral(".png"));
  if (pixmap.isNull() || !pixmap.toImage().convertToFormat(QImage::Format_RGB32).save(path))
    qFatal("no picture %s", picture);
}

void Photographer::TakeFrame(const char* picture) {
  Settle();
  Keep(picture, Frame().grab());
}

void Photographer::Take(const char* picture, QWidget& widget) {
  Settle();
  Keep(picture, widget.grab());
}

void Photographer::TakeSteps(const char* picture) {
  CPaneFlow& pane = *Frame().Pane();
  int bottom = 0;
  for (const QAbstractButton* button : pane.StepsOnDisplay()->findChildren<QAbstractButton*>())
    bottom = std::max(bottom, button->mapTo(&pane, button->rect().bottomLeft()).y());
  Keep(picture, pane.grab({0, 0, pane.width(), bottom + kMargin}));
}

void Photographer::OnDialog(const QByteArray& name, std::function<void(QWidget&)> act) {
  auto* const timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, name, act = std::move(act)] {
    QWidget* const window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || window->objectName() != QLatin1String(name)) return;
    timer->stop();
    timer->deleteLater();
    act(*window);
  });
  timer->start(5);
}

void Photographer::TakeDialog(const char* picture, const char* dialog, const std::function<void()>& open,
                              const std::function<void(QWidget&)>& then) {
  bool taken = false;
  OnDialog(dialog, [&](QWidget& window) {
    Take(picture, window);
    taken = true;
    if (then) then(window);
    if (!then && window.isVisible()) QTest::keyClick(&window, Qt::Key_Escape);
  });
  open();
  Settle();
  if (!taken) qFatal("no dialog for %s", picture);
  Frame().activateWindow();
  Settle();
}

void Photographer::AnswerDialogs(const std::vector<Reply>& replies, const std::function<void()>& act) {
  std::size_t next = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    QWidget* const window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || next >= replies.size() || window->property(kAnswered).toBool())
      return;
    const Reply reply = replies[next];
    auto* const button = window->findChild<QAbstractButton*>(QLatin1String(reply.button));
    if (!button) return;
    ++next;
    window->setProperty(kAnswered, true);
    if (reply.picture) Take(reply.picture, *window);
    if (reply.behind) TakeFrame(reply.behind);
    button->click();
  });
  timer.start(5);
  act();
  Await("the last answer", [&] { return next == replies.size(); });
  Settle();
  Frame().activateWindow();
  Settle();
}

void TakeStanding(Photographer& camera, const char* picture, QWidget& dialog) {
  dialog.show();
  Settle();
  camera.Take(picture, dialog);
  dialog.hide();
}

}  // namespace tremlo::pictures
