#include "WindowDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

namespace tremlo {

namespace {

ProgramSettings SettingsOf(const ProgramFolder& folder, const ServiceSettings& services) {
  ProgramSettings settings;
  settings.services = services;
  settings.services.probePauseMs = 0;
  settings.splashMs = 0;
  settings.folders = folder.Path();
  return settings;
}

ProgramDoors DoorsTo(Prompt& prompt, FileDialogs& files, TopChoice route) {
  ProgramDoors doors;
  doors.prompt = &prompt;
  doors.files = &files;
  doors.askRoute = [route](QWidget*) { return route; };
  return doors;
}

}  // namespace

PromptAnswer WindowDriver::Answers::Show(const PromptBox& box) {
  if (box.buttons == PromptButtons::Ok) {
    std::fprintf(stderr, "The program tells: %s\n", qUtf8Printable(box.text));
    return PromptAnswer::Ok;
  }
  // Whether a modified project is to be saved: no.
  return box.buttons == PromptButtons::YesNoCancel ? PromptAnswer::No : PromptAnswer::Yes;
}

WindowDriver::WindowDriver(const ProgramFolder& folder, const ServiceSettings& services, TopChoice route)
    : m_app(SettingsOf(folder, services), ProgramScreens(), DoorsTo(m_answers, m_files, route)) {
  if (m_app.Start({QStringLiteral("tremlo")})) std::abort();
  Frame().activateWindow();
  m_steps.Settle();
}

void WindowDriver::Do(const char* step, const std::function<void()>& act, StepKind kind) {
  m_steps.Do(step, act, kind);
  // As a window manager does when a dialog has gone: without it no control has the focus any more.
  if (!QApplication::activeWindow()) Frame().activateWindow();
}

void WindowDriver::DoWithDialog(const char* step, const std::function<void()>& open,
                                const std::function<void(QWidget*)>& inDialog) {
  const int painted = StepTable::kTickMs * StepTable::kTicksToPaint;
  QTimer::singleShot(painted, &Frame(), [&] { inDialog(QApplication::activeModalWidget()); });
  QTimer::singleShot(2 * painted, &Frame(),
                     [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  Do(step, open);
}

void WindowDriver::Click(QWidget& control) {
  // The box or the patch at its left is what every kind of button takes a click on.
  QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
}

void WindowDriver::PressButton(const char* name) {
  Click(Find<QAbstractButton>(name));
}

void WindowDriver::PressStep(FlowStep step) {
  Click(*Frame().Pane()->StepsOf(step)->Button(step));
}

void WindowDriver::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void WindowDriver::MovePointer(QWidget& over, QPoint position) {
  QTest::mouseMove(Frame().windowHandle(), over.mapTo(&Frame(), position));
}

void WindowDriver::Wheel(QWidget& over, int steps) {
  const QPointF centre = over.rect().center();
  QWheelEvent turn(centre, over.mapToGlobal(centre), {}, {0, -120 * steps}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&over, &turn);
}

}  // namespace tremlo
