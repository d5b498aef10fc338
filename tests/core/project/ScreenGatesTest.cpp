#include "core/project/ResponseRoute.h"
#include "core/project/ScreenGates.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using test::FillProject;
using test::ProcedureParts;
using testing::ElementsAre;
using testing::IsEmpty;

/// A project far on in the work with its gates.
struct Gates : ProcedureParts {
  Gates() { FillProject(doc); }
  SwitchOutcome Pass(ScreenId id) { return ScreenGates(doc, prompt, host).Pass(id); }
};

/// The screen is refused with the message, and the document stays as it was.
void ExpectRefused(Gates& gates, ScreenId id, const QString& message, const QString& details = {}) {
  const DocumentState before(gates.doc);
  gates.prompt.ExpectMessage(message, PromptIcon::Warning, details);
  EXPECT_EQ(gates.Pass(id), SwitchOutcome::Refused);
  EXPECT_THAT(before.DifferencesTo(DocumentState(gates.doc)), IsEmpty());
}

void ExpectOpens(Gates& gates, ScreenId id, const QStringList& log) {
  EXPECT_EQ(gates.Pass(id), SwitchOutcome::Open);
  EXPECT_EQ(gates.TakeLog(), log);
}

TEST(ScreenGates, NeighbourWavesNeedARegisteredWave) {
  Gates gates;
  gates.doc.seedWaves.Clear();
  ExpectRefused(gates, ScreenId::DamsiteWave, "「波形登録」で波形を登録してください。");
  EXPECT_THAT(gates.TakeLog(), ElementsAre("box"));
}

TEST(ScreenGates, NeighbourWavesGetTheirMissingSpectraFirst) {
  Gates gates;
  ExpectOpens(gates, ScreenId::DamsiteWave, {"prepare 59655"});
  gates.doc.seedWaves.At(2).spectrumValid = false;
  ExpectOpens(gates, ScreenId::DamsiteWave, {"compute spectra", "prepare 59655"});
}

TEST(ScreenGates, FaultScreensAlwaysOpen) {
  Gates gates;
  gates.doc.faults.clear();
  ExpectOpens(gates, ScreenId::MakeSeismicWave1, {"prepare 59656"});
  ExpectOpens(gates, ScreenId::MakeSeismicWave2, {"fault spectra", "prepare 59657"});
}

TEST(ScreenGates, UnusableCoefficientsEndTheProgram) {
  Gates gates;
  gates.host.faultSpectraWork = false;
  EXPECT_EQ(gates.Pass(ScreenId::MakeSeismicWave2), SwitchOutcome::EndProgram);
  EXPECT_EQ(gates.Pass(ScreenId::BaseSpectrum), SwitchOutcome::EndProgram);
  EXPECT_THAT(gates.TakeLog(), ElementsAre("fault spectra", "fault spectra"));
}

TEST(ScreenGates, TheBaseSpectrumOpensWithNoFaultsAndNoWaves) {
  Gates gates;
  gates.doc.faults.clear();
  gates.doc.seedWaves.Clear();
  ExpectOpens(gates, ScreenId::BaseSpectrum, {"fault spectra", "prepare 59659"});
}

TEST(ScreenGates, TheBaseSpectrumComputesOnlyForTheSourcesOfTheProcedure) {
  Gates gates;
  gates.doc.seedWaves.At(0).spectrumValid = false;
  ExpectOpens(gates, ScreenId::BaseSpectrum, {"compute spectra", "fault spectra", "prepare 59659"});
  gates.doc.seedWaves.At(0).spectrumValid = false;
  gates.doc.flowFaultSource = false;
  ExpectOpens(gates, ScreenId::BaseSpectrum, {"compute spectra", "prepare 59659"});
  gates.doc.seedWaves.At(0).spectrumValid = false;
  gates.doc.flowNeighbourWave = false;
  ExpectOpens(gates, ScreenId::BaseSpectrum, {"prepare 59659"});
}

TEST(ScreenGates, TheBaseSpectrumNeedsNoSpectrumOfAWaveThatIsNotUsedNearTheSite) {
  Gates gates;
  gates.doc.seedWaves.At(1).spectrumValid = false;
  ExpectOpens(gates, ScreenId::BaseSpectrum, {"fault spectra", "prepare 59659"});
}

TEST(ScreenGates, TheAdjustmentNeedsAWave) {
  Gates gates;
  gates.doc.seedWaves.Clear();
  ExpectRefused(gates, ScreenId::AdjustSeismicWave,
                "原種波形が設定されていません。「波形登録」で波形を設定してください。");
}

TEST(ScreenGates, TheAdjustmentNeedsABaseSpectrumBeforeAnythingIsComputed) {
  Gates gates;
  gates.doc.seedWaves.At(2).spectrumValid = false;
  const QString message =
      "基準スペクトルが選択されていません。「基準スペクトル設定」で基準スペクトルを選択してください。";
  ExpectRefused(gates, ScreenId::AdjustSeismicWave, message);
  EXPECT_THAT(gates.TakeLog(), ElementsAre("box"));
  gates.doc.baseSpectrumName = "A";  // a label without a mark gives a run no target
  ExpectRefused(gates, ScreenId::AdjustSeismicWave, message);
}

