#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tremlo::test {

struct CliResult {
  int status = -1;  ///< -1 when the program crashed or did not start
  QString out;
  QString err;
};

/// Runs tremlo-cli as a process of its own and waits for its end. `inChild` is called in the process before
/// the program starts there (not on Windows).
CliResult RunCli(const QStringList& arguments, const std::function<void()>& inChild = {});

}  // namespace tremlo::test
