#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace tremlo {

/// Measures how long the event loop did not turn: the longest time between two ticks of a timer. That is up
/// to one tick more than the stall itself.
class EventLoopWatch {
 public:
  explicit EventLoopWatch(int tickMs) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
      m_longest = std::max(m_longest, static_cast<double>(m_sinceTick.nsecsElapsed()) * 1e-6);
      m_sinceTick.restart();
      ++m_ticks;
    });
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.start(tickMs);
    m_sinceTick.start();
  }

  double LongestMs() const { return m_longest; }
  void Forget() { m_longest = 0.0; }
  /// Runs the event loop for that many ticks.
  void RunTicks(int count) {
    const int until = m_ticks + count;
    while (m_ticks < until) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

 private:
  QTimer m_timer;
  QElapsedTimer m_sinceTick;
  double m_longest = 0.0;
  int m_ticks = 0;
};

}  // namespace tremlo
