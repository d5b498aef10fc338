#include "window/graphs/RunBehindDialog.h"

#include <QCoreApplication>

#include <atomic>
#include <memory>
#include <system_error>
#include <thread>

namespace tremlo {

namespace {

/// Whatever goes wrong in a calculation, memory above all, is a calculation that failed.
bool Succeeds(const std::function<bool(const std::stop_token&)>& work, const std::stop_token& stop) noexcept {
  try {
    return work(stop);
  } catch (...) {
    return false;
  }
}

}  // namespace

bool RunBehindDialog(RunDialog& dialog, const std::function<bool()>& work, std::chrono::milliseconds pause) {
  return RunBehindDialog(
      dialog, [&work](const std::stop_token&) { return work(); }, pause);
}

bool RunBehindDialog(RunDialog& dialog, const std::function<bool(const std::stop_token& stop)>& work,
                     std::chrono::milliseconds pause) {
  std::stop_source stop;
  std::atomic<unsigned char> result{0};
  // Made before the thread: at its end there may be no memory left to tell of the end.
  auto end = std::make_unique<RunEndEvent>(dialog.EndMessage(), 1);
  std::thread worker;
  try {
    worker = std::thread([&] {
      result = Succeeds(work, stop.get_token()) ? 1 : 0;
      std::this_thread::sleep_for(pause);
      QCoreApplication::postEvent(&dialog, end.release());
    });
  } catch (const std::system_error&) {
    return false;
  }
  dialog.exec();
  stop.request_stop();
  worker.join();
  return result != 0 && dialog.IsFinished();
}

}  // namespace tremlo
