#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace tremlo::test {

struct CliResult {
  int status = -1;  ///< -1 when the program did not end by itself
  QByteArray out;
  QByteArray err;
};

/// Runs the tremlo-cli of this build to its end.
CliResult RunCli(const QStringList& arguments, const QString& workingFolder = {});

/// Runs it and takes standard output for one JSON object, standard error for empty and the status for 0.
QJsonObject RunCliJson(const QStringList& arguments);

/// The keys of a JSON object's text in their order, of its outermost level.
QStringList TopKeys(const QByteArray& json);

}  // namespace tremlo::test
