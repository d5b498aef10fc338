#include "core/graphs/RangeRows.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/GraphTexts.h"

#include <cmath>

namespace tremlo {
namespace {

constexpr int kXRow = 1, kYRow = 2;
constexpr int kName = 1, kMin = 2, kMax = 3, kStep = 4;

double ValueOf(const QString& text, double stored) {
  const double value = NumberOfText(text, stored);
  return std::isfinite(value) ? value : stored;
}

}  // namespace

QString RangeRows::Title() const {
  return IsLogarithmic() ? m_title + QStringLiteral("(対数)") : m_title;
}

QString RangeRows::Text(int row, int column) const {
  if (row == 0) {
    const QStringList titles = {
        {}, Title(), QStringLiteral("最小値"), QStringLiteral("最大値"), QStringLiteral("間隔")};
    return titles.value(column);
  }
  if (row != kXRow && row != kYRow) return {};
  const GraphTexts& texts = TextsOf(m_kind);
  if (column == kName && row == kYRow) return texts.YTitle();
  if (column == kName) return IsLogarithmic() ? texts.XTitle() + QStringLiteral(" (×10^n)") : texts.XTitle();
  if (const auto field = FieldOf(row, column)) return ShortestText(m_block.**field);
  return column == kStep ? QStringLiteral("対数") : QString();
}

void RangeRows::SetText(int row, int column, const QString& text) {
  if (const auto field = FieldOf(row, column)) m_block.** field = ValueOf(text, m_block.**field);
}

bool RangeRows::WouldChange(int row, int column, const QString& text) const {
  const auto field = FieldOf(row, column);
  return field && ValueOf(text, m_block.**field) != m_block.**field;
}

CellFormat RangeRows::Format(int row, int column) const {
  CellFormat format;
  const bool number = column >= kMin && column <= kStep;
  if (number) format.type = CellType::Number;
  const bool followsData = m_block.autoRange != 0 && !(row == kXRow && IsLogarithmic());
  format.locked = !FieldOf(row, column) || (followsData && column != kStep);
  return format;
}

std::optional<double WaveGraphSetting::*> RangeRows::FieldOf(int row, int column) const {
  if (row != kXRow && row != kYRow) return {};
  const AxisFields axis = row == kXRow ? HorizontalFields(m_kind, IsLogarithmic()) : VerticalFields(m_kind);
  double WaveGraphSetting::*field = nullptr;
  if (column == kMin) field = axis.min;
  if (column == kMax) field = axis.max;
  if (column == kStep) field = axis.step;
  if (field == nullptr) return {};
  return field;
}

}  // namespace tremlo
