// What a screen shows is set against the document by hand, and must be told.

#include "core/waves/WaveFile.h"
#include "random/ScreenAgreesWithDocument.h"
#include "support/Waves.h"
#include "window/graphs/Spread7.h"
#include "window/shell/ShellParts.h"

#include <QCheckBox>
#include <QLabel>

#include <gmock/gmock.h>

namespace tremlo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScreenAgreesTest : public ShellTest {
 protected:
  void SetUp() override {
    MakeWithOwnScreens([] { return TopChoice::GuidelineRoute; });
    ExpectOffline();
    ASSERT_EQ(Start(), std::nullopt);
  }
  std::vector<std::string> OfScreen() { return ScreenDisagreements(*app->Frame(), Doc(), app->Procedure()); }
  std::vector<std::string> OfFrame() { return FrameDisagreements(*app->Frame(), Doc(), app->Procedure()); }
  template <class Control>
  Control* OnScreen(const char* name) {
    return app->Frame()->ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
  }
};

TEST_F(ScreenAgreesTest, ANewProjectIsShownAsItIs) {
  EXPECT_THAT(OfScreen(), IsEmpty());
  EXPECT_THAT(OfFrame(), IsEmpty());
}

TEST_F(ScreenAgreesTest, ACellThatLagsBehindTheDocumentIsTold) {
  Doc().site.planeZone = QStringLiteral("IX (9)");
  EXPECT_THAT(OfScreen(), Contains(HasSubstr("IX (9)")));
  EXPECT_THAT(OfScreen(), IsEmpty()) << "it has been read again";
}

TEST_F(ScreenAgreesTest, ATextThatTheDocumentDoesNotHoldIsTold) {
  auto* const label = app->Frame()->ScreenOnDisplay()->findChild<QLabel*>(QStringLiteral("planeLabel"));
  ASSERT_NE(label, nullptr);
  label->setText(QStringLiteral("XX"));
  EXPECT_THAT(OfScreen(), ElementsAre(HasSubstr("shown is <planeLabel: XX>")));
}

TEST_F(ScreenAgreesTest, AStepOpenOrClosedAgainstTheDocumentIsTold) {
  app->Frame()->Pane()->EnableStep(FlowStep::OrigSeismicWave, true);
  EXPECT_THAT(OfFrame(), ElementsAre(HasSubstr("波形登録 is open against")));
  app->Frame()->Pane()->EnableStep(FlowStep::OrigSeismicWave, false);
  EXPECT_THAT(OfFrame(), IsEmpty());
  Doc().flowFixed = Doc().flowNeighbourWave = true;
  app->Procedure().ApplyStepSwitches();
  EXPECT_THAT(OfFrame(), IsEmpty());
  app->Frame()->Pane()->EnableStep(FlowStep::DamsiteWave, false);
  app->Frame()->Pane()->EnableStep(FlowStep::FaultSpectra, true);
  EXPECT_THAT(OfFrame(), ElementsAre(HasSubstr("現場近隣地震波形 is closed against"),
                                     HasSubstr("距離減衰式（断層） is open against")));
}

TEST_F(ScreenAgreesTest, ThePaneAndTheScreenOfTheOtherRouteAreTold) {
  Doc().guidelineRoute = false;
  EXPECT_THAT(OfFrame(), ElementsAre(HasSubstr("the pane shows the other route"),
                                     HasSubstr("is one of the other route: 59649")));
  Doc().guidelineRoute = true;
  app->Frame()->Show(ScreenId::FlowCheck);
  EXPECT_THAT(OfFrame(), ElementsAre(HasSubstr("is not the open one")));
}

TEST_F(ScreenAgreesTest, ACaptionOfAnotherProjectIsTold) {
  Doc().SetPathName(folder.Path(QStringLiteral("b.trml")));
  EXPECT_THAT(OfFrame(), ElementsAre(HasSubstr("the project b.trml")));
}

}  // namespace
}  // namespace tremlo::test
