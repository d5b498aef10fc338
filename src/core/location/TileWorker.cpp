#include "core/location/TileWorker.h"

#include <utility>

namespace tremlo {

TileWorker::TileWorker(Fetch fetch, Answered answered)
    : m_fetch(std::move(fetch)), m_answered(std::move(answered)) {
  m_thread.setObjectName(QStringLiteral("tiles"));
  m_onWorker.moveToThread(&m_thread);
}

TileWorker::~TileWorker() {
  End();
}

void TileWorker::Request(const TileNumber& tile) {
  BreakOff();
  m_asking = true;
  m_stop = std::stop_source();
  if (!m_thread.isRunning()) m_thread.start();
  QMetaObject::invokeMethod(
      &m_onWorker, [this, tile, stop = m_stop.get_token(), number = m_number] { Run(tile, stop, number); },
      Qt::QueuedConnection);
}

void TileWorker::BreakOff() {
  m_stop.request_stop();
  ++m_number;
  m_asking = false;
}

void TileWorker::End() {
  BreakOff();
  m_thread.quit();
  m_thread.wait();
}

void TileWorker::Run(const TileNumber& tile, const std::stop_token& stop, std::uint64_t number) {
  TileOutcome outcome = TileOutcome::BrokenOff;
  try {
    if (!stop.stop_requested()) outcome = m_fetch(tile, stop);
  } catch (...) {  // an answer too large for the memory
    outcome = TileOutcome::Failed;
  }
  QMetaObject::invokeMethod(
      &m_home,
      [this, tile, outcome, number] {
        if (number != m_number) return;
        m_asking = false;
        m_answered(tile, outcome);
      },
      Qt::QueuedConnection);
}

}  // namespace tremlo
