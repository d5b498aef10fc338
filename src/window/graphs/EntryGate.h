#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace tremlo {

/// Stands between the user's input and the rest of the window while an entry is open or has just been left:
/// what was typed is taken before a button acts on it, also by one that takes no focus, and a press that a
/// box has come in between of has no effect.
class EntryGate : public QObject {
 public:
  /// Takes the entry; says whether what comes next may go on.
  using Finish = std::function<bool()>;

  EntryGate(QWidget* owner, Finish finish);

  /// While open, a button pressed without a change of the focus, or any shortcut, finishes the entry first. A
  /// button that cancels does not.
  void SetOpen(bool open);
  void SetCancelButton(QWidget* button) { m_cancelButton = button; }
  /// Whether the target is the cancel button, or one that rejects its QDialogButtonBox.
  bool IsCancel(const QObject* target) const;

  /// Input that is on its way has no effect until the event loop is reached.
  void SwallowPress();
  /// Runs the task; if it opens a box the press that led to it is swallowed, since the box has had its
  /// release.
  void RunBeforePress(const std::function<void()>& task);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FollowState();

  QWidget* m_owner;
  Finish m_finish;
  QPointer<QWidget> m_cancelButton;
  bool m_open = false;
  bool m_boxOpened = false;
  int m_swallowing = 0;
};

}  // namespace tremlo
