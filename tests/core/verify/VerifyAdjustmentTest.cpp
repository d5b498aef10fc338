#include "core/project/AdjustCheck.h"
#include "core/project/ResponseRoute.h"
#include "core/verify/VerifyAdjustment.h"
#include "core/verify/VerifyProject.h"
#include "support/SoundProject.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

const CMorvaneDoc& Sound() {
  static const CMorvaneDoc doc = test::SoundProject();
  return doc;
}

VerifyItem Verified(const CMorvaneDoc& doc, std::size_t wave = 0) {
  std::vector<VerifyItem> items;
  VerifyAdjustedWave(doc, wave, items);
  EXPECT_EQ(items.size(), 1U);
  return items.empty() ? VerifyItem() : items.front();
}

/// The sound project with the adjusted wave that these settings lead to.
CMorvaneDoc AdjustedWith(int iterations, double tolerance) {
  CMorvaneDoc doc = Sound();
  AdjustInput input = AdjustInputOf(doc, doc.seedWaves.At(0));
  input.iterations = iterations;
  input.tolerance = tolerance;
  const AdjustResult result = RunAdjustment(input);
  EXPECT_TRUE(result.converged);
  StoreAdjustment(doc.seedWaves.At(0), result);
  return doc;
}

void ExpectReason(const VerifyItem& item, const QString& part) {
  EXPECT_TRUE(item.reason.contains(part)) << item.reason.toStdString();
}

TEST(VerifyAdjustment, ASoundOneAgreesOnBothRoutes) {
  EXPECT_EQ(Verified(Sound()).outcome, VerifyOutcome::Equal);
  const VerifyReport report = VerifyProject(test::SoundResponseProject());
  EXPECT_THAT(report.items, testing::Each(testing::Field(&VerifyItem::outcome, VerifyOutcome::Equal)));
  EXPECT_THAT(report.items, testing::Contains(testing::Field(&VerifyItem::key, "seedWaves[0].adjustedAcc")));
}

TEST(VerifyAdjustment, AWaveThatIsNotAdjustedHasNoItem) {
  std::vector<VerifyItem> items;
  VerifyAdjustedWave(Sound(), 1, items);
  EXPECT_TRUE(items.empty());
}

TEST(VerifyAdjustment, ALooserToleranceIsFound) {
  const CMorvaneDoc doc = AdjustedWith(100, 0.10);
  const VerifyItem item = Verified(doc);
  EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
  EXPECT_GT(item.difference, 1e-9);
  EXPECT_LT(item.difference, 1.0);
  EXPECT_TRUE(item.at.startsWith("seedWaves[0].adjustedAcc[")) << item.at.toStdString();
  EXPECT_TRUE(item.place.startsWith(QStringLiteral("時刻 "))) << item.place.toStdString();
  ExpectReason(item,
               QStringLiteral("保存された設定（繰り返し 100 回まで、収束判定 5.00 %）では 6 回で収束します"));
  ExpectReason(item, QStringLiteral("回目の波形（偏差 "));
  ExpectReason(item, QStringLiteral("別の設定（"));
}

TEST(VerifyAdjustment, ATighterToleranceIsFound) {
  const VerifyItem item = Verified(AdjustedWith(100, 0.04));
  EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
  ExpectReason(item, QStringLiteral("と一致します"));
}

TEST(VerifyAdjustment, TheToleranceToldLeadsToTheStoredWave) {
  const CMorvaneDoc doc = AdjustedWith(100, 0.10);
  std::vector<double> deviations;
  RunAdjustment(AdjustInputOf(doc, doc.seedWaves.At(0)),
                [&](const FitFigures& fit) { deviations.push_back(fit.deviation); });
  // The first pass below 10 %, and the lowest before it.
  std::size_t pass = 0;
  while (!(deviations[pass] < 0.10)) ++pass;
  ASSERT_GT(pass, 0U);
  const auto percent = [](double share) { return QString::number(share * 100.0, 'f', 2) + " %"; };
  ExpectReason(Verified(doc),
               QStringLiteral("%1 回目の波形（偏差 %2）と一致します。別の設定（%1 回以上、収束判定 "
                              "%2 を超え %3 以下）で")
                   .arg(QString::number(pass + 1), percent(deviations[pass]),
                        percent(*std::min_element(deviations.begin(),
                                                  deviations.begin() + static_cast<std::ptrdiff_t>(pass)))));
}

TEST(VerifyAdjustment, TooFewIterationsNowAreTold) {
  CMorvaneDoc doc = Sound();
  doc.adjustMaxIterations = 5;
  const VerifyItem item = Verified(doc);
  EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
  ExpectReason(item, QStringLiteral("5 回で収束しません"));
  ExpectReason(item, QStringLiteral("6 回目の波形"));
}

TEST(VerifyAdjustment, NoIterationsAtAllAreNoTrap) {
  for (const int iterations : {0, -3}) {
    CMorvaneDoc doc = Sound();
    doc.adjustMaxIterations = iterations;
    EXPECT_EQ(Verified(doc).outcome, VerifyOutcome::Differs);
  }
}

TEST(VerifyAdjustment, AWaveThatNoSettingsGiveIsTold) {
  CMorvaneDoc seed = Sound();
  seed.seedWaves.At(0).acc[3000] += 5.0;
  CMorvaneDoc result = Sound();
  result.seedWaves.At(0).adjustedAcc[3000] += 5.0;
  CMorvaneDoc target = Sound();
  target.lowerSpectra.At(0).accSpec[3] *= 1.1;
  for (const CMorvaneDoc* doc : {&seed, &result, &target}) {
    const VerifyItem item = Verified(*doc);
    EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
    ExpectReason(item, QStringLiteral("説明できません"));
  }
}

TEST(VerifyAdjustment, AWaveOfAnotherLengthOrNoneDiffers) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{4096}}) {
    CMorvaneDoc doc = Sound();
    doc.seedWaves.At(0).adjustedAcc.resize(count);
    const VerifyItem item = Verified(doc);
    EXPECT_EQ(item.outcome, VerifyOutcome::Differs);
    ExpectReason(item, QStringLiteral("数が異なります（保存 %1、再計算 8192）").arg(count));
  }
}

TEST(VerifyAdjustment, TheTargetIsTheItemMarkedNow) {
  CMorvaneDoc doc = Sound();
  doc.lowerSpectra.At(0).baseSelected = false;
  EXPECT_EQ(Verified(doc).outcome, VerifyOutcome::Unchecked);
  doc.seedWaves.At(1).baseSelected = true;
  EXPECT_EQ(Verified(doc).outcome, VerifyOutcome::Differs);
}

TEST(VerifyAdjustment, WithoutWhatItTakesItIsUnchecked) {
  CMorvaneDoc doc = test::SoundResponseProject();
  doc.seedWaves.At(0).timeStep = 0.0;
  EXPECT_EQ(Verified(doc).outcome, VerifyOutcome::Unchecked);
  doc = test::SoundResponseProject();
  doc.respSpectra.Clear();
  EXPECT_EQ(Verified(doc).outcome, VerifyOutcome::Unchecked);
}

TEST(VerifyAdjustment, TheResponseRouteAdjustsTheFirstWaveAlone) {
  CMorvaneDoc doc = test::SoundResponseProject();
  doc.seedWaves.Add("second");
  doc.seedWaves.At(1) = doc.seedWaves.At(0);
  EXPECT_EQ(Verified(doc, 1).outcome, VerifyOutcome::Unchecked);
}

}  // namespace
}  // namespace tremlo
