#include "window/graphs/EntryGate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>

namespace tremlo {

namespace {

bool RejectsItsBox(const QObject* target) {
  auto* const button = qobject_cast<QAbstractButton*>(const_cast<QObject*>(target));
  if (!button) return false;
  for (QObject* above = button->parent(); above; above = above->parent())
    if (const auto* const box = qobject_cast<QDialogButtonBox*>(above))
      return box->buttonRole(button) == QDialogButtonBox::RejectRole;
  return false;
}

/// Whether the event presses a button, or begins a command, that may leave the focus where it is.
bool ActsWithoutFocus(const QObject* target, const QEvent& event) {
  if (event.type() == QEvent::Shortcut) return true;
  return event.type() == QEvent::MouseButtonPress && qobject_cast<const QAbstractButton*>(target);
}

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
      return true;
    default:
      return false;
  }
}

}  // namespace

EntryGate::EntryGate(QWidget* owner, Finish finish)
    : QObject(owner), m_owner(owner), m_finish(std::move(finish)) {}

void EntryGate::SetOpen(bool open) {
  m_open = open;
  FollowState();
}

void EntryGate::FollowState() {
  qApp->removeEventFilter(this);
  if (m_open || m_swallowing > 0) qApp->installEventFilter(this);
}

bool EntryGate::IsCancel(const QObject* target) const {
  return target && (target == m_cancelButton || RejectsItsBox(target));
}

void EntryGate::SwallowPress() {
  ++m_swallowing;
  FollowState();
  const auto end = [this] {
    --m_swallowing;
    FollowState();
  };
  QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
}

void EntryGate::RunBeforePress(const std::function<void()>& task) {
  const QPointer<EntryGate> self(this);
  m_boxOpened = false;
  qApp->installEventFilter(this);
  task();
  if (!self) return;
  if (m_boxOpened)
    SwallowPress();
  else
    FollowState();
}

bool EntryGate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowBlocked && watched == m_owner->window()) m_boxOpened = true;
  if (m_swallowing > 0 && IsInput(event->type())) return true;
  if (m_open && ActsWithoutFocus(watched, *event) && !IsCancel(watched)) return !m_finish();
  return false;
}

}  // namespace tremlo
