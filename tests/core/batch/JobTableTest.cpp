#include "core/batch/JobTable.h"
#include "core/files/Cp932Text.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const QStringList kOptions = {"iterations", "tolerance", "unit"};

JobTable Parsed(const QByteArray& content) {
  JobTable table;
  const auto fault = ParseJobs(content, kOptions, table);
  EXPECT_FALSE(fault) << fault->toStdString();
  return table;
}

TEST(JobTable, EachLineIsASeedATargetAndOptions) {
  const JobTable table = Parsed("seed,target,tolerance,unit\na.csv,t.csv,0.1,gal\nb.csv,\"t,2.csv\",,\n");
  ASSERT_EQ(table.jobs.size(), 2U);
  EXPECT_EQ(table.jobs[0].line, 2);
  EXPECT_EQ(table.jobs[0].seed, QString("a.csv"));
  EXPECT_EQ(table.jobs[0].target, QString("t.csv"));
  EXPECT_THAT(table.jobs[0].options, ElementsAre(Pair("tolerance", "0.1"), Pair("unit", "gal")));
  EXPECT_TRUE(table.jobs[0].fault.isEmpty());
  EXPECT_EQ(table.jobs[1].line, 3);
  EXPECT_EQ(table.jobs[1].target, QString("t,2.csv"));
  EXPECT_THAT(table.jobs[1].options, IsEmpty());
}

TEST(JobTable, BlankLinesAreNoJobsButCount) {
  const JobTable table = Parsed("seed,target\n\na,t\n , \n,\nb,t");
  ASSERT_EQ(table.jobs.size(), 2U);
  EXPECT_EQ(table.jobs[0].line, 3);
  EXPECT_EQ(table.jobs[1].line, 6);
}

TEST(JobTable, ReadsCp932AndUtf8) {
  const QString text = QStringLiteral("seed,target\n波形～.csv,目標.csv\n");
  const JobTable utf8 = Parsed(text.toUtf8());
  const JobTable cp932 = Parsed(QByteArray::fromStdString(EncodeCp932(text)));
  EXPECT_EQ(utf8.jobs, cp932.jobs);
  EXPECT_EQ(utf8.jobs.front().seed, QStringLiteral("波形～.csv"));
  EXPECT_EQ(utf8.encoding, BatchEncoding::Utf8);
  EXPECT_EQ(cp932.encoding, BatchEncoding::Cp932);
}

TEST(JobTable, AFaultyLineKeepsItsFaultToItself) {
  const JobTable table = Parsed("seed,target,unit\na,t,gal,9\n,t\na\n\"a,t\na,t,gal,,\nlast,t\n");
  ASSERT_EQ(table.jobs.size(), 6U);
  for (const std::size_t i : {0U, 1U, 2U, 3U}) EXPECT_FALSE(table.jobs[i].fault.isEmpty()) << i;
  for (const std::size_t i : {4U, 5U}) EXPECT_TRUE(table.jobs[i].fault.isEmpty()) << i;
}

TEST(JobTable, AHeadingThatIsNoneIsRefused) {
  for (const char* content : {"", "\n", "target,seed\n", "seed\n", "a.csv,t.csv\n", "seed,target,colour\n",
                              "seed,target,unit,unit\n", "seed,target,seed\n", "\"seed,target\n",
                              "Seed,Target\n", "seed,target,,unit\n"}) {
    JobTable table;
    EXPECT_TRUE(ParseJobs(content, kOptions, table)) << content;
  }
}

TEST(JobTable, EmptyCellsBehindTheHeadingAreNoFault) {
  EXPECT_EQ(Parsed("seed,target,,\na,t,,\n").jobs.size(), 1U);
}

TEST(JobTable, AHeadingAloneHasNoJobs) {
  EXPECT_THAT(Parsed("seed,target\n").jobs, IsEmpty());
}

TEST(JobTable, FilesAreNamedAfterLineAndSeed) {
  const auto name = [](int line, const char* seed) {
    BatchJob job;
    job.line = line;
    job.seed = seed;
    return OutputName(job);
  };
  EXPECT_EQ(name(2, "a.csv"), QString("0002_a.csv"));
  EXPECT_EQ(name(43, "waves/b.CSV"), QString("0043_b.CSV"));
  EXPECT_EQ(name(10000, "/x/NIG017.EW"), QString("10000_NIG017.EW.csv"));
  EXPECT_EQ(name(7, "../knet.tar.gz"), QString("0007_knet.tar.gz.csv"));
}

}  // namespace
}  // namespace tremlo
