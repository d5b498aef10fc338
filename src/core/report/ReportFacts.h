#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/waves/AdjustRun.h"

#include <QDate>
#include <QString>

#include <vector>

namespace tremlo {

/// Where a table came from that the program has read.
struct TableOrigin {
  QString name;  ///< "DamCoef\H20_Ehd_H.csv"
  QString hash;  ///< SHA-256 of the file in hexadecimal digits; empty when it cannot be read
  bool sample = false;
};

/// What a report tells beside what the document holds.
struct ReportFacts {
  QDate date;
  QString projectName;   ///< the file's, "無題" for an unnamed project
  QString projectHash;   ///< SHA-256 of the project's file; while unsaved of what a save now would write
  bool unsaved = false;  ///< the project has no file, or that holds something else than the document
  QString waveHash;      ///< SHA-256 of the adjusted wave's file as "可視化" exports it
  std::vector<TableOrigin> tables;
  bool sampleTables = false;  ///< one of them is a sample
  AdjustResult run;           ///< of the wave, with the settings of now
};

/// Reads the tables' files and the project's, and makes one run of the adjustment: up to seconds, on the
/// calling thread. The document has a wave to report on. Throws std::bad_alloc when memory runs out.
ReportFacts GatherReportFacts(const CMorvaneDoc& doc, QDate date);

}  // namespace tremlo
