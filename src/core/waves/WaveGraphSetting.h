#pragma once

#include <array>
#include <cstdint>

namespace tremlo {

/// Ranges, logarithmic switches and colours of the three graphs of a wave: acceleration over time, response
/// spectrum over period, Fourier amplitude over period. Times and periods in s, acceleration and response in
/// gal, Fourier amplitude in gal·s. Colours are 0x00BBGGRR.
struct WaveGraphSetting {
  std::int32_t autoRange = 1;  ///< ranges follow the data
  double timeXMin = 0.0, timeXMax = 30.0, timeXStep = 5.0;
  double timeYMin = -500.0, timeYMax = 500.0, timeYStep = 100.0;
  std::int32_t specLog = 1;
  double specXMin = 0.0, specXMax = 50.0, specXStep = 5.0;
  double specLogXMin = 0.01, specLogXMax = 10.0;
  double specYMin = 0.0, specYMax = 1200.0, specYStep = 200.0;
  std::int32_t fourierLog = 0;
  double fourierXMin = 0.0, fourierXMax = 10.0, fourierXStep = 2.0;
  double fourierLogXMin = 0.1, fourierLogXMax = 10.0;
  double fourierYMin = 0.0, fourierYMax = 500.0, fourierYStep = 50.0;
  std::int32_t timeColor = 0xFF3232, specColor = 0xFF3232, fourierColor = 0xFF3232;
  std::array<std::int32_t, 6> reserved{};  ///< carried through copies and the project file, read by nothing

  bool operator==(const WaveGraphSetting&) const = default;
};

/// The block of a lower-limit spectrum: as the other, with the shorter linear period axis of those spectra.
inline WaveGraphSetting DefaultLowerGraph() {
  WaveGraphSetting graph;
  graph.specXMax = 5.0;
  graph.specXStep = 1.0;
  return graph;
}

/// Puts the three colours of a block alone back.
inline void ResetColors(WaveGraphSetting& graph) {
  const WaveGraphSetting fresh;
  graph.timeColor = fresh.timeColor;
  graph.specColor = fresh.specColor;
  graph.fourierColor = fresh.fourierColor;
}

}  // namespace tremlo
