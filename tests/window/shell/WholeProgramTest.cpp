// The program with its own screens, worked from one screen to the next as a user works it.

#include "core/project/ProjectFile.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/DocumentState.h"
#include "support/ScreenDriver.h"
#include "window/graphs/ExpEdit.h"
#include "window/graphs/Spread7.h"
#include "window/shell/ShellParts.h"
#include "window/waves/FiguresLabel.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::IsEmpty;

constexpr double kInf = std::numeric_limits<double>::infinity();

class WholeProgramTest : public test::ShellTest {
 protected:
  void SetUp() override {
    MakeWithOwnScreens([this] {
      titleBehindTop = app->Frame() ? Title() : QString();
      return TopChoice::ResponseRoute;
    });
    ExpectOffline();
    ASSERT_EQ(Start(), std::nullopt);
    ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  }
  void TearDown() override {
    Doc().SetModified(false);
    EXPECT_THAT(ended, IsEmpty());
  }

  template <class Control>
  Control* Find(const char* name) {
    auto* const control = app->Frame()->ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void PressButton(const char* name) {
    QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  void Step(FlowStep step) {
    Press(step);
    // Behind a run the window is in front again.
    app->Frame()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  }
  void Read(const QString& path) {
    files.Expect("open", path);
    PressButton("readButton");
  }
  void Type(const char* name, const QString& text) {
    auto* const field = Find<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    QInputMethodEvent typed;
    typed.setCommitString(text);
    QCoreApplication::sendEvent(field, &typed);
    QTest::keyClick(field, Qt::Key_Tab);
    QCoreApplication::processEvents();
  }
  void TypeCell(const char* grid, int row, int column, const char* text) {
    auto* const cells = Find<CSpread7>(grid);
    cells->setFocus();
    cells->SelectCell(row, column);
    QTest::keyClick(cells, Qt::Key_F2);
    auto* const editor = cells->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, QLatin1String(text));
    QTest::keyClick(editor, Qt::Key_Return);
    test::Settle();
  }
  void ShowEveryGraph() {
    for (const char* kind : {"specButton", "fourierButton", "timeButton"}) {
      PressButton(kind);
      app->Frame()->grab();
    }
  }
  /// A wave of 256 samples and its own spectrum as a target: the run converges at its first sweep.
  void MakeFittingFiles() {
    std::vector<double> acc(256);
    for (std::size_t i = 0; i < acc.size(); ++i)
      acc[i] = 100.0 * std::sin(0.3 * static_cast<double>(i)) * std::cos(0.011 * static_cast<double>(i * i));
    std::vector<double> times(acc.size()), periods, spectrum;
    for (std::size_t i = 0; i < times.size(); ++i) times[i] = 0.02 * static_cast<double>(i);
    ComputeResponseSpectrum(acc, periods, spectrum, 0.02);
    ASSERT_TRUE(WriteCsv(folder.Path("wave.csv"), "波", 0.02, times, acc));
    ASSERT_TRUE(WriteCsv(folder.Path("target.csv"), "目標", 0.02, periods, spectrum));
  }
  void Fit() {
    MakeFittingFiles();
    Read(folder.Path("wave.csv"));
    Step(FlowStep::RespAdjustSpectrum);
    Read(folder.Path("target.csv"));
    Step(FlowStep::RespVisualization);
    ASSERT_TRUE(Wave().adjusted);
    ASSERT_EQ(Active(), ScreenId::RespVisualization);
  }
  CSeismicWave& Wave() { return Doc().seedWaves.At(0); }
  std::optional<ScreenId> Active() { return app->Procedure().ActiveScreen(); }

  bool Drop(const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(app->Frame(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(app->Frame(), &drop);
    QCoreApplication::processEvents();
    return true;
  }

  QString titleBehindTop;
};

TEST_F(WholeProgramTest, ANewProjectBearsNoNameWhileItsRouteIsAsked) {
  files.Expect("open", SavedProject("named.trml", false));
  Menu()->openProject->trigger();
  EXPECT_TRUE(Title().startsWith("named.trml - "));
  Menu()->newProject->trigger();
  EXPECT_EQ(titleBehindTop, "無題 - Tremlo Version1.00　(オフライン)");
}

TEST_F(WholeProgramTest, TheFiguresAreReadInAWindowOf1200PixelsAndGiveWayInASmallerOne) {
  Fit();
  auto* const label = Find<FiguresLabel>("figuresLabel");
  ASSERT_TRUE(label->isVisible());
  app->Frame()->resize(1200, 800);
  test::Settle();
  ASSERT_EQ(app->Frame()->width(), 1200);
  EXPECT_FALSE(label->IsElided()) << label->text().toStdString();
  app->Frame()->resize(800, 600);
  test::Settle();
  EXPECT_EQ(app->Frame()->width(), 800);
  EXPECT_TRUE(label->IsElided());
}

TEST_F(WholeProgramTest, AChangedWaveLosesItsFitAndTheNextVisitRunsAgain) {
  Fit();
  EXPECT_TRUE(Find<QLabel>("fitLabel")->isVisible());
  const std::vector<double> before = Wave().adjustedAcc;
  Step(FlowStep::RespOrigSeismicWave);
  Step(FlowStep::RespVisualization);
  EXPECT_TRUE(Find<QLabel>("fitLabel")->isVisible()) << "nothing has changed: no new run";
  EXPECT_EQ(Wave().adjustedAcc, before);

  Step(FlowStep::RespOrigSeismicWave);
  TypeCell("sampleGrid", 5, 2, "1.25");
  EXPECT_EQ(Wave().acc[4], 1.25);
  EXPECT_FALSE(Wave().adjusted);
  EXPECT_THAT(Wave().adjustedAcc, IsEmpty());
  Doc().adjustTolerancePercent = 0.5;
  Step(FlowStep::RespVisualization);
  EXPECT_TRUE(Wave().adjusted);
  EXPECT_NE(Wave().adjustedAcc, before);
}

TEST_F(WholeProgramTest, ARenamedWaveIsExportedUnderItsNewName) {
  Fit();
  Step(FlowStep::RespOrigSeismicWave);
  Type("nameEdit", "新しい名");
  EXPECT_TRUE(Wave().adjusted);
  Step(FlowStep::RespVisualization);
  EXPECT_EQ(Find<QComboBox>("nameCombo")->currentText(), "新しい名");
  files.Expect("save", folder.Path("out.csv"));
  PressButton("exportAdjustedButton");
  QString name;
  double step = 0.0;
  std::vector<double> acc;
  EXPECT_EQ(ReadWaveFile(folder.Path("out.csv"), name, step, acc), std::nullopt);
  EXPECT_EQ(name, "新しい名");
  EXPECT_EQ(ReadWaveFile(folder.Path("out_AccSpec.csv"), name, step, acc), std::nullopt);
  EXPECT_EQ(name, "新しい名_加速度応答スペクトル");
}

TEST_F(WholeProgramTest, ASavedFitComesBackFromTheRecentListWithoutANewRun) {
  Fit();
  files.Expect("save", folder.Path("p.trml"));
  Menu()->saveProject->trigger();
  files.Expect("save", folder.Path("別名.trml"));
  Menu()->saveProjectAs->trigger();
  const DocumentState saved(Doc());
  Menu()->newProject->trigger();
  EXPECT_EQ(Doc().PathName(), QString());
  EXPECT_FALSE(Wave().adjusted);
  EXPECT_EQ(Active(), ScreenId::RespOrigSeismicWave);
  Menu()->RecentEntries().at(0)->trigger();
  QCoreApplication::processEvents();
  EXPECT_EQ(Doc().PathName(), folder.Path("別名.trml"));
  // What was told of the files that were read is of the run, not of the project.
  EXPECT_THAT(DocumentState(Doc()).DifferencesTo(saved), testing::ElementsAre("recordNotes"));
  EXPECT_FALSE(Doc().IsModified());
  Doc().adjustMaxIterations = 0;  // a run would fail
  Step(FlowStep::RespVisualization);
  EXPECT_EQ(Active(), ScreenId::RespVisualization);
}

TEST_F(WholeProgramTest, ANewProjectAfterARunShowsNothingOfTheOld) {
  Fit();
  Doc().SetModified(false);
  Menu()->newProject->trigger();
  EXPECT_EQ(Find<QLineEdit>("nameEdit")->text(), "地震波形");
  EXPECT_EQ(Find<QLineEdit>("countEdit")->text(), "1");
  // The wave of a new project has no frequency in the target's band.
  prompt.ExpectMessage("地震波形調整の計算に失敗しました。", PromptIcon::Warning,
                       "繰り返し 100 回で収束しませんでした（最後の偏差 －）。\n"
                       "繰り返し回数と収束判定は「波形調整設定」で設定します。");
  Step(FlowStep::RespAdjustSpectrum);
  EXPECT_EQ(Find<QLineEdit>("nameEdit")->text(), "基準スペクトル");
  Step(FlowStep::RespVisualization);
  EXPECT_EQ(Active(), ScreenId::RespAdjustSpectrum);
}

TEST_F(WholeProgramTest, EachScreenBeginsWithItsFirstControl) {
  const auto focus = [] { return QApplication::focusWidget()->objectName(); };
  const auto onScreen = [this] {
    return app->Frame()->ScreenOnDisplay()->isAncestorOf(QApplication::focusWidget());
  };
  EXPECT_EQ(focus(), "nameEdit") << "as the program comes up";
  Fit();
  for (const auto& [step, first] : {std::pair(FlowStep::RespAdjustSpectrum, "nameEdit"),
                                    std::pair(FlowStep::RespVisualization, "nameCombo"),
                                    std::pair(FlowStep::RespOrigSeismicWave, "nameEdit")}) {
    Step(step);
    EXPECT_EQ(focus(), QLatin1String(first));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_FALSE(onScreen()) << "there is none before it, but " << focus().toStdString();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focus(), QLatin1String(first));
  }
}

TEST_F(WholeProgramTest, NoProjectIsTakenWhileADialogOfSettingsIsOpen) {
  Fit();
  const QString other = SavedProject("other.trml", false);
  const DocumentState before(Doc());
  bool seen = false;
  test::WhenModal("CDlgGraphEditVisual", [&](QWidget* dialog) {
    seen = true;
    EXPECT_FALSE(Drop(other));
    QTest::keyClick(dialog, Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(dialog, Qt::Key_N, Qt::ControlModifier);
    QTest::keyClick(dialog, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(app->Frame()->close());
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  PressButton("settingsButton");
  EXPECT_TRUE(seen);
  EXPECT_THAT(DocumentState(Doc()).DifferencesTo(before), IsEmpty());
}

TEST_F(WholeProgramTest, AWaveIsAdoptedAdjustedBehindItsDialogAndShown) {
  MakeFittingFiles();
  Read(folder.Path("wave.csv"));
  Doc().guidelineRoute = true;
  Doc().flowFixed = true;
  CSeismicWave& wave = Doc().seedWaves.At(0);
  ComputeResponseSpectrum(wave.acc, wave.periods, wave.accSpec, wave.timeStep);
  wave.spectrumValid = true;
  Doc().lowerSpectra.Clear();
  Doc().lowerSpectra.AddSpectrum("下限", wave.periods, wave.accSpec);
  Doc().lowerSpectra.At(0).lowerSelected = Doc().lowerSpectra.At(0).baseSelected = true;
  Doc().baseSpectrumName = "下限";
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::AdjustSeismicWave), SwitchOutcome::Open);
  test::Settle();
  auto* const grid = Find<CSpread7>("waveGrid");
  const auto click = [grid](int column) {
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(0, column - 1)).center());
    test::Settle();
  };
  click(7);
  EXPECT_EQ(Doc().seedAdoptedName, "波");
  bool seen = false;
  test::WhenModal("CDlgNowCalc", [&](QWidget*) {
    seen = true;
    EXPECT_FALSE(app->Frame()->close());
    EXPECT_EQ(app->Procedure().ActiveScreen(), ScreenId::AdjustSeismicWave);
  });
  QElapsedTimer time;
  time.start();
  click(8);
  EXPECT_TRUE(seen);
  EXPECT_GE(time.elapsed(), 1000) << "the dialog stands long enough to be read";
  EXPECT_TRUE(Wave().adjusted && Wave().adjustChecked);
  EXPECT_TRUE(Find<QLabel>("fitLabel")->text().startsWith("「波」　偏差（RMS） 0.00 %"));
  ASSERT_EQ(app->Procedure().SwitchScreen(ScreenId::Visualization), SwitchOutcome::Open);
  EXPECT_EQ(Find<QLineEdit>("nameEdit")->text(), "波");
  ShowEveryGraph();
}

TEST_F(WholeProgramTest, NoProjectIsTakenWhileTheRunIsUp) {
  MakeFittingFiles();
  Read(folder.Path("wave.csv"));
  Step(FlowStep::RespAdjustSpectrum);
  Read(folder.Path("target.csv"));
  const QString other = SavedProject("other.trml", false);
  bool seen = false;
  test::WhenModal("CDlgNowCalc", [&](QWidget* dialog) {
    seen = true;
    EXPECT_FALSE(Drop(other));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
      QTest::keyClick(dialog, key);
    QTest::keyClick(dialog, Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(dialog->close());
    EXPECT_FALSE(app->Frame()->close());
    EXPECT_TRUE(dialog->isVisible());
  });
  Step(FlowStep::RespVisualization);
  EXPECT_TRUE(seen);
  EXPECT_TRUE(Wave().adjusted);
  EXPECT_EQ(Wave().name, "波");
}

/// Files that are no projects, by every road into the program.
TEST_F(WholeProgramTest, DamagedProjectsAreToldAndTheProgramGoesOn) {
  Fit();
  files.Expect("save", folder.Path("whole.trml"));
  Menu()->saveProject->trigger();
  const QByteArray whole = test::ReadAll(folder.Path("whole.trml"));
  std::mt19937 random(5);
  for (int round = 0; round < 60; ++round) {
    QByteArray bytes = whole;
    switch (round % 3) {
      case 0:
        bytes = whole.left(static_cast<qsizetype>(random() % static_cast<unsigned>(whole.size())));
        break;
      case 1:
        bytes.resize(1 + static_cast<qsizetype>(random() % 3000));
        for (char& byte : bytes) byte = static_cast<char>(random());
        bytes[0] = 0;
        break;
      default:
        for (int i = 0; i < 6; ++i)
          bytes[1 + static_cast<qsizetype>(random() % 4000)] = static_cast<char>(random());
    }
    const QString path = folder.Write("damaged.trml", bytes);
    CMorvaneDoc other(folder.Path());
    const bool opens = OpenProject(other, path).result == OpenResult::kOpened;
    if (!opens) prompt.ExpectMessage("ファイルを開けませんでした。\n" + path);
    Doc().SetModified(false);
    if (round % 2 == 0) {
      files.Expect("open", path);
      Menu()->openProject->trigger();
    } else {
      EXPECT_TRUE(Drop(path));
    }
    prompt.CheckUsedUp();
    EXPECT_EQ(Doc().PathName(), opens ? path : QString()) << round;
    EXPECT_FALSE(Doc().IsModified()) << round;
    EXPECT_EQ(Active(), ScreenId::RespOrigSeismicWave);
    app->Frame()->grab();
    Step(FlowStep::RespAdjustSpectrum);
    app->Frame()->grab();
  }
}

struct OddWave {
  const char* what;
  double timeStep;
  std::vector<double> acc;
};

TEST_F(WholeProgramTest, OddWavesAreShownOnEveryScreenAndGraph) {
  MakeFittingFiles();
  const double nan = std::nan("");
  const std::vector<OddWave> waves{
      {"no sample", 0.01, {}},
      {"one sample", 0.01, {5.0}},
      {"two samples", 0.01, {5.0, -3.0}},
      {"blanks alone", 0.01, {kInf, kInf, kInf, kInf}},
      {"not numbers", 0.01, {nan, 1.0, nan, 2.0}},
      {"minus infinity", 0.01, {1.0, -kInf, 3.0, 4.0}},
      {"no step", 0.0, {1.0, 2.0, 3.0}},
      {"negative step", -0.01, {1.0, 2.0, 3.0}},
      {"step that is no number", nan, {1.0, 2.0, 3.0}},
      {"endless step", kInf, {1.0, 2.0, 3.0}},
      {"tiny step", 5e-324, {1.0, 2.0, 3.0}},
      {"huge step", 1e300, {1.0, 2.0, 3.0}},
      {"huge samples", 0.01, {1e308, -1e308, 1e308, 0.0}},
      {"tiny samples", 0.01, {5e-324, -5e-324, 0.0, 0.0}},
  };
  Step(FlowStep::RespAdjustSpectrum);
  Read(folder.Path("target.csv"));
  for (const OddWave& odd : waves) {
    SCOPED_TRACE(odd.what);
    Step(FlowStep::RespOrigSeismicWave);
    Wave() = CSeismicWave();
    Wave().name = QLatin1String(odd.what);
    Wave().timeStep = odd.timeStep;
    Wave().acc = odd.acc;
    app->Procedure().RefreshScreens();
    ShowEveryGraph();
    const bool hasData = !odd.acc.empty() && std::isfinite(odd.timeStep) && odd.timeStep > 0.0;
    // As a project file may have it: a run would not.
    Wave().adjusted = true;
    Wave().adjustedAcc = odd.acc;
    if (!hasData) prompt.ExpectMessage("原種波形が設定されていません。");
    Step(FlowStep::RespVisualization);
    prompt.CheckUsedUp();
    if (!hasData) continue;
    EXPECT_EQ(Active(), ScreenId::RespVisualization);
    ShowEveryGraph();
    for (const char* button : {"exportSeedButton", "exportAdjustedButton"}) {
      files.Expect("save", folder.Path("odd.csv"));
      PressButton(button);
    }
  }
}

TEST_F(WholeProgramTest, NamesOfEveryKindAreKeptAndExported) {
  MakeFittingFiles();
  Read(folder.Path("wave.csv"));
  for (const QString& name :
       {QString("a, b"), QString("\"q\""), QString(300, u'長'), QString::fromUtf8("🌊波"), QString("<b>x</b>"),
        QString("a\tb"), QString("%s%n"), QString(".."), QString("/etc/x"), QString(" ")}) {
    SCOPED_TRACE(name.toStdString());
    Step(FlowStep::RespOrigSeismicWave);
    Type("nameEdit", name);
    EXPECT_EQ(Wave().name, name);
    Wave().adjusted = true;  // no run
    Step(FlowStep::RespAdjustSpectrum);
    Type("nameEdit", name);
    EXPECT_EQ(Doc().respSpectra.At(0).name, name);
    Step(FlowStep::RespVisualization);
    EXPECT_EQ(Find<QComboBox>("nameCombo")->currentText(), name);
    files.Expect("save", folder.Path("n.csv"));
    PressButton("exportSeedButton");
    EXPECT_EQ(files.last.proposedName, FileNameOfWave(name, ""));
    QString read;
    double step = 0.0;
    std::vector<double> acc;
    EXPECT_EQ(ReadWaveFile(folder.Path("n.csv"), read, step, acc), std::nullopt);
    EXPECT_EQ(acc.size(), 256u);
    files.Expect("save", folder.Path("n.trml"));
    Menu()->saveProjectAs->trigger();
    CMorvaneDoc other(folder.Path());
    EXPECT_EQ(OpenProject(other, folder.Path("n.trml")).result, OpenResult::kOpened);
    EXPECT_EQ(other.seedWaves.At(0).name, name);
    EXPECT_EQ(other.respSpectra.At(0).name, name);
  }
}

TEST_F(WholeProgramTest, AProjectThatIsOpenedAndLookedAtIsSavedByteForByte) {
  Fit();
  PressButton("specButton");  // the seed's spectrum is stored too
  app->Frame()->grab();
  files.Expect("save", folder.Path("p.trml"));
  Menu()->saveProject->trigger();
  const QByteArray saved = test::ReadAll(folder.Path("p.trml"));
  files.Expect("open", folder.Path("p.trml"));
  Menu()->openProject->trigger();
  for (const FlowStep step :
       {FlowStep::RespAdjustSpectrum, FlowStep::RespVisualization, FlowStep::RespOrigSeismicWave}) {
    Step(step);
    app->Frame()->grab();
  }
  EXPECT_FALSE(Doc().IsModified());
  QFile::remove(folder.Path("p.trml"));
  Menu()->saveProject->trigger();
  EXPECT_EQ(test::ReadAll(folder.Path("p.trml")), saved);
}

TEST_F(WholeProgramTest, AMillionSamplesAreShownAndEdited) {
  constexpr int kCount = 1000000;
  std::vector<double> times(kCount), acc(kCount);
  for (std::size_t i = 0; i < acc.size(); ++i) {
    times[i] = 0.005 * static_cast<double>(i);
    acc[i] = 100.0 * std::sin(0.01 * static_cast<double>(i));
  }
  ASSERT_TRUE(WriteCsv(folder.Path("long.csv"), "long", 0.005, times, acc));
  Read(folder.Path("long.csv"));
  EXPECT_EQ(Find<QLineEdit>("countEdit")->text(), "1000000");
  for (const char* kind : {"fourierButton", "timeButton"}) {
    PressButton(kind);
    app->Frame()->grab();
  }
  TypeCell("sampleGrid", kCount, 2, "2.5");
  EXPECT_EQ(Wave().acc.back(), 2.5);
  EXPECT_EQ(Find<CSpread7>("sampleGrid")->GetCellText(kCount, 1), "4999.995");
}

TEST_F(WholeProgramTest, MenusOpenByTheirLetters) {
  for (const auto& [letter, name] : {std::pair(Qt::Key_F, "fileMenu"), std::pair(Qt::Key_E, "settingsMenu"),
                                     std::pair(Qt::Key_H, "helpMenu")}) {
    QTest::keyClick(app->Frame(), letter, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr) << name;
    EXPECT_EQ(menu->objectName(), QLatin1String(name));
    QTest::keyClick(menu, Qt::Key_Escape);
    QTest::keyClick(Menu(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "nameEdit") << "and the focus is back";
  }
}

TEST_F(WholeProgramTest, EveryDialogIsLeftByEscapeAndItsCloseBoxWithoutAChange) {
  const auto leave = [](const char* dialog, const std::function<void()>& open) {
    for (const bool byKey : {true, false}) {
      bool seen = false;
      test::WhenModal(QLatin1String(dialog), [&](QWidget* window) {
        seen = true;
        byKey ? QTest::keyClick(window, Qt::Key_Escape) : static_cast<void>(window->close());
      });
      open();
      EXPECT_TRUE(seen) << dialog;
    }
  };
  leave("aboutDlg", [this] { Menu()->about->trigger(); });
  leave("CDlgAdjustSetting", [this] { Menu()->adjustSettings->trigger(); });
  leave("CDlgGraphEdit", [this] { PressButton("settingsButton"); });
  Step(FlowStep::RespAdjustSpectrum);
  const DocumentState withTarget(Doc());
  leave("CDlgGraphEditBaseSpec", [this] { PressButton("settingsButton"); });
  EXPECT_THAT(DocumentState(Doc()).DifferencesTo(withTarget), IsEmpty());
}

}  // namespace
}  // namespace tremlo
