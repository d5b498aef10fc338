#pragma once

#include "core/verify/VerifyReport.h"

#include <span>

namespace tremlo {

/// Every kind of result that a project file stores and that follows from what else it stores. The other
/// fields of the file are input (what was typed, read or fetched, and what was chosen), settings of screens
/// and graphs, or are carried along and read by nothing.
enum class ResultKind {
  WavePeriods,
  WaveSpectrum,
  WaveArea,
  AdjustedWave,
  AdjustedPeriods,
  AdjustedSpectrum,
  PlaneDepth,
  ShortestDistance,
  EquivalentDistance,
  ShortestPeriods,
  ShortestSpectrum,
  ShortestArea,
  EquivalentPeriods,
  EquivalentSpectrum,
  EquivalentArea,
  LowerArea,
};

struct StoredResult {
  ResultKind kind;
  const char* list;      ///< the member of the document that holds the records
  const char* member;    ///< the member of such a record
  const char16_t* name;  ///< for people
};

std::span<const StoredResult> StoredResults();
const StoredResult& StoredResultOf(ResultKind kind);

/// An item about one wave or spectrum of a list: "seedWaves[2].accSpec", "波形「A」の...".
VerifyItem RecordItem(ResultKind kind, std::size_t index, const QString& recordName);
/// An item about all planes of all faults.
VerifyItem PlanesItem(ResultKind kind);

}  // namespace tremlo
