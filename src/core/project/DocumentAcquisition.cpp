#include "core/project/DocumentAcquisition.h"

#include "core/graphs/CurvePalette.h"
#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"
#include "core/project/AcquisitionEntries.h"
#include "core/project/BaseSpectrum.h"
#include "core/sources/AcquisitionReport.h"

namespace tremlo {

namespace {

/// The planes of all faults take the colours of the palette in turn. Of a plane's two candidates for the base
/// spectrum the second takes the next one.
void ColorPlanes(std::vector<FaultInfo>& faults) {
  std::size_t number = 0;
  for (FaultInfo& fault : faults) {
    const std::size_t planes = PlaneCount(fault);
    fault.attenColor.clear();
    fault.equivBaseColor.clear();
    for (std::size_t plane = 0; plane < planes; ++plane, ++number) {
      fault.attenColor.push_back(PaletteColor(number));
      fault.equivBaseColor.push_back(PaletteColor(number + 1));
    }
    fault.shortBaseColor = fault.attenColor;
  }
}

}  // namespace

void SetAcquireMode(CMorvaneDoc& doc, std::int32_t mode) {
  doc.faultAcquireMode = mode;
  doc.SetModified(true);
}

void EnterSearchRange(CMorvaneDoc& doc, const QString& text) {
  if (text.isEmpty()) return;
  doc.searchRangeKm = EnteredNumber(text, doc.searchRangeKm);
  doc.SetModified(true);
}

FaultAcquisitionInput AcquisitionInput(const CMorvaneDoc& doc) {
  FaultAcquisitionInput input;
  input.mode = doc.faultAcquireMode;
  input.searchRangeKm = doc.searchRangeKm;
  input.latitude = SiteLatitude(doc.site);
  input.longitude = SiteLongitude(doc.site);
  input.zone = ZoneFromLabel(doc.site.planeZone);
  input.parameters = doc.apiParameters;
  input.mainFaultRows = doc.mainFaultRows;
  return input;
}

void StoreAcquisition(CMorvaneDoc& doc, const FaultAcquisitionInput& input,
                      const FaultAcquisitionResult& result, std::vector<FaultInfo> faults) {
  if (!result.changed) return;
  doc.lastAcquisition = ReportOf(input, result);
  doc.faults = std::move(faults);
  ColorPlanes(doc.faults);
  doc.SetModified(true);
}

}  // namespace tremlo
