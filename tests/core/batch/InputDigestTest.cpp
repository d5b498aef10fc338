#include "core/batch/InputDigest.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

using test::TestFolder;

BatchJob Job() {
  BatchJob job;
  job.line = 2;
  job.seed = "waves/a.csv";
  job.target = "t.csv";
  job.options = {{"tolerance", "0.1"}, {"iterations", "50"}};
  return job;
}

QString DigestOf(const TestFolder& folder, const BatchJob& job, const QString& version = "1",
                 const char* output = "out") {
  InputDigest digest(version, job);
  EXPECT_TRUE(digest.AddInput(folder.Path("seed")));
  EXPECT_TRUE(digest.AddInput(folder.Path("target")));
  digest.AddOutput(output);
  return digest.Hex();
}

TEST(InputDigest, EachThingThatCountsChangesIt) {
  const TestFolder folder;
  folder.Write("seed", "1");
  folder.Write("target", "2");
  const QString plain = DigestOf(folder, Job());
  EXPECT_EQ(plain.size(), 64);
  EXPECT_EQ(DigestOf(folder, Job()), plain);
  EXPECT_NE(DigestOf(folder, Job(), "2"), plain);
  EXPECT_NE(DigestOf(folder, Job(), "1", "other"), plain);
  BatchJob job = Job();
  job.options[0].second = "0.2";
  EXPECT_NE(DigestOf(folder, job), plain);
  job = Job();
  job.options[0].first = "step";
  EXPECT_NE(DigestOf(folder, job), plain);
  job = Job();
  job.seed = "b.csv";
  EXPECT_NE(DigestOf(folder, job), plain);
  folder.Write("seed", "12");
  folder.Write("target", "");
  EXPECT_NE(DigestOf(folder, Job()), plain);
  folder.Write("seed", "1");
  folder.Write("target", "3");
  EXPECT_NE(DigestOf(folder, Job()), plain);
}

TEST(InputDigest, LineFolderAndOrderOfTheColumnsDoNotCount) {
  const TestFolder folder;
  folder.Write("seed", "1");
  folder.Write("target", "2");
  BatchJob job = Job();
  job.line = 99;
  job.seed = "/elsewhere/a.csv";
  job.target = "u.csv";
  std::swap(job.options[0], job.options[1]);
  EXPECT_EQ(DigestOf(folder, job), DigestOf(folder, Job()));
}

TEST(InputDigest, FilesOnDiskCountAsWhatWasWritten) {
  const TestFolder folder;
  InputDigest written("1", Job());
  written.AddOutput("one");
  written.AddOutput("two");
  InputDigest read("1", Job());
  EXPECT_TRUE(read.AddOutputs({folder.Write("a", "one"), folder.Write("b", "two")}));
  EXPECT_EQ(read.Hex(), written.Hex());
}

TEST(InputDigest, AMissingFileIsTold) {
  const TestFolder folder;
  InputDigest digest("1", Job());
  EXPECT_FALSE(digest.AddInput(folder.Path("none")));
  EXPECT_FALSE(digest.AddInput(folder.Path()));
  EXPECT_FALSE(digest.AddOutputs({folder.Write("a", ""), folder.Path("none")}));
}

}  // namespace
}  // namespace tremlo
