#include "Interruption.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace tremlo::cli {

namespace {

constexpr int kSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

std::atomic<bool> raised{false};
volatile std::sig_atomic_t signalRaised = 0;
static_assert(std::atomic<bool>::is_always_lock_free, "a handler may touch no lock");

void Raise(int signal) {
  signalRaised = signal;
  raised = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

Interruption::Interruption() {
  for (const int signal : kSignals)
    // A program started with a signal switched off, as by nohup, keeps it so.
    if (std::signal(signal, Raise) == SIG_IGN) std::signal(signal, SIG_IGN);
}

Interruption::~Interruption() {
  for (const int signal : kSignals)
    if (std::signal(signal, SIG_DFL) == SIG_IGN) std::signal(signal, SIG_IGN);
}

const std::atomic<bool>& Interruption::Flag() const {
  return raised;
}

void Interruption::EndIfRaised() const {
  if (!raised) return;
  std::fflush(stdout);
#ifdef _WIN32
  // The default there ends with 3, which means something else here. This is what Ctrl+C itself ends with.
  std::_Exit(static_cast<int>(0xC000013AU));
#else
  std::signal(signalRaised, SIG_DFL);
  std::raise(signalRaised);
#endif
}

}  // namespace tremlo::cli
