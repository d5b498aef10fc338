#include "core/project/AdjustBaseRow.h"

#include "core/files/NumberText.h"
#include "core/graphs/CellNumber.h"
#include "core/project/BaseSpectrumView.h"
#include "numeric/waves/SpectrumFigures.h"

namespace tremlo {

namespace {

enum Columns { kSource = 1, kLabel, kArea, kMaximum, kShown };

QString SourceText(BaseSource source) {
  switch (source) {
    case BaseSource::Wave:
      return QStringLiteral("現場近隣地震波形");
    case BaseSource::LowerLimit:
      return QStringLiteral("下限スペクトル");
    default:
      return QStringLiteral("距離減衰式（断層）");
  }
}

}  // namespace

AdjustBaseRow::AdjustBaseRow(CMorvaneDoc& doc)
    : TitledRows({{u"種別"},
                  {u"基準スペクトル"},
                  {u"面積 (gal・sec)", CellType::Number},
                  {u"最大値 (gal)", CellType::Number},
                  {u"表示", CellType::Check}}),
      m_doc(doc) {}

CellFormat AdjustBaseRow::Format(int row, int column) const {
  CellFormat format = TitledRows::Format(row, column);
  if (!MarkedBase(m_doc)) format.locked = true;
  return format;
}

QString AdjustBaseRow::CellText(int /*row*/, int column) const {
  const BaseSpectrumView base = ViewOfBase(m_doc);
  if (!base.item) return {};
  switch (column) {
    case kSource:
      return SourceText(base.item->source);
    case kLabel:
      return base.label;
    case kArea:
      return FixedText(SpectrumArea(base.periods, base.spectrum), 2);
    case kMaximum:
      return FixedText(LargestValue(base.spectrum), 2);
    case kShown:
      return CheckText(base.show);
    default:
      return {};
  }
}

void AdjustBaseRow::Take(int /*row*/, int column, const QString& text) {
  const auto base = MarkedBase(m_doc);
  if (base && column == kShown) SetTargetShown(m_doc, *base, IsCheckedText(text));
}

}  // namespace tremlo
