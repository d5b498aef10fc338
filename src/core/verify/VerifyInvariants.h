#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/verify/VerifyReport.h"

namespace tremlo {

/// The rules that hold in every sound project, one item each: one base spectrum at most, its name and its
/// mark together; the adopted wave and its name; results of an adjustment all there or not at all; lists of
/// a spectrum, and of a fault's planes, of one length; what rests on a procedure only while one is fixed. An
/// item of a broken rule names the first place and counts the others.
void VerifyInvariants(const CMorvaneDoc& doc, std::vector<VerifyItem>& items);

}  // namespace tremlo
