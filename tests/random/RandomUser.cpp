#include "random/RandomUser.h"

#include "core/project/ProjectFile.h"
#include "random/DocumentInvariants.h"
#include "random/ScreenAgreesWithDocument.h"
#include "window/graphs/RunDialog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

#include <array>

namespace tremlo::test {

namespace {

constexpr int kProgramLoop = 1;
constexpr int kQuietBeats = 3;        // what an action has left to the event loop is done
constexpr int kMostActivations = 50;  // of one window that does not take it
constexpr int kPatienceMs = 250;      // longer than what a screen sets going for a moment
// They go by their way, which 戻る and a YES lead past the answer that the document keeps.
constexpr const char* kOpenedByQuestions = "the step 距離減衰式（断層） is open against the document";
constexpr int kActionsInRun = 3;
constexpr int kRunLimitMs = 120000;  // of the slowest run there is, under sanitizers on a busy machine
constexpr int kDialogLimit = 600;    // actions in one dialog, with ever more attempts to leave it
constexpr int kRoadPercent = 40;
constexpr int kRoundTripPercent = 3;
constexpr std::array kSchemes{"http", "https", "file"};

/// The dialog of the run that goes on, be it behind a box that the run has put up.
QWidget* VisibleRun() {
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (qobject_cast<RunDialog*>(window) && window->isVisible()) return window;
  return nullptr;
}

bool HasNamesakes(const CMorvaneDoc& doc) {
  const std::vector<QString> names = doc.seedWaves.Names();
  return std::set<QString>(names.begin(), names.end()).size() != names.size();
}

}  // namespace

RandomUser::RandomUser(const RandomUserLimits& limits, Diary& diary)
    : m_limits(limits),
      m_diary(diary),
      m_random(limits.seed),
      m_files(m_samples, m_random, diary),
      m_prompt(diary),
      m_hands(m_random, diary, m_samples, m_files, m_service),
      m_road(m_random, m_hands) {
  m_settings.services = m_service.Settings();
  m_settings.services.hazard.connectAttempts = 1;
  m_settings.services.hazard.connectTimeoutMs = m_settings.services.hazard.silenceTimeoutMs = 700;
  m_settings.services.tiles = m_settings.services.hazard;
  m_settings.folders = m_samples.ProgramFolder();
  m_settings.splashMs = 0;
  // Pages and the manual open nothing.
  for (const char* scheme : kSchemes)
    QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "OpenNothing");
}

RandomUser::~RandomUser() {
  for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
}

std::string RandomUser::Run() {
  if (!m_service.IsReady()) return "the local service does not start";
  m_clock.start();
  m_sinceAction.start();
  while (!IsOver()) RunProgramOnce();
  m_app.reset();
  return m_failure;
}

bool RandomUser::IsOver() const {
  return !m_failure.empty() || (m_limits.actions > 0 && m_diary.Actions() >= m_limits.actions) ||
         (m_limits.seconds > 0 && m_clock.hasExpired(qint64{1000} * m_limits.seconds));
}

void RandomUser::MakeProgram() {
  ProgramDoors doors;
  doors.prompt = &m_prompt;
  doors.files = &m_files;
  doors.endProgram = [this](int status) {
    m_diary.Note(QStringLiteral("the program ends with %1").arg(status));
    if (status != 0) Fail("the program has ended with " + std::to_string(status));
    m_ended = true;
    QCoreApplication::exit();
  };
  m_app = std::make_unique<CMorvaneApp>(m_settings, ProgramScreens(), doors);
}

void RandomUser::RunProgramOnce() {
  m_ended = false;
  ++m_programs;
  m_before.reset();
  m_behind.reset();
  m_broughtByFile.clear();
  m_hands.SetFrame(nullptr);
  m_app.reset();
  MakeProgram();
  m_prompt.Watch(&m_app->Document());
  m_files.SetDocument(&m_app->Document());
  m_road.SetProgram(m_app.get());
  QStringList arguments{QStringLiteral("tremlo")};
  if (m_random.Percent(35)) arguments << m_samples.Project(m_random);
  m_diary.Begin("start", arguments.join(u' '));
  AwaitBeat(0);
  if (!m_app->Start(arguments) && !IsOver()) QCoreApplication::exec();
  m_prompt.Watch(nullptr);
  m_files.SetDocument(nullptr);
  m_road.SetProgram(nullptr);
}

