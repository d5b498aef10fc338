#include "StandardStreams.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <windows.h>

namespace tremlo::cli {

namespace {

/// The console that the stream writes to; null when it writes to a file or to another program.
HANDLE ConsoleOf(std::FILE* stream) {
  const int number = _fileno(stream);
  if (number < 0) return nullptr;  // there is no such stream
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(number));
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

}  // namespace

void PrepareStreams() {
  for (std::FILE* stream : {stdout, stderr}) {
    const int number = _fileno(stream);
    // Without this every line would end in CRLF.
    if (number >= 0) _setmode(number, _O_BINARY);
    // The line of progress erases itself by the signs that terminals know.
    DWORD mode = 0;
    const HANDLE console = ConsoleOf(stream);
    if (console && GetConsoleMode(console, &mode) != 0)
      SetConsoleMode(console, mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
}

bool IsTerminal(std::FILE* stream) {
  return ConsoleOf(stream) != nullptr;
}

void WriteText(std::FILE* stream, std::string_view text) {
  const HANDLE console = ConsoleOf(stream);
  if (!console) {
    std::fwrite(text.data(), 1, text.size(), stream);
    return;
  }
  // As wide text it does not depend on the code page of the console, which stays as its user has it.
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      std::max(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                   static_cast<int>(wide.size())),
               0)));
  // Older consoles take no more than some 32,000 letters at once.
  constexpr std::size_t kMost = 8192;
  for (std::size_t from = 0; from < wide.size(); from += kMost) {
    DWORD written = 0;
    const std::size_t count = std::min(kMost, wide.size() - from);
    if (WriteConsoleW(console, wide.data() + from, static_cast<DWORD>(count), &written, nullptr) == 0) return;
  }
}

}  // namespace tremlo::cli
