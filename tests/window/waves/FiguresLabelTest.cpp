#include "support/PaletteChange.h"
#include "support/ScreenDriver.h"
#include "support/TestFolder.h"
#include "support/Waves.h"
#include "window/waves/FiguresLabel.h"

#include <QAccessible>
#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

namespace tremlo::test {
namespace {

using testing::HasSubstr;

/// A record of usual size, its adjusted wave there too.
CSeismicWave AdjustedWave() {
  CSeismicWave wave;
  wave.name = QStringLiteral("A<b>C</b>");
  wave.timeStep = 0.01;
  wave.acc = RecordLike(3000, 4);
  wave.adjustedAcc = RecordLike(4096, 5);
  wave.adjusted = true;
  return wave;
}

class FiguresLabelTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  FiguresLabelTest() { label.TellWave(&wave); }

  /// What the tool tip says at a place of the label.
  std::string TipAt(int x) {
    const QPoint at(x, 4);
    QHelpEvent event(QEvent::ToolTip, at, label.mapToGlobal(at));
    QCoreApplication::sendEvent(&label, &event);
    return QToolTip::text().toStdString();
  }
  int Middle(std::size_t part) const {
    const std::vector<int> edges = label.Edges();
    return (edges[part] + edges[part + 1]) / 2;
  }
  void Widen(int width) {
    label.window()->resize(width, 100);
    Settle();
  }
  /// The last column of pixels that is not of the background.
  int PaintedWidth() {
    const QImage image = label.grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int x = image.width() - 1; x >= 0; --x)
      for (int y = 0; y < image.height(); ++y)
        if (image.pixel(x, y) != image.pixel(image.width() - 1, image.height() - 1)) return x + 1;
    return 0;
  }
  /// Opens the context menu and presses what it holds.
  void CopyByMenu(QContextMenuEvent::Reason reason) {
    QContextMenuEvent event(reason, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text().section(u'\t', 0, 0), QStringLiteral("コピー"));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    Settle();
  }

  CSeismicWave wave = AdjustedWave();
  FiguresLabel label{nullptr};
  ScreenDriver driver{label, {1000, 100}};
};

TEST_F(FiguresLabelTest, HasALineForEachWave) {
  EXPECT_EQ(label.text(), FiguresOf(wave)[0].Text() + u'\n' + FiguresOf(wave)[1].Text());
  EXPECT_TRUE(label.isVisible());
  wave.adjusted = false;
  label.TellWave(&wave);
  EXPECT_EQ(label.text(), FiguresOf(wave)[0].Text());
  EXPECT_LT(label.sizeHint().height(), 2 * label.fontMetrics().height());
  label.TellWave(nullptr);
  EXPECT_FALSE(label.isVisible());
  EXPECT_EQ(label.text() + label.toolTip(), "");
}

TEST_F(FiguresLabelTest, TheSameFiguresStandBelowEachOther) {
  const std::vector<int> edges = label.Edges();
  ASSERT_EQ(edges.size(), 9U);
  for (std::size_t i = 0; i < 7; ++i)
    for (const FiguresLine& line : FiguresOf(wave))
      EXPECT_LT(label.fontMetrics().horizontalAdvance(line.figures[i].Text()),
                edges[i + 2] - edges[i + 1] + 1);
  for (std::size_t i = 1; i < edges.size(); ++i) EXPECT_GT(edges[i], edges[i - 1]);
}

TEST_F(FiguresLabelTest, IsShownInFullBesideTheStepsOfAWindowOf1200Pixels) {
  Widen(986);
  for (const double size : {1.0, 10.0, 0.01}) {  // the largest records, and those that are far away
    CSeismicWave sized = wave;
    for (double& a : sized.acc) a *= size;
    label.TellWave(&sized);
    EXPECT_FALSE(label.IsElided()) << label.text().toStdString();
    EXPECT_NEAR(PaintedWidth(), label.Edges().back(), 12);
  }
}

