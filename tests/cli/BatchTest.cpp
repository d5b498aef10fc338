#include "core/files/Cp932Text.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "numeric/waves/WaveFigures.h"
#include "support/CliRun.h"
#include "support/TestFolder.h"
#include "support/Waves.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::CliResult;
using test::RunCli;
using test::TestFolder;

constexpr double kStep = 0.01;

/// Writes a seed of 256 samples and a target that one correction meets, to any small tolerance.
void WritePair(const TestFolder& folder, const QString& seed, const QString& target, std::uint64_t number) {
  const std::vector<double> acc = test::CenteredRecord(256, number);
  std::vector<double> times(acc.size());
  for (std::size_t i = 0; i < times.size(); ++i) times[i] = static_cast<double>(i) * kStep;
  std::vector<double> periods;
  std::vector<double> values;
  ComputeResponseSpectrum(acc, periods, values, kStep);
  for (double& value : values) value *= 2.0;
  folder.Write(seed, QByteArray::fromStdString(CsvContent("wave", kStep, times, acc)));
  folder.Write(target, QByteArray::fromStdString(CsvContent("target", kStep, periods, values)));
}

/// A folder with two seeds and their targets.
struct Jobs : TestFolder {
  Jobs() {
    WritePair(*this, "a.csv", "ta.csv", 1);
    WritePair(*this, QStringLiteral("波形/b ～.csv"), QStringLiteral("波形/tb.csv"), 2);
  }
  QString Table(const QString& text, const QString& name = "jobs.csv") const {
    return Write(name, text.toUtf8());
  }
  CliResult Run(const QString& table, const QStringList& more = {}, const QString& out = "out") const {
    return RunCli(QStringList{"batch", table, "--out", Path(out)} + more);
  }
  QStringList Names(const QString& out = "out") const {
    return QDir(Path(out)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
  }
  QByteArray Read(const QString& name) const { return test::ReadAll(Path(name)); }
  /// The cells of the summary's rows, the heading left out.
  std::vector<QStringList> Rows(const QString& summary = "out/summary.csv") const {
    std::vector<QStringList> rows;
    for (const QByteArray& line : Read(summary).split('\n').mid(1))
      if (!line.isEmpty()) rows.push_back(QString::fromUtf8(line).split(u','));
    return rows;
  }
  /// Name and content of every file.
  std::map<QString, QByteArray> All(const QString& out) const {
    std::map<QString, QByteArray> files;
    for (const QString& name : Names(out)) files[name] = Read(out + u'/' + name);
    return files;
  }
};

enum Cells {
  kLine,
  kSeed,
  kTarget,
  kStatus,
  kConverged,
  kPasses,
  kDeviation,
  kOver,
  kUnder,
  kPga,
  kPgv,
  kPgd,
  kFiles,
  kHash,
  kNote
};

const QString kTwoLines = QStringLiteral("seed,target\na.csv,ta.csv\n波形/b ～.csv,波形/tb.csv\n");

TEST(CliBatch, EachLineMakesThreeFilesAndARow) {
  const Jobs jobs;
  const CliResult result = jobs.Run(jobs.Table(kTwoLines));
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_EQ(result.err, QByteArray());
  EXPECT_THAT(jobs.Names(), testing::UnorderedElementsAre(
                                "0002_a.csv", "0002_a_AccSpec.csv", "0002_a_FFT.csv",
                                QStringLiteral("0003_b ～.csv"), QStringLiteral("0003_b ～_AccSpec.csv"),
                                QStringLiteral("0003_b ～_FFT.csv"), "summary.csv"));
  EXPECT_TRUE(
      jobs.Read("out/summary.csv")
          .startsWith("line,seed,target,status,converged,passes,deviation,overshoot,undershoot,pga,pgv,"
                      "pgd,files,hash,note\n"));
  const auto rows = jobs.Rows();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].mid(0, 6), (QStringList{"2", "a.csv", "ta.csv", "0", "true", "2"}));
  EXPECT_EQ(rows[1].mid(0, 3),
            (QStringList{"3", QStringLiteral("波形/b ～.csv"), QStringLiteral("波形/tb.csv")}));
  EXPECT_EQ(rows[0][kFiles], QString("0002_a.csv;0002_a_AccSpec.csv;0002_a_FFT.csv"));
  EXPECT_EQ(rows[0][kHash].size(), 64);
  EXPECT_NE(rows[0][kHash], rows[1][kHash]);
}

