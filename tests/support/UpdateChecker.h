#pragma once

#include "support/TestFolder.h"

namespace tremlo::test {

/// Puts a program "UpdateChecker.exe" into the folder that notes what it is started with.
void WriteUpdateChecker(const TestFolder& folder);
/// What it was started with, each argument followed by "|", once it has run.
QByteArray UpdateCheckerArguments(const TestFolder& folder);

}  // namespace tremlo::test
