#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace tremlo::test {

struct CliResult {
  int status = -1;  ///< -1 when the program did not end by itself
  QByteArray out;
  QByteArray err;
};

/// Runs the tremlo-cli of this build to its end.
CliResult RunCli(const QStringList& arguments, const QString& workingFolder = {});

/// The same with a standard output that takes nothing.
CliResult RunCliWithoutOutput(const QStringList& arguments);

#ifndef _WIN32
/// The same with `prepare` called in the process of the program just before it starts, as after fork: no more
/// than system calls.
CliResult RunPreparedCli(const QStringList& arguments, const std::function<void()>& prepare);

/// Runs it with a terminal of its own as standard error, which `err` then holds.
CliResult RunCliOnATerminal(const QStringList& arguments);
#endif

/// Runs it and takes standard output for one JSON object, standard error for empty and the status for 0.
QJsonObject RunCliJson(const QStringList& arguments);

/// The keys of a JSON object's text in their order, of its outermost level.
QStringList TopKeys(const QByteArray& json);

}  // namespace tremlo::test
