#include "core/files/CsvText.h"

#include "core/files/Cp932Text.h"
#include "core/files/TextScan.h"

namespace tremlo {

CsvText::CsvText(const QByteArray& content)
    : m_text(content.constData(), static_cast<std::size_t>(content.size())) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  m_utf8 = m_text.starts_with(kUtf8Mark);
  if (m_utf8) m_text.remove_prefix(kUtf8Mark.size());
}

QString CsvText::Decode(std::string_view line) const {
  return m_utf8 ? QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())) : DecodeCp932(line);
}

QString CsvText::NextText(LineReader& lines) const {
  std::string_view line;
  return lines.Next(line) ? Decode(line) : QString();
}

bool ScanPair(std::string_view line, double& first, double& second) {
  LineScanner scan(line);
  return scan.Number(first) && scan.Literal(',') && scan.Number(second);
}

}  // namespace tremlo
