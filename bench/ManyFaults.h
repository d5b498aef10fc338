#pragma once

#include "core/graphs/CurvePalette.h"
#include "core/project/MorvaneDoc.h"

namespace tremlo {

inline constexpr std::size_t kManyFaults = 100;
inline constexpr std::size_t kPlanesPerFault = 3;

/// Faults as an acquisition leaves them, at distances from 5 km on, each plane drawn and in use. Their
/// spectra are still to be computed.
inline std::vector<FaultInfo> ManyFaults() {
  std::vector<FaultInfo> faults(kManyFaults);
  for (std::size_t i = 0; i < kManyFaults; ++i) {
    FaultInfo& fault = faults[i];
    fault.rank = QString::number(i + 1);
    fault.ltename = QStringLiteral("断層帯%1").arg(i + 1);
    fault.magnitude = QString::number(6.0 + 0.02 * static_cast<double>(i), 'f', 2);
    fault.ijma = QStringLiteral("5.5");
    fault.geomNum = static_cast<std::int32_t>(kPlanesPerFault);
    fault.groundClass.assign(kPlanesPerFault, QStringLiteral("A"));
    for (std::size_t plane = 0; plane < kPlanesPerFault; ++plane) {
      const double far = static_cast<double>(i) + 0.3 * static_cast<double>(plane);
      fault.planeDepth.push_back(8.0 + 0.05 * far);
      fault.shortestDistance.push_back(5.0 + far);
      fault.equivalentDistance.push_back(12.0 + far);
      const std::size_t number = i * kPlanesPerFault + plane;
      fault.attenColor.push_back(PaletteColor(number));
      fault.equivBaseColor.push_back(PaletteColor(number + 1));
    }
    fault.shortBaseColor = fault.attenColor;
    for (auto* flags : {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow,
                        &fault.adjustShow, &fault.adjustShowEquiv})
      flags->assign(kPlanesPerFault, true);
    for (auto* flags : {&fault.shortBaseSelected, &fault.equivBaseSelected})
      flags->assign(kPlanesPerFault, false);
    for (auto* areas : {&fault.shortArea, &fault.equivArea}) areas->assign(kPlanesPerFault, 0.0);
  }
  return faults;
}

}  // namespace tremlo
