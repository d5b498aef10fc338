#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/DrawTimeAccGal.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/JapaneseFont.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class GraphViewTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  void SetUp() override {
    m_view.resize(660, 300);
    m_view.SetSource([this]() -> std::unique_ptr<CDrawGraph> {
      ++m_made;
      WaveGraphSetting block;
      block.autoRange = 0;
      auto graph = std::make_unique<CDrawTimeAccGal>(block);
      graph->AddWave({0, 100, 250, -100}, 10.0, {0x0000FF, 2}, "波1");
      return graph;
    });
  }
  void Show() {
    m_view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_view));
  }
  std::string Told(QSignalSpy& spy) {
    if (spy.isEmpty()) return "nothing told";
    const QString text = spy.last().first().toString();
    spy.clear();
    return text.toStdString();
  }

  GraphView m_view;
  int m_made = 0;
};

TEST_F(GraphViewTest, TheSourceIsAskedOnceAndOnlyWhenThereIsSomethingToPaint) {
  EXPECT_EQ(m_made, 0);
  Show();
  EXPECT_EQ(m_made, 1);
  m_view.repaint();
  EXPECT_EQ(m_made, 1);
  m_view.hide();
  m_view.Refresh();
  EXPECT_EQ(m_made, 1);
  Show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return m_made == 2; }));
}

TEST_F(GraphViewTest, ASourceThatRefreshesTheViewIsNotAskedForEver) {
  int made = 0;
  m_view.SetSource([&] {
    ++made;
    m_view.Refresh();  // as when a spectrum computed for the graph marks the document as modified
    return std::make_unique<CDrawTimeAccGal>(WaveGraphSetting{});
  });
  m_view.Picture(1.0);
  m_view.Picture(1.0);
  EXPECT_EQ(made, 1);
}

TEST_F(GraphViewTest, WithoutAGraphTheAreaIsGrey) {
  m_view.SetSource([] { return std::unique_ptr<CDrawGraph>(); });
  QImage grey(656, 292, QImage::Format_RGB32);
  grey.fill(QColor(0xD4, 0xD0, 0xC8));
  EXPECT_EQ(m_view.Picture(1.0), grey);
  EXPECT_TRUE(m_view.accessibleDescription().isEmpty());
}

TEST_F(GraphViewTest, AViewWithoutASourceIsGreyToo) {
  GraphView view;
  view.resize(50, 50);
  EXPECT_EQ(view.Picture(1.0).pixelColor(20, 20), QColor(0xD4, 0xD0, 0xC8));
  QTest::mouseMove(&view, QPoint(20, 20));
  QTest::keyClick(&view, Qt::Key_Right);
}

TEST_F(GraphViewTest, ThePictureIsTheViewWithoutItsRimInDevicePixels) {
  EXPECT_EQ(m_view.Picture(1.0).size(), QSize(656, 292));
  EXPECT_EQ(m_view.Picture(1.5).size(), QSize(984, 438));
  EXPECT_EQ(m_view.Picture(2.0).size(), QSize(1312, 584));
  EXPECT_EQ(m_view.Picture(2.0).devicePixelRatio(), 1.0);
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const QPoint corner(qRound(44 * ratio) - qRound(2 * ratio), qRound(28 * ratio) - qRound(4 * ratio));
    EXPECT_EQ(m_view.Picture(ratio).pixelColor(corner), QColor(Qt::black)) << ratio;
    EXPECT_EQ(m_view.Picture(ratio).pixelColor(corner - QPoint(0, 1)), QColor(Qt::white)) << ratio;
  }
}

TEST_F(GraphViewTest, CopyReplacesWhatIsOnTheClipboard) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setText("before");
  m_view.CopyPicture();
  EXPECT_TRUE(clipboard->text().isEmpty());
  EXPECT_EQ(clipboard->image().convertToFormat(QImage::Format_RGB32), m_view.Picture(1.0));
}

TEST_F(GraphViewTest, ThePictureShowsNeitherPointerNorFocus) {
  const QImage before = m_view.Picture(1.0);
  Show();
  m_view.setFocus();
  QTest::mouseMove(&m_view, QPoint(444, 100));
  EXPECT_NE(m_view.grab().toImage().convertToFormat(QImage::Format_RGB32).copy(2, 4, 656, 292), before);
  EXPECT_EQ(m_view.Picture(1.0), before);
}

TEST_F(GraphViewTest, ThePointUnderThePointerIsTold) {
  Show();
  QSignalSpy spy(&m_view, &GraphView::PointedAt);
  QTest::mouseMove(&m_view, QPoint(445, 150));
  EXPECT_EQ(Told(spy), "波1：時間 20 sec、加速度 250 gal");
  QTest::mouseMove(&m_view, QPoint(446, 150));
  EXPECT_EQ(Told(spy), "nothing told");
  QTest::mouseMove(&m_view, QPoint(300, 290));
  EXPECT_EQ(Told(spy), "");
}

