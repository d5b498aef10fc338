#include "support/CliRun.h"

#include <QJsonDocument>
#include <QProcess>

#include <gtest/gtest.h>

namespace tremlo::test {

CliResult RunCli(const QStringList& arguments, const QString& workingFolder) {
  QProcess process;
  process.setWorkingDirectory(workingFolder);
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"), arguments);
  const bool ended = process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit;
  return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

QJsonObject RunCliJson(const QStringList& arguments) {
  const CliResult result = RunCli(arguments);
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_EQ(result.out.count('\n'), 1);
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(result.out, &error);
  EXPECT_TRUE(document.isObject()) << error.errorString().toStdString();
  return document.object();
}

QStringList TopKeys(const QByteArray& json) {
  QStringList keys;
  int depth = 0;
  bool inText = false;
  qsizetype textStart = 0;
  for (qsizetype i = 0; i < json.size(); ++i) {
    const char c = json[i];
    if (inText) {
      if (c == '\\') ++i;
      if (c != '"') continue;
      inText = false;
      if (depth == 1 && i + 1 < json.size() && json[i + 1] == ':')
        keys << QString::fromUtf8(json.mid(textStart, i - textStart));
    } else if (c == '"') {
      inText = true;
      textStart = i + 1;
    } else if (c == '{' || c == '[') {
      ++depth;
    } else if (c == '}' || c == ']') {
      --depth;
    }
  }
  return keys;
}

}  // namespace tremlo::test
