#include "core/project/ChangeRules.h"

#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/waves/AdoptedWave.h"

#include <algorithm>

namespace tremlo {

namespace {

bool AnyAdjusted(const CSeismicWaveSet& waves) {
  return std::any_of(waves.Records().begin(), waves.Records().end(),
                     [](const CSeismicWave& wave) { return wave.adjusted; });
}

bool IsAdjusted(const CSeismicWaveSet& waves, const QString& name) {
  return std::any_of(waves.Records().begin(), waves.Records().end(),
                     [&](const CSeismicWave& wave) { return wave.adjusted && wave.name == name; });
}

/// The base counts as a lower limit by its name among the rows, whatever else may bear that name.
bool LowerLimitIsBase(const CMorvaneDoc& doc) {
  return !doc.baseSpectrumName.isEmpty() && doc.lowerSpectra.Contains(doc.baseSpectrumName);
}

}  // namespace

bool ChangeRules::BeginSiteChange() {
  if (m_doc.faults.empty()) return true;
  if (!Ask(SiteChangeQuestion())) return false;
  m_doc.ClearFaultsAndAfter();
  m_procedure.RefreshFaultScreens();
  return true;
}

bool ChangeRules::BeginApiParameters() {
  if (m_doc.faults.empty()) return true;
  if (!Ask(ApiParametersQuestion(m_doc.apiParameters))) return false;
  const bool planeIsBase = AnyPlaneIsBase(m_doc);
  if (planeIsBase && !AskBaseChange()) return false;
  m_doc.ClearFaults();
  m_procedure.RefreshFaultScreens();
  if (planeIsBase) m_doc.ClearBaseSpectrumAndAdjustment();
  m_procedure.RefreshActiveScreen();
  return true;
}

bool ChangeRules::BeginAcquisition(bool zoneKnown) {
  if (!AnyPlaneIsBase(m_doc)) return true;
  if (!AskBaseChange()) return false;
  if (zoneKnown) m_doc.ClearBaseSpectrumAndAdjustment();
  return true;
}

bool ChangeRules::BeginAdjustSettings() {
  if (!AnyAdjusted(m_doc.seedWaves)) return true;
  if (!Ask(AdjustSettingsQuestion())) return false;
  m_doc.ClearResults();
  m_procedure.RefreshActiveScreen();
  return true;
}

bool ChangeRules::SetGroundClass(std::size_t fault, std::size_t plane, const QString& groundClass) {
  if (fault >= m_doc.faults.size() || plane >= m_doc.faults[fault].groundClass.size()) return false;
  if (m_doc.faults[fault].groundClass[plane] == groundClass) return true;
  if (!ClearBaseIf(IsBasePlane(m_doc.faults[fault], plane))) return false;
  m_doc.faults[fault].groundClass[plane] = groundClass;
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::SetAttenuationMethod(const QString& method) {
  if (m_doc.attenuationMethod == method) return true;
  if (!ClearBaseIf(AnyPlaneIsBase(m_doc))) return false;
  m_doc.attenuationMethod = method;
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::SetPlaneUse(std::size_t fault, std::size_t plane, bool use) {
  if (fault >= m_doc.faults.size() || plane >= m_doc.faults[fault].attenUse.size()) return false;
  if (!use && !ClearBaseIf(IsBasePlane(m_doc.faults[fault], plane))) return false;
  m_doc.faults[fault].attenUse[plane] = use;
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::SetAllPlanesUse(bool use) {
  if (!use && !ClearBaseIf(AnyPlaneIsBase(m_doc))) return false;
  for (FaultInfo& fault : m_doc.faults) std::fill(fault.attenUse.begin(), fault.attenUse.end(), use);
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::ChangeWaveData(const QString& waveName, const std::function<void()>& apply) {
  const QString name = waveName;  // the argument may live in the record that `apply` rewrites
  if (IsBaseWave(m_doc, name)) {
    if (!AskBaseChange()) return false;
    if (AnyAdjusted(m_doc.seedWaves) && !Ask(AdjustedWavesQuestion())) return false;
    m_doc.ClearBaseSpectrumAndAdjustment();
  } else if (IsAdjusted(m_doc.seedWaves, name)) {
    if (!Ask(AdjustedWaveDataQuestion())) return false;
    m_doc.ClearAdjustment();
  }
  // Of two waves of the name it is the first that changes.
  const std::size_t changed = m_doc.seedWaves.IndexOf(name);
  if (changed < m_doc.seedWaves.Count()) m_doc.seedWaves.At(changed).note.reset();
  apply();
  m_doc.seedWaves.SetSpectrumValid(name, false);
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::DeleteWave(const QString& name) {
  const QString gone = name;  // the argument may live in the record that is about to go
  if (!ClearBaseIf(IsBaseWave(m_doc, gone))) return false;
  if (!Ask(DeleteWaveQuestion(gone))) return false;
  m_doc.seedWaves.Remove(gone);
  const bool adoptedGone = m_doc.seedAdoptedName == gone || !AdoptedWave(m_doc.seedWaves);
  if (m_doc.seedAdopted && adoptedGone) m_doc.ClearAdjustment();
  if (!m_doc.seedWaves.IsEmpty()) m_doc.seedWaves.SelectCurrent(m_doc.seedWaves.At(0).name);
  m_doc.SetModified(true);
  return true;
}

void ChangeRules::RenameWave(std::size_t index, const QString& newName) {
  // Of two records that bear a mark the first counts, for the target of a run as for the adopted wave.
  if (MarkedBase(m_doc) == BaseItem{BaseSource::Wave, index, 0}) m_doc.baseSpectrumName = newName;
  if (m_doc.seedAdopted && AdoptedWave(m_doc.seedWaves) == index) m_doc.seedAdoptedName = newName;
  m_doc.seedWaves.At(index).name = newName;
  m_doc.SetModified(true);
}

bool ChangeRules::SetNeighbourUse(const QString& name, bool use) {
  if (!use && !ClearBaseIf(IsBaseWave(m_doc, name))) return false;
  m_doc.seedWaves.SetSiteUse(name, use);
  m_doc.SetModified(true);
  return true;
}

bool ChangeRules::SetAllNeighbourUse(bool use) {
  // Here the base counts as one of the waves by its name among the rows, whatever else may bear that name.
  const bool baseAmongThem =
      !m_doc.baseSpectrumName.isEmpty() && m_doc.seedWaves.Contains(m_doc.baseSpectrumName);
  if (!use && !ClearBaseIf(baseAmongThem)) return false;
  for (const QString& name : m_doc.seedWaves.Names()) m_doc.seedWaves.SetSiteUse(name, use);
  m_doc.SetModified(true);
  return true;
}

ChoiceOutcome ChangeRules::SelectLowerSpectrum(std::size_t row) {
  if (row >= m_doc.lowerSpectra.Count()) return ChoiceOutcome::Declined;
  if (LowerLimitIsBase(m_doc)) {
    if (m_doc.lowerSpectra.At(row).name == m_doc.baseSpectrumName) return ChoiceOutcome::Kept;
    if (!AskBaseChange()) return ChoiceOutcome::Declined;
    m_doc.ClearBaseSpectrumAndAdjustment();
  }
  for (std::size_t i = 0; i < m_doc.lowerSpectra.Count(); ++i)
    m_doc.lowerSpectra.At(i).lowerSelected = i == row;
  m_doc.SetModified(true);
  return ChoiceOutcome::Applied;
}

ChoiceOutcome ChangeRules::ChooseBaseSpectrum(const QString& label) {
  const bool seedAdopted = m_doc.seedAdopted;
  if (seedAdopted) {
    if (label == m_doc.baseSpectrumName) return ChoiceOutcome::Kept;
    if (!AskBaseChange()) return ChoiceOutcome::Declined;
  }
  SetBase(m_doc, label);
  if (seedAdopted) m_doc.ClearAdjustment();
  return ChoiceOutcome::Applied;
}

void ChangeRules::AdoptWave(std::size_t index) {
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).adopted = i == index;
  m_doc.seedAdopted = true;
  m_doc.seedAdoptedName = m_doc.seedWaves.At(index).name;
  m_doc.SetModified(true);
}

bool ChangeRules::Ask(const QString& question) {
  const std::uint64_t generation = m_doc.Generation();
  return m_prompt.Ask(question) && m_doc.Generation() == generation;
}

bool ChangeRules::AskBaseChange() {
  return Ask(BaseChangeQuestion(m_doc.baseSpectrumName));
}

bool ChangeRules::ClearBaseIf(bool isBase) {
  if (!isBase) return true;
  if (!AskBaseChange()) return false;
  m_doc.ClearBaseSpectrumAndAdjustment();
  return true;
}

}  // namespace tremlo
