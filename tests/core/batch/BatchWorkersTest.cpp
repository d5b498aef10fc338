#include "core/batch/BatchWorkers.h"

#include <gmock/gmock.h>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace tremlo {
namespace {

TEST(BatchWorkers, EveryJobIsDoneOnceAndToldToTheCaller) {
  for (const unsigned threads : {1U, 2U, 7U, 100U}) {
    std::vector<std::atomic<int>> done(50);
    std::vector<std::size_t> told;
    const std::thread::id here = std::this_thread::get_id();
    const std::atomic<bool> stop{false};
    RunOnWorkers(
        done.size(), threads,
        [&](std::size_t job) {
          EXPECT_NE(std::this_thread::get_id(), here);
          ++done[job];
        },
        [&](std::span<const std::size_t> jobs) {
          EXPECT_EQ(std::this_thread::get_id(), here);
          told.insert(told.end(), jobs.begin(), jobs.end());
        },
        stop);
    for (const auto& count : done) EXPECT_EQ(count, 1);
    EXPECT_EQ(told.size(), done.size());
    EXPECT_EQ(std::set<std::size_t>(told.begin(), told.end()).size(), done.size());
  }
}

TEST(BatchWorkers, NoMoreThreadsThanAsked) {
  std::mutex mutex;
  std::set<std::thread::id> threads;
  const std::atomic<bool> stop{false};
  RunOnWorkers(
      200, 3,
      [&](std::size_t) {
        const std::lock_guard lock(mutex);
        threads.insert(std::this_thread::get_id());
      },
      [](std::span<const std::size_t>) {}, stop);
  EXPECT_LE(threads.size(), 3U);
  EXPECT_GE(threads.size(), 1U);
}

TEST(BatchWorkers, WithoutJobsItReturnsAtOnce) {
  const std::atomic<bool> stop{false};
  RunOnWorkers(
      0, 4, [](std::size_t) { FAIL(); }, [](std::span<const std::size_t>) {}, stop);
}

TEST(BatchWorkers, AfterAStopNoJobIsBegun) {
  std::atomic<bool> stop{false};
  std::atomic<int> begun{0};
  std::size_t told = 0;
  RunOnWorkers(
      1000, 2,
      [&](std::size_t) {
        if (++begun == 5) stop = true;
      },
      [&](std::span<const std::size_t> jobs) { told += jobs.size(); }, stop);
  EXPECT_GE(begun, 5);
  EXPECT_LE(begun, 6);  // the other thread may have one in hand
  EXPECT_EQ(told, static_cast<std::size_t>(begun));
}

}  // namespace
}  // namespace tremlo
