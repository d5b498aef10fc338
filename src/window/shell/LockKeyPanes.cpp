#include "window/shell/LockKeyPanes.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

namespace tremlo {

namespace {

const char* const kLetters = "letters";

bool IsLockKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

void ShowPane(QLabel* pane, std::optional<bool> on) {
  pane->setText(on.value_or(false) ? pane->property(kLetters).toString() : QString());
  pane->setAccessibleDescription(!on ? QString() : *on ? QStringLiteral("オン") : QStringLiteral("オフ"));
}

}  // namespace

LockKeyPanes::LockKeyPanes(std::function<std::optional<LockKeys>()> ask, QWidget* parent)
    : QWidget(parent), m_ask(std::move(ask)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  m_caps = AddPane("capsPane", QStringLiteral("CAP"), QStringLiteral("Caps Lock"));
  m_num = AddPane("numPane", QStringLiteral("NUM"), QStringLiteral("Num Lock"));
  m_scroll = AddPane("scrollPane", QStringLiteral("SCRL"), QStringLiteral("Scroll Lock"));
  m_soon.setSingleShot(true);
  m_soon.setInterval(0);
  connect(&m_soon, &QTimer::timeout, this, &LockKeyPanes::ShowState);
  // The keys are turned in any window of the program.
  qApp->installEventFilter(this);
  m_soon.start();
}

QLabel* LockKeyPanes::AddPane(const char* name, const QString& letters, const QString& key) {
  auto* pane = new QLabel(this);
  pane->setObjectName(QLatin1String(name));
  pane->setAccessibleName(key);
  pane->setToolTip(key);
  pane->setProperty(kLetters, letters);
  pane->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  pane->setAlignment(Qt::AlignCenter);
  // As wide with its letters as without them.
  pane->setText(letters);
  pane->setMinimumWidth(pane->sizeHint().width() + fontMetrics().averageCharWidth());
  pane->clear();
  layout()->addWidget(pane);
  return pane;
}

bool LockKeyPanes::eventFilter(QObject* watched, QEvent* event) {
  // Other programs' windows do not tell us of their keys: ask when ours is back.
  if (IsLockKey(*event) || (watched == window() && event->type() == QEvent::WindowActivate)) m_soon.start();
  return QWidget::eventFilter(watched, event);
}

void LockKeyPanes::ShowState() {
  const std::optional<LockKeys> keys = m_ask();
  ShowPane(m_caps, keys ? std::optional(keys->caps) : std::nullopt);
  ShowPane(m_num, keys ? std::optional(keys->num) : std::nullopt);
  ShowPane(m_scroll, keys ? std::optional(keys->scroll) : std::nullopt);
}

}  // namespace tremlo
