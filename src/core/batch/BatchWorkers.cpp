#include "core/batch/BatchWorkers.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace tremlo {

namespace {

constexpr std::chrono::milliseconds kLongestWait{200};

/// What the threads share.
class Board {
 public:
  void Report(std::size_t job) {
    const std::lock_guard lock(m_mutex);
    m_done.push_back(job);
    m_changed.notify_one();
  }
  void Leave() {
    const std::lock_guard lock(m_mutex);
    --m_working;
    m_changed.notify_one();
  }
  void Enter() {
    const std::lock_guard lock(m_mutex);
    ++m_working;
  }
  /// Waits for news, but not long. False when nobody works any more and all has been told.
  bool Next(std::vector<std::size_t>& done) {
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, kLongestWait, [&] { return !m_done.empty() || m_working == 0; });
    done.clear();
    done.swap(m_done);
    return !done.empty() || m_working > 0;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::vector<std::size_t> m_done;
  int m_working = 0;
};

}  // namespace

void RunOnWorkers(std::size_t count, unsigned threads, const std::function<void(std::size_t job)>& work,
                  const std::function<void(std::span<const std::size_t> done)>& collect,
                  const std::atomic<bool>& stop) {
  Board board;
  std::atomic<std::size_t> next{0};
  const auto run = [&] {
    while (!stop) {
      const std::size_t job = next++;
      if (job >= count) break;
      work(job);
      board.Report(job);
    }
    board.Leave();
  };
  const std::size_t wanted = std::min<std::size_t>(threads, count);
  std::vector<std::jthread> workers;
  for (std::size_t i = 0; i < wanted; ++i) {
    board.Enter();
    try {
      workers.emplace_back(run);
    } catch (const std::system_error&) {  // the system gives no more threads: those that there are do
      board.Leave();
      if (workers.empty()) throw;
      break;
    }
  }
  std::vector<std::size_t> done;
  while (board.Next(done)) collect(done);
}

}  // namespace tremlo
