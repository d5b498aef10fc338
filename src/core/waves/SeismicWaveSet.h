#pragma once

#include "core/waves/SeismicWave.h"

#include <cstddef>

namespace tremlo {

/// Ordered set of waves, addressed by exact name. The set does not keep names unique: that is the duty of the
/// screens that add or rename. A by-name setter reaches every record of the name; a getter hands out a copy
/// of the first match, or a default value when there is none.
class CSeismicWaveSet {
 public:
  void Add(const QString& name);
  void AddSpectrum(const QString& name, const std::vector<double>& periods,
                   const std::vector<double>& accSpec);
  void Remove(const QString& name);  ///< every match; the order of the others stays
  void Clear();
  void Resize(std::size_t count);
  std::vector<QString> Names() const;
  std::size_t IndexOf(const QString& name) const;  ///< index of the first match, else the count of records
  bool Contains(const QString& name) const;
  /// `name` itself when it is free, else the first free of name_1, name_2, ...
  QString FreeName(const QString& name) const;

  std::size_t Count() const { return m_waves.size(); }
  bool IsEmpty() const { return m_waves.empty(); }
  const std::vector<CSeismicWave>& Records() const { return m_waves; }
  /// The record itself, for the file and for screens that write straight on a row.
  CSeismicWave& At(std::size_t index) { return m_waves[index]; }
  const CSeismicWave& At(std::size_t index) const { return m_waves[index]; }

#define TREMLO_WAVE_FIELD(Type, Accessor, member)              \
  Type Get##Accessor(const QString& name) const {              \
    return Value(name, &CSeismicWave::member);                 \
  }                                                            \
  void Set##Accessor(const QString& name, const Type& value) { \
    SetValue(name, &CSeismicWave::member, value);              \
  }
  TREMLO_WAVE_FIELD(bool, SpectrumValid, spectrumValid)
  TREMLO_WAVE_FIELD(double, TimeStep, timeStep)
  TREMLO_WAVE_FIELD(std::vector<double>, Acc, acc)
  TREMLO_WAVE_FIELD(bool, Current, current)
  TREMLO_WAVE_FIELD(WaveGraphSetting, OrigGraph, origGraph)
  TREMLO_WAVE_FIELD(std::int32_t, SiteColor, siteColor)
  TREMLO_WAVE_FIELD(bool, SiteShow, siteShow)
  TREMLO_WAVE_FIELD(bool, SiteUse, siteUse)
  TREMLO_WAVE_FIELD(std::vector<double>, Periods, periods)
  TREMLO_WAVE_FIELD(std::vector<double>, AccSpec, accSpec)
  TREMLO_WAVE_FIELD(bool, LowerSelected, lowerSelected)
  TREMLO_WAVE_FIELD(WaveGraphSetting, LowerGraph, lowerGraph)
  TREMLO_WAVE_FIELD(std::int32_t, BaseColor, baseColor)
  TREMLO_WAVE_FIELD(bool, BaseShow, baseShow)
  TREMLO_WAVE_FIELD(bool, BaseSelected, baseSelected)
  TREMLO_WAVE_FIELD(double, SpectrumArea, spectrumArea)
  TREMLO_WAVE_FIELD(std::int32_t, AdjustColor, adjustColor)
  TREMLO_WAVE_FIELD(bool, BaseAdjustShow, baseAdjustShow)
  TREMLO_WAVE_FIELD(bool, AdjustShow, adjustShow)
  TREMLO_WAVE_FIELD(bool, Adopted, adopted)
  TREMLO_WAVE_FIELD(bool, AdjustChecked, adjustChecked)
  TREMLO_WAVE_FIELD(std::vector<double>, AdjustedAcc, adjustedAcc)
  TREMLO_WAVE_FIELD(std::vector<double>, AdjustedPeriods, adjustedPeriods)
  TREMLO_WAVE_FIELD(std::vector<double>, AdjustedSpec, adjustedSpec)
  TREMLO_WAVE_FIELD(bool, Adjusted, adjusted)
#undef TREMLO_WAVE_FIELD

  /// One element, for the grid editors. An index past the end changes nothing.
  void SetAccSample(const QString& name, std::size_t index, double value);
  void SetPeriod(const QString& name, std::size_t index, double value);
  void SetAccSpecValue(const QString& name, std::size_t index, double value);

  void ResetOrigGraph(const QString& name);
  void ResetOrigColors(const QString& name);  ///< the three colours alone

  /// Largest sample that is not blank (gal) and its time (s). Value NaN at time 0 when there is none. When
  /// the first sample that counts is the largest, its time is given as 0 even if blanks stand before it.
  void MaxAcc(const QString& name, double& value, double& time) const;
  /// Smallest sample that is not blank and its time; here the time of a leading smallest sample is its own.
  void MinAcc(const QString& name, double& value, double& time) const;
  double MaxAccSpec(const QString& name) const;       ///< 0 for an empty spectrum
  double MaxAdjustedSpec(const QString& name) const;  ///< 0 for an empty spectrum

  void ClearAdjustedAcc(const QString& name);
  void ClearAdjustedPeriods(const QString& name);
  void ClearAdjustedSpec(const QString& name);

  QString CurrentName() const;
  void SelectCurrent(const QString& name);

  /// The selected record itself: the first with `lowerSelected` set; null when none is.
  CSeismicWave* Selected();
  const CSeismicWave* Selected() const;
  /// Getters of the selected record; defaults when there is none.
  QString SelectedName() const;
  std::vector<double> SelectedPeriods() const;
  std::vector<double> SelectedAccSpec() const;
  double MaxSelectedAccSpec() const;
  bool SelectedBaseShow() const;
  bool SelectedBaseSelected() const;
  std::int32_t SelectedBaseColor() const;
  bool SelectedBaseAdjustShow() const;

  /// Setters of the selection: they reach every record with `lowerSelected` set.
  void SetSelectedBaseShow(bool value);
  void SetSelectedBaseSelected();
  void SetSelectedBaseColor(std::int32_t value);
  void SetSelectedSpectrumArea(double value);
  void SetSelectedBaseAdjustShow(bool value);

  void ClearBaseSelected();

 private:
  const CSeismicWave* Find(const QString& name) const;
  template <class T>
  T Value(const QString& name, T CSeismicWave::*member) const {
    const CSeismicWave* wave = Find(name);
    return wave ? wave->*member : T{};
  }
  template <class T>
  void SetValue(const QString& name, T CSeismicWave::*member, const T& value) {
    for (CSeismicWave& wave : m_waves)
      if (wave.name == name) wave.*member = value;
  }
  template <class T>
  T SelectedValue(T CSeismicWave::*member) const {
    const CSeismicWave* wave = Selected();
    return wave ? wave->*member : T{};
  }
  template <class T>
  void SetSelectedValue(T CSeismicWave::*member, const T& value) {
    for (CSeismicWave& wave : m_waves)
      if (wave.lowerSelected) wave.*member = value;
  }
  void SetElement(const QString& name, std::vector<double> CSeismicWave::*member, std::size_t index,
                  double value);

  std::vector<CSeismicWave> m_waves;
};

}  // namespace tremlo
