#pragma once

namespace tremlo {

/// The first digits of the commit that the program was built from, "-dirty" behind them when the sources had
/// been changed since. Empty when that is not known. Its source is written by the build.
extern const char kProgramCommit[];

}  // namespace tremlo
