#include "Command.h"

#include <array>

namespace tremlo::cli {

std::span<const Command> AllCommands() {
  static const std::array commands = {ResponseCommand(), FourierCommand(),   AdjustCommand(),
                                      TablesCommand(),   AttenuateCommand(), DistancesCommand(),
                                      FaultsCommand()};
  return commands;
}

}  // namespace tremlo::cli
