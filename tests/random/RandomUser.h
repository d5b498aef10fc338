#pragma once

#include "random/DocumentChanges.h"
#include "random/RandomHands.h"
#include "random/Road.h"
#include "random/WatchedPrompt.h"
#include "support/LocalService.h"
#include "window/shell/MorvaneApp.h"

#include <QElapsedTimer>
#include <QObject>
#include <QUrl>

#include <atomic>
#include <memory>
#include <set>

namespace tremlo::test {

struct RandomUserLimits {
  std::uint64_t seed = 1;
  int actions = 0;  ///< 0: no limit
  int seconds = 0;  ///< 0: no limit
};

/// A user of the whole program who does anything, and looks after each action whether all still holds. It
/// acts from the event loop, the dialogs' own loops included, whenever the program has nothing left to do.
class RandomUser : public QObject {
  Q_OBJECT
 public:
  RandomUser(const RandomUserLimits& limits, Diary& diary);
  ~RandomUser() override;

  /// Starts the program again and again until a limit is reached or something has gone wrong. Returns what
  /// went wrong; empty when nothing did.
  std::string Run();

  /// Of the event loop; it stands still while the program hangs.
  const std::atomic<int>& Beats() const { return m_beats; }

 public Q_SLOTS:
  /// In place of a browser or a viewer.
  void OpenNothing(const QUrl&) {}

 private:
  void RunProgramOnce();
  void MakeProgram();
  void AwaitBeat(int delayMs);
  void Beat();
  bool IsSettled();
  void Act();
  bool ActInRun(QWidget& run);
  void ActInDialog(QWidget& dialog);
  void Check();
  void CheckDialogs();
  void CheckRefused();
  void CheckDocument();
  void CheckBehind(const DocumentMoment& before);
  void CountStates();
  void Fail(const std::string& what);
  bool IsOver() const;
  QWidget* Frame() const { return m_app ? m_app->Frame() : nullptr; }

  RandomUserLimits m_limits;
  Diary& m_diary;
  RandomSource m_random;
  SampleFolder m_samples;
  LocalService m_service;
  RandomFiles m_files;
  WatchedPrompt m_prompt;
  RandomHands m_hands;
  Road m_road;
  ProgramSettings m_settings;
  std::unique_ptr<CMorvaneApp> m_app;
  QElapsedTimer m_clock;
  std::atomic<int> m_beats = 0;

  int m_programs = 0;         ///< that have been started
  bool m_ended = false;       ///< the program that runs has ended
  bool m_checked = true;      ///< what the last action did has been looked at
  bool m_patient = true;      ///< what the screen has set going is waited for
  int m_quietBeats = 0;       ///< since the last action
  int m_activations = 0;      ///< asked of the window in front since the last action
  QPointer<QWidget> m_focus;  ///< at the last beat
  QElapsedTimer m_sinceAction;
  std::optional<DocumentMoment> m_before;  ///< between the last two commands
  std::set<std::string> m_broughtByFile;   ///< invariants that the open project breaks by itself
  bool m_openedFixed = false;              ///< it came with its procedure fixed
  std::optional<DocumentMoment> m_behind;  ///< before what came from behind a dialog
  QPointer<QWidget> m_run;                 ///< the dialog of the run that went on at that moment
  bool m_duringRun = false;                ///< whether one did
  QPointer<QWidget> m_dialog;              ///< the one in front, and for how long
  int m_dialogActions = 0;
  int m_dialogLeavings = 0;
  int m_runActions = 0;
  QElapsedTimer m_dialogClock;
  std::string m_failure;
};

}  // namespace tremlo::test
