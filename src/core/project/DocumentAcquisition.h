#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/sources/FaultAcquisition.h"

namespace tremlo {

/// The user's choice between the two ways of acquiring, and a range that was typed and not refused: an
/// emptied field changes nothing.
void SetAcquireMode(CMorvaneDoc& doc, std::int32_t mode);
void EnterSearchRange(CMorvaneDoc& doc, const QString& text);

/// What an acquisition of faults takes from the document: copies, so that a worker touches no record.
FaultAcquisitionInput AcquisitionInput(const CMorvaneDoc& doc);

/// Puts the faults of an acquisition into the document in place of those it had, each plane with a colour of
/// its own, keeps the report of it and marks the document as modified, also when the list was only emptied.
/// An acquisition that changed nothing (its zone is unknown) changes nothing here. The base spectrum is left
/// alone: the guard before the acquisition has seen to it.
void StoreAcquisition(CMorvaneDoc& doc, const FaultAcquisitionInput& input,
                      const FaultAcquisitionResult& result, std::vector<FaultInfo> faults);

}  // namespace tremlo