TEST(CliBatch, FilesAndFiguresAreThoseOfAdjust) {
  const Jobs jobs;
  jobs.Run(jobs.Table("seed,target,tolerance\na.csv,ta.csv,0.01\n"));
  const CliResult adjust = RunCli({"adjust", "--seed", jobs.Path("a.csv"), "--target", jobs.Path("ta.csv"),
                                   "--tolerance", "0.01", "--json", "--out", jobs.Path("0002_a.csv")});
  ASSERT_EQ(adjust.status, 0);
  for (const char* name : {"0002_a.csv", "0002_a_AccSpec.csv", "0002_a_FFT.csv"})
    EXPECT_EQ(jobs.Read(QStringLiteral("out/") + name), jobs.Read(name)) << name;
  const QJsonObject json = QJsonDocument::fromJson(adjust.out).object();
  const QStringList row = jobs.Rows().at(0);
  EXPECT_EQ(row[kPasses].toInt(), json["passes"].toInt());
  EXPECT_EQ(row[kDeviation].toDouble(), json["error"].toDouble());
  std::vector<double> acc;
  for (const QJsonValue& value : json["adjustedAcc"].toArray()) acc.push_back(value.toDouble());
  const WaveFigures figures = ComputeWaveFigures(acc, kStep);
  EXPECT_EQ(row[kPga].toDouble(), figures.pga);
  EXPECT_EQ(row[kPgv].toDouble(), figures.pgv);
  EXPECT_EQ(row[kPgd].toDouble(), figures.pgd);
}

