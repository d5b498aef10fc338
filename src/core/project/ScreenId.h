#pragma once

#include <QString>

namespace tremlo {

/// The command that opens a screen. FlowCheck opens Flowchart3 instead while the work procedure is fixed;
/// Flowchart3 itself names that screen but is no command.
enum class ScreenId : int {
  Field = 59649,
  FlowCheck = 59650,
  Flowchart1 = 59651,  ///< deciding the procedure by questions
  Flowchart2 = 59652,  ///< deciding it by clicks on the chart
  Flowchart3 = 59653,  ///< the fixed procedure
  OrigSeismicWave = 59654,
  DamsiteWave = 59655,
  MakeSeismicWave1 = 59656,  ///< acquisition of faults
  MakeSeismicWave2 = 59657,  ///< spectra of faults
  LowerSpectrum = 59658,
  BaseSpectrum = 59659,
  AdjustSeismicWave = 59660,
  Visualization = 59661,
  RespOrigSeismicWave = 59662,
  RespAdjustSpectrum = 59663,
  RespVisualization = 59664,
};

inline constexpr ScreenId kFirstScreen = ScreenId::Field;
inline constexpr ScreenId kLastScreen = ScreenId::RespVisualization;

/// Whether the number is one of the sixteen.
constexpr bool IsScreen(ScreenId id) {
  return id >= kFirstScreen && id <= kLastScreen;
}

/// The name that the screen's window receives; empty for an unknown number. RespOrigSeismicWave and
/// RespAdjustSpectrum bear the same name, so no screen can be looked up by it.
QString WindowName(ScreenId id);

}  // namespace tremlo
