#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tremlo {

/// Lines of fields, as grids and spreadsheet programs exchange them over the clipboard.
using GridText = std::vector<QStringList>;

enum class FieldSeparator {
  Tab,
  TabOrComma,  ///< commas count when the text holds no tab
};

/// Splits a text into lines and fields. A line ends at LF, CRLF or CR; a text that ends there has no further
/// line. A field that begins with a quotation mark and is closed by one may hold line ends, separators and,
/// doubled, quotation marks.
GridText ParseGridText(const QString& text, FieldSeparator separator);

/// The text of a block: fields separated by tabs, each line closed by LF. A single field that is not empty
/// has no line end, so that it can be pasted into a line of text.
QString FormatGridText(const GridText& lines);

}  // namespace tremlo
