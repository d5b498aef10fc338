#include "core/graphs/NumberRows.h"

#include "core/files/NumberText.h"
#include "core/graphs/CellNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tremlo {

namespace {

/// A view counts the pixels of all its rows in an int, which more rows than these would overflow.
constexpr int kMostRows = 20'000'000;

double ValueOf(const NumberRows::Column& column, const QString& text) {
  const double value = NumberOfText(text, column.blank.value_or(0.0));
  return std::isfinite(value) || value == column.blank ? value : 0.0;
}

}  // namespace

int NumberRows::RowCount() const {
  std::size_t count = std::numeric_limits<std::size_t>::max();
  bool stored = false;
  for (const Column& column : m_columns) {
    if (!column.values) continue;
    const std::vector<double>* values = column.values();
    count = std::min(count, values ? values->size() : 0);
    stored = true;
  }
  return stored ? static_cast<int>(std::min<std::size_t>(count, kMostRows)) : 0;
}

const NumberRows::Column* NumberRows::Find(int column) const {
  const bool known = column >= 1 && column <= ColumnCount();
  return known ? &m_columns[static_cast<std::size_t>(column - 1)] : nullptr;
}

QString NumberRows::TextOf(int row, const Column& column, std::optional<int> decimals) const {
  double value = 0.0;
  if (column.values) {
    const std::vector<double>* values = column.values();
    if (!values || static_cast<std::size_t>(row) > values->size()) return {};
    value = (*values)[static_cast<std::size_t>(row - 1)];
  } else if (column.computed) {
    value = column.computed(row - 1);
  }
  if (column.blank && value == *column.blank) return {};
  return decimals ? FixedText(value, *decimals) : ShortestText(value);
}

bool NumberRows::Grows() const {
  return RowCount() < kMostRows;
}

QString NumberRows::Text(int row, int column) const {
  const Column* const found = Find(column);
  if (!found || row < 0) return {};
  return row == 0 ? found->title : TextOf(row, *found, found->decimals);
}

QString NumberRows::ExactText(int row, int column) const {
  const Column* const found = Find(column);
  if (!found || row < 1) return {};
  return TextOf(row, *found, found->values ? std::nullopt : found->decimals);
}

double* NumberRows::Element(int row, int column) const {
  const Column* const found = Find(column);
  std::vector<double>* const values = found && found->values ? found->values() : nullptr;
  if (!values || row < 1 || static_cast<std::size_t>(row) > values->size()) return nullptr;
  return &(*values)[static_cast<std::size_t>(row - 1)];
}

void NumberRows::SetText(int row, int column, const QString& text) {
  if (double* const element = Element(row, column)) *element = ValueOf(*Find(column), text);
}

bool NumberRows::WouldChange(int row, int column, const QString& text) const {
  const double* const element = Element(row, column);
  // A number shown rounded is not meant to be rounded by the one who leaves it as it looks.
  return element && text != Text(row, column) && ValueOf(*Find(column), text) != *element;
}

CellFormat NumberRows::Format(int /*row*/, int column) const {
  const Column* const found = Find(column);
  CellFormat format;
  format.type = CellType::Number;
  format.locked = !found || !found->values;
  return format;
}

void NumberRows::ReserveRows(int count) {
  for (const Column& column : m_columns) {
    std::vector<double>* const values = column.values ? column.values() : nullptr;
    if (!values || count < 1) continue;
    const std::size_t needed = values->size() + static_cast<std::size_t>(count);
    // Rows that are added one by one must not copy the list each time.
    if (needed > values->capacity()) values->reserve(std::max(needed, values->size() + values->size() / 2));
  }
}

void NumberRows::InsertRows(int before, int count) {
  for (const Column& column : m_columns) {
    std::vector<double>* const values = column.values ? column.values() : nullptr;
    if (!values || count < 1) continue;
    const auto place = std::clamp<std::ptrdiff_t>(before - 1, 0, static_cast<std::ptrdiff_t>(values->size()));
    values->insert(values->begin() + place, static_cast<std::size_t>(count), 0.0);
  }
}

void NumberRows::RemoveRows(int first, int count) {
  for (const Column& column : m_columns) {
    std::vector<double>* const values = column.values ? column.values() : nullptr;
    if (!values || first < 1 || count < 1) continue;
    const auto size = static_cast<std::ptrdiff_t>(values->size());
    const std::ptrdiff_t from = std::min<std::ptrdiff_t>(first - 1, size);
    const std::ptrdiff_t to = std::min<std::ptrdiff_t>(from + count, size);
    values->erase(values->begin() + from, values->begin() + to);
  }
}

}  // namespace tremlo
