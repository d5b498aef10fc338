#include "core/project/ChangeQuestions.h"
#include "window/shell/ShellParts.h"

#include <QAction>
#include <QImage>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The pane with the real procedure behind it, on the guideline route with the procedure fixed.
class FlowPaneTest : public test::ShellTest {
 protected:
  void SetUp() override {
    StartNew(TopChoice::GuidelineRoute);
    Doc().flowFixed = Doc().flowFaultSource = Doc().flowNeighbourWave = true;
    app->Procedure().ApplyFlowState();
  }

  CPaneFlow* Pane() { return app->Frame()->Pane(); }
  bool Marked(FlowStep step) { return Pane()->StepsOf(step)->Button(step)->IsCurrent(); }
  FlowStep Current() { return Pane()->StepsOnDisplay()->CurrentStep(); }
  ScreenId Active() { return *app->Procedure().ActiveScreen(); }
  void AddWave() { Doc().seedWaves.Add(QStringLiteral("A")); }
};

TEST_F(FlowPaneTest, StepsBearTheirCaptions) {
  QStringList captions;
  for (int step = 0; step <= static_cast<int>(FlowStep::RespVisualization); ++step)
    captions << Pane()->StepsOf(static_cast<FlowStep>(step))->Button(static_cast<FlowStep>(step))->text();
  EXPECT_THAT(captions,
              ElementsAre("現場設定", "作業手順の確認", "波形登録", "現場近隣地震波形", "距離減衰式（断層）",
                          "下限スペクトル", "基準スペクトル設定", "原種波形の振幅調整", "可視化", "印刷",
                          "原種波形設定", "調整用スペクトル設定", "可視化"));
  EXPECT_EQ(Pane()->windowTitle(), QStringLiteral("作業フロー"));
}

TEST_F(FlowPaneTest, PressOpensTheScreenAndMovesTheHighlight) {
  Press(FlowStep::LowerSpectrum);
  EXPECT_EQ(Active(), ScreenId::LowerSpectrum);
  EXPECT_TRUE(Marked(FlowStep::LowerSpectrum));
  EXPECT_FALSE(Marked(FlowStep::Field));
}

TEST_F(FlowPaneTest, MarkOfTheResponseRouteGoesToItsFirstStepWithEachProject) {
  const QString path = SavedProject(QStringLiteral("a.trml"), false);
  const auto goOn = [this] {
    Press(FlowStep::RespAdjustSpectrum);
    EXPECT_TRUE(Marked(FlowStep::RespAdjustSpectrum));
    Doc().SetModified(false);
  };
  const auto expectFirst = [this] {
    EXPECT_TRUE(Marked(FlowStep::RespOrigSeismicWave));
    EXPECT_FALSE(Marked(FlowStep::RespAdjustSpectrum));
    EXPECT_EQ(Current(), FlowStep::RespOrigSeismicWave);
  };
  choices = {TopChoice::ResponseRoute, TopChoice::ResponseRoute};
  Doc().SetModified(false);
  Menu()->newProject->trigger();
  goOn();
  Menu()->newProject->trigger();
  expectFirst();
  goOn();
  files.Expect("open", path);
  Menu()->openProject->trigger();
  expectFirst();
}

TEST_F(FlowPaneTest, FixedProcedureOpensItsOwnChart) {
  Press(FlowStep::FlowCheck);
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
}

TEST_F(FlowPaneTest, SpaceAndEnterPressAStep) {
  for (const auto& [step, key, screen] :
       {std::tuple{FlowStep::OrigSeismicWave, Qt::Key_Space, ScreenId::OrigSeismicWave},
        std::tuple{FlowStep::FaultSpectra, Qt::Key_Return, ScreenId::MakeSeismicWave1}}) {
    StepButton* button = Pane()->StepsOf(step)->Button(step);
    button->setFocus();
    QTest::keyClick(button, key);
    EXPECT_EQ(Active(), screen);
  }
}

TEST_F(FlowPaneTest, RefusedStepMovesTheCurrentStepButNotTheHighlight) {
  for (const auto& [step, message] :
       {std::pair{FlowStep::DamsiteWave, QStringLiteral("「波形登録」で波形を登録してください。")},
        std::pair{FlowStep::AdjustSeismicWave,
                  QStringLiteral("原種波形が設定されていません。「波形登録」で波形を設定してください。")},
        std::pair{FlowStep::Visualization,
                  QStringLiteral("「原種波形の振幅調整」にて採用する原種波形が選択されていません。")}}) {
    prompt.ExpectMessage(message);
    Press(step);
    EXPECT_EQ(Current(), step);
    EXPECT_FALSE(Marked(step));
    EXPECT_TRUE(Marked(FlowStep::Field));
    EXPECT_EQ(Active(), ScreenId::Field);
  }
}

TEST_F(FlowPaneTest, StepWithAGateMovesTheHighlightOnSuccess) {
  AddWave();
  Press(FlowStep::DamsiteWave);
  EXPECT_EQ(Active(), ScreenId::DamsiteWave);
  EXPECT_TRUE(Marked(FlowStep::DamsiteWave));
}