void RandomUser::AwaitBeat(int delayMs) {
  // By a timer, so that timers have their turn, and behind it by a posted event: on a busy machine several
  // beats of timers alone come before what an action has posted.
  const auto beat = [this, program = m_programs] {
    // The last beat of a program that has ended would go on beside those of the next.
    if (program == m_programs) Beat();
  };
  QTimer::singleShot(delayMs, this,
                     [this, beat] { QMetaObject::invokeMethod(this, beat, Qt::QueuedConnection); });
}

void RandomUser::Beat() {
  ++m_beats;
  if (IsOver()) {
    // Out of every loop, those of the dialogs included.
    if (m_app) m_app->Document().SetModified(false);
    m_ended = true;
    QCoreApplication::exit();
    return;
  }
  if (m_ended) return;
  if (!IsSettled()) {
    AwaitBeat(QApplication::activeModalWidget() ? 2 : 0);
    return;
  }
  if (!m_checked) Check();
  m_checked = false;
  m_quietBeats = m_activations = 0;
  m_patient = m_random.Percent(85);
  m_sinceAction.restart();
  // Armed before the action: what it opens has a loop of its own.
  AwaitBeat(0);
  if (m_failure.empty()) Act();
}

bool RandomUser::IsSettled() {
  QWidget* const window = FrontmostWindow(Frame());
  if (!window || !window->isVisible()) return false;
  // A dialog that has been answered has gone, and the command that it belongs to has not gone on yet.
  if (window == Frame() && thread()->loopLevel() > kProgramLoop) return false;
  if (qobject_cast<RunDialog*>(window) && window == m_dialog && m_runActions >= kActionsInRun) {
    if (m_dialogClock.hasExpired(kRunLimitMs)) Fail("a run does not end: " + NameOf(*window).toStdString());
    return false;
  }
  // A dialog or list that has closed gives the keyboard back to its window, which the offscreen platform does
  // not do. Until the window has it, nobody could type.
  if (window->windowType() != Qt::Popup && QApplication::activeWindow() != window &&
      ++m_activations <= kMostActivations) {
    window->activateWindow();
    return false;
  }
  // What the focus leaves may have something to tell.
  if (m_focus != QApplication::focusWidget()) {
    m_focus = QApplication::focusWidget();
    m_quietBeats = 0;
  }
  if (++m_quietBeats < kQuietBeats) return false;
  return !m_patient || m_sinceAction.hasExpired(kPatienceMs) || !AwaitsTimer(*window);
}

void RandomUser::Act() {
  if (m_app && m_app->Frame()) m_hands.SetFrame(m_app->Frame());
  QWidget* const window = FrontmostWindow(Frame());
  if (!window) return;
  if (window != m_dialog) {
    m_dialog = window;
    m_dialogActions = m_dialogLeavings = m_runActions = 0;
    m_dialogClock.start();
  }
  if (!qobject_cast<QMessageBox*>(window)) m_prompt.EndRow();
  if (QApplication::activeModalWidget() && Frame() && m_random.Percent(8)) {
    m_behind.emplace(m_app->Document());
    m_run = VisibleRun();
    m_duringRun = m_run;
    m_hands.ActBehind();
    return;
  }
  if (qobject_cast<RunDialog*>(window)) {
    ActInRun(*window);
  } else if (window->isModal()) {
    ActInDialog(*window);
  } else if (!m_random.Percent(kRoadPercent) || !m_road.GoOn()) {
    m_hands.Act();
  }
}

bool RandomUser::ActInRun(QWidget& run) {
  ++m_runActions;
  if (m_random.Percent(20)) m_hands.Leave(run);
  return true;
}

void RandomUser::ActInDialog(QWidget& dialog) {
  ++m_dialogActions;
  // The longer it is up, the more the user wants to leave it.
  const int leave = qobject_cast<QMessageBox*>(&dialog) ? 25 : 6 + m_dialogActions / 4;
  if (m_random.Percent(55) && m_road.GoOn()) return;
  if (!qobject_cast<QFileDialog*>(&dialog) && m_random.Percent(leave)) {
    ++m_dialogLeavings;
    m_hands.Leave(dialog);
  } else {
    m_hands.Act();
  }
}

void RandomUser::Check() {
  m_checked = true;
  if (!m_app) return;
  CheckDialogs();
  CheckRefused();
  if (m_behind) {
    const std::optional<DocumentMoment> before = std::exchange(m_behind, std::nullopt);
    // A run that has ended meanwhile has stored what it came to.
    if (!m_duringRun || (m_run && m_run->isVisible())) CheckBehind(*before);
  }
  // Between two commands only: in the middle of one the project is on its way.
  const bool between = Frame() && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
  if (between && thread()->loopLevel() > 1)
    m_diary.Note(QStringLiteral("loop level %1").arg(thread()->loopLevel()));
  if (between && m_app->Procedure().ActiveScreen()) CheckDocument();
}

