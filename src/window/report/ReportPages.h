#pragma once

#include "core/report/ReportFacts.h"
#include "core/verify/VerifyReport.h"

#include <QByteArray>

#include <optional>

namespace tremlo {

/// The report of a project as a PDF of A4 pages: cover, contents, the sections of the work, appendix. The
/// same document, facts and check give the same bytes. The document has a wave to report on. None when the
/// PDF could not be painted.
std::optional<QByteArray> ReportPdf(const CMorvaneDoc& doc, const ReportFacts& facts,
                                    const VerifyReport& check);

}  // namespace tremlo