TEST_F(FlowPaneTest, PrintStepShowsAtTheNextPaintOnly) {
  StepButton* print = Pane()->StepsOf(FlowStep::Print)->Button(FlowStep::Print);
  class PaintCount : public QObject {
   public:
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest) ++count;
      return false;
    }
    int count = 0;
  } paints;
  ASSERT_TRUE(QTest::qWaitForWindowExposed(app->Frame()));
  QCoreApplication::processEvents();
  print->installEventFilter(&paints);
  // By its handler: a button that is clicked repaints by itself.
  Q_EMIT Pane()->StepPressed(FlowStep::Print);
  QCoreApplication::processEvents();
  EXPECT_EQ(paints.count, 0);
  EXPECT_TRUE(Marked(FlowStep::Print));
  EXPECT_EQ(Current(), FlowStep::Print);
  EXPECT_EQ(Active(), ScreenId::Field);
  Q_EMIT Pane()->StepPressed(FlowStep::LowerSpectrum);
  QCoreApplication::processEvents();
  EXPECT_GT(paints.count, 0);
}

TEST_F(FlowPaneTest, UnusableCoefficientsEndTheProgramWithStatusOne) {
  faultSpectraWork = false;
  Press(FlowStep::BaseSpectrum);
  EXPECT_EQ(Active(), ScreenId::Field);
  EXPECT_THAT(ended, ElementsAre(1));
}

TEST_F(FlowPaneTest, PressOfADisabledStepDoesNothing) {
  Doc().flowFaultSource = false;
  app->Procedure().ApplyStepSwitches();
  Press(FlowStep::FaultSpectra);
  EXPECT_EQ(Active(), ScreenId::Field);
  EXPECT_EQ(Current(), FlowStep::Field);
}

TEST_F(FlowPaneTest, DisabledStepTellsTheReason) {
  StepButton* fault = Pane()->StepsOf(FlowStep::FaultSpectra)->Button(FlowStep::FaultSpectra);
  EXPECT_TRUE(fault->toolTip().isEmpty());
  Doc().flowFixed = false;
  app->Procedure().ApplyStepSwitches();
  EXPECT_EQ(fault->toolTip(), QStringLiteral("作業手順を確定すると使用できます。"));
  Doc().flowFixed = true;
  Doc().flowFaultSource = false;
  app->Procedure().ApplyStepSwitches();
  EXPECT_EQ(fault->toolTip(), QStringLiteral("確定した作業手順では使用しません。"));
}

TEST_F(FlowPaneTest, DeclinedLeavingOfTheChartKeepsTheMovedHighlight) {
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::Flowchart2), SwitchOutcome::Open);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  // The step is disabled while the chart is up, so the press comes by its handler.
  Q_EMIT Pane()->StepPressed(FlowStep::FaultSpectra);
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
  EXPECT_TRUE(Marked(FlowStep::FaultSpectra));
}

TEST_F(FlowPaneTest, SecondPressRunsTheGateAgainAndEntersNothing) {
  AddWave();
  Press(FlowStep::DamsiteWave);
  TakeLog();
  Press(FlowStep::DamsiteWave);
  EXPECT_THAT(TakeLog(), ElementsAre("prepare 59655"));
}

TEST_F(FlowPaneTest, ResponseRouteShowsItsThreeSteps) {
  app.reset();
  StartNew(TopChoice::ResponseRoute);
  EXPECT_EQ(Pane()->StepsOnDisplay()->objectName(), u"respDialog");
  EXPECT_TRUE(Pane()->StepsOf(FlowStep::RespOrigSeismicWave)->isVisible());
  EXPECT_FALSE(Pane()->StepsOf(FlowStep::Field)->isVisible());
  for (const FlowStep step :
       {FlowStep::RespOrigSeismicWave, FlowStep::RespAdjustSpectrum, FlowStep::RespVisualization})
    EXPECT_TRUE(Pane()->StepsOf(step)->Button(step)->isEnabled());
}

TEST_F(FlowPaneTest, ResponseRouteRunsItsGate) {
  app.reset();
  StartNew(TopChoice::ResponseRoute);
  prompt.ExpectMessage(QStringLiteral("調整用スペクトルのデータがありません。"));
  Press(FlowStep::RespVisualization);
  EXPECT_EQ(Active(), ScreenId::RespOrigSeismicWave);
  EXPECT_TRUE(Marked(FlowStep::RespOrigSeismicWave));
  EXPECT_EQ(Current(), FlowStep::RespVisualization);
  Press(FlowStep::RespAdjustSpectrum);
  EXPECT_EQ(Active(), ScreenId::RespAdjustSpectrum);
  EXPECT_TRUE(Marked(FlowStep::RespAdjustSpectrum));
  TakeLog();
  Press(FlowStep::RespVisualization);
  EXPECT_EQ(Active(), ScreenId::RespVisualization);
  EXPECT_TRUE(Marked(FlowStep::RespVisualization));
  EXPECT_EQ(TakeLog().count(QStringLiteral("adjust")), 1);
}

TEST_F(FlowPaneTest, CurrentStepIsDrawnInItsOwnColour) {
  const auto face = [&](FlowStep step) {
    StepButton* button = Pane()->StepsOf(step)->Button(step);
    return button->grab().toImage().pixelColor(button->width() / 4, button->height() - 8);
  };
  EXPECT_EQ(face(FlowStep::Field), QColor(0xA3, 0xBC, 0xFF));
  EXPECT_EQ(face(FlowStep::LowerSpectrum), QColor(0xB7, 0xE2, 0xEF));
  Doc().flowFixed = false;
  app->Procedure().ApplyStepSwitches();
  EXPECT_EQ(face(FlowStep::LowerSpectrum), QColor(0xD0, 0xD0, 0xD0));
}

}  // namespace
}  // namespace tremlo
