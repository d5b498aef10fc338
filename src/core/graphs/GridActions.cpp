#include "core/graphs/GridActions.h"

#include "core/graphs/CellNumber.h"
#include "core/graphs/ColorText.h"

#include <algorithm>

namespace tremlo {

namespace {

/// Calls `visit(row, column, field)` for the cells of the block that a field stands for, until it says true.
template <class Visit>
bool AnyField(const GridBlock& block, const GridText& lines, Visit visit) {
  for (int row = block.top; row <= block.bottom; ++row) {
    const QStringList& fields = lines[static_cast<std::size_t>(row - block.top)];
    const int last = std::min(block.right, block.left + static_cast<int>(fields.size()) - 1);
    for (int column = block.left; column <= last; ++column)
      if (visit(row, column, fields[column - block.left])) return true;
  }
  return false;
}

}  // namespace

std::optional<QString> AcceptedText(const GridData& data, int row, int column, const QString& text) {
  const CellFormat format = data.Format(row, column);
  if (format.locked) return {};
  const auto ifTaken = [&](bool takes) { return takes ? std::optional<QString>(text) : std::nullopt; };
  switch (format.type) {
    case CellType::Text:
      return text;
    case CellType::Number:
      return HalfWidthNumber(text);
    case CellType::List:
      return ifTaken(format.choices.contains(text));
    case CellType::Check:
      return ifTaken(text == QStringLiteral("1") || text == QStringLiteral("0"));
    case CellType::Color:
      return ifTaken(TextToColor(text).has_value());
  }
  return {};
}

GridText CopyCells(const GridData& data, const GridBlock& block) {
  GridText lines;
  if (block.IsEmpty()) return lines;
  lines.reserve(static_cast<std::size_t>(block.RowCount()));
  for (int row = block.top; row <= block.bottom; ++row) {
    QStringList fields;
    for (int column = block.left; column <= block.right; ++column) fields.append(data.ExactText(row, column));
    lines.push_back(std::move(fields));
  }
  return lines;
}

GridBlock PasteBlock(const GridData& data, int row, int column, const GridText& lines) {
  if (row < 1 || column < 1 || lines.empty()) return {};
  qsizetype width = 0;
  for (const QStringList& fields : lines) width = std::max(width, fields.size());
  GridBlock block{row, column, row + static_cast<int>(lines.size()) - 1,
                  column + static_cast<int>(width) - 1};
  block.right = std::min(block.right, data.ColumnCount());
  if (!data.Grows()) block.bottom = std::min(block.bottom, data.RowCount());
  const bool takesAny = !block.IsEmpty() && AnyField(block, lines, [&](int r, int c, const QString& field) {
    return AcceptedText(data, r, c, field).has_value();
  });
  return takesAny ? block : GridBlock();
}

void PasteCells(GridData& data, const GridBlock& block, const GridText& lines) {
  AnyField(block, lines, [&](int row, int column, const QString& field) {
    if (const auto text = AcceptedText(data, row, column, field)) data.SetText(row, column, *text);
    return false;
  });
}

bool HasClearableCell(const GridData& data, const GridBlock& block) {
  if (block.IsEmpty()) return false;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column)
      if (AcceptedText(data, row, column, QString())) return true;
  return false;
}

void ClearCells(GridData& data, const GridBlock& block) {
  if (block.IsEmpty()) return;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column)
      if (AcceptedText(data, row, column, QString())) data.SetText(row, column, QString());
}

int FirstOpenColumn(const GridData& data) {
  for (int column = 1; column <= data.ColumnCount(); ++column)
    if (!data.Format(data.RowCount() + 1, column).locked) return column;
  return 1;
}

}  // namespace tremlo
