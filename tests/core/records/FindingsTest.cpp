#include "core/records/RecordFindings.h"
#include "core/records/RecordFixtures.h"

#include <cmath>

namespace tremlo {
namespace {

using test::HasWord;

/// A quiet start, shaking of 100 gal, a quiet end.
RecordComponent Shaking(std::size_t count = 1000, double timeStep = 0.01) {
  RecordComponent component;
  component.timeStep = timeStep;
  component.unit = QStringLiteral("gal");
  component.factor = 1.0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) / static_cast<double>(count - 1);
    const double envelope = std::sin(3.14159265358979 * x) * std::sin(3.14159265358979 * x);
    component.acc.push_back(100.0 * envelope * std::sin(0.37 * static_cast<double>(i)));
  }
  return component;
}

/// The doubts about a shaking that `change` has spoilt hold `word`, and it alone.
template <class Change>
void ExpectDoubt(const QString& word, Change change) {
  RecordComponent component = Shaking();
  ASSERT_TRUE(FindDoubts(component).empty());
  change(component);
  const std::vector<QString> doubts = FindDoubts(component);
  EXPECT_EQ(doubts.size(), 1U) << word.toStdString();
  EXPECT_TRUE(HasWord(doubts, word)) << word.toStdString();
}

TEST(RecordFindings, EachDoubtIsTold) {
  ExpectDoubt(QStringLiteral("時間間隔が粗い"), [](RecordComponent& c) { c.timeStep = 0.05; });
  ExpectDoubt(QStringLiteral("オフセット"), [](RecordComponent& c) {
    for (double& a : c.acc) a += 1100.0;
  });
  ExpectDoubt(QStringLiteral("単位の疑い"), [](RecordComponent& c) {
    for (double& a : c.acc) a *= 0.005;
  });
  ExpectDoubt(QStringLiteral("単位の疑い"), [](RecordComponent& c) {
    for (double& a : c.acc) a *= 40.0;
  });
  ExpectDoubt(QStringLiteral("クリップ"), [](RecordComponent& c) {
    for (double& a : c.acc) a = std::fmax(-70.0, std::fmin(70.0, a));
  });
  ExpectDoubt(QStringLiteral("スパイク"), [](RecordComponent& c) { c.acc[20] = 300.0; });
  ExpectDoubt(QStringLiteral("繰り返し区間：4 秒から"), [](RecordComponent& c) {
    for (std::size_t i = 400; i < 430; ++i) c.acc[i] = c.acc[i + 200];
  });
  ExpectDoubt(QStringLiteral("末尾が静止していない"), [](RecordComponent& c) { c.acc.resize(700); });
  ExpectDoubt(QStringLiteral("始まりが静止していない"),
              [](RecordComponent& c) { c.acc.erase(c.acc.begin(), c.acc.begin() + 300); });
}

TEST(RecordFindings, ADoubtfulUnitNamesTheOthers) {
  RecordComponent component = Shaking();
  component.factor = 100.0;
  for (double& a : component.acc) a *= 0.005;
  EXPECT_TRUE(HasWord(FindDoubts(component), QStringLiteral("（gal なら 0.004985 gal、g なら 4.888 gal）")));
  // Counts are in no unit.
  component.factorText = QStringLiteral("3920(gal)/6182761");
  EXPECT_TRUE(HasWord(FindDoubts(component), QStringLiteral("単位の疑い：最大加速度が 0.4985 gal です。")));
}

TEST(RecordFindings, CountsAreToldAtBothEnds) {
  EXPECT_TRUE(HasWord(FindDoubts(Shaking(99)), QStringLiteral("99 点しかありません")));
  EXPECT_TRUE(FindDoubts(Shaking(100)).empty());
  EXPECT_TRUE(HasWord(FindDoubts(Shaking(65537)), QStringLiteral("65537 点あり")));
  EXPECT_TRUE(FindDoubts(Shaking(65536)).empty());
}

TEST(RecordFindings, FiftyHertzIsNotCoarse) {
  RecordComponent component = Shaking();
  component.timeStep = 1.0 / 50.0;
  EXPECT_TRUE(FindDoubts(component).empty());
}

TEST(RecordFindings, TheSpikeIsNamedByTime) {
  RecordAnswers answers;
  const RecordReading reading =
      ReadRecordFile(test::FixturePath(QStringLiteral("warn/SAMPLE_spike.txt")), answers).front();
  EXPECT_TRUE(HasWord(reading.warnings, QStringLiteral("スパイク：0.6 秒の値 400 gal")));
}

TEST(RecordFindings, OddSamplesBreakNothing) {
  RecordComponent component;
  component.timeStep = 1e-300;
  component.factor = 1.0;
  component.acc = {0.0};
  EXPECT_FALSE(FindDoubts(component).empty());
  component.acc = std::vector<double>(50, 0.0);
  component.timeStep = 1e300;
  EXPECT_FALSE(FindDoubts(component).empty());
  component.acc[3] = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(FindDoubts(component).empty());
}

}  // namespace
}  // namespace tremlo
