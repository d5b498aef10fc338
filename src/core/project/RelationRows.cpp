#include "core/project/RelationRows.h"

namespace tremlo {

namespace {

enum Columns { kRelation = 1, kInUse };

QString RelationOf(int row) {
  return QString::fromUtf16(row == 1 ? kHorizontalMethod : kVerticalMethod);
}

}  // namespace

RelationRows::RelationRows(const CMorvaneDoc& doc, ChangeRules& rules, CalculatePlanes calculate)
    : TitledRows({{u"距離減衰式"}, {u"選択", CellType::Check}}),
      m_doc(doc),
      m_rules(rules),
      m_calculate(std::move(calculate)) {}

QString RelationRows::CellText(int row, int column) const {
  const QString relation = RelationOf(row);
  return column == kRelation ? relation : CheckText(relation == m_doc.attenuationMethod);
}

void RelationRows::Take(int row, int column, const QString& /*text*/) {
  const QString relation = RelationOf(row);
  if (column != kInUse || relation == m_doc.attenuationMethod) return;
  if (m_rules.SetAttenuationMethod(relation)) m_calculate();
}

}  // namespace tremlo
