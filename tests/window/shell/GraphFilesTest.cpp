#include "core/files/Cp932Text.h"
#include "core/graphs/GraphTexts.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TestFolder.h"
#include "window/graphs/GraphView.h"
#include "window/shell/ScreenTable.h"

#include <QMenu>

#include <cmath>
#include <memory>

namespace tremlo::test {
namespace {

/// Every screen that has a graph.
const std::set<ScreenId> kScreensWithGraphs = {ScreenId::OrigSeismicWave,    ScreenId::DamsiteWave,
                                               ScreenId::MakeSeismicWave2,   ScreenId::LowerSpectrum,
                                               ScreenId::BaseSpectrum,       ScreenId::AdjustSeismicWave,
                                               ScreenId::Visualization,      ScreenId::RespOrigSeismicWave,
                                               ScreenId::RespAdjustSpectrum, ScreenId::RespVisualization};

/// The program's own screens over a project that has something for each of their graphs.
class GraphFilesTest : public testing::TestWithParam<ScreenId> {
 protected:
  GraphFilesTest() {
    InstallJapaneseFonts();
    FillProject(doc);
    doc.respSpectra.AddSpectrum(QStringLiteral("目標"), {3.0, 2.0, 1.0}, {0.1, 1.0 / 3.0, 70.0});
    procedureParts.prompt.CheckUsedUp();
  }
  ~GraphFilesTest() override {
    driver.reset();
    delete screen;
  }

  void Open(ScreenId id) {
    screen = table.screens.at(id)(parts);
    driver = std::make_unique<ScreenDriver>(*screen, QSize(1000, 700));
    screen->Prepare();
    screen->Entered();
    Settle();
  }
  /// Chooses an entry of the menu by keys and answers its dialog.
  QByteArray Saved(int entry, const char* name) {
    files.Choose(folder.Path(name));
    auto& graph = driver->Find<GraphView>("graph");
    graph.setFocus();
    driver->Key(Qt::Key_F10, Qt::ShiftModifier);
    auto& menu = driver->Find<QMenu>("graphMenu");
    for (int i = 0; i < entry; ++i) QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    Settle();
    return ReadAll(folder.Path(name));
  }

  /// Every point that is drawn stands in the file, and reads back as it is in the document.
  static void ExpectCurves(const QByteArray& csv, const CDrawGraph& graph) {
    const GraphTexts& texts = TextsOf(graph.Kind());
    QList<QStringList> rows;
    for (const QString& line : DecodeCp932(csv.toStdString()).split(u'\n', Qt::SkipEmptyParts))
      rows << line.split(u',');
    ASSERT_FALSE(rows.isEmpty());
    const QStringList titles = rows.takeFirst();
    qsizetype xColumn = -1;
    for (const GraphSeries& curve : graph.Series()) {
      const std::size_t count = std::min(curve.x.size(), curve.y.size());
      ASSERT_GE(count, 2u);
      const QString title = curve.name.isEmpty() ? texts.YTitle() : curve.name + u' ' + texts.YTitle();
      const qsizetype column = titles.indexOf(title);
      ASSERT_GE(column, 1) << title.toStdString();
      xColumn = titles.lastIndexOf(texts.XTitle(), column);
      ASSERT_GE(xColumn, 0);
      const auto expect = [](const QString& cell, double value) {
        EXPECT_EQ(cell.isEmpty(), !std::isfinite(value));
        if (!cell.isEmpty()) {
          EXPECT_EQ(cell.toDouble(), value) << cell.toStdString();
        }
      };
      for (std::size_t i = 0; i < count; ++i) {
        const QStringList& row = rows[static_cast<qsizetype>(i)];
        ASSERT_EQ(row.size(), titles.size());
        expect(row[xColumn], curve.x[i]);
        expect(row[column], curve.y[i]);
      }
      for (qsizetype i = static_cast<qsizetype>(count); i < rows.size(); ++i)
        EXPECT_EQ(rows[i][column], QString());
    }
  }

  TestFolder folder;
  ProcedureParts procedureParts;
  CMorvaneDoc& doc = procedureParts.doc;
  ScriptedFiles files;
  OnlineMode online;
  ServiceSettings services;
  CommandGate gate{procedureParts.prompt};
  ScreenParts parts{
      doc,  procedureParts.prompt, files, procedureParts.procedure, procedureParts.rules, online, services,
      gate, [](SwitchOutcome) {},  {},    [] { return true; }};
  ScreenTable table = ProgramScreens();
  Screen* screen = nullptr;
  std::unique_ptr<ScreenDriver> driver;
};

TEST_P(GraphFilesTest, CurvesAndPictureOfEachOfItsGraphsGoToFiles) {
  Open(GetParam());
  std::vector<const char*> kinds;
  for (const char* const name : {"timeButton", "specButton", "fourierButton"})
    if (screen->findChild<QAbstractButton*>(QLatin1String(name))) kinds.push_back(name);
  if (kinds.empty()) kinds.push_back(nullptr);
  for (const char* const kind : kinds) {
    if (kind) driver->Press(kind);
    auto& view = driver->Find<GraphView>("graph");
    ASSERT_NE(view.Graph(), nullptr);
    const DocumentState before(doc);
    ExpectCurves(Saved(2, "a.csv"), *view.Graph());
    const QImage picture = QImage::fromData(Saved(1, "a.png"), "PNG");
    EXPECT_EQ(picture.convertToFormat(QImage::Format_RGB32), view.Picture(2.0));
    EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), testing::IsEmpty()) << "saving changes nothing";
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, GraphFilesTest, testing::ValuesIn(kScreensWithGraphs),
                         [](const auto& screen) {
                           return "Screen" + std::to_string(static_cast<int>(screen.param));
                         });

using AllScreensTest = GraphFilesTest;

TEST_F(AllScreensTest, ThoseAreAllTheScreensWithGraphsAndEveryGraphHasItsMenu) {
  std::set<ScreenId> found;
  for (const auto& [id, make] : table.screens) {
    const std::unique_ptr<Screen> made(make(parts));
    for (const GraphView* const view : made->findChildren<GraphView*>()) {
      found.insert(id);
      EXPECT_NE(view->findChild<QMenu*>(QStringLiteral("graphMenu")), nullptr);
    }
  }
  EXPECT_EQ(found, kScreensWithGraphs);
}

}  // namespace
}  // namespace tremlo::test