/// Counts how often it is drawn.
class CountedGraph : public CDrawFreqAccSpec {
 public:
  explicit CountedGraph(int& drawn) : CDrawFreqAccSpec(WaveGraphSetting{}), m_drawn(drawn) {}
  void DrawFrame(const GraphSurface& surface) const override {
    ++m_drawn;
    CDrawFreqAccSpec::DrawFrame(surface);
  }

 private:
  int& m_drawn;
};

TEST_F(GraphViewTest, ThePointerMovesOverAGraphThatIsDrawnOnce) {
  int drawn = 0;
  m_view.SetSource([&] {
    auto graph = std::make_unique<CountedGraph>(drawn);
    graph->AddSpectrum({10, 0.1, 0.01}, {1000, 1000, 1000}, {0xFF3232, 2});
    return graph;
  });
  Show();
  ASSERT_EQ(drawn, 1);
  const QImage without = m_view.grab().toImage();
  QTest::mouseMove(&m_view, QPoint(300, 150));
  EXPECT_NE(m_view.grab().toImage(), without);
  m_view.repaint();
  EXPECT_EQ(drawn, 1);
  m_view.resize(700, 350);
  m_view.repaint();
  EXPECT_EQ(drawn, 2);
  m_view.Refresh();
  m_view.repaint();
  EXPECT_EQ(drawn, 3);
}

TEST_F(GraphViewTest, NothingIsToldOfWhereThePointerNoLongerIs) {
  Show();
  QSignalSpy spy(&m_view, &GraphView::PointedAt);
  QTest::mouseMove(&m_view, QPoint(445, 150));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&m_view, &leave);
  EXPECT_EQ(Told(spy), "");
  QTest::mouseMove(&m_view, QPoint(446, 150));
  EXPECT_NE(Told(spy), "nothing told");
  m_view.Refresh();
  EXPECT_EQ(Told(spy), "");
}

TEST_F(GraphViewTest, KeysMoveAPointerOfTheirOwn) {
  Show();
  QSignalSpy spy(&m_view, &GraphView::PointedAt);
  QTest::keyClick(&m_view, Qt::Key_Home);
  EXPECT_EQ(Told(spy), "波1：時間 0 sec、加速度 0 gal");
  for (int i = 0; i < 11; ++i) QTest::keyClick(&m_view, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Told(spy), "波1：時間 10 sec、加速度 100 gal");
  QTest::keyClick(&m_view, Qt::Key_End);
  EXPECT_EQ(Told(spy), "波1：時間 30 sec、加速度 -100 gal");
  QTest::keyClick(&m_view, Qt::Key_Right);
  EXPECT_EQ(Told(spy), "nothing told");
  for (int i = 0; i < 101; ++i) QTest::keyClick(&m_view, Qt::Key_Left);
  EXPECT_EQ(Told(spy), "波1：時間 20 sec、加速度 250 gal");
}

TEST_F(GraphViewTest, UpAndDownChangeTheCurveThatIsTold) {
  m_view.SetSource([] {
    auto graph = std::make_unique<CDrawFreqAccSpec>(WaveGraphSetting{});
    graph->AddSpectrum({10, 0.1, 0.01}, {1000, 1000, 1000}, {}, "上");
    graph->AddSpectrum({10, 0.1, 0.01}, {100, 100, 100}, {}, "下");
    return graph;
  });
  Show();
  QSignalSpy spy(&m_view, &GraphView::PointedAt);
  QTest::mouseMove(&m_view, QPoint(244, 250));
  EXPECT_EQ(Told(spy), "下：周期T 0.1 sec、加速度応答スペクトルS 100 gal");
  for (int i = 0; i < 20; ++i) QTest::keyClick(&m_view, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Told(spy), "上：周期T 0.1 sec、加速度応答スペクトルS 1000 gal");
  for (int i = 0; i < 20; ++i) QTest::keyClick(&m_view, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Told(spy), "下：周期T 0.1 sec、加速度応答スペクトルS 100 gal");
}

TEST_F(GraphViewTest, OtherKeysAreLeftToTheScreen) {
  Show();
  QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
  QApplication::sendEvent(&m_view, &key);
  EXPECT_FALSE(key.isAccepted());
}

TEST_F(GraphViewTest, TheFocusIsSeen) {
  Show();
  EXPECT_TRUE(m_view.focusPolicy() & Qt::TabFocus);
  m_view.clearFocus();
  const QImage without = m_view.grab().toImage();
  m_view.setFocus();
  EXPECT_NE(m_view.grab().toImage(), without);
}

TEST_F(GraphViewTest, AScreenReaderFindsAChartWithItsAxesAndCurves) {
  Show();
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&m_view);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::Chart);
  EXPECT_EQ(accessible->text(QAccessible::Name), "グラフ");
  EXPECT_EQ(accessible->text(QAccessible::Description),
            "時間 (sec)：0 ～ 30、加速度 (gal)：-500 ～ 500、曲線：波1");
}

}  // namespace
}  // namespace tremlo
