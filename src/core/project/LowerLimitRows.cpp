#include "core/project/LowerLimitRows.h"

namespace tremlo {

namespace {

enum Columns { kNumber = 1, kName, kSelected };

bool IsSelectedName(const CSeismicWaveSet& limits, const QString& name) {
  const CSeismicWave* const selected = limits.Selected();
  return selected && selected->name == name;
}

}  // namespace

LowerLimitRows::LowerLimitRows(const CMorvaneDoc& doc, ChangeRules& rules)
    : TitledRows({{u"No.", CellType::Number}, {u"下限スペクトル"}, {u"選択", CellType::Check}}),
      m_doc(doc),
      m_rules(rules) {}

QString LowerLimitRows::CellText(int row, int column) const {
  const QString& name = m_doc.lowerSpectra.At(static_cast<std::size_t>(row - 1)).name;
  switch (column) {
    case kNumber:
      return QString::number(row);
    case kName:
      return name;
    case kSelected:
      return CheckText(IsSelectedName(m_doc.lowerSpectra, name));
    default:
      return {};
  }
}

void LowerLimitRows::Take(int row, int column, const QString& /*text*/) {
  if (column == kSelected) m_rules.SelectLowerSpectrum(static_cast<std::size_t>(row - 1));
}

}  // namespace tremlo
