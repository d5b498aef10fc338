#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>
#include <regex>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;

void ExpectUsageError(const QStringList& arguments) {
  const CliResult result = RunCli(arguments);
  EXPECT_EQ(result.status, 1) << arguments.join(u' ').toStdString();
  EXPECT_EQ(result.out, QByteArray());
  EXPECT_TRUE(result.err.contains("Usage:")) << result.err.toStdString();
}

TEST(CommandLine, HelpAndVersionStandEverywhere) {
  const QStringList commands[] = {{},          {"response"},       {"fourier"},         {"adjust"},
                                  {"tables"},  {"attenuate"},      {"distances"},       {"faults"},
                                  {"project"}, {"project", "new"}, {"project", "show"}, {"project", "copy"},
                                  {"inspect"}};
  for (const QStringList& command : commands) {
    const CliResult help = RunCli(command + QStringList{"--help"});
    EXPECT_EQ(help.status, 0);
    const QStringList start = QStringList{"Usage: tremlo-cli"} + command;
    EXPECT_TRUE(help.out.startsWith(start.join(u' ').toUtf8() + ' ')) << help.out.toStdString();
    EXPECT_EQ(help.err, QByteArray());
    const CliResult version = RunCli(command + QStringList{"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(std::regex_match(version.out.toStdString(),
                                 std::regex("tremlo-cli 1\\.0( \\([0-9a-f]+(-dirty)?\\))?\n")))
        << version.out.toStdString();
  }
}

TEST(CommandLine, TheHelpOfAGroupNamesItsCommandsAlone) {
  const QString help = QString::fromUtf8(RunCli({"project", "--help"}).out);
  for (const char* command : {"project new", "project show", "project copy"})
    EXPECT_TRUE(help.contains(QString::fromLatin1(command))) << command;
  EXPECT_FALSE(help.contains(QStringLiteral("response")));
}

TEST(CommandLine, BadCommandLinesEndWithOneAndTheUsage) {
  ExpectUsageError({});
  ExpectUsageError({"nonsense"});
  ExpectUsageError({"response"});
  ExpectUsageError({"response", "a.csv", "b.csv"});
  ExpectUsageError({"response", "--nonsense", "a.csv"});
  ExpectUsageError({"response", "a.csv", "--out"});
  ExpectUsageError({"response", "a.csv", "--out", ""});
  ExpectUsageError({"fourier", "a.csv", "--out", ""});
  for (const char* site : {"90.5,136", "36,180.5", "36,-180.5"})
    ExpectUsageError(
        {"faults", "--zone", "6", "--mode", "range", "--service", "http://127.0.0.1:1", "--site", site});
  ExpectUsageError({"tables", "x"});
  ExpectUsageError({"project"});
  ExpectUsageError({"project", "nonsense", "--help"});
  ExpectUsageError({"projec", "--help"});
  ExpectUsageError({"adjust"});
  ExpectUsageError({"adjust", "--seed", "a.csv"});
  ExpectUsageError({"adjust", "--seed", "a.csv", "--target", "b.csv", "--iterations", "x"});
  ExpectUsageError({"adjust", "--seed", "a.csv", "--target", "b.csv", "--iterations", "-1"});
  ExpectUsageError({"adjust", "--seed", "a.csv", "--target", "b.csv", "--tolerance", "5%"});
  ExpectUsageError({"adjust", "--seed", "a.csv", "--target", "b.csv", "--out", ""});
}

}  // namespace
}  // namespace tremlo
