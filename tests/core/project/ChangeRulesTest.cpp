#include "core/project/BaseSpectrum.h"
#include "core/project/ChangeQuestions.h"
#include "core/project/ChangeRules.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <functional>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using test::ProcedureParts;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr PromptAnswer kYes = PromptAnswer::Yes;
constexpr PromptAnswer kNo = PromptAnswer::No;

QString BaseQuestion(const QString& label) {
  return QStringLiteral("既に基準スペクトルとして「") + label +
         QStringLiteral(
             "」を選択済みですがよろしいですか？\n\n変更した場合、原種波形の選択、振幅調整が再度必要になりま"
             "す。");
}

const QString kSiteQuestion = QStringLiteral(
    "現在の現場位置で断層データを取得していますがよろしいですか？\n\n現場位置を変更する場合、断層データをクリ"
    "アする"
    "ため，\n・断層データの取得\n・基準スペクトル設定\n・原種波形の選択\n・振幅調整\nが再度必要となります。");
const QString kParametersQuestion = QStringLiteral(
    "既に断層データを取得済みですがよろしいですか？\n\n取得済みの断層データはクリアされます。\n\n"
    "現在以下のパラメータが設定されています。\n超過確率しきい値：震度6弱\n"
    "評価パラメータ(カタストロフ重視度)：-0.250000\n想定地震コード：条件付超過確率\n"
    "地図バージョン(被害地検索)：2010年版\n地図バージョン(地震活動モデル)：2021年版\n確率ケース：平均ケース\n"
    "発生確率評価期間：30年");
const QString kSettingsQuestion = QStringLiteral(
    "振幅調整をしていますがよろしいですか？\n\n振幅調整の設定を変更した場合、振幅調整が再度必要になります。");
const QString kAdjustedQuestion = QStringLiteral("振幅調整がされていますがよろしいですか？");
const QString kAdjustedDataQuestion = QStringLiteral(
    "振幅調整がされていますがよろしいですか？\n\n時間間隔を変更した場合、原種波形の選択、振幅調整が再度必要と"
    "なります。");

/// A project far on in the work, with a base spectrum or without.
struct Project : ProcedureParts {
  explicit Project(const char16_t* baseLabel = nullptr) {
    test::FillProject(doc);
    if (baseLabel) test::ChooseBase(doc, baseLabel);
  }
  void ExpectBaseQuestion(PromptAnswer answer) {
    prompt.ExpectQuestion(BaseQuestion(doc.baseSpectrumName), answer);
  }
};

/// `action` is declined, and the document stays bit for bit as it was.
template <class Action>
void ExpectDeclined(Project& project, Action action) {
  const DocumentState before(project.doc);
  EXPECT_FALSE(action());
  EXPECT_THAT(before.DifferencesTo(DocumentState(project.doc)), IsEmpty());
  project.prompt.CheckUsedUp();
}

/// `action` goes through and does to the document what `effect` does to a copy of it.
template <class Action, class Effect>
void ExpectDone(Project& project, Action action, Effect effect) {
  CMorvaneDoc expected = project.doc;
  effect(expected);
  EXPECT_TRUE(action());
  EXPECT_THAT(DocumentState(expected).DifferencesTo(DocumentState(project.doc)), IsEmpty());
  project.prompt.CheckUsedUp();
}

void NoEffect(CMorvaneDoc&) {}
void Modified(CMorvaneDoc& doc) {
  doc.SetModified(true);
}

// --- The words ---

TEST(ChangeQuestions, TheBaseQuestionEndsInTheCommonMessage) {
  EXPECT_EQ(
      BaseChangeMessage("X"),
      QString("「X」を選択済みですがよろしいですか？\n\n変更した場合、原種波形の選択、振幅調整が再度必要に"
              "なります。"));
  EXPECT_EQ(BaseChangeQuestion("X"), BaseQuestion("X"));
  EXPECT_TRUE(BaseChangeQuestion("%1").contains("「%1」"));
}

TEST(ChangeQuestions, TheMessageOfTheAdoptedWaveHasWordsOfItsOwn) {
  EXPECT_EQ(
      SeedChangeMessage("種"),
      QString(
          "「種」を選択済みですがよろしいですか？\n\n基準スペクトルを変更した場合、原種波形の選択、振幅調整"
          "が再度必要になります。"));
}

// --- Site position and plane zone ---

TEST(ChangeRules, TheSiteMovesFreelyWhileThereAreNoFaults) {
  Project project(test::kWaveLabel);
  project.doc.faults.clear();
  ExpectDone(
      project, [&] { return project.rules.BeginSiteChange(); }, NoEffect);
  EXPECT_THAT(project.TakeLog(), IsEmpty());
}

TEST(ChangeRules, TheSiteStaysOnANo) {
  Project project(test::kPlaneLabel);
  project.prompt.ExpectQuestion(kSiteQuestion, kNo);
  ExpectDeclined(project, [&] { return project.rules.BeginSiteChange(); });
}

