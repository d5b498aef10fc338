#include "StandardStreams.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tremlo::cli {

void PrepareStreams() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  // A file opened later must not take the number of a closed stream: what goes to the stream would end in it.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1) open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

bool IsTerminal(std::FILE* stream) {
  return isatty(fileno(stream)) != 0;
}

void WriteText(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace tremlo::cli
