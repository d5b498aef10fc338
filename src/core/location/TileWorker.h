#pragma once

#include "core/location/TileCache.h"

#include <QObject>
#include <QThread>

#include <cstdint>
#include <functional>
#include <stop_token>

namespace tremlo {

/// Makes the downloads of one map on a thread of its own, one at a time, so that a slow or dead tile service
/// never holds the thread of the user interface. That thread alone calls the functions here and runs the
/// event loop by which the answers come; nothing is shared between the two but the tile asked for, its
/// outcome and the wish to stop.
class TileWorker {
 public:
  /// Runs on the worker and nowhere else; returns soon once a stop is requested.
  using Fetch = std::function<TileOutcome(const TileNumber& tile, const std::stop_token& stop)>;
  using Answered = std::function<void(const TileNumber& tile, TileOutcome outcome)>;

  TileWorker(Fetch fetch, Answered answered);
  /// Ends the request at hand like End.
  ~TileWorker();
  TileWorker(const TileWorker&) = delete;
  TileWorker& operator=(const TileWorker&) = delete;

  /// Asks for a tile. A request at hand is broken off.
  void Request(const TileNumber& tile);
  bool IsAsking() const { return m_asking; }

  /// Breaks the request at hand off, if there is one; its answer will not come. Does not wait for it.
  void BreakOff();
  /// The same, and the thread has ended on return. It starts again with the next request.
  void End();

 private:
  void Run(const TileNumber& tile, const std::stop_token& stop, std::uint64_t number);

  Fetch m_fetch;
  Answered m_answered;
  QThread m_thread;
  QObject m_onWorker;  ///< what is sent to it runs on the worker
  QObject m_home;      ///< and to this on the thread of the user interface
  std::stop_source m_stop;
  std::uint64_t m_number = 0;  ///< of the latest request; one broken off is not the latest any more
  bool m_asking = false;
};

}  // namespace tremlo