TEST(ChangeRules, AMovedSiteCostsFaultsBaseAndAdjustment) {
  for (const char16_t* base : {test::kPlaneLabel, test::kWaveLabel, test::kLowerLabel}) {
    Project project(base);
    project.prompt.ExpectQuestion(kSiteQuestion, kYes);
    ExpectDone(
        project, [&] { return project.rules.BeginSiteChange(); },
        [](CMorvaneDoc& doc) { doc.ClearFaultsAndAfter(); });
    EXPECT_THAT(project.doc.faults, IsEmpty());
    EXPECT_EQ(project.doc.baseSpectrumName, QString());
    EXPECT_FALSE(project.doc.seedAdopted);
    EXPECT_THAT(project.TakeLog(), ElementsAre("box", "refresh 59656", "refresh 59657"));
    EXPECT_TRUE(project.rules.BeginSiteChange());  // one question for a whole drag
  }
}

// --- Parameters of the hazard service ---

TEST(ChangeRules, TheParametersOpenAtOnceWithoutFaults) {
  Project project(test::kWaveLabel);
  project.doc.faults.clear();
  ExpectDone(
      project, [&] { return project.rules.BeginApiParameters(); }, NoEffect);
  EXPECT_THAT(project.TakeLog(), IsEmpty());
}

TEST(ChangeRules, TheParametersStayClosedOnANo) {
  Project project(test::kPlaneLabel);
  project.prompt.ExpectQuestion(kParametersQuestion, kNo);
  ExpectDeclined(project, [&] { return project.rules.BeginApiParameters(); });
}

TEST(ChangeRules, TheParametersStayClosedWhenTheBaseIsToStay) {
  for (const char16_t* base : {test::kPlaneLabel, test::kEquivalentLabel}) {
    Project project(base);
    project.prompt.ExpectQuestion(kParametersQuestion, kYes);
    project.ExpectBaseQuestion(kNo);
    ExpectDeclined(project, [&] { return project.rules.BeginApiParameters(); });
  }
}

TEST(ChangeRules, TheParametersCostFaultsAndABaseAmongThem) {
  for (const char16_t* base : {test::kPlaneLabel, test::kEquivalentLabel}) {
    Project project(base);
    project.prompt.ExpectQuestion(kParametersQuestion, kYes);
    project.ExpectBaseQuestion(kYes);
    ExpectDone(
        project, [&] { return project.rules.BeginApiParameters(); },
        [](CMorvaneDoc& doc) {
          doc.ClearFaults();
          doc.ClearBaseSpectrumAndAdjustment();
        });
    EXPECT_EQ(project.doc.baseSpectrumName, QString());
  }
}

TEST(ChangeRules, TheParametersLeaveAnotherBaseAlone) {
  for (const char16_t* base : {test::kWaveLabel, test::kLowerLabel}) {
    Project project(base);
    project.prompt.ExpectQuestion(kParametersQuestion, kYes);
    ExpectDone(
        project, [&] { return project.rules.BeginApiParameters(); },
        [](CMorvaneDoc& doc) { doc.ClearFaults(); });
    EXPECT_EQ(project.doc.baseSpectrumName, QString::fromUtf16(base));
    EXPECT_TRUE(project.doc.seedAdopted);
  }
}

TEST(ChangeRules, AfterTheParametersTheFaultScreensAndTheOneOnDisplayAreReadAgain) {
  Project project(test::kWaveLabel);
  project.Enter(ScreenId::AdjustSeismicWave);
  project.prompt.ExpectQuestion(kParametersQuestion, kYes);
  EXPECT_TRUE(project.rules.BeginApiParameters());
  EXPECT_THAT(project.TakeLog(), ElementsAre("box", "refresh 59656", "refresh 59657", "refresh 59660"));
}

// --- Acquisition of faults ---

TEST(ChangeRules, AnAcquisitionAsksOnlyWhenAPlaneIsTheBase) {
  for (const char16_t* base : {test::kWaveLabel, test::kLowerLabel}) {
    Project project(base);
    ExpectDone(
        project, [&] { return project.rules.BeginAcquisition(true); }, NoEffect);
  }
  Project without;
  ExpectDone(
      without, [&] { return without.rules.BeginAcquisition(true); }, NoEffect);
}

TEST(ChangeRules, AnAcquisitionDoesNotStartOnANo) {
  for (const bool zoneKnown : {true, false}) {
    Project project(test::kEquivalentLabel);
    project.ExpectBaseQuestion(kNo);
    ExpectDeclined(project, [&] { return project.rules.BeginAcquisition(zoneKnown); });
  }
}

TEST(ChangeRules, AnAcquisitionCostsABaseAmongThePlanes) {
  Project project(test::kPlaneLabel);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(
      project, [&] { return project.rules.BeginAcquisition(true); },
      [](CMorvaneDoc& doc) { doc.ClearBaseSpectrumAndAdjustment(); });
  EXPECT_EQ(project.doc.faults.size(), 2U);  // the acquisition itself clears them, after its own checks
}

