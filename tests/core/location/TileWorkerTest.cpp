#include "core/location/TileWorker.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

namespace tremlo {
namespace {

constexpr TileNumber kTile{5, 28, 12};
constexpr TileNumber kNext{5, 28, 13};
constexpr int kLongestWaitMs = 20000;

/// Runs the event loop until `done` says so.
template <class Done>
bool WaitFor(Done done) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < kLongestWaitMs)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  return done();
}

/// A tile service that answers when the test lets it, or never.
class Service {
 public:
  TileOutcome Fetch(const TileNumber& tile, const std::stop_token& stop) {
    thread = std::this_thread::get_id();
    std::unique_lock lock(m_mutex);
    asked.push_back(tile);
    m_changed.notify_all();
    m_changed.wait(lock, stop, [this] { return m_answers; });
    if (stop.stop_requested()) {
      ++brokenOff;
      return TileOutcome::BrokenOff;
    }
    if (throws) throw std::bad_alloc();
    return outcome;
  }
  void Answer() {
    const std::lock_guard lock(m_mutex);
    m_answers = true;
    m_changed.notify_all();
  }
  /// Returns once so many requests have begun.
  void WaitForRequests(std::size_t count) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return asked.size() >= count; });
  }

  TileOutcome outcome = TileOutcome::Done;
  bool throws = false;
  std::vector<TileNumber> asked;
  std::atomic<int> brokenOff = 0;
  std::thread::id thread;

 private:
  std::mutex m_mutex;
  std::condition_variable_any m_changed;
  bool m_answers = false;
};

class TileWorkerTest : public testing::Test {
 protected:
  Service service;
  std::vector<std::pair<TileNumber, TileOutcome>> answers;
  std::thread::id answeredOn;
  TileWorker worker{
      [this](const TileNumber& tile, const std::stop_token& stop) { return service.Fetch(tile, stop); },
      [this](const TileNumber& tile, TileOutcome outcome) {
        answeredOn = std::this_thread::get_id();
        answers.emplace_back(tile, outcome);
      }};
};

TEST_F(TileWorkerTest, AsksOnItsOwnThreadAndAnswersOnThisOne) {
  service.Answer();
  worker.Request(kTile);
  EXPECT_TRUE(worker.IsAsking());
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers.front(), (std::pair{kTile, TileOutcome::Done}));
  EXPECT_FALSE(worker.IsAsking());
  EXPECT_NE(service.thread, std::this_thread::get_id());
  EXPECT_EQ(answeredOn, std::this_thread::get_id());
}

TEST_F(TileWorkerTest, TheEventLoopRunsWhileATileIsWaitedFor) {
  worker.Request(kTile);
  service.WaitForRequests(1);
  int turns = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (++turns == 5) service.Answer();
  });
  timer.start(0);
  EXPECT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_GE(turns, 5);
}

TEST_F(TileWorkerTest, AFailureIsTold) {
  service.outcome = TileOutcome::Failed;
  service.Answer();
  worker.Request(kTile);
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers.front().second, TileOutcome::Failed);
}

TEST_F(TileWorkerTest, AnExceptionIsAFailure) {
  service.throws = true;
  service.Answer();
  worker.Request(kTile);
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers.front().second, TileOutcome::Failed);
}

TEST_F(TileWorkerTest, ARequestBrokenOffIsNotAnswered) {
  worker.Request(kTile);
  service.WaitForRequests(1);
  worker.BreakOff();
  EXPECT_FALSE(worker.IsAsking());
  ASSERT_TRUE(WaitFor([&] { return service.brokenOff == 1; }));
  service.Answer();
  worker.Request(kNext);
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers, (std::vector{std::pair{kNext, TileOutcome::Done}}));
}

TEST_F(TileWorkerTest, AnAnswerOnItsWayIsNotTakenForTheNextRequest) {
  service.Answer();
  worker.Request(kTile);
  service.WaitForRequests(1);
  worker.Request(kNext);
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers, (std::vector{std::pair{kNext, TileOutcome::Done}}));
}

TEST_F(TileWorkerTest, ANewRequestBreaksTheOldOneOff) {
  worker.Request(kTile);
  service.WaitForRequests(1);
  worker.Request(kNext);
  service.WaitForRequests(2);
  EXPECT_EQ(service.brokenOff, 1);
  service.Answer();
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers, (std::vector{std::pair{kNext, TileOutcome::Done}}));
}

TEST_F(TileWorkerTest, EndReturnsSoonThoughTheServiceIsDead) {
  worker.Request(kTile);
  service.WaitForRequests(1);
  QElapsedTimer timer;
  timer.start();
  worker.End();
  EXPECT_LT(timer.elapsed(), 100);
  EXPECT_EQ(service.brokenOff, 1);
  service.Answer();
  worker.Request(kNext);  // the thread begins again
  ASSERT_TRUE(WaitFor([&] { return !answers.empty(); }));
  EXPECT_EQ(answers, (std::vector{std::pair{kNext, TileOutcome::Done}}));
}

TEST_F(TileWorkerTest, EndWithoutARequestIsNothing) {
  worker.End();
  worker.End();
  EXPECT_TRUE(answers.empty());
}

TEST(TileWorker, ItsEndBreaksTheRequestOff) {
  Service service;
  {
    TileWorker worker(
        [&](const TileNumber& tile, const std::stop_token& stop) { return service.Fetch(tile, stop); },
        [](const TileNumber&, TileOutcome) { FAIL() << "answered after its end"; });
    worker.Request(kTile);
    service.WaitForRequests(1);
  }
  EXPECT_EQ(service.brokenOff, 1);
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace tremlo
