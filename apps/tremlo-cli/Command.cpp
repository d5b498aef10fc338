#include "Command.h"

#include <array>

namespace tremlo::cli {

std::span<const Command> AllCommands() {
  static const std::array commands = {
      ResponseCommand(),    FourierCommand(),     AdjustCommand(),       BatchCommand(),  InspectCommand(),
      TablesCommand(),      AttenuateCommand(),   DistancesCommand(),    FaultsCommand(), ProjectNewCommand(),
      ProjectShowCommand(), ProjectCopyCommand(), ProjectVerifyCommand()};
  return commands;
}

}  // namespace tremlo::cli
