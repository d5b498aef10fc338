#include "window/shell/AboutDlg.h"
#include "window/shell/DlgTop.h"
#include "window/shell/PropertyQa.h"
#include "window/shell/ShellParts.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSet>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using testing::IsEmpty;

bool TakesKeys(const QWidget& widget) {
  return widget.focusPolicy() != Qt::NoFocus && !widget.focusProxy();
}

/// Controls below `top` that lack a name, or whose object name another one bears. What Qt itself puts into a
/// control, such as the list of a combo box, belongs to that control.
QStringList Unnamed(const QWidget& top) {
  QStringList faults;
  QSet<QString> seen;
  for (QWidget* control : top.findChildren<QWidget*>()) {
    const bool own = control->window() == top.window() && !control->objectName().startsWith(u"qt_");
    if (!own || !TakesKeys(*control)) continue;
    const QString name = control->objectName();
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(control);
    const bool spoken = reader && !reader->text(QAccessible::Name).isEmpty();
    if (name.isEmpty() || seen.contains(name) || !spoken)
      faults << QLatin1String(control->metaObject()->className()) + u' ' + name;
    seen << name;
  }
  return faults;
}

/// One of several buttons of which one is down; the arrow keys lead from that one to the others.
bool IsUnchosen(const QWidget& control) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&control);
  const bool oneOfSeveral = button && (button->autoExclusive() || button->group());
  return oneOfSeveral && button->isCheckable() && !button->isChecked();
}

/// Where the tab key has to stop.
QSet<QWidget*> TabStops(const QWidget& window) {
  QSet<QWidget*> stops;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const bool stopsTab = (control->focusPolicy() & Qt::TabFocus) != 0 && !control->focusProxy();
    if (stopsTab && control->window() == &window && control->isVisible() && control->isEnabled() &&
        !IsUnchosen(*control))
      stops << control;
  }
  return stops;
}

/// With the screens of the program, as far as they are there.
class ControlNamesTest : public test::ShellTest {
 protected:
  void SetUp() override {
    MakeWithOwnScreens([] { return TopChoice::ResponseRoute; });
    ExpectOffline();
    ASSERT_EQ(Start(), std::nullopt);
  }
};

TEST_F(ControlNamesTest, PaneAndScreensHaveNamesForPrograms) {
  EXPECT_THAT(Unnamed(*app->Frame()->Pane()), IsEmpty());
  for (const ScreenId id :
       {ScreenId::Field, ScreenId::FlowCheck, ScreenId::Flowchart1, ScreenId::Flowchart2,
        ScreenId::Flowchart3, ScreenId::DamsiteWave, ScreenId::BaseSpectrum, ScreenId::RespOrigSeismicWave,
        ScreenId::RespAdjustSpectrum, ScreenId::RespVisualization})
    EXPECT_THAT(Unnamed(*app->Frame()->ScreenOf(id)), IsEmpty());
}

TEST_F(ControlNamesTest, TabLeadsToEveryControl) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  for (const ScreenId id : {ScreenId::RespOrigSeismicWave, ScreenId::RespAdjustSpectrum,
                            ScreenId::BaseSpectrum, ScreenId::FlowCheck, ScreenId::Flowchart2}) {
    ASSERT_EQ(app->Procedure().SwitchScreen(id), SwitchOutcome::Open);
    QSet<QWidget*> left = TabStops(*app->Frame());
    EXPECT_GT(left.size(), 5);
    for (int i = 0; i < 60; ++i) {
      left.remove(QApplication::focusWidget());
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QStringList names;
    for (const QWidget* control : left) names << control->objectName();
    EXPECT_THAT(names, IsEmpty());
  }
}

TEST_F(ControlNamesTest, DialogsOfTheShellHaveThemToo) {
  EXPECT_THAT(Unnamed(CDlgTop()), IsEmpty());
  EXPECT_THAT(Unnamed(CAboutDlg({QStringLiteral("LowSpec")}, nullptr)), IsEmpty());
  for (const ChartQuestion question : kChartQuestions)
    EXPECT_THAT(Unnamed(CPropertyQa(question, {})), IsEmpty());
}

TEST_F(ControlNamesTest, DialogOfTheMenuBelongsToTheWindowWhileAnotherProgramIsInFront) {
  QApplication::setActiveWindow(nullptr);
  QWidget* parent = nullptr;
  test::WhenModal(QStringLiteral("CDlgAdjustSetting"), [&](QWidget* dialog) {
    parent = dialog->parentWidget();
    dialog->close();
  });
  Trigger(Menu()->adjustSettings);
  EXPECT_EQ(parent, app->Frame());
}

TEST_F(ControlNamesTest, EntriesOfTheMenuHaveNamesAndHints) {
  for (const QAction* menu : Menu()->actions()) {
    EXPECT_FALSE(menu->menu()->objectName().isEmpty()) << menu->text().toStdString();
    for (const QAction* entry : menu->menu()->actions()) {
      if (entry->isSeparator()) continue;
      const bool named = !(entry->menu() ? entry->menu()->objectName() : entry->objectName()).isEmpty();
      EXPECT_TRUE(named && !entry->statusTip().isEmpty()) << entry->text().toStdString();
    }
  }
}

}  // namespace
}  // namespace tremlo
