#include "window/shell/FrmFlowchart1.h"

#include "core/shell/QuestionPlace.h"
#include "window/graphs/FrontWindow.h"
#include "window/shell/PropertyQa.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>

namespace tremlo {

namespace {

constexpr int kPauseMs = 100;       ///< before a dialog
constexpr int kCaptionMiddle = 12;  ///< pixels down from the upper edge of a dialog

bool MenuIsOpen() {
  return QApplication::activePopupWidget() != nullptr;
}

}  // namespace

CFrmFlowchart1::CFrmFlowchart1(CMorvaneDoc& doc, Prompt& prompt, WorkProcedure& procedure, CommandGate& gate,
                               std::function<void(SwitchOutcome)> follow, AskQuestion ask, QWidget* parent)
    : ChartScreen(FlowChartView::Use::Shows, parent),
      m_round(doc, prompt, procedure),
      m_gate(gate),
      m_follow(std::move(follow)),
      m_ask(ask ? std::move(ask) : CPropertyQa::Ask),
      m_timer(new QTimer(this)) {
  m_timer->setSingleShot(true);
  m_timer->setInterval(kPauseMs);
  // A key that comes between two dialogs must not reach a step of the pane.
  Chart()->setFocusPolicy(Qt::TabFocus);
  connect(m_timer, &QTimer::timeout, this, &CFrmFlowchart1::OnTimer);
  Refresh();
}

void CFrmFlowchart1::Entered() {
  m_asking = true;
  m_round.Begin();
  m_dialogPos = FirstPlace();
  Refresh();
  m_timer->start();
}

void CFrmFlowchart1::Left() {
  m_asking = false;
  m_timer->stop();
}

void CFrmFlowchart1::CommandBegins() {
  m_timer->stop();
}

void CFrmFlowchart1::CommandEnded() {
  if (m_asking) m_timer->start();
}

void CFrmFlowchart1::Refresh() {
  Chart()->SetLooks(LooksOf(m_round.Chart()));
  ShowLitBox();
}

void CFrmFlowchart1::OnTimer() {
  if (!m_round.Due()) return;
  if (MenuIsOpen() || !m_gate.Run([this] { AskDueQuestion(); })) m_timer->start();
}

void CFrmFlowchart1::AskDueQuestion() {
  const std::optional<ChartQuestion> question = m_round.Due();
  if (!question) return;
  m_dialogPos = PlaceOnAMonitor();
  const QuestionEnd end = m_ask(
      *question, [this] { return m_round.MayCancel(); }, m_dialogPos, FrontWindow());
  if (!m_asking) return;
  if (const std::optional<SwitchOutcome> over = m_round.Take(end)) {
    m_asking = false;
    m_follow(*over);
    return;
  }
  Refresh();
  m_timer->start();
}

/// With the window manager's frame, taken to be that of the main window.
QSize CFrmFlowchart1::DialogSize() const {
  return CPropertyQa::DialogSize() + (window()->frameSize() - window()->size());
}

QPoint CFrmFlowchart1::FirstPlace() const {
  const QScreen* const monitor = window()->screen();
  return MovedOnto(monitor->availableGeometry(),
                   monitor->geometry().topLeft() + FirstQuestionPlace(monitor->geometry().size()),
                   DialogSize());
}

/// Where the user left the last dialog, be it partly outside; only if its caption could no longer be seen, a
/// monitor having gone, it is fetched back.
QPoint CFrmFlowchart1::PlaceOnAMonitor() const {
  const QSize size = DialogSize();
  if (QGuiApplication::screenAt(m_dialogPos + QPoint(size.width() / 2, kCaptionMiddle))) return m_dialogPos;
  return MovedOnto(window()->screen()->availableGeometry(), m_dialogPos, size);
}

/// In a small window the chart scrolls to the current question.
void CFrmFlowchart1::ShowLitBox() {
  const BoxLooks looks = LooksOf(m_round.Chart());
  for (const ChartBox box : kChartBoxes) {
    if (looks[static_cast<std::size_t>(box)] != BoxLook::Lit) continue;
    for (QWidget* above = parentWidget(); above; above = above->parentWidget())
      if (auto* const area = qobject_cast<QScrollArea*>(above)) area->ensureWidgetVisible(Chart()->Box(box));
  }
}

}  // namespace tremlo
