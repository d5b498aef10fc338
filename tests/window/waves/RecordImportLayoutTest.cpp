#include "support/PaletteChange.h"
#include "window/waves/DlgSelectMembers.h"
#include "window/waves/RecordImportTest.h"

#include <QScreen>

// On a monitor that is small, at every scale.

namespace tremlo::test {
namespace {

/// Pictures are kept where a folder for them is named.
void Keep(QWidget& shown, const char* name) {
  const QString folder = qEnvironmentVariable("TREMLO_SCREENSHOTS");
  if (folder.isEmpty()) return;
  const QString scale = QString::number(shown.devicePixelRatioF());
  shown.grab().save(folder + u'/' + QLatin1String(name) + u'_' + scale + QStringLiteral(".png"));
}

void ExpectOnTheMonitor(QWidget& dialog) {
  const QRect room = dialog.screen()->availableGeometry();
  EXPECT_LE(dialog.width(), room.width());
  EXPECT_LE(dialog.height(), room.height());
  const QSize size = dialog.size();
  Settle();
  EXPECT_EQ(dialog.size(), size);
  for (const char* name : {"okButton", "cancelButton"}) {
    auto& button = In<QAbstractButton>(dialog, name);
    const QRect place(button.mapTo(&dialog, QPoint()), button.size());
    EXPECT_TRUE(dialog.rect().contains(place)) << name;
    EXPECT_GE(button.width(), button.sizeHint().width()) << name;
  }
}

/// Each control that the tab key comes to is seen.
void ExpectEachStopInSight(QWidget& dialog) {
  QSet<QWidget*> seen;
  while (!seen.contains(QApplication::focusWidget())) {
    QWidget* const focus = QApplication::focusWidget();
    seen << focus;
    EXPECT_FALSE(focus->visibleRegion().isEmpty()) << focus->objectName().toStdString();
    PressKey(Qt::Key_Tab);
  }
  EXPECT_GT(seen.size(), 4);
  EXPECT_TRUE(dialog.isVisible());
}

using RecordImportLayout = RecordImportScreen;

TEST_F(RecordImportLayout, TheDialogHasItsRoom) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    ExpectOnTheMonitor(dialog);
    Keep(dialog, "import");
    ExpectEachStopInSight(dialog);
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("jma/SAMPLE_99901.csv");
}

TEST_F(RecordImportLayout, SoItHasWithWarningsAndQuestions) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    ExpectOnTheMonitor(dialog);
    Keep(dialog, "import_questions");
    ExpectEachStopInSight(dialog);
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("warn/SAMPLE_no_unit.txt", 1);
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    ExpectOnTheMonitor(dialog);
    Keep(dialog, "import_warnings");
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("warn/SMP0030001010000.UD1", 1);
}

TEST_F(RecordImportLayout, TheListOfMembersHasItsRoom) {
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    ExpectOnTheMonitor(dialog);
    Keep(dialog, "members");
    ExpectEachStopInSight(dialog);
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("knet/20000101000000.tar");
}

/// The cell that the arrow keys have come to is seen.
void ExpectCellInSight(QWidget& dialog, const char* name, int downs) {
  CSpread7& grid = In<CSpread7>(dialog, name);
  TabTo(dialog, name);
  for (int i = 0; i < downs; ++i) PressKey(Qt::Key_Down);
  const QRect cell = grid.visualRect(grid.currentIndex());
  EXPECT_TRUE(grid.viewport()->visibleRegion().contains(cell.center())) << name;
}

TEST_F(RecordImportLayout, TheCellThatTheArrowsComeToIsInSight) {
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    ExpectCellInSight(dialog, "memberGrid", 8);
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("knet/20000101000000.tar");
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    ExpectCellInSight(dialog, "componentGrid", 5);
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("kiknet/SAMPLE_SMPH02.csv");
}

TEST_F(RecordImportLayout, OnADarkDesktopToo) {
  PaletteChange palette;
  palette.ToDark();
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    ExpectOnTheMonitor(dialog);
    Keep(dialog, "import_dark");
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  palette.Back();
}

TEST_F(RecordImportLayout, TheScreenHasItsLine) {
  ReadFixture("knet/SMP0010001010000.EW");
  Keep(*screen.window(), "screen");
  auto& label = driver.Find<QLabel>("recordNote");
  EXPECT_FALSE(label.visibleRegion().isEmpty());
  EXPECT_GE(label.height(), label.fontMetrics().height());
  ReadFixture("text/SAMPLE_one_column_gal.txt");
  Keep(*screen.window(), "screen_own");
  EXPECT_FALSE(driver.Find<QWidget>("otherFormatButton").visibleRegion().isEmpty());
}

}  // namespace
}  // namespace tremlo::test
