#include "core/graphs/ComponentRows.h"

#include "core/graphs/CellNumber.h"

namespace tremlo {

namespace {

enum Columns {
  kChosenColumn = ComponentRows::kChosen,
  kNameColumn = ComponentRows::kName,
  kComponent,
  kCount,
  kPeak
};

}  // namespace

ComponentRows::ComponentRows(RecordImport& import)
    : TitledRows({{u"読込", CellType::Check},
                  {u"波形名"},
                  {u"成分"},
                  {u"データ数", CellType::Number},
                  {u"最大 (gal)", CellType::Number}}),
      m_import(import) {}

CellFormat ComponentRows::Format(int row, int column) const {
  CellFormat format = TitledRows::Format(row, column);
  if (column == kName) format.locked = false;
  return format;
}

QString ComponentRows::CellText(int row, int column) const {
  const auto place = static_cast<std::size_t>(row - 1);
  const RecordImport::Component& component = m_import.Components()[place];
  switch (column) {
    case kChosenColumn:
      return CheckText(component.chosen);
    case kNameColumn:
      return component.name;
    case kComponent:
      return m_import.Samples(place).name;
    case kCount:
      return QString::number(m_import.Samples(place).acc.size());
    case kPeak:
      // About the mean: what an offset makes of it says nothing.
      return m_import.IsKnown(place) ? QString::number(PeakOf(m_import.Samples(place).acc).pga, 'g', 5)
                                     : QString();
    default:
      return {};
  }
}

void ComponentRows::Take(int row, int column, const QString& text) {
  const auto place = static_cast<std::size_t>(row - 1);
  if (column == kChosen) m_import.Choose(place, IsCheckedText(text));
  if (column == kName && !text.trimmed().isEmpty()) m_import.Rename(place, text);
}

}  // namespace tremlo
