#include "Command.h"

#include <array>

namespace tremlo::cli {

std::span<const Command> AllCommands() {
  static const std::array commands = {ResponseCommand(),   FourierCommand(),    AdjustCommand(),
                                      TablesCommand(),     ProjectNewCommand(), ProjectShowCommand(),
                                      ProjectCopyCommand()};
  return commands;
}

}  // namespace tremlo::cli
