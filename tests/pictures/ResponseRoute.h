#pragma once

#include "pictures/Places.h"

namespace tremlo::test {
class LocalService;
}

namespace tremlo::pictures {

/// The short route from a record to the design wave, the graphs and their settings, and the ways a record
/// comes in.
void TakeResponseRoute(const Places& places, const test::LocalService& service);

}  // namespace tremlo::pictures
