#include "core/graphs/ColorRows.h"

#include "core/graphs/ColorText.h"

namespace tremlo {
namespace {

constexpr int kName = 1, kColor = 2;

}  // namespace

std::vector<CurveColor> ColorsOf(WaveGraphSetting& block) {
  return {{QStringLiteral("時間-加速度"), &block.timeColor},
          {QStringLiteral("周期-加速度応答スペクトル"), &block.specColor},
          {QStringLiteral("フーリエスペクトル"), &block.fourierColor}};
}

const CurveColor* ColorRows::Find(int row) const {
  return row >= 1 && row <= RowCount() ? &m_curves[static_cast<std::size_t>(row - 1)] : nullptr;
}

QString ColorRows::Text(int row, int column) const {
  if (row == 0 && column == kName) return QStringLiteral("名称");
  if (row == 0 && column == kColor) return QStringLiteral("色");
  const CurveColor* const curve = Find(row);
  if (!curve || column < kName || column > kColor) return {};
  return column == kName ? curve->name : ColorToText(*curve->color);
}

void ColorRows::SetText(int row, int column, const QString& text) {
  const CurveColor* const curve = Find(row);
  const auto color = TextToColor(text);
  if (curve && column == kColor && color) *curve->color = *color;
}

CellFormat ColorRows::Format(int row, int column) const {
  CellFormat format;
  if (column == kColor) format.type = CellType::Color;
  format.locked = column != kColor || !Find(row);
  return format;
}

}  // namespace tremlo
