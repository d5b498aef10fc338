#include "core/graphs/CellNumber.h"
#include "core/report/ReportParts.h"

namespace tremlo {

ReportTable TableOf(const QString& title, const GridData& grid) {
  ReportTable table;
  table.title = title;
  std::vector<int> columns;
  for (int column = 1; column <= grid.ColumnCount(); ++column) {
    const CellType type = grid.Format(1, column).type;
    if (type == CellType::Color) continue;
    columns.push_back(column);
    table.headings << grid.Text(0, column);
    table.numbers.push_back(type == CellType::Number);
  }
  for (int row = 1; row <= grid.RowCount(); ++row) {
    QStringList texts;
    for (const int column : columns) {
      const QString text = grid.Text(row, column);
      const bool check = grid.Format(row, column).type == CellType::Check;
      texts << (!check ? text : IsCheckedText(text) ? QStringLiteral("○") : QString());
    }
    table.rows.push_back(texts);
  }
  return table;
}

ReportTable PropertyTable(const QString& title, std::vector<QStringList> rows) {
  return {title, {}, std::move(rows), {false, false}};
}

}  // namespace tremlo
