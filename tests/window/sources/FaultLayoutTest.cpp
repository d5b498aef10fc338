#include "FaultScreenParts.h"

#include <QComboBox>
#include <QRadioButton>

namespace tremlo {
namespace {

using test::FaultScreenTest;
using test::Settle;

/// What is left for a screen of the window's 1200 x 800, and of a window that fills 1024 x 768.
constexpr QSize kUsual{1000, 720};
constexpr QSize kSmall{824, 640};

/// Whether all that a user reads on the control has room.
void ExpectWhole(const QWidget& window) {
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    const bool text = widget->inherits("QAbstractButton") || widget->inherits("QComboBox");
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap()) {
      EXPECT_GE(widget->height(), label->heightForWidth(widget->width()))
          << widget->objectName().toStdString();
    } else if (text || label) {
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
    }
    if (widget->parentWidget()->inherits("QAbstractScrollArea") || widget->objectName().startsWith("qt_"))
      continue;
    if (widget->focusPolicy() == Qt::NoFocus && !label) continue;
    const QRect place(widget->mapTo(&window, QPoint()), widget->size());
    EXPECT_TRUE(window.rect().contains(place)) << widget->objectName().toStdString();
  }
}

class FaultLayoutTest : public FaultScreenTest, public testing::WithParamInterface<QSize> {
 protected:
  /// So many faults of three planes each.
  void AddFaults(int count) {
    const FaultInfo one = doc.faults[1];
    doc.faults.clear();
    for (int i = 0; i < count; ++i) {
      FaultInfo fault = one;
      fault.rank = QString::number(i + 1);
      fault.ltename = QStringLiteral("糸魚川-静岡構造線断層帯（北部）%1").arg(i);
      doc.faults.push_back(fault);
    }
  }
};

TEST_P(FaultLayoutTest, NothingIsCutOffWithAnyNumberOfFaults) {
  AcquisitionReport report;
  report.searchVersion = 4;
  report.activityVersion = 15;
  for (int i = 0; i < 12; ++i)
    report.unread.push_back(QStringLiteral("糸魚川-静岡構造線断層帯（北部）%1").arg(i));
  doc.lastAcquisition = report;
  const FaultInfo kept = doc.faults[1];
  for (const int count : {0, 1, 30}) {
    doc.faults = {kept, kept};
    AddFaults(count);
    online = count != 1;
    Open("", GetParam());
    EXPECT_EQ(screen->size(), GetParam());
    ExpectWhole(*screen);
    EXPECT_GE(Map().height(), 200);
    if (const QString picture = qEnvironmentVariable("TREMLO_PICTURES"); !picture.isEmpty()) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return !Map().IsPainting(); }));
      driver->Picture().save(QStringLiteral("%1/screen-%2-%3-%4.png")
                                 .arg(picture)
                                 .arg(GetParam().width())
                                 .arg(count)
                                 .arg(qEnvironmentVariable("QT_SCALE_FACTOR", "1")));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, FaultLayoutTest, testing::Values(kUsual, kSmall));

TEST(FaultLayout, TheDialogShowsAllAndKeepsItsSize) {
  InstallJapaneseFonts();
  CMorvaneDoc doc{QString()};
  test::ScriptedPrompt prompt;
  CDlgFaultExploration dialog(doc, prompt, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  Settle();
  ExpectWhole(dialog);
  EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
  EXPECT_LT(dialog.width(), 800);
  EXPECT_LT(dialog.height(), 600);
  if (const QString picture = qEnvironmentVariable("TREMLO_PICTURES"); !picture.isEmpty())
    dialog.grab().save(
        QStringLiteral("%1/dialog-%2.png").arg(picture, qEnvironmentVariable("QT_SCALE_FACTOR", "1")));
}

}  // namespace
}  // namespace tremlo