TEST(ChangeRules, AnAcquisitionThatCannotStartCostsNothing) {
  Project project(test::kPlaneLabel);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(
      project, [&] { return project.rules.BeginAcquisition(false); }, NoEffect);
}

// --- Settings of the adjustment ---

TEST(ChangeRules, TheAdjustmentSettingsOpenAtOnceWhileNothingIsAdjusted) {
  Project project(test::kWaveLabel);
  project.doc.ClearResults();
  project.doc.SetModified(false);
  ExpectDone(
      project, [&] { return project.rules.BeginAdjustSettings(); }, NoEffect);
}

TEST(ChangeRules, TheAdjustmentSettingsStayClosedOnANo) {
  Project project(test::kWaveLabel);
  project.prompt.ExpectQuestion(kSettingsQuestion, kNo);
  ExpectDeclined(project, [&] { return project.rules.BeginAdjustSettings(); });
}

TEST(ChangeRules, TheAdjustmentSettingsCostTheResultsAndKeepTheAdoptedWave) {
  Project project(test::kWaveLabel);
  project.Enter(ScreenId::AdjustSeismicWave);
  project.prompt.ExpectQuestion(kSettingsQuestion, kYes);
  ExpectDone(
      project, [&] { return project.rules.BeginAdjustSettings(); },
      [](CMorvaneDoc& doc) { doc.ClearResults(); });
  EXPECT_TRUE(project.doc.seedWaves.At(0).adopted);
  EXPECT_TRUE(project.doc.seedAdopted);
  EXPECT_FALSE(project.doc.seedWaves.At(0).adjusted || project.doc.seedWaves.At(1).adjusted);
  EXPECT_THAT(project.TakeLog(), ElementsAre("box", "refresh 59660"));
}

// --- Planes of faults ---

TEST(ChangeRules, AGroundClassChangesFreelyOnAPlaneThatIsNotTheBase) {
  Project project(test::kPlaneLabel);  // plane 2 of fault 2
  ExpectDone(
      project, [&] { return project.rules.SetGroundClass(1, 0, "C"); },
      [](CMorvaneDoc& doc) {
        doc.faults[1].groundClass[0] = "C";
        Modified(doc);
      });
}

TEST(ChangeRules, AGroundClassOfTheBasePlaneIsGuarded) {
  Project project(test::kPlaneLabel);
  const auto change = [&] { return project.rules.SetGroundClass(1, 1, "D"); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    doc.faults[1].groundClass[1] = "D";
  });
}

TEST(ChangeRules, TheSameGroundClassOrMethodIsNoChange) {
  Project project(test::kPlaneLabel);
  ExpectDone(
      project, [&] { return project.rules.SetGroundClass(1, 1, "A"); }, NoEffect);
  ExpectDone(
      project, [&] { return project.rules.SetAttenuationMethod(QString::fromUtf16(kHorizontalMethod)); },
      NoEffect);
}

TEST(ChangeRules, TheMethodChangesFreelyWhileNoPlaneIsTheBase) {
  Project project(test::kLowerLabel);
  ExpectDone(
      project, [&] { return project.rules.SetAttenuationMethod(QString::fromUtf16(kVerticalMethod)); },
      [](CMorvaneDoc& doc) {
        doc.attenuationMethod = QString::fromUtf16(kVerticalMethod);
        Modified(doc);
      });
}

TEST(ChangeRules, TheMethodTouchesEveryPlane) {
  Project project(test::kEquivalentLabel);
  const auto change = [&] { return project.rules.SetAttenuationMethod(QString::fromUtf16(kVerticalMethod)); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    doc.attenuationMethod = QString::fromUtf16(kVerticalMethod);
  });
}

TEST(ChangeRules, APlaneThatIsTheBaseIsGuardedWhenItGoesOutOfUse) {
  Project project(test::kPlaneLabel);
  const auto change = [&] { return project.rules.SetPlaneUse(1, 1, false); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    doc.faults[1].attenUse[1] = false;
  });
}

TEST(ChangeRules, OtherPlanesGoInAndOutOfUseFreely) {
  Project project(test::kPlaneLabel);
  for (const bool use : {false, true})
    ExpectDone(
        project, [&] { return project.rules.SetPlaneUse(1, 0, use); },
        [&](CMorvaneDoc& doc) {
          doc.faults[1].attenUse[0] = use;
          Modified(doc);
        });
  ExpectDone(
      project, [&] { return project.rules.SetPlaneUse(1, 1, true); }, Modified);
}

TEST(ChangeRules, APlaneThatIsNotThereChangesNothing) {
  Project project(test::kPlaneLabel);
  ExpectDeclined(project, [&] { return project.rules.SetPlaneUse(1, 2, false); });
  ExpectDeclined(project, [&] { return project.rules.SetPlaneUse(2, 0, false); });
  ExpectDeclined(project, [&] { return project.rules.SetGroundClass(0, 1, "B"); });
  ExpectDeclined(project, [&] { return project.rules.SetGroundClass(7, 0, "B"); });
}

