#include "window/graphs/RunDialog.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kTickMs = 100;
constexpr int kTextWidthInDigits = 56;  ///< of the lines; a longer name is cut off

}  // namespace

QEvent::Type RunEndEvent::EventType() {
  static const auto type = static_cast<Type>(registerEventType());
  return type;
}

RunDialog::RunDialog(const QString& text, int endMessage, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_endMessage(endMessage),
      m_text(new QLabel(text)),
      m_progress(new QProgressBar),
      m_progressText(new QLabel),
      m_timer(new QTimer(this)) {
  setWindowTitle(QStringLiteral("計算中"));
  setAccessibleName(windowTitle());
  setAccessibleDescription(text);
  m_text->setObjectName(QStringLiteral("m_text"));
  m_progress->setObjectName(QStringLiteral("m_progress"));
  m_progress->setAccessibleName(QStringLiteral("進み具合"));
  m_progress->setTextVisible(false);
  m_progress->setRange(0, 1);
  m_progressText->setObjectName(QStringLiteral("m_progressText"));
  m_progressText->setTextFormat(Qt::PlainText);
  m_progressText->setFixedWidth(fontMetrics().horizontalAdvance(u'0') * kTextWidthInDigits);

  auto* layout = new QVBoxLayout(this);
  for (QWidget* widget : {static_cast<QWidget*>(m_text), static_cast<QWidget*>(m_progress),
                          static_cast<QWidget*>(m_progressText)})
    layout->addWidget(widget);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  connect(m_timer, &QTimer::timeout, this, &RunDialog::OnTimer);
}

void RunDialog::SetProgress(int done, int total, const QString& text) {
  const std::lock_guard guard(m_reportedLock);
  m_reported = {done, total, text};
}

void RunDialog::SetAllDone() {
  const std::lock_guard guard(m_reportedLock);
  m_reported.done = m_reported.total;
}

bool RunDialog::event(QEvent* event) {
  if (event->type() != RunEndEvent::EventType()) return QDialog::event(event);
  const auto* end = static_cast<RunEndEvent*>(event);
  if (end->message == m_endMessage && end->data == 1) m_finished = true;
  return true;
}

void RunDialog::keyPressEvent(QKeyEvent* event) {
  event->accept();
}

void RunDialog::closeEvent(QCloseEvent* event) {
  event->setAccepted(m_finished);
}

void RunDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  ShowProgress();
  m_timer->start(kTickMs);
}

void RunDialog::OnTimer() {
  ShowProgress();
  if (!m_finished) return;
  m_timer->stop();
  done(Accepted);
}

void RunDialog::ShowProgress() {
  Progress progress;
  {
    const std::lock_guard guard(m_reportedLock);
    progress = m_reported;
  }
  m_progress->setMaximum(std::max(progress.total, 1));  // a range of 0 to 0 would be a bar that runs for ever
  m_progress->setValue(progress.done);
  m_progressText->setText(
      m_progressText->fontMetrics().elidedText(progress.text, Qt::ElideRight, m_progressText->width()));
}

}  // namespace tremlo
