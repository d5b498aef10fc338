#pragma once

#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QString>
#include <QTimer>

#include <mutex>

namespace tremlo {

/// What a worker posts to its dialog as its last act.
class RunEndEvent : public QEvent {
 public:
  static Type EventType();

  RunEndEvent(int eventMessage, int eventData)
      : QEvent(EventType()), message(eventMessage), data(eventData) {}

  const int message;
  const int data;  ///< 1: the run has ended
};

/// The modal dialog that the user sees while a worker runs. It has no buttons and is deaf to Enter, Escape
/// and the close box: only the end of the worker closes it, at the next tick of a timer of 100 ms.
class RunDialog : public QDialog {
  Q_OBJECT

 public:
  /// `text` says what runs; `endMessage` is the number that its worker posts.
  RunDialog(const QString& text, int endMessage, QWidget* parent);

  int EndMessage() const { return m_endMessage; }
  bool IsFinished() const { return m_finished; }

  /// How far the run has come. Any thread may call it; the next tick shows what was told last.
  void SetProgress(int done, int total, const QString& text);
  /// The same for the end of all: the bar is full, the text stays.
  void SetAllDone();

  void reject() override {}

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void OnTimer();
  void ShowProgress();

  const int m_endMessage;
  bool m_finished = false;
  QLabel* m_text;
  QProgressBar* m_progress;
  QLabel* m_progressText;
  QTimer* m_timer;

  struct Progress {
    int done = 0;
    int total = 0;
    QString text;
  };
  std::mutex m_reportedLock;
  Progress m_reported;
};

}  // namespace tremlo
