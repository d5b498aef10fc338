#pragma once

#include "core/project/MorvaneDoc.h"

class QWidget;

namespace tremlo {

class Prompt;
struct ServiceSettings;

/// Acquires the faults that the document asks for, behind CDlgNowGetFault, and stores them in it. Failures of
/// the service are told through `prompt`, on this thread. False, and nothing has changed: the plane zone is
/// unknown, the run's project is gone, no memory or thread was left, or the program ended its event loops
/// meanwhile; in that case what the service still owes is not waited for.
bool AcquireBehindDialog(CMorvaneDoc& doc, const ServiceSettings& services, Prompt& prompt, QWidget* parent);

}  // namespace tremlo