void SetPlanes(CMorvaneDoc& doc, bool use) {
  for (FaultInfo& fault : doc.faults) fault.attenUse.assign(fault.attenUse.size(), use);
  Modified(doc);
}

TEST(ChangeRules, AllPlanesOutOfUseIsGuardedWhenOneIsTheBase) {
  Project project(test::kEquivalentLabel);
  const auto change = [&] { return project.rules.SetAllPlanesUse(false); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    SetPlanes(doc, false);
  });
}

TEST(ChangeRules, AllPlanesAskNothingWithAnotherBaseOrIntoUse) {
  Project lower(test::kLowerLabel);
  ExpectDone(
      lower, [&] { return lower.rules.SetAllPlanesUse(false); },
      [](CMorvaneDoc& doc) { SetPlanes(doc, false); });
  Project plane(test::kPlaneLabel);
  ExpectDone(
      plane, [&] { return plane.rules.SetAllPlanesUse(true); },
      [](CMorvaneDoc& doc) { SetPlanes(doc, true); });
}

// --- Data of a wave ---

/// Changes the time step of a wave to 0.02 s.
auto ChangeStep(Project& project, const QString& name) {
  return [&project, name] {
    return project.rules.ChangeWaveData(name, [&] { project.doc.seedWaves.SetTimeStep(name, 0.02); });
  };
}

auto StepChanged(const QString& name) {
  return [name](CMorvaneDoc& doc) {
    doc.seedWaves.SetTimeStep(name, 0.02);
    doc.seedWaves.SetSpectrumValid(name, false);
    Modified(doc);
  };
}

TEST(ChangeRules, AWaveWithoutAnAdjustmentAsksNothingAndLosesItsSpectrumAlone) {
  Project project(test::kWaveLabel);  // other waves are adjusted, another one is the base
  ExpectDone(project, ChangeStep(project, "C"), StepChanged("C"));
  EXPECT_TRUE(project.doc.seedWaves.At(0).adjusted && project.doc.seedWaves.At(1).adjusted);
  EXPECT_TRUE(project.doc.seedWaves.At(0).spectrumValid);
}

TEST(ChangeRules, AnAdjustedWaveThatIsNotTheBaseAsksTheLongQuestion) {
  Project project(test::kWaveLabel);
  project.prompt.ExpectQuestion(kAdjustedDataQuestion, kNo);
  ExpectDeclined(project, ChangeStep(project, "B"));
  project.prompt.ExpectQuestion(kAdjustedDataQuestion, kYes);
  ExpectDone(project, ChangeStep(project, "B"), [](CMorvaneDoc& doc) {
    doc.ClearAdjustment();
    StepChanged("B")(doc);
  });
  EXPECT_EQ(project.doc.baseSpectrumName, QString("A"));
  EXPECT_EQ(project.doc.seedWaves.At(1).timeStep, 0.02);
}

TEST(ChangeRules, TheBaseWaveAsksTwiceWhileAnyWaveIsAdjusted) {
  Project project(test::kWaveLabel);
  project.doc.seedWaves.At(0).adjusted = false;  // "B" still is
  const auto change = ChangeStep(project, "A");
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  project.prompt.ExpectQuestion(kAdjustedQuestion, kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  project.prompt.ExpectQuestion(kAdjustedQuestion, kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    StepChanged("A")(doc);
  });
}

TEST(ChangeRules, TheBaseWaveAsksOnceWhileNoWaveIsAdjusted) {
  Project project(test::kWaveLabel);
  project.doc.ClearResults();
  project.doc.SetModified(false);
  const auto change = ChangeStep(project, "A");
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    StepChanged("A")(doc);
  });
  EXPECT_FALSE(project.doc.seedAdopted);
}

TEST(ChangeRules, OneChangeOfManySamplesAsksOnce) {
  Project project(test::kLowerLabel);
  project.prompt.ExpectQuestion(kAdjustedDataQuestion, kYes);
  EXPECT_TRUE(project.rules.ChangeWaveData("B", [&] {
    for (std::size_t i = 0; i < 4; ++i) project.doc.seedWaves.SetAccSample("B", i, kBlankSample);
  }));
  EXPECT_THAT(project.doc.seedWaves.At(1).acc, testing::Each(kBlankSample));
}

