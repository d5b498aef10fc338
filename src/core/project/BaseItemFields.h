#pragma once

#include "core/project/BaseSpectrum.h"

#include <span>

namespace tremlo {

/// What the document keeps for a candidate of the base spectrum, whatever its source. The lower limit is the
/// selected one: it is read from the first record with that mark and written to all of them. Reading a field
/// of a record that is not there gives false, 0 or nothing; writing it changes nothing. Every write marks the
/// document as modified.

/// A spectrum in the document: periods in s, values in gal. Holds until the document changes.
struct SpectrumView {
  std::span<const double> periods;
  std::span<const double> values;
};
SpectrumView SpectrumOf(const CMorvaneDoc& doc, const BaseItem& item);

/// The name by which the document remembers the candidate, and the one in the legend of a graph.
QString LabelOf(const CMorvaneDoc& doc, const BaseItem& item);
QString LegendOf(const CMorvaneDoc& doc, const BaseItem& item);

std::int32_t BaseColorOf(const CMorvaneDoc& doc, const BaseItem& item);  ///< 0x00BBGGRR
void SetBaseColor(CMorvaneDoc& doc, const BaseItem& item, std::int32_t color);

/// Drawn among the candidates.
bool IsBaseShown(const CMorvaneDoc& doc, const BaseItem& item);
void SetBaseShown(CMorvaneDoc& doc, const BaseItem& item, bool shown);

/// Carries the mark of the base spectrum.
bool IsBaseSelected(const CMorvaneDoc& doc, const BaseItem& item);

/// The area that is kept for the candidate's row, gal·s.
double StoredArea(const CMorvaneDoc& doc, const BaseItem& item);
void StoreArea(CMorvaneDoc& doc, const BaseItem& item, double area);

/// Drawn as the target where waves are adjusted to it.
bool IsTargetShown(const CMorvaneDoc& doc, const BaseItem& item);
void SetTargetShown(CMorvaneDoc& doc, const BaseItem& item, bool shown);

}  // namespace tremlo
