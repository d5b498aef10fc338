#include "core/project/AdjustRows.h"

#include "core/files/NumberText.h"
#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "core/project/BaseSpectrumView.h"
#include "core/waves/FitText.h"
#include "numeric/waves/SpectrumFigures.h"

#include <algorithm>
#include <cstring>

namespace tremlo {

namespace {

enum Columns { kNumber = 1, kName, kArea, kMaximum, kColor, kShown, kAdopted, kAdjusted };

constexpr std::int32_t kLockedColor = 0xC8D4D0;
constexpr std::int32_t kOpenColor = 0xFFFFFF;

/// Bit for bit: a wave with a sample that is no number is the same wave.
bool Same(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0);
}

/// Settings may differ: what the run came to stays true of the wave and the target.
bool SameData(const AdjustInput& a, const AdjustInput& b) {
  return a.timeStep == b.timeStep && Same(a.acc, b.acc) && Same(a.periods, b.periods) &&
         Same(a.target, b.target);
}

/// Whether the record is as the run has left it.
bool IsOf(const AdjustAttempt& run, const CMorvaneDoc& doc, const CSeismicWave& wave) {
  if (wave.name != run.wave || wave.adjusted != run.result.converged) return false;
  return wave.adjusted ? Same(wave.adjustedAcc, run.result.acc)
                       : SameData(AdjustInputOf(doc, wave), run.input);
}

}  // namespace

AdjustRows::AdjustRows(CMorvaneDoc& doc, ChangeRules& rules, Prompt& prompt, AdjustRunner run)
    : TitledRows({{u"No.", CellType::Number},
                  {u"波形名"},
                  {u"面積 (gal・sec)", CellType::Number},
                  {u"最大値 (gal)", CellType::Number},
                  {u"色", CellType::Color},
                  {u"表示", CellType::Check},
                  {u"採用", CellType::Check},
                  {u"調整", CellType::Check}}),
      m_doc(doc),
      m_rules(rules),
      m_prompt(prompt),
      m_run(std::move(run)) {}

CellFormat AdjustRows::Format(int row, int column) const {
  CellFormat format = TitledRows::Format(row, column);
  if (column != kAdjusted || row < 1 || row > RowCount()) return format;
  format.locked = !m_doc.seedWaves.At(static_cast<std::size_t>(row - 1)).adopted;
  format.backColor = format.locked ? kLockedColor : kOpenColor;
  return format;
}

QString AdjustRows::CellText(int row, int column) const {
  const CSeismicWave& wave = m_doc.seedWaves.At(static_cast<std::size_t>(row - 1));
  const SpectrumView spectrum = MeasuredSpectrum(wave);
  switch (column) {
    case kNumber:
      return QString::number(row);
    case kName:
      return wave.name;
    case kArea:
      return FixedText(SpectrumArea(spectrum.periods, spectrum.values), 2);
    case kMaximum:
      return FixedText(LargestValue(spectrum.values), 2);
    case kColor:
      return ColorToText(wave.adjustColor);
    case kShown:
      return CheckText(wave.adjustShow);
    case kAdopted:
      return CheckText(wave.adopted);
    case kAdjusted:
      return CheckText(wave.adjustChecked);
    default:
      return {};
  }
}

void AdjustRows::Take(int row, int column, const QString& text) {
  const auto index = static_cast<std::size_t>(row - 1);
  if (column == kAdopted) {
    m_rules.AdoptWave(index);
  } else if (column == kAdjusted) {
    AdjustAttempt attempt{m_doc.Generation(), m_doc.seedWaves.At(index).name, {}, {}};
    const auto run = [&](const AdjustInput& input) {
      attempt.input = input;
      return m_run(input);
    };
    if (auto result = CheckAdjustment(m_doc, m_prompt, index, IsCheckedText(text), run)) {
      attempt.result = std::move(*result);
      m_lastRun = std::move(attempt);
    }
  } else if (column == kShown) {
    m_doc.seedWaves.At(index).adjustShow = IsCheckedText(text);
    m_doc.SetModified(true);
  } else if (const auto color = TextToColor(text); column == kColor && color) {
    m_doc.seedWaves.At(index).adjustColor = *color;
    m_doc.SetModified(true);
  }
}

void AdjustRows::ShowAll(bool shown) {
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).adjustShow = shown;
  if (const auto base = MarkedBase(m_doc)) SetTargetShown(m_doc, *base, shown);
  m_doc.SetModified(true);
}

QString AdjustRows::LastRunText() const {
  if (!m_lastRun || m_lastRun->generation != m_doc.Generation()) return {};
  const std::vector<CSeismicWave>& waves = m_doc.seedWaves.Records();
  const bool there = std::any_of(waves.begin(), waves.end(),
                                 [this](const CSeismicWave& wave) { return IsOf(*m_lastRun, m_doc, wave); });
  if (!there) return {};
  return QStringLiteral("「") + m_lastRun->wave + QStringLiteral("」　") + RunFitText(m_lastRun->result);
}

}  // namespace tremlo