TEST(ChangeRules, WhatIsKnownOfTheFileOfAWaveGoesWithItsSamplesAndStaysWithoutAChange) {
  Project project(test::kLowerLabel);
  CSeismicWaveSet& waves = project.doc.seedWaves;
  for (const std::size_t i : {0U, 1U, 2U}) waves.At(i).note.emplace();
  waves.At(2).name = waves.At(1).name;
  project.prompt.ExpectQuestion(kAdjustedDataQuestion, PromptAnswer::No);
  EXPECT_FALSE(project.rules.ChangeWaveData("B", [] {}));
  EXPECT_TRUE(waves.At(1).note);
  project.rules.RenameWave(0, "Z");
  EXPECT_TRUE(waves.At(0).note);
  project.prompt.ExpectQuestion(kAdjustedDataQuestion, kYes);
  EXPECT_TRUE(project.rules.ChangeWaveData("B", [&] { waves.SetAccSample("B", 0, 1.0); }));
  EXPECT_FALSE(waves.At(1).note);
  EXPECT_TRUE(waves.At(2).note);  // of the same name, but not changed
  EXPECT_TRUE(waves.At(0).note);
}

TEST(ChangeRules, TheSpectrumGoesAfterTheChangeIsApplied) {
  Project project;
  EXPECT_TRUE(project.rules.ChangeWaveData("C", [&] { project.doc.seedWaves.SetSpectrumValid("C", true); }));
  EXPECT_FALSE(project.doc.seedWaves.At(2).spectrumValid);
}

// --- Deleting a wave ---

const QString kDeleteA = QStringLiteral("「A」を削除しますがよろしいですか？");

TEST(ChangeRules, AWaveIsDeletedAfterItsQuestion) {
  Project project(test::kLowerLabel);
  const QString question = "「C」を削除しますがよろしいですか？";
  project.prompt.ExpectQuestion(question, kNo);
  ExpectDeclined(project, [&] { return project.rules.DeleteWave("C"); });
  project.prompt.ExpectQuestion(question, kYes);
  ExpectDone(
      project, [&] { return project.rules.DeleteWave("C"); },
      [](CMorvaneDoc& doc) {
        doc.seedWaves.Remove("C");
        doc.seedWaves.SelectCurrent("A");
        Modified(doc);
      });
  EXPECT_TRUE(project.doc.seedAdopted);
  EXPECT_EQ(project.doc.baseSpectrumName, QString::fromUtf16(test::kLowerLabel));
}

TEST(ChangeRules, TheBaseWaveIsKeptWithItsBaseOnANoToTheFirstQuestion) {
  Project project(test::kWaveLabel);
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, [&] { return project.rules.DeleteWave("A"); });
}

TEST(ChangeRules, TheBaseIsGoneBeforeTheQuestionAboutTheWave) {
  Project project(test::kWaveLabel);
  project.ExpectBaseQuestion(kYes);
  project.prompt.ExpectQuestion(kDeleteA, kNo);
  CMorvaneDoc expected = project.doc;
  expected.ClearBaseSpectrumAndAdjustment();
  EXPECT_FALSE(project.rules.DeleteWave("A"));
  EXPECT_THAT(DocumentState(expected).DifferencesTo(DocumentState(project.doc)), IsEmpty());
  EXPECT_EQ(project.doc.seedWaves.Count(), 3U);
}

TEST(ChangeRules, TheBaseWaveIsDeletedAfterBothQuestions) {
  Project project(test::kWaveLabel);
  project.ExpectBaseQuestion(kYes);
  project.prompt.ExpectQuestion(kDeleteA, kYes);
  ExpectDone(
      project, [&] { return project.rules.DeleteWave("A"); },
      [](CMorvaneDoc& doc) {
        doc.ClearBaseSpectrumAndAdjustment();
        doc.seedWaves.Remove("A");
        doc.seedWaves.SelectCurrent("B");
      });
}

TEST(ChangeRules, DeletingTheAdoptedWaveClearsTheAdjustmentWithoutAQuestion) {
  Project project(test::kLowerLabel);
  project.prompt.ExpectQuestion(kDeleteA, kYes);
  ExpectDone(
      project, [&] { return project.rules.DeleteWave("A"); },
      [](CMorvaneDoc& doc) {
        doc.seedWaves.Remove("A");
        doc.ClearAdjustment();
        doc.seedWaves.SelectCurrent("B");
      });
  EXPECT_FALSE(project.doc.seedAdopted);
  EXPECT_EQ(project.doc.seedAdoptedName, QString());
  EXPECT_FALSE(project.doc.seedWaves.At(0).adjusted);
}

TEST(ChangeRules, DeletingTakesBothRecordsOfADoubleName) {
  Project project;
  project.doc.seedWaves.At(2).name = "A";
  project.prompt.ExpectQuestion(kDeleteA, kYes);
  EXPECT_TRUE(project.rules.DeleteWave("A"));
  EXPECT_EQ(project.doc.SeedWaveNames(), std::vector<QString>{"B"});
}

TEST(ChangeRules, TheLastWaveLeavesAnEmptySet) {
  Project project;
  project.doc.seedWaves.Resize(1);
  project.prompt.ExpectQuestion(kDeleteA, kYes);
  EXPECT_TRUE(project.rules.DeleteWave(project.doc.seedWaves.At(0).name));
  EXPECT_TRUE(project.doc.seedWaves.IsEmpty());
  EXPECT_EQ(project.doc.seedWaves.CurrentName(), QString());
}

