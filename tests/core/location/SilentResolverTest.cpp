// A network whose name servers do not answer: the system's resolver, put in place here by one of our own,
// comes back long after the connect timeout.

#include "core/location/HttpClient.h"

#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <netdb.h>
#include <stop_token>
#include <thread>

namespace tremlo {
namespace {

/// Holds every question for a name until it is let go.
class Resolver {
 public:
  int Answer() {
    std::unique_lock lock(m_mutex);
    ++m_asked;
    ++m_waiting;
    // The limit only keeps a client that waits for the answer from hanging the test.
    m_changed.wait_for(lock, std::chrono::seconds(20), [&] { return m_open; });
    --m_waiting;
    m_changed.notify_all();
    return EAI_AGAIN;
  }
  int Asked() { return (std::scoped_lock(m_mutex), m_asked); }
  int Waiting() { return (std::scoped_lock(m_mutex), m_waiting); }
  /// Answers all that wait; holds the next ones again.
  void LetGo() {
    std::unique_lock lock(m_mutex);
    m_open = true;
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_waiting == 0; });
    m_open = false;
    m_asked = 0;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  int m_asked = 0;
  int m_waiting = 0;
  bool m_open = false;
};

Resolver resolver;

TEST(SilentResolver, LookupIsBrokenOffAtOnce) {
  std::chrono::steady_clock::time_point stopped;
  {
    HttpClient client({.connectTimeoutMs = 60000, .connectAttempts = 1}, QString());
    std::stop_source source;
    std::thread stopper([&] {
      while (resolver.Waiting() == 0) std::this_thread::yield();
      stopped = std::chrono::steady_clock::now();
      source.request_stop();
    });
    EXPECT_EQ(
        client.Get(
            QStringLiteral("http://name.test/"), [](std::string_view) { return true; }, source.get_token()),
        HttpResult::BrokenOff);
    stopper.join();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - stopped, std::chrono::milliseconds(100))
      << "the end of the client counted";
  EXPECT_EQ(resolver.Waiting(), 1) << "nobody waited for an answer";
  resolver.LetGo();
}

TEST(SilentResolver, TimeoutDoesNotWaitForIt) {
  {
    HttpClient client({.connectTimeoutMs = 20, .connectAttempts = 3, .connectPauseMs = 1}, QString());
    EXPECT_EQ(client.Get(QStringLiteral("http://name.test/"), [](std::string_view) { return true; }),
              HttpResult::Failed);
  }
  EXPECT_EQ(resolver.Asked(), 3);
  EXPECT_EQ(resolver.Waiting(), 3) << "neither the timeouts nor the end of the client waited for an answer";
  resolver.LetGo();
}

}  // namespace
}  // namespace tremlo

/// Takes the place of the C library's.
extern "C" int getaddrinfo(const char*, const char*, const addrinfo*, addrinfo**) {
  return tremlo::resolver.Answer();
}
