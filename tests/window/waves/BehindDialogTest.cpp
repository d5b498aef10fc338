// What the accessibility bus can do to the screens while a dialog stands in front of them.

#include "core/project/ResponseRoute.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/graphs/GraphEditDialog.h"
#include "window/graphs/WaveGraphPanel.h"
#include "window/waves/FrmAdjustSeismicWave.h"
#include "window/waves/FrmOrigSeismicWave.h"
#include "window/waves/FrmRespAdjustSpectrum.h"
#include "window/waves/FrmRespOrigSeismicWave.h"
#include "window/waves/FrmRespVisualization.h"
#include "window/waves/FrmVisualization.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>

#include <new>

namespace tremlo::test {
namespace {

using testing::IsEmpty;

class BehindDialog : public testing::Test {
 protected:
  BehindDialog() {
    EnsureRespWave(doc);
    CSeismicWave& wave = doc.seedWaves.At(0);
    wave.acc = RecordLike(64, 1);
    wave.adjusted = true;
    wave.adjustedAcc = wave.acc;
    doc.seedWaves.Add("B");
    doc.respSpectra.AddSpectrum("T", {2.0, 1.0}, {3.0, 4.0});
    doc.SetModified(false);
  }

  /// Does all of it with a dialog up; nothing may come of it. Prompt and files fail on any question.
  void ExpectDeaf(Screen& screen, const std::vector<const char*>& buttons, const char* field,
                  const char* grid) {
    ScreenDriver driver(screen);
    screen.Refresh();
    QApplication::clipboard()->setText("untouched");
    const DocumentState before(doc);
    std::vector<bool> checked;
    for (const char* name : buttons) checked.push_back(driver.Find<QAbstractButton>(name).isChecked());
    const std::string text = field ? driver.Text(field) : std::string();
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      auto& button = driver.Find<QAbstractButton>(buttons[i]);
      button.click();
      EXPECT_EQ(button.isChecked(), checked[i]) << buttons[i];
    }
    if (field) driver.Find<QLineEdit>(field).setText("7");
    if (grid) {
      QAbstractItemModel* const model = driver.Grid(grid).model();
      model->setData(model->index(0, 1), "99");
      for (QAction* const entry : driver.Grid(grid).actions()) entry->trigger();
    }
    Settle();
    dialog.hide();
    Settle();
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
    EXPECT_EQ(QApplication::clipboard()->text(), "untouched");
    if (field) {
      EXPECT_EQ(driver.Text(field), text);
    }
  }

