#include "core/project/ResponseRoute.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/NoThreads.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/waves/WaveRuns.h"

#include <QApplication>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::chrono::milliseconds kNoPause{0};

/// Notes what each run dialog says as it closes.
class DialogLog : public QObject {
 public:
  DialogLog() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (auto* dialog = qobject_cast<RunDialog*>(watched); dialog && event->type() == QEvent::Hide) {
      names.push_back(dialog->objectName());
      parents.push_back(dialog->parentWidget());
      texts.push_back(dialog->findChild<QLabel*>(QStringLiteral("m_progressText"))->text());
      const auto* bar = dialog->findChild<QProgressBar*>(QStringLiteral("m_progress"));
      bars.push_back(QStringLiteral("%1 / %2").arg(bar->value()).arg(bar->maximum()));
    }
    return false;
  }

  std::vector<QString> names;
  std::vector<QWidget*> parents;
  std::vector<QString> texts;
  std::vector<QString> bars;
};

/// Does something to the document while a run dialog is up.
class WhileRunning : public QObject {
 public:
  explicit WhileRunning(std::function<void()> act) : m_act(std::move(act)) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (qobject_cast<RunDialog*>(watched) && event->type() == QEvent::Show) m_act();
    return false;
  }

 private:
  std::function<void()> m_act;
};

CMorvaneDoc DocWith(const std::vector<QString>& names) {
  CMorvaneDoc doc{QString()};
  CSeismicWaveSet& waves = doc.seedWaves;
  for (const QString& name : names) {
    waves.Add(name);
    waves.SetTimeStep(name, 0.01);
    waves.SetAcc(name, test::Noise(64, waves.Count()));
  }
  return doc;
}

/// A target that one correction meets, which the second pass finds.
AdjustInput DoubledTarget(int iterations) {
  AdjustInput input;
  input.timeStep = 0.01;
  input.acc = test::CenteredRecord(256, 6);
  ComputeResponseSpectrum(input.acc, input.periods, input.target, input.timeStep);
  for (double& value : input.target) value *= 2.0;
  input.iterations = iterations;
  input.tolerance = 0.05;
  return input;
}

TEST(ComputeMissingSpectra, StoresThemBehindTheDialog) {
  const DialogLog log;
  QWidget frame;
  CMorvaneDoc doc = DocWith({"a", "b", "c"});
  CSeismicWaveSet& waves = doc.seedWaves;
  waves.SetSpectrumValid("b", true);
  EXPECT_TRUE(ComputeMissingSpectra(doc, &frame, kNoPause));
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(log.names, ElementsAre(QStringLiteral("CDlgNowCalcAccSpec")));
  EXPECT_THAT(log.parents, ElementsAre(&frame));
  EXPECT_THAT(log.texts, ElementsAre(QStringLiteral("2 / 2　c")));
  EXPECT_THAT(log.bars, ElementsAre(QStringLiteral("2 / 2")));
  std::vector<double> periods;
  std::vector<double> accSpec;
  ComputeResponseSpectrum(waves.GetAcc("a"), periods, accSpec, 0.01);
  EXPECT_EQ(waves.GetPeriods("a"), periods);
  EXPECT_EQ(waves.GetAccSpec("a"), accSpec);
  EXPECT_THAT(waves.GetPeriods("b"), IsEmpty());
  EXPECT_TRUE(waves.GetSpectrumValid("c"));
}

TEST(ComputeMissingSpectra, ShowsNothingWhenNoneIsMissing) {
  const DialogLog log;
  CMorvaneDoc doc = DocWith({"a"});
  doc.seedWaves.SetSpectrumValid("a", true);
  EXPECT_TRUE(ComputeMissingSpectra(doc, nullptr, kNoPause));
  EXPECT_THAT(log.names, IsEmpty());
  EXPECT_FALSE(doc.IsModified());
}

TEST(ComputeMissingSpectra, StoresNothingInAnotherProject) {
  CMorvaneDoc doc = DocWith({"a"});
  const WhileRunning open([&doc] {
    EXPECT_EQ(doc.ResetDocument(), std::nullopt);
    doc.seedWaves.Add("of the next project");
  });
  EXPECT_FALSE(ComputeMissingSpectra(doc, nullptr, kNoPause));
  EXPECT_FALSE(doc.seedWaves.At(0).spectrumValid);
  EXPECT_THAT(doc.seedWaves.At(0).periods, IsEmpty());
  EXPECT_FALSE(doc.IsModified());
}

#ifdef __GLIBC__