// --- Renaming a wave ---

TEST(ChangeRules, RenamingCarriesTheNamesOfBaseAndAdoptedWaveAlong) {
  Project project(test::kWaveLabel);
  project.rules.RenameWave(0, "新");
  EXPECT_EQ(project.doc.seedWaves.At(0).name, QString("新"));
  EXPECT_EQ(project.doc.baseSpectrumName, QString("新"));
  EXPECT_EQ(project.doc.seedAdoptedName, QString("新"));
  EXPECT_EQ(MarkedBase(project.doc), (BaseItem{BaseSource::Wave, 0, 0}));
  EXPECT_EQ(FindBaseItem(project.doc, "新"), (BaseItem{BaseSource::Wave, 0, 0}));
  EXPECT_TRUE(project.doc.IsModified());
}

TEST(ChangeRules, RenamingAnotherWaveLeavesThemAlone) {
  Project project(test::kWaveLabel);
  project.rules.RenameWave(1, "A");  // not refused, even to a name that is taken
  EXPECT_EQ(project.doc.SeedWaveNames(), (std::vector<QString>{"A", "A", "C"}));
  EXPECT_EQ(project.doc.baseSpectrumName, QString("A"));
  EXPECT_EQ(project.doc.seedAdoptedName, QString("A"));
  project.rules.RenameWave(1, "Z");
  EXPECT_EQ(project.doc.baseSpectrumName, QString("A"));
  EXPECT_EQ(project.doc.seedAdoptedName, QString("A"));
}

TEST(ChangeRules, RenamingAWaveLeavesABaseElsewhereAlone) {
  Project project(test::kPlaneLabel);
  project.rules.RenameWave(0, "新");
  EXPECT_EQ(project.doc.baseSpectrumName, QString::fromUtf16(test::kPlaneLabel));
}

// --- Waves used near the site ---

TEST(ChangeRules, TheBaseWaveIsGuardedWhenItGoesOutOfUse) {
  Project project(test::kWaveLabel);
  const auto change = [&] { return project.rules.SetNeighbourUse("A", false); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    doc.seedWaves.At(0).siteUse = false;
  });
}

TEST(ChangeRules, OtherWavesGoInAndOutOfUseFreely) {
  Project project(test::kWaveLabel);
  for (const bool use : {true, false})
    ExpectDone(
        project, [&] { return project.rules.SetNeighbourUse("B", use); },
        [&](CMorvaneDoc& doc) {
          doc.seedWaves.At(1).siteUse = use;
          Modified(doc);
        });
  ExpectDone(
      project, [&] { return project.rules.SetNeighbourUse("A", true); }, Modified);
}

/// The base is a lower limit that bears the name of the wave "A".
void MakeANamesakeTheBase(Project& project) {
  project.doc.seedWaves.At(0).baseSelected = false;
  project.doc.baseSpectrumName = "A";
}

TEST(ChangeRules, AWaveWithTheNameOfTheBaseIsNotTheBase) {
  Project project(test::kLowerLabel);
  MakeANamesakeTheBase(project);
  ExpectDone(
      project, [&] { return project.rules.SetNeighbourUse("A", false); },
      [](CMorvaneDoc& doc) {
        doc.seedWaves.At(0).siteUse = false;
        Modified(doc);
      });
  project.doc.ClearResults();
  ExpectDone(project, ChangeStep(project, "A"), StepChanged("A"));
  project.prompt.ExpectQuestion(kDeleteA, kNo);
  ExpectDeclined(project, [&] { return project.rules.DeleteWave("A"); });
}

TEST(ChangeRules, AllWavesOutOfUseGoesByTheName) {
  Project namesake(test::kLowerLabel);
  MakeANamesakeTheBase(namesake);
  namesake.ExpectBaseQuestion(kNo);
  ExpectDeclined(namesake, [&] { return namesake.rules.SetAllNeighbourUse(false); });
  Project renamed(test::kWaveLabel);
  renamed.doc.baseSpectrumName = "X";
  ExpectDone(
      renamed, [&] { return renamed.rules.SetAllNeighbourUse(false); },
      [](CMorvaneDoc& doc) {
        for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) doc.seedWaves.At(i).siteUse = false;
        Modified(doc);
      });
  Project unnamed;
  unnamed.doc.seedWaves.At(2).name.clear();
  EXPECT_TRUE(unnamed.rules.SetAllNeighbourUse(false));
}

void SetNeighbours(CMorvaneDoc& doc, bool use) {
  for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) doc.seedWaves.At(i).siteUse = use;
  Modified(doc);
}

TEST(ChangeRules, AllWavesOutOfUseIsGuardedWhenOneIsTheBase) {
  Project project(test::kWaveLabel);
  const auto change = [&] { return project.rules.SetAllNeighbourUse(false); };
  project.ExpectBaseQuestion(kNo);
  ExpectDeclined(project, change);
  project.ExpectBaseQuestion(kYes);
  ExpectDone(project, change, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    SetNeighbours(doc, false);
  });
}

