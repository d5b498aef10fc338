#include "core/project/BaseCandidateRows.h"

#include "core/files/NumberText.h"
#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"

namespace tremlo {

namespace {

enum Columns { kNumber = 1, kLabel, kArea, kMaximum, kColor, kShown, kBase };

}  // namespace

BaseCandidateRows::BaseCandidateRows(CMorvaneDoc& doc, ChangeRules& rules)
    : TitledRows({{u"No.", CellType::Number},
                  {u"スペクトル名"},
                  {u"面積 (gal・sec)", CellType::Number},
                  {u"最大値 (gal)", CellType::Number},
                  {u"色", CellType::Color},
                  {u"表示", CellType::Check},
                  {u"基準", CellType::Check}}),
      m_doc(doc),
      m_rules(rules) {
  Refresh();
}

QString BaseCandidateRows::CellText(int row, int column) const {
  const BaseCandidate& candidate = m_candidates[static_cast<std::size_t>(row - 1)];
  switch (column) {
    case kNumber:
      return QString::number(row);
    case kLabel:
      return candidate.label;
    case kArea:
      return FixedText(candidate.area, 2);
    case kMaximum:
      return FixedText(candidate.maximum, 2);
    case kColor:
      return ColorToText(candidate.color);
    case kShown:
      return CheckText(candidate.shown);
    case kBase:
      return CheckText(candidate.base);
    default:
      return {};
  }
}

void BaseCandidateRows::Take(int row, int column, const QString& text) {
  const QString label = m_candidates[static_cast<std::size_t>(row - 1)].label;
  if (column == kShown) SetCandidateShown(m_doc, label, IsCheckedText(text));
  if (column == kBase) m_rules.ChooseBaseSpectrum(label);
  if (const auto color = TextToColor(text); column == kColor && color)
    SetCandidateColor(m_doc, label, *color);
  Refresh();
}

}  // namespace tremlo
