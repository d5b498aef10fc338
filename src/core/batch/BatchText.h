#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <string>

namespace tremlo {

/// The encoding of a table that a spreadsheet or an editor has written.
enum class BatchEncoding { Utf8, Utf8WithMark, Cp932 };

/// UTF-8 behind its mark or where all bytes are that, else CP932.
BatchEncoding EncodingOf(const QByteArray& content);

/// The lines of the content without their ends (LF or CRLF) and without the mark.
QStringList LinesOf(const QByteArray& content);

/// The text in that encoding, the mark not included. In CP932 a character without a code becomes "?".
std::string Encoded(const QString& text, BatchEncoding encoding);
/// What a file in that encoding begins with.
std::string MarkOf(BatchEncoding encoding);

/// The cells of a line between commas, blanks around them dropped. A cell in double quotes is taken as it
/// stands, with "" for one quote. None when a quote is not closed or text follows a closing one.
std::optional<QStringList> CellsOf(const QString& line);

/// A line of such cells, each in quotes where it needs them. Line ends in a cell become blanks.
QString LineOf(const QStringList& cells);

}  // namespace tremlo
