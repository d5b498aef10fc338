#pragma once

#include "core/project/BaseItemFields.h"

namespace tremlo {

/// A row of the list from which the base spectrum is chosen.
struct BaseCandidate {
  BaseItem item;
  QString label;
  double area = 0.0;     ///< under the curve, gal·s
  double maximum = 0.0;  ///< gal
  std::int32_t color = 0;
  bool shown = false;  ///< drawn in the graph
  bool base = false;   ///< is the base spectrum
};

/// The candidates that the earlier steps allow, from the spectra as they are stored: the waves in use near
/// the site (if the procedure allows those), of each plane in use the shortest and the equivalent distance
/// (if it allows faults), and the selected lower limit, if there is one.
std::vector<BaseItem> BaseItems(const CMorvaneDoc& doc);
std::vector<BaseCandidate> BaseCandidates(const CMorvaneDoc& doc);

/// Keeps the area of every candidate with its record, once the spectra are computed. Marks the document as
/// modified if an area is another than the one that was kept.
void StoreCandidateAreas(CMorvaneDoc& doc);

/// What a click on a row with this label reaches: of rows with equal labels the first.
void SetCandidateColor(CMorvaneDoc& doc, const QString& label, std::int32_t color);
void SetCandidateShown(CMorvaneDoc& doc, const QString& label, bool shown);

void SetAllCandidatesShown(CMorvaneDoc& doc, bool shown);

}  // namespace tremlo
