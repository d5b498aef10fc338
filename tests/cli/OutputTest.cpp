#include "support/CliRun.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCliWithoutOutput;
using test::TestFolder;

const char* const kNames[] = {"response",     "fourier",      "adjust", "tables",
                              "attenuate",    "distances",    "faults", "project new",
                              "project show", "project copy", "project"};

/// The files that the command lines need, and command lines that print something, one of each command.
class OutputTest : public testing::Test {
 protected:
  OutputTest() {
    const QString project = folder.Path(QStringLiteral("p.trml"));
    EXPECT_EQ(test::RunCli({"project", "new", project}).status, 0);
    const QString wave = folder.Write(QStringLiteral("w.csv"), "W, 0.01, 1\n0, 1\n0, 2\n");
    lines = {{"response", wave},
             {"response", wave, "--json"},
             {"fourier", wave},
             {"adjust", "--seed", wave, "--target", wave, "--iterations", "0"},  // ends with 3 else
             {"tables"},
             {"tables", "--json"},
             {"attenuate", "--magnitude", "7", "--depth", "12", "--shortest", "20", "--equivalent", "24",
              "--class", "A"},
             {"distances", "--zone", "6", "--site", "36,136", "--plane", "136,36,0,4,4,0,90"},
             {"project", "new", folder.Path(QStringLiteral("n.trml"))},
             {"project", "show", project},
             {"project", "copy", project, folder.Path(QStringLiteral("c.trml"))},
             {"--help"},
             {"--version"}};
    for (const char* name : kNames)
      for (const char* option : {"--help", "--version"})
        lines.append(QString::fromLatin1(name).split(u' ') << option);
  }

  /// Every command line ends with 2 and a line on standard error when it is run like this.
  void ExpectFailures(const std::function<CliResult(const QStringList&)>& run) const {
    for (const QStringList& line : lines) {
      const CliResult result = run(line);
      EXPECT_EQ(result.status, 2) << line.join(u' ').toStdString();
      EXPECT_EQ(QString::fromUtf8(result.err), QStringLiteral("標準出力: 結果を書き込めませんでした。\n"))
          << line.join(u' ').toStdString();
    }
  }

  TestFolder folder;
  QList<QStringList> lines;
};

TEST_F(OutputTest, AClosedStreamIsStatusTwo) {
  ExpectFailures(RunCliWithoutOutput);
}

TEST_F(OutputTest, NothingPrintedForAClosedStreamEndsInAFile) {
  const QString out = folder.Path(QStringLiteral("r.csv"));
  const CliResult result =
      RunCliWithoutOutput({"response", folder.Path(QStringLiteral("w.csv")), "--out", out});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(test::ReadAll(out).count('\n'), 2);
}

TEST_F(OutputTest, ABadCommandLineStaysOneWhereNothingCanBePrinted) {
  EXPECT_EQ(RunCliWithoutOutput({"nonsense"}).status, 1);
}

#ifdef _WIN32

TEST(Progress, StandsOnATerminalAndIsTakenAwayAgain) {
  GTEST_SKIP() << "a test has no console of its own here that it could read";
}

#else

using test::RunCliOnATerminal;

/// Runs it with `prepare` called just before it starts.
std::function<CliResult(const QStringList&)> After(std::function<void()> prepare) {
  return [prepare](const QStringList& line) { return test::RunPreparedCli(line, prepare); };
}

#ifdef __linux__  // whose /dev/full is always full
TEST_F(OutputTest, AFullDiskIsStatusTwo) {
  ExpectFailures(After([] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); }));
}
#endif

TEST_F(OutputTest, AFileThatMayNotGrowIsStatusTwo) {
  const QByteArray path = folder.Path(QStringLiteral("out.txt")).toUtf8();
  // The limit holds for all files, those of "project" included.
  lines.removeIf([](const QStringList& line) { return line.mid(0, 2) == QStringList{"project", "new"}; });
  lines.removeIf([](const QStringList& line) { return line.mid(0, 2) == QStringList{"project", "copy"}; });
  ExpectFailures(After([path] {
    dup2(open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
    std::signal(SIGXFSZ, SIG_DFL);
    const rlimit limit{1, 1};
    setrlimit(RLIMIT_FSIZE, &limit);
  }));
}

TEST_F(OutputTest, APipeThatNobodyReadsIsStatusTwo) {
  ExpectFailures(After([] {
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0) return;
    close(ends[0]);
    dup2(ends[1], STDOUT_FILENO);
    close(ends[1]);
    std::signal(SIGPIPE, SIG_DFL);
  }));
}

QByteArray LongWave() {
  QByteArray text = "W, 0.01, 1\n";
  for (int i = 0; i < 1000; ++i) text += "0, " + QByteArray::number(i % 17 - 8) + '\n';
  return text;
}

TEST(Progress, StandsOnATerminalAndIsTakenAwayAgain) {
  const TestFolder folder;
  const QString wave = folder.Write(QStringLiteral("w.csv"), LongWave());
  const CliResult response = RunCliOnATerminal({"response", wave, "--json"});
  EXPECT_EQ(response.status, 0);
  const QString shown = QString::fromUtf8(response.err);
  EXPECT_TRUE(shown.contains(QStringLiteral("加速度応答スペクトルの計算中 100 %")))
      << response.err.toStdString();
  EXPECT_GT(shown.count(QStringLiteral("計算中")), 1);
  EXPECT_LE(shown.count(QStringLiteral("計算中")), 101);
  EXPECT_TRUE(shown.endsWith(QStringLiteral("\r\x1b[K")));
  const CliResult fourier = RunCliOnATerminal({"fourier", wave, "--json"});
  EXPECT_EQ(fourier.status, 0);
  EXPECT_TRUE(
      QString::fromUtf8(fourier.err).contains(QStringLiteral("フーリエスペクトルの計算中（1000 点）")));
  EXPECT_TRUE(fourier.err.endsWith("\r\x1b[K"));
}

TEST(Progress, IsSilentWithoutATerminalAndChangesNoResult) {
  const TestFolder folder;
  const QString wave = folder.Write(QStringLiteral("w.csv"), LongWave());
  for (const char* command : {"response", "fourier"}) {
    const CliResult silent = test::RunCli({command, wave, "--json"});
    EXPECT_EQ(silent.err, QByteArray());
    EXPECT_EQ(silent.out, RunCliOnATerminal({command, wave, "--json"}).out);
  }
}

#endif

}  // namespace
}  // namespace tremlo
