#pragma once

#include <cstddef>

// The lane loops, one for each instruction set. This header holds declarations only: what is compiled for a
// newer processor must bring no inline function of its own.
namespace tremlo::lanes {

// Coefficients in the order in which a block stores them.
enum Row : std::size_t { kA11, kA12, kA21, kA22, kB11, kB12, kB21, kB22, kTwoC, kW, kRows };

// Oscillators per block: lanes of a vector times vectors in flight. Independent vectors hide the latency of
// the recursion, each step of which waits for the one before.
inline constexpr std::size_t kBlockSse2 = std::size_t{2} * 4;
inline constexpr std::size_t kBlockAvx2 = std::size_t{4} * 3;
inline constexpr std::size_t kBlockAvx512 = std::size_t{8} * 4;
inline constexpr std::size_t kLargestBlock = 32;

// `rows` holds kRows rows of one block's width, aligned to 64 bytes; `peaks` receives one peak per
// oscillator. `acc` has `count` samples, at least one.
void SweepBlockSse2(const double* rows, const double* acc, std::size_t count, double timeStep, double* peaks);
void SweepBlockAvx2(const double* rows, const double* acc, std::size_t count, double timeStep, double* peaks);
void SweepBlockAvx512(const double* rows, const double* acc, std::size_t count, double timeStep,
                      double* peaks);

}  // namespace tremlo::lanes