TEST(ChangeRules, AllWavesAskNothingWithAnotherBaseOrIntoUse) {
  for (const char16_t* base : {test::kPlaneLabel, test::kLowerLabel}) {
    Project project(base);
    ExpectDone(
        project, [&] { return project.rules.SetAllNeighbourUse(false); },
        [](CMorvaneDoc& doc) { SetNeighbours(doc, false); });
  }
  Project wave(test::kWaveLabel);
  ExpectDone(
      wave, [&] { return wave.rules.SetAllNeighbourUse(true); },
      [](CMorvaneDoc& doc) { SetNeighbours(doc, true); });
}

// --- The lower limit ---

/// The choice ends as told and does to the document what `effect` does to a copy of it.
template <class Choice, class Effect>
void ExpectChoice(Project& project, Choice choice, ChoiceOutcome outcome, Effect effect) {
  CMorvaneDoc expected = project.doc;
  effect(expected);
  EXPECT_EQ(choice(), outcome);
  EXPECT_THAT(DocumentState(expected).DifferencesTo(DocumentState(project.doc)), IsEmpty());
  project.prompt.CheckUsedUp();
}

void SelectLower(CMorvaneDoc& doc, std::size_t row) {
  for (std::size_t i = 0; i < 3; ++i) doc.lowerSpectra.At(i).lowerSelected = i == row;
  Modified(doc);
}

TEST(ChangeRules, AnotherLowerLimitAsksNothingWhileTheBaseIsElsewhere) {
  for (const char16_t* base : {test::kWaveLabel, test::kPlaneLabel, static_cast<const char16_t*>(nullptr)}) {
    Project project(base);
    ExpectChoice(
        project, [&] { return project.rules.SelectLowerSpectrum(2); }, ChoiceOutcome::Applied,
        [](CMorvaneDoc& doc) { SelectLower(doc, 2); });
  }
}

TEST(ChangeRules, TheLowerLimitThatIsTheBaseCanBeClickedWithoutEffect) {
  Project project(test::kLowerLabel);
  ExpectChoice(
      project, [&] { return project.rules.SelectLowerSpectrum(0); }, ChoiceOutcome::Kept, NoEffect);
}

TEST(ChangeRules, AnotherLowerLimitIsGuardedWhileOneIsTheBase) {
  Project project(test::kLowerLabel);
  const auto choice = [&] { return project.rules.SelectLowerSpectrum(1); };
  project.ExpectBaseQuestion(kNo);
  ExpectChoice(project, choice, ChoiceOutcome::Declined, NoEffect);
  project.ExpectBaseQuestion(kYes);
  ExpectChoice(project, choice, ChoiceOutcome::Applied, [](CMorvaneDoc& doc) {
    doc.ClearBaseSpectrumAndAdjustment();
    SelectLower(doc, 1);
  });
  EXPECT_EQ(project.doc.baseSpectrumName, QString());
}

TEST(ChangeRules, AnUnnamedLowerLimitIsNotTheBaseWhenNoneIsChosen) {
  Project project;
  project.doc.lowerSpectra.At(2).name.clear();
  EXPECT_EQ(project.rules.SelectLowerSpectrum(1), ChoiceOutcome::Applied);
}

TEST(ChangeRules, TwoSelectedLowerLimitsAreOneAgainAfterAClick) {
  Project project;
  project.doc.lowerSpectra.At(1).lowerSelected = true;
  test::ChooseBase(project.doc, test::kLowerLabel);
  EXPECT_TRUE(project.doc.lowerSpectra.At(0).baseSelected && project.doc.lowerSpectra.At(1).baseSelected);
  project.ExpectBaseQuestion(kYes);
  EXPECT_EQ(project.rules.SelectLowerSpectrum(1), ChoiceOutcome::Applied);
  EXPECT_FALSE(project.doc.lowerSpectra.At(0).lowerSelected);
  EXPECT_TRUE(project.doc.lowerSpectra.At(1).lowerSelected);
  EXPECT_FALSE(project.doc.lowerSpectra.At(0).baseSelected || project.doc.lowerSpectra.At(1).baseSelected);
}

// --- Choosing the base spectrum ---

TEST(ChangeRules, ABaseIsChosenWithoutAQuestionWhileNoWaveIsAdopted) {
  for (const char16_t* base : {static_cast<const char16_t*>(nullptr), test::kPlaneLabel}) {
    Project project(base);
    project.doc.seedAdopted = false;
    const QString label = QString::fromUtf16(test::kLowerLabel);
    ExpectChoice(
        project, [&] { return project.rules.ChooseBaseSpectrum(label); }, ChoiceOutcome::Applied,
        [&](CMorvaneDoc& doc) { SetBase(doc, label); });
    EXPECT_TRUE(project.doc.seedWaves.At(0).adjusted);
  }
}

