#pragma once

#include "core/report/ReportBlocks.h"
#include "core/report/ReportFacts.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The report of a project in the order of the work; sections of steps that were not taken are left out. The
/// document has a wave to report on.
std::vector<ReportSection> ReportSections(const CMorvaneDoc& doc, const ReportFacts& facts,
                                          const VerifyReport& check);

/// The lines of the cover, the title first; the sample notice is not among them.
QStringList CoverLines(const CMorvaneDoc& doc);

/// What stands at the head of every page while tables are samples.
inline constexpr char16_t kSampleNotice[] = u"見本の表による試算";

}  // namespace tremlo