TEST(ComputeMissingSpectra, AFailedBatchStoresNothing) {
  CMorvaneDoc doc = DocWith({"a", "b"});
  doc.seedWaves.SetPeriods("a", {1.0});
  doc.seedWaves.SetAccSpec("a", {2.0});
  const std::vector<CSeismicWave> before = doc.seedWaves.Records();
  {
    const test::NoThreads none;
    EXPECT_FALSE(ComputeMissingSpectra(doc, nullptr, kNoPause));
  }
  EXPECT_TRUE(doc.seedWaves.Records() == before);
  EXPECT_FALSE(doc.IsModified());
  EXPECT_TRUE(ComputeMissingSpectra(doc, nullptr, kNoPause)) << "and the next one works";
  EXPECT_TRUE(doc.seedWaves.GetSpectrumValid("a") && doc.seedWaves.GetSpectrumValid("b"));
}

#endif

TEST(AdjustBehindDialog, GivesTheResultOfTheRun) {
  const DialogLog log;
  const AdjustInput input = DoubledTarget(5);
  const AdjustResult result = AdjustBehindDialog(input, nullptr, kNoPause);
  EXPECT_THAT(log.names, ElementsAre(QStringLiteral("CDlgNowCalc")));
  EXPECT_THAT(log.texts, ElementsAre(QStringLiteral("2 / 5 回　偏差 0.00 %（収束判定 5.00 %）")));
  EXPECT_THAT(log.bars, ElementsAre(QStringLiteral("2 / 5")));
  const AdjustResult expected = RunAdjustment(input);
  EXPECT_TRUE(result.converged);
  EXPECT_EQ(result.passes, 2);
  EXPECT_EQ(result.acc, expected.acc);
  EXPECT_EQ(result.periods, expected.periods);
  EXPECT_EQ(result.spectrum, expected.spectrum);
  EXPECT_EQ(result.fit.deviation, expected.fit.deviation);
}

TEST(AdjustBehindDialog, OnePassOnlyFailsSinceItsCorrectionIsNotMeasured) {
  const DialogLog log;
  const AdjustResult result = AdjustBehindDialog(DoubledTarget(1), nullptr, kNoPause);
  EXPECT_FALSE(result.converged);
  EXPECT_THAT(result.acc, IsEmpty());
  EXPECT_THAT(log.texts, ElementsAre(QStringLiteral("1 / 1 回　偏差 100.00 %（収束判定 5.00 %）")));
}

TEST(AdjustBehindDialog, WithoutATargetThereIsNoResult) {
  AdjustInput input = DoubledTarget(5);
  input.target.clear();
  const AdjustResult result = AdjustBehindDialog(input, nullptr, kNoPause);
  EXPECT_FALSE(result.converged);
  EXPECT_EQ(result.passes, 0);
}

/// A project of the response route whose run converges.
CMorvaneDoc RespDoc() {
  CMorvaneDoc doc{QString()};
  const AdjustInput input = DoubledTarget(5);
  EnsureRespWave(doc);
  doc.seedWaves.At(0).timeStep = input.timeStep;
  doc.seedWaves.At(0).acc = input.acc;
  doc.respSpectra.AddSpectrum("T", input.periods, input.target);
  doc.adjustMaxIterations = input.iterations;
  doc.adjustTolerancePercent = input.tolerance;
  doc.SetModified(false);
  return doc;
}

TEST(RunRespAdjustment, StoresItsResult) {
  CMorvaneDoc doc = RespDoc();
  const AdjustResult result = RunRespAdjustment(doc, nullptr, kNoPause);
  EXPECT_TRUE(result.converged);
  EXPECT_TRUE(doc.seedWaves.At(0).adjusted);
  EXPECT_EQ(doc.seedWaves.At(0).adjustedAcc, result.acc);
  EXPECT_TRUE(doc.IsModified());
}

TEST(RunRespAdjustment, StoresNothingInAnotherProject) {
  CMorvaneDoc doc = RespDoc();
  const WhileRunning open([&doc] {
    EXPECT_EQ(doc.ResetDocument(), std::nullopt);
    EnsureRespWave(doc);
    doc.SetModified(false);
  });
  EXPECT_FALSE(RunRespAdjustment(doc, nullptr, kNoPause).converged);
  EXPECT_FALSE(doc.seedWaves.At(0).adjusted);
  EXPECT_THAT(doc.seedWaves.At(0).adjustedAcc, IsEmpty());
  EXPECT_FALSE(doc.IsModified());
}

}  // namespace
}  // namespace tremlo