TEST(ChangeRules, TheBaseThatIsChosenAsksNothing) {
  Project project(test::kPlaneLabel);
  ExpectChoice(
      project, [&] { return project.rules.ChooseBaseSpectrum(QString::fromUtf16(test::kPlaneLabel)); },
      ChoiceOutcome::Kept, NoEffect);
}

TEST(ChangeRules, AnotherBaseIsGuardedOnceAWaveIsAdopted) {
  const char16_t* labels[] = {test::kWaveLabel, test::kPlaneLabel, test::kEquivalentLabel, test::kLowerLabel};
  for (const char16_t* from : labels) {
    for (const char16_t* to : labels) {
      if (from == to) continue;
      Project project(from);
      const QString label = QString::fromUtf16(to);
      const auto choice = [&] { return project.rules.ChooseBaseSpectrum(label); };
      project.ExpectBaseQuestion(kNo);
      ExpectChoice(project, choice, ChoiceOutcome::Declined, NoEffect);
      project.ExpectBaseQuestion(kYes);
      ExpectChoice(project, choice, ChoiceOutcome::Applied, [&](CMorvaneDoc& doc) {
        SetBase(doc, label);
        doc.ClearAdjustment();
      });
      EXPECT_EQ(project.doc.baseSpectrumName, label);
      EXPECT_FALSE(project.doc.seedAdopted);
    }
  }
}

TEST(ChangeRules, TheNameOfTheAdoptedWaveIsNoExcuse) {
  Project project(test::kLowerLabel);
  project.ExpectBaseQuestion(kNo);
  EXPECT_EQ(project.rules.ChooseBaseSpectrum(project.doc.seedAdoptedName), ChoiceOutcome::Declined);
}

// --- Adopting a wave ---

TEST(ChangeRules, OneWaveIsAdoptedAtATime) {
  Project project;
  project.doc.ClearAdjustment();
  project.rules.AdoptWave(1);
  EXPECT_TRUE(project.doc.seedAdopted);
  EXPECT_EQ(project.doc.seedAdoptedName, QString("B"));
  project.rules.AdoptWave(2);
  EXPECT_FALSE(project.doc.seedWaves.At(1).adopted);
  EXPECT_TRUE(project.doc.seedWaves.At(2).adopted);
  EXPECT_EQ(project.doc.seedAdoptedName, QString("C"));
}

TEST(ChangeRules, AdoptingAnotherWaveKeepsTheResults) {
  Project project;
  project.rules.AdoptWave(1);
  EXPECT_TRUE(project.doc.seedWaves.At(0).adjusted && project.doc.seedWaves.At(0).adjustChecked);
}

// --- A question that another project overtakes ---

/// Says Yes, but the document holds another project by then.
class OvertakenPrompt : public Prompt {
 public:
  explicit OvertakenPrompt(CMorvaneDoc& doc) : m_doc(doc) {}
  PromptAnswer Show(const PromptBox& /*box*/) override {
    ++asked;
    EXPECT_EQ(m_doc.ResetDocument(), std::nullopt);
    m_doc.SetModified(false);
    return PromptAnswer::Yes;
  }
  int asked = 0;

 private:
  CMorvaneDoc& m_doc;
};

TEST(ChangeRules, AYesThatWasMeantForAnotherProjectChangesNothing) {
  const std::vector<std::function<bool(ChangeRules&)>> actions = {
      [](ChangeRules& rules) { return rules.BeginSiteChange(); },
      [](ChangeRules& rules) { return rules.BeginApiParameters(); },
      [](ChangeRules& rules) { return rules.BeginAcquisition(true); },
      [](ChangeRules& rules) { return rules.BeginAdjustSettings(); },
      [](ChangeRules& rules) { return rules.SetGroundClass(1, 1, "B"); },
      [](ChangeRules& rules) { return rules.SetAttenuationMethod("x"); },
      [](ChangeRules& rules) { return rules.SetPlaneUse(1, 1, false); },
      [](ChangeRules& rules) { return rules.SetAllPlanesUse(false); },
      [](ChangeRules& rules) {
        return rules.ChangeWaveData("A", [] { ADD_FAILURE() << "the record is gone"; });
      },
      [](ChangeRules& rules) { return rules.DeleteWave("A"); },
      [](ChangeRules& rules) { return rules.ChooseBaseSpectrum("x") == ChoiceOutcome::Applied; },
  };
  for (std::size_t i = 0; i < actions.size(); ++i) {
    Project project(test::kPlaneLabel);
    OvertakenPrompt prompt(project.doc);
    ChangeRules rules(project.doc, prompt, project.procedure);
    EXPECT_FALSE(actions[i](rules)) << i;
    EXPECT_EQ(prompt.asked, 1) << i;
    EXPECT_FALSE(project.doc.IsModified()) << i;
  }
}

}  // namespace
}  // namespace tremlo
