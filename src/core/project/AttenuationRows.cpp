#include "core/project/AttenuationRows.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "core/graphs/CurvePalette.h"
#include "core/project/FaultRows.h"
#include "core/project/PlaneNames.h"

#include <algorithm>

namespace tremlo {

namespace {

enum Columns {
  kRank = 1,
  kName,
  kClass,
  kMagnitude,
  kIntensity,
  kShortest,
  kEquivalent,
  kColor,
  kShown,
  kUse
};

template <class T>
T ValueAt(const std::vector<T>& values, std::size_t index) {
  return index < values.size() ? T(values[index]) : T{};
}

}  // namespace

AttenuationRows::AttenuationRows(CMorvaneDoc& doc, ChangeRules& rules, CalculatePlanes calculate)
    : TitledRows({{u"順位"},
                  {u"断層名"},
                  {u"地盤種別",
                   CellType::List,
                   {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")}},
                  {u"マグニチュード", CellType::Number},
                  {u"計測震度", CellType::Number},
                  {u"最短距離 (km)", CellType::Number},
                  {u"等価震源距離 (km)", CellType::Number},
                  {u"色", CellType::Color},
                  {u"表示", CellType::Check},
                  {u"利用", CellType::Check}}),
      m_doc(doc),
      m_rules(rules),
      m_calculate(std::move(calculate)) {}

int AttenuationRows::RowCount() const {
  return PlaneRowCount(m_doc.faults);
}

QString AttenuationRows::CellText(int row, int column) const {
  const auto place = PlaneOfRow(m_doc.faults, row);
  if (!place) return {};
  const FaultInfo& fault = m_doc.faults[place->fault];
  const std::size_t plane = place->plane;
  switch (column) {
    case kRank:
      return fault.rank;
    case kName:
      return PlaneName(fault, plane);
    case kClass:
      return ValueAt(fault.groundClass, plane);
    case kMagnitude:
      return fault.magnitude;
    case kIntensity:
      return fault.ijma;
    case kShortest:
      return DistanceText(fault.shortestDistance, plane);
    case kEquivalent:
      return DistanceText(fault.equivalentDistance, plane);
    case kColor:
      return ColorToText(ValueAt(fault.attenColor, plane));
    case kShown:
      return CheckText(ValueAt(fault.attenShow, plane));
    case kUse:
      return CheckText(ValueAt(fault.attenUse, plane));
    default:
      return {};
  }
}

void AttenuationRows::Take(int row, int column, const QString& text) {
  const auto place = PlaneOfRow(m_doc.faults, row);
  if (!place) return;
  FaultInfo& fault = m_doc.faults[place->fault];
  if (column == kClass) {
    const bool isOther = ValueAt(fault.groundClass, place->plane) != text;
    if (isOther && m_rules.SetGroundClass(place->fault, place->plane, text)) m_calculate();
  } else if (column == kUse) {
    m_rules.SetPlaneUse(place->fault, place->plane, IsCheckedText(text));
  } else if (column == kShown && place->plane < fault.attenShow.size()) {
    fault.attenShow[place->plane] = IsCheckedText(text);
    m_doc.SetModified(true);
  } else if (const auto color = TextToColor(text);
             column == kColor && color && place->plane < fault.attenColor.size()) {
    fault.attenColor[place->plane] = *color;
    m_doc.SetModified(true);
  }
}

void AttenuationRows::ShowAll(bool shown) {
  for (FaultInfo& fault : m_doc.faults) std::fill(fault.attenShow.begin(), fault.attenShow.end(), shown);
  m_doc.SetModified(true);
}

std::vector<CurveColor> AttenuationRows::Colors() {
  std::vector<CurveColor> colors;
  for (FaultInfo& fault : m_doc.faults)
    for (std::size_t plane = 0; plane < PlaneCount(fault, fault.attenUse, fault.attenColor); ++plane)
      colors.push_back({PlaneName(fault, plane), &fault.attenColor[plane]});
  return colors;
}

void AttenuationRows::ResetColors() {
  std::size_t number = 0;
  for (FaultInfo& fault : m_doc.faults) {
    for (std::size_t plane = 0; plane < PlaneCount(fault, fault.attenUse, fault.attenColor); ++plane)
      fault.attenColor[plane] = PaletteColor(number + plane);
    number += PlaneCount(fault);
  }
  m_doc.SetModified(true);
}

}  // namespace tremlo
