#include "core/batch/BatchPart.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<BatchJob> Jobs(int count) {
  std::vector<BatchJob> jobs(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) jobs[static_cast<std::size_t>(i)].line = 10 * (i + 1);
  return jobs;
}

std::vector<int> LinesOfPart(int index, int of, int count) {
  std::vector<int> lines;
  for (const BatchJob& job : BatchPart{index, of}.JobsOf(Jobs(count))) lines.push_back(job.line);
  return lines;
}

TEST(BatchPart, TakesEveryNthJob) {
  EXPECT_THAT(LinesOfPart(1, 1, 3), ElementsAre(10, 20, 30));
  EXPECT_THAT(LinesOfPart(1, 2, 5), ElementsAre(10, 30, 50));
  EXPECT_THAT(LinesOfPart(2, 2, 5), ElementsAre(20, 40));
  EXPECT_THAT(LinesOfPart(3, 3, 2), IsEmpty());
  EXPECT_THAT(LinesOfPart(1, 2, 0), IsEmpty());
}

TEST(BatchPart, AllPartsTogetherAreTheWhole) {
  std::vector<int> lines;
  for (int index = 1; index <= 4; ++index)
    for (const int line : LinesOfPart(index, 4, 11)) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ(lines, LinesOfPart(1, 1, 11));
}

TEST(BatchPart, IsWrittenAsIOfN) {
  const auto part = ParsePart("2/3");
  ASSERT_TRUE(part);
  EXPECT_EQ(part->index, 2);
  EXPECT_EQ(part->of, 3);
  for (const char* text :
       {"", "1", "/", "0/2", "3/2", "-1/2", "1/0", "1/2/3", "a/b", " 1/2", "1.5/2", "1/99999999999", "1/2\n"})
    EXPECT_FALSE(ParsePart(text)) << text;
}

TEST(BatchPart, HasASummaryOfItsOwn) {
  EXPECT_EQ(SummaryName(std::nullopt), QString("summary.csv"));
  EXPECT_EQ(SummaryName(BatchPart{1, 1}), QString("summary_1of1.csv"));
  EXPECT_EQ(SummaryName(BatchPart{2, 12}), QString("summary_2of12.csv"));
}

}  // namespace
}  // namespace tremlo
