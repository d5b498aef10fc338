#include "core/project/NeighbourRows.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"
#include "core/graphs/CurvePalette.h"

namespace tremlo {

namespace {

enum Columns { kNumber = 1, kName, kColor, kShown, kUse };

}  // namespace

NeighbourRows::NeighbourRows(CMorvaneDoc& doc, ChangeRules& rules)
    : TitledRows({{u"No.", CellType::Number},
                  {u"波形名"},
                  {u"色", CellType::Color},
                  {u"表示", CellType::Check},
                  {u"利用", CellType::Check}}),
      m_doc(doc),
      m_rules(rules) {}

QString NeighbourRows::CellText(int row, int column) const {
  const CSeismicWave& wave = m_doc.seedWaves.At(static_cast<std::size_t>(row - 1));
  switch (column) {
    case kNumber:
      return QString::number(row);
    case kName:
      return wave.name;
    case kColor:
      return ColorToText(wave.siteColor);
    case kShown:
      return CheckText(wave.siteShow);
    case kUse:
      return CheckText(wave.siteUse);
    default:
      return {};
  }
}

void NeighbourRows::Take(int row, int column, const QString& text) {
  const QString name = m_doc.seedWaves.At(static_cast<std::size_t>(row - 1)).name;
  if (column == kUse) {
    m_rules.SetNeighbourUse(name, IsCheckedText(text));
    return;
  }
  const auto color = TextToColor(text);
  if (column == kColor && color) m_doc.seedWaves.SetSiteColor(name, *color);
  if (column == kShown) m_doc.seedWaves.SetSiteShow(name, IsCheckedText(text));
  m_doc.SetModified(true);
}

void NeighbourRows::ShowAll(bool shown) {
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).siteShow = shown;
  m_doc.SetModified(true);
}

std::vector<CurveColor> NeighbourRows::Colors() {
  std::vector<CurveColor> colors;
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i)
    colors.push_back({m_doc.seedWaves.At(i).name, &m_doc.seedWaves.At(i).siteColor});
  return colors;
}

void NeighbourRows::ResetColors() {
  for (std::size_t i = 0; i < m_doc.seedWaves.Count(); ++i) m_doc.seedWaves.At(i).siteColor = PaletteColor(i);
  m_doc.SetModified(true);
}

}  // namespace tremlo
