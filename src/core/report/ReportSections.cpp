#include "core/report/ReportSections.h"

#include "core/report/ReportParts.h"

namespace tremlo {

std::vector<ReportSection> ReportSections(const CMorvaneDoc& doc, const ReportFacts& facts,
                                          const VerifyReport& check) {
  std::vector<ReportSection> sections;
  for (const auto& part :
       {SiteSections(doc), ProcedureSections(doc), FaultSections(doc), SpectrumSections(doc),
        WaveSections(doc, facts), CommentSections(doc), AppendixSections(doc, facts, check)})
    sections.insert(sections.end(), part.begin(), part.end());
  int number = 0;
  for (ReportSection& section : sections)
    if (!section.title.startsWith(u"付録")) section.title.prepend(QStringLiteral("%1　").arg(++number));
  return sections;
}

QStringList CoverLines(const CMorvaneDoc& doc) {
  const SiteRecord& site = doc.site;
  QStringList lines{site.title.isEmpty() ? QStringLiteral("設計地震波の作成") : site.title};
  for (const QString& line : {site.subtitle, site.siteName, site.workDate, site.company})
    if (!line.isEmpty()) lines << line;
  return lines;
}

}  // namespace tremlo
