#pragma once

#include "pictures/Places.h"

namespace tremlo::test {
class LocalService;
}

namespace tremlo::pictures {

/// The worked example of the manual from a new project to the design wave; saves it.
void TakeGuidelineRoute(const Places& places, const test::LocalService& service);

}  // namespace tremlo::pictures
