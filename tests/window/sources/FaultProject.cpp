#include "window/sources/FaultProject.h"

#include "core/project/DocumentAcquisition.h"

namespace tremlo::test {

void AddFault(CMorvaneDoc& doc, const QString& name, std::size_t planes, const QString& magnitude) {
  FaultInfo fault;
  const std::size_t order = doc.faults.size();
  fault.rank = QString::number(order + 1);
  fault.ltename = name;
  fault.magnitude = magnitude;
  fault.ijma = QStringLiteral("5.%1").arg(order % 10);
  fault.geomNum = static_cast<std::int32_t>(planes);
  fault.groundClass.assign(planes, QStringLiteral("A"));
  for (std::size_t plane = 0; plane < planes; ++plane) {
    const double far = static_cast<double>(order) * 1.7 + static_cast<double>(plane) * 0.31;
    fault.planeDepth.push_back(8.25 + far * 0.1);
    fault.shortestDistance.push_back(12.345678 + far);
    fault.equivalentDistance.push_back(21.98765 + far);
  }
  fault.shortArea.assign(planes, 0.0);
  fault.equivArea.assign(planes, 0.0);
  for (auto* const marks : {&fault.attenShow, &fault.attenUse, &fault.shortBaseShow, &fault.equivBaseShow,
                            &fault.adjustShow, &fault.adjustShowEquiv})
    marks->assign(planes, true);
  for (auto* const marks : {&fault.shortBaseSelected, &fault.equivBaseSelected}) marks->assign(planes, false);
  doc.faults.push_back(std::move(fault));
}

void ColorAsAcquired(CMorvaneDoc& doc) {
  FaultAcquisitionResult result;
  result.changed = true;
  const std::optional<AcquisitionReport> report = doc.lastAcquisition;
  StoreAcquisition(doc, {}, result, std::vector<FaultInfo>(doc.faults));
  doc.lastAcquisition = report;
}

}  // namespace tremlo::test
