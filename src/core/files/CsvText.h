#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

namespace tremlo {

class LineReader;

/// The bytes of a CSV file with their encoding: UTF-8 behind a UTF-8 mark, CP932 otherwise. Keeps no copy:
/// the bytes must outlive it.
class CsvText {
 public:
  explicit CsvText(const QByteArray& content);

  std::string_view Text() const { return m_text; }  ///< without the mark
  QString Decode(std::string_view line) const;
  /// The next line as text; empty when there is none.
  QString NextText(LineReader& lines) const;

 private:
  std::string_view m_text;
  bool m_utf8 = false;
};

/// Scans a line with "%lf,%lf"; a number that the line does not yield keeps its value. True when it yields
/// both.
bool ScanPair(std::string_view line, double& first, double& second);

}  // namespace tremlo
