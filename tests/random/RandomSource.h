#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

namespace tremlo::test {

/// Random numbers that are the same for the same seed on every machine: the distributions of the standard
/// library are not.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : m_engine(seed) {}

  /// 0 to count - 1; 0 for a count of 0.
  int Below(std::size_t count) { return count == 0 ? 0 : static_cast<int>(m_engine() % count); }
  int Between(int low, int high) { return low + Below(static_cast<std::size_t>(high - low + 1)); }
  bool Percent(int percent) { return Below(100) < percent; }
  template <class T>
  const T& Pick(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(Below(values.size()))];
  }
  template <class T>
  T Pick(std::initializer_list<T> values) {
    return *(values.begin() + Below(values.size()));
  }

 private:
  std::mt19937_64 m_engine;
};

}  // namespace tremlo::test