TEST_F(FiguresLabelTest, MoreRoomPartsTheFigures) {
  Widen(label.Edges().back());
  const std::vector<int> close = label.Edges();
  Widen(1400);
  EXPECT_GT(label.Edges()[7] - close[7], 7 * 3);
  EXPECT_LT(label.Edges().back(), 1200) << "they are one line, not columns of a table";
}

TEST_F(FiguresLabelTest, EndsInAnEllipsisWhereItIsTooNarrow) {
  for (const int width : {900, 600, 100, 20}) {
    Widen(width);
    ASSERT_EQ(label.width(), width) << "it never widens its window";
    EXPECT_TRUE(label.IsElided());
    EXPECT_GT(PaintedWidth(), 0);
    EXPECT_LE(PaintedWidth(), width);
  }
  EXPECT_EQ(label.text().count(u'\n'), 1) << "what is copied and read out stays";
}

TEST_F(FiguresLabelTest, ATipSaysWhatTheFigureBelowThePointerIs) {
  const std::vector<FiguresLine> lines = FiguresOf(wave);
  for (std::size_t i = 0; i < 7; ++i) {
    const std::string tip = TipAt(Middle(i + 1));
    EXPECT_THAT(tip, HasSubstr(lines[0].figures[i].definition.toStdString()));
    EXPECT_THAT(tip, HasSubstr("原種波形 " + lines[0].figures[i].value.toStdString()));
    EXPECT_THAT(tip, HasSubstr("調整後波形 " + lines[1].figures[i].value.toStdString()));
  }
  EXPECT_EQ(TipAt(Middle(0)), "<qt>「A&lt;b&gt;C&lt;/b&gt;」</qt>");
  TipAt(label.Edges().back() + 5);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "behind the last one";
}

TEST_F(FiguresLabelTest, WhereItIsTooNarrowTheTipSaysAll) {
  Widen(300);
  const std::string tip = TipAt(5);
  for (const FiguresLine& line : FiguresOf(wave)) {
    for (const FigureText& figure : line.figures) {
      EXPECT_THAT(tip, HasSubstr(figure.label.toStdString()));
      EXPECT_THAT(tip, HasSubstr(line.title.toStdString() + " " + figure.value.toStdString()));
      EXPECT_THAT(tip, HasSubstr(figure.definition.toStdString()));
    }
  }
}

TEST_F(FiguresLabelTest, TheContextMenuCopiesTheText) {
  for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
    QApplication::clipboard()->setText("x");
    CopyByMenu(reason);
    EXPECT_EQ(QApplication::clipboard()->text(), label.text());
  }
  EXPECT_EQ(label.findChildren<QMenu*>().size(), 0) << "each menu goes when it is closed";
}

TEST_F(FiguresLabelTest, IsReachedAndCopiedByKeys) {
  EXPECT_TRUE(label.focusPolicy() & Qt::TabFocus);
  const QImage before = label.grab().toImage();
  label.setFocus(Qt::TabFocusReason);
  driver.Key(Qt::Key_Tab);  // to itself: it stands alone
  EXPECT_NE(label.grab().toImage(), before) << "the focus is seen";
  QApplication::clipboard()->setText("x");
  driver.Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), label.text());
}

TEST_F(FiguresLabelTest, IsReadOutWithItsWaveAndItsDefinitions) {
  EXPECT_EQ(label.objectName(), "figuresLabel");
  EXPECT_EQ(label.accessibleName(), "地震動指標 「A<b>C</b>」 " + label.text());
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&label);
  EXPECT_EQ(spoken->role(), QAccessible::StaticText);
  EXPECT_EQ(spoken->text(QAccessible::Name), label.accessibleName());
  EXPECT_THAT(spoken->text(QAccessible::Description).toStdString(), HasSubstr("加速度の絶対値の最大"));
}

TEST_F(FiguresLabelTest, FollowsThePalette) {
  PaletteChange palette;
  const QImage light = label.grab().toImage();
  palette.ToDark();
  EXPECT_NE(label.grab().toImage(), light);
  EXPECT_GT(PaintedWidth(), 500);
  palette.Back();
  EXPECT_EQ(label.grab().toImage(), light);
}

}  // namespace
}  // namespace tremlo::test