TEST(CliBatch, ABadLineCostsThatLine) {
  const Jobs jobs;
  const QString table = jobs.Table(
      "seed,target,tolerance,unit\n"
      "none.csv,ta.csv,,\n"
      "a.csv,ta.csv,x,\n"
      "a.csv,ta.csv,,furlong\n"
      "a.csv,,,\n"
      "\"a.csv,ta.csv,,\n"
      "a.csv,ta.csv,0.05,\n"
      "a.csv,a.csv.d,,\n");
  const CliResult result = jobs.Run(table, {"--json"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(test::TopKeys(result.out),
            (QStringList{"lines", "converged", "notConverged", "unreadable", "skipped", "summary"}));
  const QJsonObject json = QJsonDocument::fromJson(result.out).object();
  EXPECT_EQ(json["lines"].toInt(), 7);
  EXPECT_EQ(json["converged"].toInt(), 1);
  EXPECT_EQ(json["unreadable"].toInt(), 6);
  const auto rows = jobs.Rows();
  ASSERT_EQ(rows.size(), 7U);
  EXPECT_EQ(rows[5][kStatus], QString("0"));
  EXPECT_EQ(result.err.count('\n'), 6) << result.err.toStdString();
  for (const int line : {2, 3, 4, 5, 6, 8})
    EXPECT_TRUE(result.err.contains((table + QStringLiteral(": %1 行目：").arg(line)).toUtf8())) << line;
  for (const std::size_t i : {0U, 1U, 2U, 6U}) {
    EXPECT_EQ(rows[i][kStatus], QString("2"));
    EXPECT_EQ(rows[i][kConverged], QString());
    EXPECT_EQ(rows[i][kHash], QString());
    EXPECT_NE(rows[i][kNote], QString());
  }
  EXPECT_EQ(jobs.Names(), (QStringList{"0007_a.csv", "0007_a_AccSpec.csv", "0007_a_FFT.csv", "summary.csv"}));
}

TEST(CliBatch, ARunThatDoesNotConvergeWritesItsRowAlone) {
  const Jobs jobs;
  const CliResult result = jobs.Run(jobs.Table("seed,target,iterations\na.csv,ta.csv,1\na.csv,ta.csv,0\n"));
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(jobs.Names(), QStringList{"summary.csv"});
  const auto rows = jobs.Rows();
  EXPECT_EQ(rows.at(0).mid(kStatus, 3), (QStringList{"3", "false", "1"}));
  EXPECT_NEAR(rows[0][kDeviation].toDouble(), 1.0, 1e-4);
  EXPECT_EQ(rows[0][kPga], QString());
  EXPECT_EQ(rows[0][kFiles], QString());
  EXPECT_EQ(rows.at(1).mid(kStatus, 4), (QStringList{"3", "false", "0", ""}));
}

TEST(CliBatch, FilesOfAnEarlierRunThatNoLongerBelongToTheirLineAreTold) {
  const Jobs jobs;
  jobs.Run(jobs.Table("seed,target\na.csv,ta.csv\n波形/b ～.csv,波形/tb.csv\n"));
  const auto first = jobs.All("out");
  jobs.Run(jobs.Table("seed,target,iterations\na.csv,ta.csv,1\ngone/b ～.csv,ta.csv,\na.csv,ta.csv,1\n"));
  EXPECT_EQ(jobs.Rows().at(0)[kNote],
            QStringLiteral("前の計算の結果が残っています：0002_a.csv;0002_a_AccSpec.csv;0002_a_FFT.csv"));
  EXPECT_TRUE(jobs.Rows().at(1)[kNote].endsWith(
      QStringLiteral("前の計算の結果が残っています：0003_b ～.csv;0003_b ～_AccSpec.csv;0003_b ～_FFT.csv")));
  EXPECT_EQ(jobs.Rows().at(2)[kNote], QString());
  EXPECT_EQ(jobs.Read("out/0002_a.csv"), first.at("0002_a.csv"));
}

TEST(CliBatch, ALineThatCannotBeWrittenCostsThatLine) {
  const Jobs jobs;
  jobs.Write("out/0002_a_FFT.csv/inside", "a folder where the third file should go");
  const CliResult result = jobs.Run(jobs.Table("seed,target\na.csv,ta.csv\na.csv,ta.csv\n"));
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(jobs.Rows().at(0)[kStatus], QString("2"));
  EXPECT_EQ(jobs.Rows().at(1)[kStatus], QString("0"));
  EXPECT_EQ(jobs.Names(), (QStringList{"0002_a_FFT.csv", "0003_a.csv", "0003_a_AccSpec.csv", "0003_a_FFT.csv",
                                       "summary.csv"}));
}

/// `count` lines with all kinds of outcomes among them.
QString MixedTable(int count) {
  QString text = QStringLiteral("seed,target,tolerance,iterations\n");
  for (int i = 0; i < count; ++i) {
    const QString pair =
        i % 2 == 0 ? QStringLiteral("a.csv,ta.csv") : QStringLiteral("波形/b ～.csv,波形/tb.csv");
    text += i % 7 == 6
                ? QStringLiteral("gone.csv,ta.csv,,\n")
                : pair + QStringLiteral(",%1,%2\n").arg(0.01 + 0.01 * (i % 3)).arg(i % 5 == 4 ? 1 : 20);
  }
  return text;
}

TEST(CliBatch, ResultsDoNotDependOnTheNumberOfThreads) {
  const Jobs jobs;
  const QString table = jobs.Table(MixedTable(40));
  const CliResult one = jobs.Run(table, {"--jobs", "1"}, "one");
  const CliResult four = jobs.Run(table, {"--jobs", "4"}, "four");
  EXPECT_EQ(one.status, 2);
  EXPECT_EQ(four.status, one.status);
  EXPECT_EQ(four.err, one.err);
  EXPECT_EQ(jobs.Rows("one/summary.csv").size(), 40U);
  EXPECT_EQ(jobs.All("four"), jobs.All("one"));
}

TEST(CliBatch, PartsJoinedAreTheWhole) {
  const Jobs jobs;
  const QString table = jobs.Table(MixedTable(11));
  jobs.Run(table, {}, "whole");
  EXPECT_EQ(jobs.Run(table, {"--part", "1/2"}, "parts").status, 2);
  EXPECT_EQ(jobs.Run(table, {"--part", "2/2"}, "parts").status, 3);
  std::map<QString, QByteArray> parts = jobs.All("parts");
  QList<QByteArray> rows =
      parts["summary_1of2.csv"].split('\n').mid(1) + parts["summary_2of2.csv"].split('\n').mid(1);
  rows.removeAll(QByteArray());
  std::sort(rows.begin(), rows.end(), [](const QByteArray& a, const QByteArray& b) {
    return a.left(a.indexOf(',')).toInt() < b.left(b.indexOf(',')).toInt();
  });
  parts.erase("summary_1of2.csv");
  parts.erase("summary_2of2.csv");
  std::map<QString, QByteArray> whole = jobs.All("whole");
  EXPECT_EQ(whole["summary.csv"], whole["summary.csv"].split('\n').first() + '\n' + rows.join('\n') + '\n');
  whole.erase("summary.csv");
  EXPECT_EQ(parts, whole);
}

TEST(CliBatch, Cp932TablesGiveTheSameFilesAndASummaryInCp932) {
  const Jobs jobs;
  jobs.Run(jobs.Table(kTwoLines), {}, "utf8");
  const QString table = jobs.Write("sjis.csv", QByteArray::fromStdString(EncodeCp932(kTwoLines)));
  EXPECT_EQ(jobs.Run(table, {}, "cp932").status, 0);
  std::map<QString, QByteArray> utf8 = jobs.All("utf8");
  std::map<QString, QByteArray> cp932 = jobs.All("cp932");
  EXPECT_EQ(cp932["summary.csv"].toStdString(), EncodeCp932(QString::fromUtf8(utf8["summary.csv"])));
  utf8.erase("summary.csv");
  cp932.erase("summary.csv");
  EXPECT_EQ(cp932, utf8);
}

TEST(CliBatch, PathsStartFromTheFolderOfTheTable) {
  const Jobs jobs;
  WritePair(jobs, "deep/seeds/c.csv", "deep/tc.csv", 3);
  const QString table =
      jobs.Table(QStringLiteral("seed,target\nseeds/c.csv,tc.csv\n../a.csv,%1\n").arg(jobs.Path("ta.csv")),
                 "deep/jobs.csv");
  const CliResult result = RunCli({"batch", "deep/jobs.csv", "--out", "results"}, jobs.Path());
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_TRUE(jobs.Names("results").contains("0002_c.csv"));
  EXPECT_TRUE(jobs.Names("results").contains("0003_a.csv"));
}

TEST(CliBatch, TheSameLineTwiceMakesItsFilesTwice) {
  const Jobs jobs;
  EXPECT_EQ(jobs.Run(jobs.Table("seed,target\na.csv,ta.csv\na.csv,ta.csv\n"), {"--jobs", "2"}).status, 0);
  EXPECT_EQ(jobs.Read("out/0002_a.csv"), jobs.Read("out/0003_a.csv"));
  EXPECT_EQ(jobs.Rows().at(0)[kHash], jobs.Rows().at(1)[kHash]);
}

TEST(CliBatch, OptionsOfRecordsBelongToTheirLine) {
  const Jobs jobs;
  QByteArray rows;
  for (const double a : test::CenteredRecord(256, 1)) rows += QByteArray::number(a / 980.665, 'g', 12) + "\n";
  jobs.Write("g.txt", rows);
  const CliResult result =
      jobs.Run(jobs.Table("seed,target,unit,step,offset\ng.txt,ta.csv,g,0.01,none\na.csv,ta.csv,,,\n"));
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_TRUE(jobs.Names().contains("0002_g.txt.csv"));
  EXPECT_TRUE(jobs.Names().contains("0002_g.txt_AccSpec.csv"));
}

TEST(CliBatch, ALineThatReadsWhatAnotherWritesIsRefused) {
  const Jobs jobs;
  jobs.Run(jobs.Table("seed,target\na.csv,ta.csv\n"));
  const CliResult result =
      jobs.Run(jobs.Table("seed,target\na.csv,ta.csv\nout/0002_a.csv,ta.csv\na.csv,out/"
                          "0002_a_AccSpec.csv\na.csv,out/summary.csv\n"));
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(jobs.Rows().at(0)[kStatus], QString("0"));
  for (const std::size_t i : {1U, 2U, 3U}) EXPECT_EQ(jobs.Rows().at(i)[kStatus], QString("2")) << i;
}

TEST(CliBatch, ALineThatReadsWhatAnotherIsYetToWriteIsRefused) {
  const Jobs jobs;
  // One after the other, so that the file is there when its reader's turn comes.
  const CliResult result = jobs.Run(
      jobs.Table("seed,target\na.csv,ta.csv\nnone/../out/0002_a.csv,ta.csv\nout/0002_a.csv,ta.csv\n"),
      {"--jobs", "1"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(jobs.Rows().at(0)[kStatus], QString("0"));
  for (const std::size_t i : {1U, 2U}) EXPECT_EQ(jobs.Rows().at(i)[kStatus], QString("2")) << i;
}

TEST(CliBatch, ResumeSkipsWhatIsThereOfTheSameInput) {
  const Jobs jobs;
  const QString table = jobs.Table(MixedTable(12));
  jobs.Run(table);
  const auto before = jobs.All("out");
  const CliResult again = jobs.Run(table, {"--resume", "--json"});
  EXPECT_EQ(again.status, 2);
  const QJsonObject json = QJsonDocument::fromJson(again.out).object();
  // The line without a seed is tried again.
  EXPECT_EQ(json["skipped"].toInt(), 11);
  EXPECT_EQ(json["unreadable"].toInt(), 1);
  EXPECT_EQ(jobs.All("out"), before);
}

int Skipped(const Jobs& jobs, const QString& table) {
  const CliResult result = jobs.Run(table, {"--resume", "--json"});
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  return QJsonDocument::fromJson(result.out).object()["skipped"].toInt();
}

TEST(CliBatch, ResumeRunsWhatHasChangedOrIsMissing) {
  const Jobs jobs;
  const QString table = jobs.Table(kTwoLines);
  jobs.Run(table);
  const auto first = jobs.All("out");
  EXPECT_EQ(Skipped(jobs, table), 2);
  ASSERT_TRUE(QFile::remove(jobs.Path("out/0002_a_FFT.csv")));
  EXPECT_EQ(Skipped(jobs, table), 1);
  EXPECT_EQ(jobs.All("out"), first);
  jobs.Write("out/0002_a.csv", first.at("0002_a.csv").chopped(20));
  EXPECT_EQ(Skipped(jobs, table), 1);
  EXPECT_EQ(jobs.All("out"), first);
  WritePair(jobs, "a.csv", "ta.csv", 9);
  EXPECT_EQ(Skipped(jobs, table), 1);
  EXPECT_NE(jobs.Read("out/0002_a.csv"), first.at("0002_a.csv"));
  EXPECT_EQ(Skipped(jobs, jobs.Table(QString(kTwoLines).replace("ta.csv", "./ta.csv"))), 1);
  EXPECT_EQ(jobs.Rows().at(0)[kTarget], QString("./ta.csv"));
  jobs.Table(QStringLiteral("seed,target,tolerance\na.csv,./ta.csv,0.02\n波形/b ～.csv,波形/tb.csv,\n"));
  EXPECT_EQ(Skipped(jobs, table), 1);
  jobs.Write("out/summary.csv", "no summary\n");
  EXPECT_EQ(Skipped(jobs, table), 0);
  ASSERT_TRUE(QFile::remove(jobs.Path("out/summary.csv")));
  EXPECT_EQ(Skipped(jobs, table), 0);
}

TEST(CliBatch, WithoutResumeEverythingIsComputedAgain) {
  const Jobs jobs;
  const QString table = jobs.Table("seed,target\na.csv,ta.csv\n");
  jobs.Run(table);
  const auto first = jobs.All("out");
  jobs.Write("out/0002_a.csv", "spoilt");
  const CliResult result = jobs.Run(table, {"--json"});
  EXPECT_EQ(QJsonDocument::fromJson(result.out).object()["skipped"].toInt(-1), 0);
  EXPECT_EQ(jobs.All("out"), first);
}

TEST(CliBatch, AHeadingAloneIsZero) {
  const Jobs jobs;
  EXPECT_EQ(jobs.Run(jobs.Table("seed,target\n")).status, 0);
  EXPECT_EQ(jobs.Rows().size(), 0U);
  EXPECT_EQ(jobs.Names(), QStringList{"summary.csv"});
}

TEST(CliBatch, WhatIsNoTableEndsWithTwo) {
  const Jobs jobs;
  for (const QString& table :
       {jobs.Path("none.csv"), jobs.Path(), jobs.Table("", "empty.csv"), jobs.Path("a.csv"),
        jobs.Table("seed,target,out\n", "out.csv"), jobs.Table("seed,target,json\n", "json.csv")}) {
    const CliResult result = jobs.Run(table);
    EXPECT_EQ(result.status, 2) << table.toStdString();
    EXPECT_TRUE(result.err.startsWith(QDir::toNativeSeparators(table).toUtf8() + ": "))
        << result.err.toStdString();
    EXPECT_EQ(result.err.count('\n'), 1);
    EXPECT_FALSE(QFileInfo::exists(jobs.Path("out")));
  }
}

TEST(CliBatch, AFolderThatCannotBeWrittenEndsWithTwo) {
  const Jobs jobs;
  const QString table = jobs.Table(kTwoLines);
  EXPECT_EQ(jobs.Run(table, {}, "a.csv").status, 2);
  EXPECT_EQ(jobs.Run(table, {}, "a.csv/below").status, 2);
  jobs.Write("taken/summary.csv/inside", "");
  const CliResult result = jobs.Run(table, {}, "taken");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(jobs.Names("taken"), QStringList{"summary.csv"});
}

TEST(CliBatch, BadCommandLinesEndWithOne) {
  const Jobs jobs;
  const QString table = jobs.Table(kTwoLines);
  for (const QStringList& more :
       {QStringList{"--jobs", "0"}, QStringList{"--jobs", "two"}, QStringList{"--jobs", "5000"},
        QStringList{"--part", "3/2"}, QStringList{"--part", "0/2"}, QStringList{"--part", "x"},
        QStringList{"--seed", "a.csv"}, QStringList{"second.csv"}})
    EXPECT_EQ(jobs.Run(table, more).status, 1) << more.join(u' ').toStdString();
  EXPECT_EQ(RunCli({"batch", table}).status, 1);
  EXPECT_EQ(RunCli({"batch", table, "--out", ""}).status, 1);
  EXPECT_FALSE(QFileInfo::exists(jobs.Path("out")));
  // The summary would take the place of the table.
  const QString same = jobs.Table(kTwoLines, "summary.csv");
  EXPECT_EQ(RunCli({"batch", same, "--out", jobs.Path()}).status, 1);
  EXPECT_EQ(test::ReadAll(same), kTwoLines.toUtf8());
}

/// Lines that take long enough to be met at work.
QString LongTable(const Jobs& jobs, int count) {
  QString text = QStringLiteral("seed,target,tolerance\n");
  for (int i = 0; i < count; ++i)
    text += QStringLiteral("%1,%2,%3\n")
                .arg(test::SourcePath("samples/waves/hses_2016_n80w_0005_8192.csv"),
                     test::SourcePath("data/LowSpec/h20_h.csv"))
                .arg(0.05 + 0.001 * i);
  return jobs.Table(text);
}

enum class Ending { Kill, Interrupt, Terminate };

/// Starts the batch and ends it like this when so many lines have all their files. Whether it died of that.
bool RunAndEnd(const Jobs& jobs, const QString& table, qsizetype lines, Ending ending) {
  QProcess process;
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"),
                {"batch", table, "--out", jobs.Path("out"), "--jobs", "2"});
  EXPECT_TRUE(process.waitForStarted());
  while (jobs.Names().filter("_FFT.csv").size() < lines)
    if (process.waitForFinished(1)) return false;
#ifdef _WIN32
  EXPECT_EQ(ending, Ending::Kill);
  process.kill();
  EXPECT_TRUE(process.waitForFinished(60000));
  return process.exitStatus() == QProcess::CrashExit;
#else
  const int signal = ending == Ending::Kill ? SIGKILL : ending == Ending::Interrupt ? SIGINT : SIGTERM;
  kill(static_cast<pid_t>(process.processId()), signal);
  EXPECT_TRUE(process.waitForFinished(60000));
  return process.exitStatus() == QProcess::CrashExit && process.exitCode() == signal;
#endif
}

/// What the batch leaves when nobody disturbs it: computed once, since the table is always the same.
const std::map<QString, QByteArray>& WholeOf(const Jobs& jobs, const QString& table) {
  static std::map<QString, QByteArray> whole;
  if (whole.empty()) {
    EXPECT_EQ(jobs.Run(table, {}, "whole").status, 0);
    whole = jobs.All("whole");
  }
  return whole;
}

/// What a batch that was ended has left. On Windows the files that were being written have names by then,
/// with six letters behind their own; elsewhere they have none before they are whole.
std::map<QString, QByteArray> LeftBy(const Jobs& jobs) {
  std::map<QString, QByteArray> left = jobs.All("out");
#ifdef _WIN32
  static const QRegularExpression unfinished(QStringLiteral("\\.csv\\.[A-Za-z]{6}$"));
  std::erase_if(left, [](const auto& file) { return file.first.contains(unfinished); });
#endif
  return left;
}

class CliBatchSignal : public testing::TestWithParam<Ending> {};

TEST_P(CliBatchSignal, LeavesWholeFilesAndResumeGoesOn) {
  const Jobs jobs;
  const QString table = LongTable(jobs, 16);
  const auto& whole = WholeOf(jobs, table);
  ASSERT_TRUE(RunAndEnd(jobs, table, 3, GetParam()));
  std::map<QString, QByteArray> left = LeftBy(jobs);
  const QList<QByteArray> rows = left["summary.csv"].split('\n');
  left.erase("summary.csv");
  EXPECT_LT(left.size(), whole.size() - 1);
  for (const auto& [name, content] : left) {
    ASSERT_TRUE(whole.count(name)) << name.toStdString();
    EXPECT_EQ(content, whole.at(name)) << name.toStdString();
  }
  for (const QByteArray& row : rows)
    EXPECT_TRUE(whole.at("summary.csv").split('\n').contains(row)) << row.toStdString();
  // Asked to end, it has told of every line that it has written.
  if (GetParam() != Ending::Kill) {
    EXPECT_EQ(static_cast<std::size_t>(rows.size() - 2) * 3, left.size());
  }
  const CliResult result = jobs.Run(table, {"--resume", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(QJsonDocument::fromJson(result.out).object()["skipped"].toInt(), rows.size() - 2);
  EXPECT_EQ(LeftBy(jobs), whole);
}

INSTANTIATE_TEST_SUITE_P(Kill, CliBatchSignal, testing::Values(Ending::Kill));

#ifdef _WIN32

TEST(CliBatch, Interrupted) {
  GTEST_SKIP() << "Ctrl+C reaches a program from its console alone, which a test has not";
}

#else

INSTANTIATE_TEST_SUITE_P(Signals, CliBatchSignal, testing::Values(Ending::Interrupt, Ending::Terminate));

TEST(CliBatch, ALineThatWouldTakeForEverIsBrokenOff) {
  const Jobs jobs;
  const QString table = jobs.Table("seed,target,tolerance,iterations\na.csv,ta.csv,0,2147483647\n");
  QProcess process;
  process.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-cli"),
                {"batch", table, "--out", jobs.Path("out")});
  while (!QFileInfo::exists(jobs.Path("out/summary.csv"))) ASSERT_FALSE(process.waitForFinished(1));
  process.terminate();
  EXPECT_TRUE(process.waitForFinished(30000));
  EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
  EXPECT_EQ(process.exitCode(), SIGTERM);
  EXPECT_EQ(jobs.Names(), QStringList{"summary.csv"});
  EXPECT_EQ(jobs.Rows().size(), 0U);
}

TEST(CliBatch, ATerminalIsToldHowFarItIs) {
  const Jobs jobs;
  const CliResult result =
      test::RunCliOnATerminal({"batch", jobs.Table(MixedTable(8)), "--out", jobs.Path("out")});
  EXPECT_EQ(result.status, 2);
  for (const QString& text : {QStringLiteral("8 / 8 行"), QStringLiteral("残り約 "),
                              QStringLiteral("収束しない 1"), QStringLiteral("読めない 1")})
    EXPECT_TRUE(result.err.contains(text.toUtf8())) << text.toStdString() << result.err.toStdString();
}

#endif

}  // namespace
}  // namespace tremlo