void RandomUser::CheckDialogs() {
  QWidget* const window = QApplication::activeModalWidget();
  if (!window || window != m_dialog) return;
  if (m_dialogActions > kDialogLimit)
    Fail("a dialog cannot be left: " + NameOf(*window).toStdString() + " after " +
         std::to_string(m_dialogLeavings) + " attempts");
}

void RandomUser::CheckRefused() {
  const std::optional<WatchedPrompt::Refused> refused = m_prompt.TakeRefused();
  if (!refused || refused->generation != m_app->Document().Generation()) return;
  if (ProjectBytes(m_app->Document()) == refused->bytes) return;
  CMorvaneDoc before(m_settings.folders);
  LoadProject(before, refused->bytes);
  Fail("a No has changed the project (" +
       DifferingMembers(DocumentMoment(before), DocumentMoment(m_app->Document())) +
       "): " + refused->question.toStdString());
}

void RandomUser::CheckBehind(const DocumentMoment& before) {
  const DocumentMoment now(m_app->Document());
  if (now.generation != before.generation)
    Fail("another project came from behind a dialog");
  else if (now.bytes != before.bytes)
    Fail("the project has changed behind a dialog: " + DifferingMembers(before, now));
}

void RandomUser::CheckDocument() {
  CMorvaneDoc& doc = m_app->Document();
  const DocumentMoment now(doc);
  const bool another = !m_before || m_before->generation != now.generation;
  const std::vector<std::string> broken = BrokenInvariants(doc);
  m_openedFixed = doc.flowFixed && (another || m_openedFixed);
  if (another) {
    m_broughtByFile.clear();
    if (!now.path.isEmpty()) m_broughtByFile.insert(broken.begin(), broken.end());
  }
  for (const std::string& sentence : broken)
    if (!m_broughtByFile.contains(sentence)) Fail(sentence);
  if (m_before)
    for (const std::string& sentence : WrongChanges(*m_before, now)) Fail(sentence);
  for (const std::string& sentence : FrameDisagreements(*m_app->Frame(), doc, m_app->Procedure()))
    if (m_openedFixed || sentence != kOpenedByQuestions) Fail(sentence);
  for (const std::string& sentence : ScreenDisagreements(*m_app->Frame(), doc, m_app->Procedure()))
    Fail(NameOf(*m_app->Frame()->ScreenOnDisplay()).toStdString() + ": " + sentence);
  // Of waves that share a name, which a damaged file may bring, the file holds the first alone.
  if (m_random.Percent(kRoundTripPercent) && !HasNamesakes(doc))
    if (const std::string failure = RoundTripFailure(doc); !failure.empty()) Fail(failure);
  m_before.emplace(doc);
  CountStates();
}

void RandomUser::CountStates() {
  const CMorvaneDoc& doc = m_app->Document();
  const int screen = static_cast<int>(*m_app->Procedure().ActiveScreen());
  m_diary.Reached(("screen " + std::to_string(screen) + " " +
                   NameOf(*m_app->Frame()->ScreenOnDisplay()).toStdString() + " (" +
                   m_app->Frame()->ScreenOnDisplay()->metaObject()->className() + ")")
                      .c_str());
  m_diary.Reached(doc.guidelineRoute ? "guideline route" : "response route");
  if (doc.flowFixed) m_diary.Reached("procedure fixed");
  if (!doc.faults.empty()) m_diary.Reached("faults present");
  if (doc.seedWaves.Count() > 1) m_diary.Reached("several waves");
  if (!doc.baseSpectrumName.isEmpty()) m_diary.Reached("base spectrum chosen");
  if (doc.seedAdopted) m_diary.Reached("wave adopted");
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.adjusted) return m_diary.Reached("wave adjusted");
}

void RandomUser::Fail(const std::string& what) {
  m_diary.Note(QStringLiteral("FAILURE: ") + QString::fromStdString(what));
  const QWidget* const focus = QApplication::focusWidget();
  const QWidget* const active = QApplication::activeWindow();
  m_diary.Note(QStringLiteral("focus: %1, active window: %2")
                   .arg(focus ? NameOf(*focus) : QString(), active ? NameOf(*active) : QString()));
  m_failure += what + "\n";
  if (m_failure.size() > what.size() + 1) return;  // the first one: the project as it is now
  const QString path = m_diary.Path() + QStringLiteral(".trml");
  QFile file(path);
  if (m_app && file.open(QIODevice::WriteOnly)) {
    const std::string bytes = ProjectBytes(m_app->Document());
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
  }
}

}  // namespace tremlo::test
