#include "core/waves/SeismicWaveSet.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

namespace tremlo {

namespace {

double LargestOrZero(const std::vector<double>& values) {
  return values.empty() ? 0.0 : *std::max_element(values.begin(), values.end());
}

/// Indices of samples.
struct Extreme {
  std::size_t first;  ///< that is no blank
  std::size_t at;     ///< the earliest that no other one beats
};

template <typename Beats>
std::optional<Extreme> FindExtreme(const std::vector<double>& acc, Beats beats) {
  std::optional<Extreme> found;
  for (std::size_t i = 0; i < acc.size(); ++i) {
    if (acc[i] == kBlankSample) continue;
    if (!found) found = {i, i};
    if (beats(acc[i], acc[found->at])) found->at = i;
  }
  return found;
}

}  // namespace

void CSeismicWaveSet::Add(const QString& name) {
  m_waves.emplace_back().name = name;
}

void CSeismicWaveSet::AddSpectrum(const QString& name, const std::vector<double>& periods,
                                  const std::vector<double>& accSpec) {
  CSeismicWave& wave = m_waves.emplace_back();
  wave.name = name;
  wave.periods = periods;
  wave.accSpec = accSpec;
}

void CSeismicWaveSet::Remove(const QString& name) {
  const QString wanted = name;  // the argument may be the name of a record that is about to go
  std::erase_if(m_waves, [&](const CSeismicWave& wave) { return wave.name == wanted; });
}

void CSeismicWaveSet::Clear() {
  m_waves.clear();
}

void CSeismicWaveSet::Resize(std::size_t count) {
  m_waves.resize(count);
}

std::vector<QString> CSeismicWaveSet::Names() const {
  std::vector<QString> names;
  names.reserve(m_waves.size());
  for (const CSeismicWave& wave : m_waves) names.push_back(wave.name);
  return names;
}

std::size_t CSeismicWaveSet::IndexOf(const QString& name) const {
  const auto found = std::find_if(m_waves.begin(), m_waves.end(),
                                  [&](const CSeismicWave& wave) { return wave.name == name; });
  return static_cast<std::size_t>(found - m_waves.begin());
}

bool CSeismicWaveSet::Contains(const QString& name) const {
  return Find(name) != nullptr;
}

QString CSeismicWaveSet::FreeName(const QString& name) const {
  if (!Contains(name)) return name;
  for (int counter = 1;; ++counter) {
    QString candidate = name + u'_' + QString::number(counter);
    if (!Contains(candidate)) return candidate;
  }
}

void CSeismicWaveSet::SetAccSample(const QString& name, std::size_t index, double value) {
  SetElement(name, &CSeismicWave::acc, index, value);
}

void CSeismicWaveSet::SetPeriod(const QString& name, std::size_t index, double value) {
  SetElement(name, &CSeismicWave::periods, index, value);
}

void CSeismicWaveSet::SetAccSpecValue(const QString& name, std::size_t index, double value) {
  SetElement(name, &CSeismicWave::accSpec, index, value);
}

void CSeismicWaveSet::ResetOrigGraph(const QString& name) {
  SetOrigGraph(name, WaveGraphSetting{});
}

void CSeismicWaveSet::ResetOrigColors(const QString& name) {
  for (CSeismicWave& wave : m_waves)
    if (wave.name == name) ResetColors(wave.origGraph);
}

void CSeismicWaveSet::MaxAcc(const QString& name, double& value, double& time) const {
  value = std::numeric_limits<double>::quiet_NaN();
  time = 0.0;
  const CSeismicWave* wave = Find(name);
  const std::optional<Extreme> found = wave ? FindExtreme(wave->acc, std::greater()) : std::nullopt;
  if (!found) return;
  value = wave->acc[found->at];
  // As long as the first sample is not exceeded the time stays 0, also where blanks come before it.
  if (found->at != found->first) time = static_cast<double>(found->at) * wave->timeStep;
}

void CSeismicWaveSet::MinAcc(const QString& name, double& value, double& time) const {
  value = std::numeric_limits<double>::quiet_NaN();
  time = 0.0;
  const CSeismicWave* wave = Find(name);
  const std::optional<Extreme> found = wave ? FindExtreme(wave->acc, std::less()) : std::nullopt;
  if (!found) return;
  value = wave->acc[found->at];
  time = static_cast<double>(found->at) * wave->timeStep;
}

double CSeismicWaveSet::MaxAccSpec(const QString& name) const {
  const CSeismicWave* wave = Find(name);
  return wave ? LargestOrZero(wave->accSpec) : 0.0;
}

double CSeismicWaveSet::MaxAdjustedSpec(const QString& name) const {
  const CSeismicWave* wave = Find(name);
  return wave ? LargestOrZero(wave->adjustedSpec) : 0.0;
}

void CSeismicWaveSet::ClearAdjustedAcc(const QString& name) {
  SetAdjustedAcc(name, {});
}
void CSeismicWaveSet::ClearAdjustedPeriods(const QString& name) {
  SetAdjustedPeriods(name, {});
}
void CSeismicWaveSet::ClearAdjustedSpec(const QString& name) {
  SetAdjustedSpec(name, {});
}

QString CSeismicWaveSet::CurrentName() const {
  const auto found =
      std::find_if(m_waves.begin(), m_waves.end(), [](const CSeismicWave& wave) { return wave.current; });
  return found == m_waves.end() ? QString() : found->name;
}

void CSeismicWaveSet::SelectCurrent(const QString& name) {
  for (CSeismicWave& wave : m_waves) wave.current = wave.name == name;
}

const CSeismicWave* CSeismicWaveSet::Selected() const {
  const auto found = std::find_if(m_waves.begin(), m_waves.end(),
                                  [](const CSeismicWave& wave) { return wave.lowerSelected; });
  return found == m_waves.end() ? nullptr : &*found;
}

CSeismicWave* CSeismicWaveSet::Selected() {
  return const_cast<CSeismicWave*>(std::as_const(*this).Selected());
}

QString CSeismicWaveSet::SelectedName() const {
  return SelectedValue(&CSeismicWave::name);
}
std::vector<double> CSeismicWaveSet::SelectedPeriods() const {
  return SelectedValue(&CSeismicWave::periods);
}
std::vector<double> CSeismicWaveSet::SelectedAccSpec() const {
  return SelectedValue(&CSeismicWave::accSpec);
}
double CSeismicWaveSet::MaxSelectedAccSpec() const {
  const CSeismicWave* wave = Selected();
  return wave ? LargestOrZero(wave->accSpec) : 0.0;
}
bool CSeismicWaveSet::SelectedBaseShow() const {
  return SelectedValue(&CSeismicWave::baseShow);
}
bool CSeismicWaveSet::SelectedBaseSelected() const {
  return SelectedValue(&CSeismicWave::baseSelected);
}
std::int32_t CSeismicWaveSet::SelectedBaseColor() const {
  return SelectedValue(&CSeismicWave::baseColor);
}
bool CSeismicWaveSet::SelectedBaseAdjustShow() const {
  return SelectedValue(&CSeismicWave::baseAdjustShow);
}

void CSeismicWaveSet::SetSelectedBaseShow(bool value) {
  SetSelectedValue(&CSeismicWave::baseShow, value);
}
void CSeismicWaveSet::SetSelectedBaseSelected() {
  SetSelectedValue(&CSeismicWave::baseSelected, true);
}
void CSeismicWaveSet::SetSelectedBaseColor(std::int32_t value) {
  SetSelectedValue(&CSeismicWave::baseColor, value);
}
void CSeismicWaveSet::SetSelectedSpectrumArea(double value) {
  SetSelectedValue(&CSeismicWave::spectrumArea, value);
}
void CSeismicWaveSet::SetSelectedBaseAdjustShow(bool value) {
  SetSelectedValue(&CSeismicWave::baseAdjustShow, value);
}

void CSeismicWaveSet::ClearBaseSelected() {
  for (CSeismicWave& wave : m_waves) wave.baseSelected = false;
}

const CSeismicWave* CSeismicWaveSet::Find(const QString& name) const {
  const std::size_t index = IndexOf(name);
  return index < m_waves.size() ? &m_waves[index] : nullptr;
}

void CSeismicWaveSet::SetElement(const QString& name, std::vector<double> CSeismicWave::*member,
                                 std::size_t index, double value) {
  for (CSeismicWave& wave : m_waves)
    if (wave.name == name && index < (wave.*member).size()) (wave.*member)[index] = value;
}

}  // namespace tremlo
