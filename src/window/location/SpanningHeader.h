#pragma once

#include <QString>

class QWidget;

namespace tremlo {

class CSpread7;

/// A line that stands above a grid as a header over several of its columns: from `firstColumn` to the last.
/// To be made when the grid's columns have their widths.
QWidget* SpanningHeader(const CSpread7& grid, int firstColumn, const QString& text);

}  // namespace tremlo
