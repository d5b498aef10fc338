#pragma once

#include "core/records/Record.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tremlo {

/// The content of a record file as lines. Encoding: UTF-16 or UTF-8 behind their marks, else UTF-8 where all
/// bytes are that, else CP932. A line ends at LF, CRLF or a lone CR. Keeps no copy of the bytes: they must
/// outlive it.
class RecordText {
 public:
  /// Larger files, more and longer lines are refused: no record comes near them.
  static constexpr qsizetype kMostBytes = qsizetype{64} * 1024 * 1024;
  static constexpr std::size_t kMostLines = 4'000'000;
  static constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

  /// `name` is the file in messages.
  RecordText(const QByteArray& content, QString name);
  RecordText(const RecordText&) = delete;
  RecordText& operator=(const RecordText&) = delete;

  const QString& Name() const { return m_name; }
  const QByteArray& Content() const { return m_content; }
  bool IsTooLong() const { return m_tooLong; }
  /// The first line with a zero byte, which no text has.
  std::optional<std::size_t> LineWithZero() const;
  std::size_t Size() const { return m_lines.size(); }
  /// A line without its end; empty behind the last one. Bytes of the file, or UTF-8 for a file in UTF-16.
  std::string_view Line(std::size_t index) const {
    return index < m_lines.size() ? m_lines[index] : std::string_view();
  }
  /// The line with the number of largest magnitude, which becomes `value`; 0 without any.
  std::size_t LineOfLargest(std::string_view& value) const;
  QString Decode(std::string_view bytes) const;
  /// The line in ASCII as far as it can be: the full-width forms of digits, signs and letters become plain
  /// ones; the rest is UTF-8.
  std::string PlainLine(std::size_t index) const;

  /// The message that refuses the file: name, line (an index from 0), reason and the value in question.
  QString Refusal(std::size_t line, const QString& reason, std::string_view value) const;
  QString Refusal(const QString& reason) const;  ///< of no line in particular

 private:
  void FindLines();

  QByteArray m_content;
  QByteArray m_converted;  ///< of a file in UTF-16
  QString m_name;
  bool m_utf8 = true;
  bool m_tooLong = false;
  std::string_view m_bytes;  ///< of all lines
  std::vector<std::string_view> m_lines;
};

std::string_view Trimmed(std::string_view text);

/// Whether the text has the word, whatever the case.
bool HasText(std::string_view text, std::string_view word);
/// Where it stands; npos when it does not.
std::size_t FindText(std::string_view text, std::string_view word, std::size_t from = 0);
/// The same with no letter or digit on either side of it.
std::size_t FindWord(std::string_view text, std::string_view word, std::size_t from = 0);

/// The number that is the whole field but for blanks around it: decimal, of Fortran too (.5, 5., 1.0D-03).
/// No hexadecimal number, no "nan", no "inf", nothing that a double cannot hold.
bool FieldNumber(std::string_view field, double& value);

/// The number at the start of the text behind blanks, which is cut off with it.
bool LeadingNumber(std::string_view& text, double& value);

/// The number behind a word that stands alone, over blanks, "=" and ":"; `behind` becomes what follows it.
std::optional<double> NumberBehind(std::string_view line, std::string_view word,
                                   std::string_view* behind = nullptr);

/// A Fortran format such as (8F10.5), (10I8) or (1E15.6) anywhere in the text.
struct FieldFormat {
  std::size_t repeat = 1;
  std::size_t width = 1;
};
std::optional<FieldFormat> FindFieldFormat(std::string_view text);

/// The cells of a line between commas.
std::vector<std::string_view> Cells(std::string_view line);

/// What a reading of numbers in fixed columns came to.
struct FieldBlock {
  std::vector<double> values;
  std::size_t next = 0;  ///< the line behind the last one used
  QString error;         ///< a field that is no number, named
};

/// Reads up to `count` numbers from line `first` on, cut by columns; ends early at the end of the file and
/// at a line for which `ends` is true.
template <class Ends>
FieldBlock ReadFields(const RecordText& text, std::size_t first, std::size_t count, FieldFormat format,
                      Ends ends) {
  FieldBlock block;
  block.next = first;
  while (block.values.size() < count && block.next < text.Size() && !ends(text.Line(block.next))) {
    const std::string_view line = text.Line(block.next);
    for (std::size_t i = 0; i < format.repeat && block.values.size() < count; ++i) {
      if (i * format.width >= line.size()) break;
      const std::string_view field = line.substr(i * format.width, format.width);
      double value = 0.0;
      if (!FieldNumber(field, value)) {
        if (Trimmed(line.substr(i * format.width)).empty()) break;  // blanks behind the last field
        block.error = text.Refusal(block.next, QStringLiteral("数値でない欄があります"), Trimmed(field));
        return block;
      }
      block.values.push_back(value);
    }
    ++block.next;
  }
  return block;
}

}  // namespace tremlo
