#pragma once

#include <cstdio>
#include <string_view>

namespace tremlo::cli {

// What differs between systems about the standard streams; a file for each system.

/// Call it before anything is written: lines then end alike on every system, output that is cut off or may
/// not grow fails as on a full disk, in place of ending the program by a signal, and a file opened later
/// never takes the place of a stream that was closed.
void PrepareStreams();

/// Whether people read the stream as it is written.
bool IsTerminal(std::FILE* stream);

/// Writes UTF-8; a fault shows in ferror and fflush.
void WriteText(std::FILE* stream, std::string_view text);

}  // namespace tremlo::cli
