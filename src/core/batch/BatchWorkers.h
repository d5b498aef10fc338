#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <span>

namespace tremlo {

/// Carries out jobs 0 to `count` - 1 on so many threads, each taking the next one when it is free. `work`
/// runs on those threads and must not throw; `collect` runs on the calling one, with the jobs that have come
/// to their end since it was called last, several times a second also with none. Returns when all jobs are
/// done or, once `stop` is set, when those begun are. Throws std::system_error when there is no thread at all
/// to be had.
void RunOnWorkers(std::size_t count, unsigned threads, const std::function<void(std::size_t job)>& work,
                  const std::function<void(std::span<const std::size_t> done)>& collect,
                  const std::atomic<bool>& stop);

}  // namespace tremlo
