#pragma once

#include "ManyFaults.h"
#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"
#include "core/project/AdjustCheck.h"
#include "core/project/BaseCandidates.h"
#include "core/sources/DamSpectra.h"
#include "core/sources/FaultConversion.h"
#include "core/waves/SpectrumBatch.h"
#include "core/waves/WaveFile.h"

namespace tremlo {

inline constexpr int kDesignWaves = 20;

inline void AddDesignWaves(CMorvaneDoc& doc) {
  QString name;
  double timeStep = 0.0;
  std::vector<double> acc;
  ReadWaveFile(QStringLiteral(TREMLO_SOURCE_DIR "/samples/waves/hses_2016_n80w_0005_8192.csv"), name,
               timeStep, acc);
  for (int i = 0; i < kDesignWaves; ++i) {
    std::vector<double> scaled = acc;
    for (double& a : scaled) a *= 1.0 + 0.05 * i;
    AddImportedWave(doc.seedWaves, QStringLiteral("波形 %1").arg(i + 1), timeStep, scaled);
  }
  SpectrumBatch batch(doc.seedWaves);
  batch.Compute();
  batch.Store(doc.seedWaves);
}

inline void AddDesignFaults(CMorvaneDoc& doc) {
  doc.site.planeZone = QStringLiteral("VIII (8)");
  const int zone = ZoneFromLabel(doc.site.planeZone);
  const PlanePoint site = ToPlaneRectangular(zone, SiteLatitude(doc.site), SiteLongitude(doc.site));
  doc.faults = ManyFaults();
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    FaultInfo& fault = doc.faults[i];
    for (std::size_t plane = 0; plane < kPlanesPerFault; ++plane)
      fault.lon.push_back(QString::number(138.0 + 0.01 * static_cast<double>(i + plane), 'f', 5));
    const auto fill = [](std::vector<QString>& texts, const char* text) {
      texts.assign(kPlanesPerFault, QString::fromLatin1(text));
    };
    fill(fault.lat, "38.3");
    fill(fault.dep, "3");
    fill(fault.len, "60");
    fill(fault.wid, "20");
    fill(fault.str, "35");
    fill(fault.dip, "50");
    for (auto* corner : {&fault.corner1Lon, &fault.corner1Lat, &fault.corner1Dep, &fault.corner2Lon,
                         &fault.corner2Lat, &fault.corner2Dep, &fault.corner3Lon, &fault.corner3Lat,
                         &fault.corner3Dep, &fault.corner4Lon, &fault.corner4Lat, &fault.corner4Dep})
      corner->assign(kPlanesPerFault, 1.0);
    ComputeFaultDistances(fault, zone, site.easting / 1000.0, site.northing / 1000.0);
  }
  CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, doc.faults);
}

/// A project of 20 adjusted waves of 8,192 samples and 300 planes, and for each wave the sweeps that its
/// results take: its spectrum, the passes of its adjustment and the spectrum of the adjusted wave.
struct LargeDesign {
  CMorvaneDoc doc{QStringLiteral(TREMLO_SOURCE_DIR "/data")};
  std::vector<int> sweeps;

  LargeDesign() {
    doc.ResetDocument();
    doc.guidelineRoute = doc.flowQ2Yes = doc.flowFixed = doc.flowFaultSource = true;
    AddDesignWaves(doc);
    AddDesignFaults(doc);
    StoreCandidateAreas(doc);
    SetBase(doc, doc.lowerSpectra.SelectedName());
    doc.seedWaves.At(0).adopted = doc.seedAdopted = true;
    doc.seedAdoptedName = doc.seedWaves.At(0).name;
    for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) {
      const AdjustResult result = RunAdjustment(AdjustInputOf(doc, doc.seedWaves.At(i)));
      StoreAdjustment(doc.seedWaves.At(i), result);
      sweeps.push_back(result.passes + 2);
    }
  }
};

}  // namespace tremlo
