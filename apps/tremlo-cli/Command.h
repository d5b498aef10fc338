#pragma once

#include <QCommandLineOption>
#include <QList>

#include <span>

namespace tremlo::cli {

class Arguments;

enum ExitStatus {
  kDone = 0,
  kBadCommandLine = 1,
  kBadFile = 2,     ///< a file or an answer cannot be read or written, or is not what it should be
  kGoalMissed = 3,  ///< the calculation ran but did not reach its goal
};

/// For a command that takes any number of files but none.
constexpr int kOneFileOrMore = -1;

/// One command of the program. `name` may be two words; `positional` is the number of file arguments it
/// takes.
struct Command {
  const char* name;
  const char* usage;
  const char* summary;
  int positional;
  QList<QCommandLineOption> (*options)();
  int (*run)(const Arguments& arguments);
};

/// All commands, in the order of the help page.
std::span<const Command> AllCommands();

/// In the files Command*.cpp.
Command ResponseCommand();
Command FourierCommand();
Command AdjustCommand();
Command BatchCommand();
Command InspectCommand();
Command TablesCommand();
Command AttenuateCommand();
Command DistancesCommand();
Command ProjectNewCommand();
Command ProjectShowCommand();
Command ProjectCopyCommand();
Command ProjectVerifyCommand();
Command FaultsCommand();

}  // namespace tremlo::cli
