#include "shell/AboutDlg.h"
#include "shell/DlgTop.h"
#include "shell/ShellParts.h"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QSet>

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

/// With the screens of the program, as far as they are there.
class ControlNamesTest : public test::ShellTest {
 protected:
  void SetUp() override {
    ProgramDoors doors;
    doors.prompt = &prompt;
    doors.files = &files;
    doors.askRoute = [](bool, QWidget*) { return TopChoice::ResponseRoute; };
    doors.endProgram = [](int) {};
    app = std::make_unique<MorvaneApp>(settings, ProgramScreens(), doors);
    ExpectOffline();
    ASSERT_EQ(Start(), std::nullopt);
  }
};

TEST_F(ControlNamesTest, PaneAndScreensHaveNamesForPrograms) {
  EXPECT_THAT(Unnamed(*app->Frame()->Pane()), IsEmpty());
  for (const ScreenId id :
       {ScreenId::RespOrigSeismicWave, ScreenId::RespAdjustSpectrum, ScreenId::RespVisualization})
    EXPECT_THAT(Unnamed(*app->Frame()->ScreenOf(id)), IsEmpty());
}

TEST_F(ControlNamesTest, DialogsOfTheShellHaveThemToo) {
  EXPECT_THAT(Unnamed(CDlgTop(true)), IsEmpty());
  EXPECT_THAT(Unnamed(CDlgTop(false)), IsEmpty());
  EXPECT_THAT(Unnamed(CAboutDlg({QStringLiteral("LowSpec")}, nullptr)), IsEmpty());
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
