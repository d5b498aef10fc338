#include "core/project/MorvaneDoc.h"

#include <algorithm>

namespace tremlo {

namespace {

void ClearResultsOf(CSeismicWaveSet& waves) {
  for (std::size_t i = 0; i < waves.Count(); ++i) {
    CSeismicWave& wave = waves.At(i);
    wave.adjustChecked = false;
    wave.adjusted = false;
    wave.adjustedAcc.clear();
    wave.adjustedPeriods.clear();
    wave.adjustedSpec.clear();
  }
}

void FillFlags(std::vector<bool>& flags, bool value) {
  std::fill(flags.begin(), flags.end(), value);
}

}  // namespace

std::optional<TableFailure> CMorvaneDoc::ResetDocument() {
  ++m_generation;
  guidelineRoute = false;
  site = SiteRecord{};
  flowQ1Yes = flowQ2Yes = flowCollect = flowFaultSource = flowNeighbourWave = flowFixed = false;
  seedWaves.Clear();
  graphDamsite = CSeismicWave{};
  std::optional<TableFailure> failure = LoadSystemData();
  if (auto lowerFailure = LoadLowerSpectra(); !failure) failure = lowerFailure;
  graphBase = CSeismicWave{};
  seedAdopted = false;
  seedAdoptedName.clear();
  baseSpectrumName.clear();
  graphAdjust = CSeismicWave{};
  adjustMaxIterations = 100;
  adjustTolerancePercent = 0.05;
  graphSpare = CSeismicWave{};
  visualShowOrig = 1;
  visualShowAdjusted = 1;
  visualColorOrig = 0xFF3232;
  visualColorAdjusted = 0x0000FF;
  visualColorSpare = 0x00FF00;
  respSpectra.Clear();
  lastAcquisition.reset();
  return failure;
}

std::optional<TableFailure> CMorvaneDoc::LoadSystemData() {
  std::optional<TableFailure> failure = LoadDamCoefFolder(m_folders, damCoefSets);
  if (auto tableFailure = LoadFaultTable(m_folders, mainFaultRows); !failure) failure = tableFailure;
  faults.clear();
  faultAcquireMode = 0;
  searchRangeKm = 50.0;
  attenuationMethod = QString::fromUtf16(kHorizontalMethod);
  graphAttenuation = CSeismicWave{};
  apiParameters = ApiParameterSet{};
  return failure;
}

std::optional<TableFailure> CMorvaneDoc::LoadLowerSpectra() {
  std::optional<TableFailure> failure = LoadLowSpecFolder(m_folders, lowerSpectra);
  MarkDefaultLowerSpectrum();
  return failure;
}

void CMorvaneDoc::ClearFaults() {
  faults.clear();
  SetModified(true);
}

void CMorvaneDoc::ClearSpectrumSelection() {
  seedWaves.ClearBaseSelected();
  for (FaultInfo& fault : faults) {
    FillFlags(fault.shortBaseSelected, false);
    FillFlags(fault.equivBaseSelected, false);
  }
  lowerSpectra.ClearBaseSelected();
  SetModified(true);
}

void CMorvaneDoc::ClearAdjustment() {
  ClearResultsOf(seedWaves);
  for (std::size_t i = 0; i < seedWaves.Count(); ++i) {
    seedWaves.At(i).baseAdjustShow = true;
    seedWaves.At(i).adopted = false;
  }
  lowerSpectra.SetSelectedBaseAdjustShow(true);
  for (FaultInfo& fault : faults) {
    FillFlags(fault.adjustShow, true);
    FillFlags(fault.adjustShowEquiv, true);
  }
  seedAdopted = false;
  seedAdoptedName.clear();
  SetModified(true);
}

void CMorvaneDoc::ClearResults() {
  ClearResultsOf(seedWaves);
  SetModified(true);
}

void CMorvaneDoc::ClearBaseSpectrumAndAdjustment() {
  ClearSpectrumSelection();
  baseSpectrumName.clear();
  ClearAdjustment();
}

void CMorvaneDoc::ClearFaultsAndAfter() {
  ClearFaults();
  ClearBaseSpectrumAndAdjustment();
}

void CMorvaneDoc::MarkDefaultLowerSpectrum() {
  for (std::size_t i = 0; i < lowerSpectra.Count(); ++i) {
    CSeismicWave& spectrum = lowerSpectra.At(i);
    if (spectrum.name == QStringView(kDefaultLowerName) ||
        spectrum.name == QStringView(kDefaultLowerLongName))
      spectrum.lowerSelected = true;
  }
}

}  // namespace tremlo