TEST(ScreenGates, TheAdjustmentOpensOnAnyKindOfBase) {
  for (const char16_t* label :
       {test::kWaveLabel, test::kPlaneLabel, test::kEquivalentLabel, test::kLowerLabel}) {
    Gates gates;
    test::ChooseBase(gates.doc, label);
    ExpectOpens(gates, ScreenId::AdjustSeismicWave, {"prepare 59660"});
    gates.doc.seedWaves.At(2).spectrumValid = false;
    ExpectOpens(gates, ScreenId::AdjustSeismicWave, {"compute spectra", "prepare 59660"});
  }
}

TEST(ScreenGates, MissingSpectraThatCannotBeComputedAreToldAndRefuseTheScreen) {
  for (const ScreenId id : {ScreenId::DamsiteWave, ScreenId::BaseSpectrum, ScreenId::AdjustSeismicWave}) {
    Gates gates;
    test::ChooseBase(gates.doc, test::kLowerLabel);
    gates.doc.seedWaves.At(0).spectrumValid = false;
    gates.host.missingSpectraWork = false;
    ExpectRefused(gates, id, "加速度応答スペクトルの計算に失敗しました。");
    EXPECT_THAT(gates.TakeLog(), ElementsAre("compute spectra", "box"));
  }
}

TEST(ScreenGates, TheVisualizationNeedsAnAdoptedWave) {
  Gates gates;
  ExpectOpens(gates, ScreenId::Visualization, {"prepare 59661"});
  gates.doc.ClearAdjustment();
  ExpectRefused(gates, ScreenId::Visualization,
                "「原種波形の振幅調整」にて採用する原種波形が選択されていません。");
}

/// The response route with a wave and a target, not adjusted.
struct RespGates : Gates {
  RespGates() {
    doc = CMorvaneDoc{QString()};
    EnsureRespWave(doc);
    EnsureRespSpectrum(doc);
    doc.SetModified(false);
  }
};

TEST(ScreenGates, TheTargetListIsPreparedAndNeverEmpty) {
  Gates gates;
  gates.doc = CMorvaneDoc{QString()};
  ExpectOpens(gates, ScreenId::RespAdjustSpectrum, {"prepare 59663"});
  EXPECT_EQ(gates.doc.respSpectra.Names(), std::vector<QString>{"基準スペクトル"});
}

TEST(ScreenGates, TheResponseVisualizationNeedsAWave) {
  RespGates gates;
  gates.doc.respSpectra.Clear();  // the wave is looked at first
  gates.doc.seedWaves.At(0).timeStep = 0.0;
  ExpectRefused(gates, ScreenId::RespVisualization, "原種波形が設定されていません。");
  gates.doc.seedWaves.Clear();
  ExpectRefused(gates, ScreenId::RespVisualization, "原種波形が設定されていません。");
}

TEST(ScreenGates, TheResponseVisualizationNeedsATarget) {
  RespGates gates;
  gates.doc.respSpectra.At(0).accSpec.clear();
  ExpectRefused(gates, ScreenId::RespVisualization, "調整用スペクトルのデータがありません。");
}

TEST(ScreenGates, TheResponseVisualizationRunsOnceUntilSomethingChanges) {
  RespGates gates;
  ExpectOpens(gates, ScreenId::RespVisualization, {"adjust", "prepare 59664"});
  ExpectOpens(gates, ScreenId::RespVisualization, {"prepare 59664"});
  ChangeRespSpectrum(gates.doc, [&] { gates.doc.respSpectra.At(0).accSpec = {7.0}; });
  ExpectOpens(gates, ScreenId::RespVisualization, {"adjust", "prepare 59664"});
}

TEST(ScreenGates, AFailedRunIsToldAndRefusedAndTheScreenHoldsTheSeedAlone) {
  RespGates gates;
  gates.host.respAdjustmentWorks = false;
  ExpectRefused(gates, ScreenId::RespVisualization, "地震波形調整の計算に失敗しました。",
                "繰り返し 4 回で収束しませんでした（最後の偏差 12.50 %）。\n"
                "繰り返し回数と収束判定は「波形調整設定」で設定します。");
  EXPECT_THAT(gates.TakeLog(), ElementsAre("adjust", "box", "prepare 59664"));
}

TEST(ScreenGates, OtherScreensHaveNoGate) {
  Gates gates;
  gates.doc.seedWaves.Clear();
  for (const ScreenId id : {ScreenId::Field, ScreenId::FlowCheck, ScreenId::Flowchart1, ScreenId::Flowchart2,
                            ScreenId::Flowchart3, ScreenId::OrigSeismicWave, ScreenId::LowerSpectrum,
                            ScreenId::RespOrigSeismicWave})
    ExpectOpens(gates, id, {});
}

}  // namespace
}  // namespace tremlo
