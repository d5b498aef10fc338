#include "core/project/ScreenId.h"

#include <array>

namespace tremlo {

namespace {

/// In the order of the numbers.
constexpr std::array<const char*, 16> kWindowNames = {
    "Field",
    "FlowCheck",
    "Flowchart1",
    "Flowchart2",
    "Flowchart3",
    "OrigSeismicWave",
    "DamsiteWave",
    "MakeSeismicWave1",
    "MakeSeismicWave2",
    "LowerSpectrum",
    "BaseSpectrum",
    "AdjustSeismicWave",
    "Visualization",
    "RespAdjustSpectrum",
    "RespAdjustSpectrum",
    "RespVisualization",
};

}  // namespace

QString WindowName(ScreenId id) {
  if (!IsScreen(id)) return {};
  return QString::fromLatin1(
      kWindowNames[static_cast<std::size_t>(static_cast<int>(id) - static_cast<int>(kFirstScreen))]);
}

}  // namespace tremlo
