#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tremlo::test {

struct CliResult {
  int status;
  QByteArray out;
  QByteArray err;
};

/// Runs tremlo-cli to its end. The status is -1 when it did not start or did not end by itself.
CliResult RunCli(const QStringList& arguments, const QString& workingFolder = {});

}  // namespace tremlo::test
