#pragma once

#include "core/graphs/GridData.h"
#include "core/report/ReportBlocks.h"
#include "core/report/ReportFacts.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The parts of a report: each gives its sections in the order of the work, none for steps not taken.

std::vector<ReportSection> SiteSections(const CMorvaneDoc& doc);  ///< job and position
std::vector<ReportSection> ProcedureSections(const CMorvaneDoc& doc);
std::vector<ReportSection> FaultSections(const CMorvaneDoc& doc);     ///< faults and their spectra
std::vector<ReportSection> SpectrumSections(const CMorvaneDoc& doc);  ///< what the base was chosen from
std::vector<ReportSection> WaveSections(const CMorvaneDoc& doc, const ReportFacts& facts);
std::vector<ReportSection> CommentSections(const CMorvaneDoc& doc);
std::vector<ReportSection> AppendixSections(const CMorvaneDoc& doc, const ReportFacts& facts,
                                            const VerifyReport& check);

/// The rows of a grid. Its colours are left out, and a checked cell shows a circle.
ReportTable TableOf(const QString& title, const GridData& grid);

/// Two columns: what it is, and its value.
ReportTable PropertyTable(const QString& title, std::vector<QStringList> rows);

}  // namespace tremlo
