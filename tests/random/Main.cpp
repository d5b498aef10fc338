// A random user of the finished window: see RandomUser. Prints its seed, what it did and what went wrong.

#include "random/RandomUser.h"
#include "support/TestHome.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using tremlo::test::Diary;
using tremlo::test::RandomUser;
using tremlo::test::RandomUserLimits;

constexpr std::chrono::seconds kHangLimit{180};

/// Ends the process when the event loop stands still.
class Watchdog {
 public:
  Watchdog(const RandomUser& user, const Diary& diary)
      : m_thread([this, &user, &diary] { Watch(user, diary); }) {}
  ~Watchdog() {
    {
      const std::lock_guard guard(m_lock);
      m_over = true;
    }
    m_wake.notify_one();
    m_thread.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  void Watch(const RandomUser& user, const Diary& diary) {
    std::unique_lock guard(m_lock);
    for (int seen = -1; !m_over; m_wake.wait_for(guard, kHangLimit, [this] { return m_over; })) {
      const int beats = user.Beats();
      if (beats == seen) {
        std::printf("FAILED: the event loop has stood still for %d s\nThe last actions:\n%s",
                    static_cast<int>(kHangLimit.count()), diary.LastActions().c_str());
        std::fflush(stdout);
        std::abort();
      }
      seen = beats;
    }
  }

  std::mutex m_lock;
  std::condition_variable m_wake;
  bool m_over = false;
  std::thread m_thread;
};

/// What the offscreen platform cannot do is no news.
void TellMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QStringLiteral("This plugin does not support")))
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

int Report(const std::string& failure, const RandomUserLimits& limits, const Diary& diary) {
  std::printf("%s", diary.Counts().c_str());
  if (!failure.empty())
    std::printf("FAILED with seed %llu:\n%sThe last actions:\n%sThe project: %s.trml\n",
                static_cast<unsigned long long>(limits.seed), failure.c_str(), diary.LastActions().c_str(),
                diary.Path().toLocal8Bit().constData());
  std::printf("seed %llu: %d actions, %s\n", static_cast<unsigned long long>(limits.seed), diary.Actions(),
              failure.empty() ? "nothing found" : "FAILED");
  std::fflush(stdout);
  return failure.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char* argv[]) {
  const tremlo::test::TestHome home;
  if (!home.IsValid()) return EXIT_FAILURE;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_HASH_SEED", "0");  // the same order of everything in each run
  qInstallMessageHandler(TellMessage);
  const QApplication application(argc, argv);

  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addOptions(
      {{QStringLiteral("seconds"), QStringLiteral("How long at most."), QStringLiteral("n")},
       {QStringLiteral("actions"), QStringLiteral("How many actions at most."), QStringLiteral("n")},
       {QStringLiteral("seed"), QStringLiteral("What the actions are drawn from."), QStringLiteral("n")},
       {QStringLiteral("diary"), QStringLiteral("File for the actions."), QStringLiteral("path")}});
  parser.process(application);
  RandomUserLimits limits;
  limits.seconds = parser.value(QStringLiteral("seconds")).toInt();
  limits.actions = parser.value(QStringLiteral("actions")).toInt();
  if (parser.isSet(QStringLiteral("seed"))) limits.seed = parser.value(QStringLiteral("seed")).toULongLong();
  if (limits.seconds == 0 && limits.actions == 0) parser.showHelp(2);

  Diary diary(parser.isSet(QStringLiteral("diary"))
                  ? QDir::current().absoluteFilePath(parser.value(QStringLiteral("diary")))
                  : QDir::current().absoluteFilePath(QStringLiteral("random-user-diary")));
  std::printf("seed %llu, actions in %s\n", static_cast<unsigned long long>(limits.seed),
              diary.Path().toLocal8Bit().constData());
  std::fflush(stdout);
  // An export whose dialog is cancelled writes two files into the current folder.
  QDir::setCurrent(QDir::homePath());
  std::string failure;
  {
    RandomUser user(limits, diary);
    const Watchdog watchdog(user, diary);
    failure = user.Run();
  }
  return Report(failure, limits, diary);
}