  ProcedureParts parts;
  CMorvaneDoc& doc = parts.doc;
  ScriptedPrompt& prompt = parts.prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
};

TEST_F(BehindDialog, TheWaveOfTheResponseRouteStays) {
  CFrmRespOrigSeismicWave screen(doc, prompt, files, gate);
  ExpectDeaf(screen,
             {"readButton", "helpButton", "timeButton", "fourierButton", "specButton", "settingsButton"},
             "timeStepEdit", "sampleGrid");
}

TEST_F(BehindDialog, TheTargetStays) {
  CFrmRespAdjustSpectrum screen(doc, prompt, files, gate);
  ExpectDeaf(screen, {"readButton", "settingsButton"}, "nameEdit", "spectrumGrid");
}

TEST_F(BehindDialog, TheResultStays) {
  CFrmRespVisualization screen(doc, prompt, files, gate);
  ExpectDeaf(screen,
             {"seedCheck", "adjustedCheck", "exportSeedButton", "exportAdjustedButton", "specButton",
              "settingsButton"},
             nullptr, nullptr);
}

TEST_F(BehindDialog, TheAdoptedWaveStays) {
  doc.seedWaves.At(0).adopted = true;
  CFrmVisualization screen(doc, prompt, files, gate);
  ExpectDeaf(screen,
             {"seedCheck", "adjustedCheck", "targetCheck", "exportSeedButton", "exportAdjustedButton",
              "specButton", "settingsButton"},
             nullptr, nullptr);
}

TEST_F(BehindDialog, TheWavesThatAreAdjustedStay) {
  CFrmAdjustSeismicWave screen(doc, prompt, files, parts.rules, gate, [](const AdjustInput&) {
    ADD_FAILURE() << "a run";
    return AdjustResult();
  });
  doc.seedWaves.At(0).adopted = true;
  ExpectDeaf(screen, {"showAllButton", "hideAllButton", "helpButton", "copyButton", "settingsButton"},
             nullptr, "waveGrid");
  ScreenDriver driver(screen);
  CSpread7& grid = driver.Grid("waveGrid");
  const DocumentState before(doc);
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  for (int column = 5; column <= 8; ++column) {
    grid.Press(1, column);
    grid.model()->setData(grid.model()->index(0, column - 1), Qt::Checked, Qt::CheckStateRole);
  }
  Settle();
  dialog.hide();
  Settle();
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

/// A file dialog was asked for one project and is answered for the next.
TEST_F(BehindDialog, AnExportOfAnotherProjectWritesNothing) {
  class NextProject : public ScriptedFiles {
   public:
    NextProject(CMorvaneDoc& doc, const TestFolder& folder) : m_doc(doc), m_folder(folder) {}
    QString AskSavePath(const FileQuestion&) override {
      const CSeismicWaveSet waves = m_doc.seedWaves;
      EXPECT_EQ(m_doc.ResetDocument(), std::nullopt);
      m_doc.seedWaves = waves;
      return m_folder.Path("x.csv");
    }

   private:
    CMorvaneDoc& m_doc;
    const TestFolder& m_folder;
  };
  const TestFolder folder;
  NextProject next(doc, folder);
  CFrmRespVisualization screen(doc, prompt, next, gate);
  ScreenDriver driver(screen);
  driver.Press("exportSeedButton");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(BehindDialog, TheRegisteredWavesStay) {
  CFrmOrigSeismicWave screen(doc, prompt, files, parts.rules, gate);
  ExpectDeaf(screen, {"addButton", "deleteButton", "readButton", "helpButton"}, "timeStepEdit", "sampleGrid");
}

TEST_F(BehindDialog, AnotherWaveIsNotChosen) {
  CFrmOrigSeismicWave screen(doc, prompt, files, parts.rules, gate);
  ScreenDriver driver(screen);
  screen.Refresh();
  auto& combo = driver.Find<QComboBox>("nameCombo");
  const DocumentState before(doc);
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  combo.setCurrentIndex(1);
  Q_EMIT combo.activated(1);
  EXPECT_EQ(combo.currentIndex(), 0);
  EXPECT_EQ(driver.Text("nameEdit"), "地震波形");
  dialog.hide();
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

/// A record that a dialog or question was opened for may be gone when that is answered.
TEST_F(BehindDialog, AnExportWhoseWaveIsGoneWritesNothing) {
  class GoneFiles : public ScriptedFiles {
   public:
    explicit GoneFiles(CMorvaneDoc& doc) : m_doc(doc) {}
    QString AskSavePath(const FileQuestion&) override {
      m_doc.seedWaves.Clear();
      return "/nonexistent/x.csv";
    }

   private:
    CMorvaneDoc& m_doc;
  } gone(doc);
  CFrmRespVisualization screen(doc, prompt, gone, gate);
  ScreenDriver driver(screen);
  driver.Press("exportSeedButton");
  EXPECT_TRUE(doc.seedWaves.IsEmpty());
}

TEST_F(BehindDialog, SettingsOfAGraphGoToTheWaveThatIsThere) {
  CFrmRespOrigSeismicWave screen(doc, prompt, files, gate);
  ScreenDriver driver(screen);
  screen.Refresh();
  ScreenDriver::InDialog([this](QWidget& dialog) {
    CSeismicWaveSet moved = doc.seedWaves;  // every record has another place
    std::swap(doc.seedWaves, moved);
    PressIn(dialog, "autoCheck");
    Settle();
    EXPECT_EQ(doc.seedWaves.At(0).origGraph.autoRange, 0);
    PressIn(dialog, "resetRangeButton");
    Settle();
    EXPECT_EQ(doc.seedWaves.At(0).origGraph.autoRange, 1);
    PressIn(dialog, "okButton");
  });
  driver.Press("settingsButton");
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(BehindDialog, AGraphThatNoMemoryHoldsSaysSoInItsPlace) {
  QWidget window;
  bool enough = false;
  WaveGraphPanel panel(
      {GraphKind::Time},
      [&](GraphKind) -> std::unique_ptr<CDrawGraph> {
        if (!enough) throw std::bad_alloc();
        return nullptr;
      },
      {[](QWidget*) { return nullptr; }, [] {}, [] {}, nullptr}, GraphDoors{gate, files, prompt}, &window);
  const auto caption = [&] { return panel.findChild<QLabel*>("caption")->text(); };
  panel.Refresh();
  window.grab();
  EXPECT_TRUE(caption().endsWith("メモリが不足しているため表示できません。")) << caption().toStdString();
  EXPECT_THROW(panel.MakeNow(), std::bad_alloc);
  enough = true;
  panel.Refresh();
  window.grab();
  EXPECT_NO_THROW(panel.MakeNow());
  EXPECT_EQ(caption(), "グラフ (時間－加速度)");
}

}  // namespace
}  // namespace tremlo::test
