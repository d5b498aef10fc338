#include "window/shell/MorvaneApp.h"

#include <QApplication>

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QGuiApplication::setDesktopFileName(QStringLiteral("tremlo"));
  tremlo::CMorvaneApp program(tremlo::ProgramSettings{}, tremlo::ProgramScreens());
  const std::optional<int> ended = program.Start(QCoreApplication::arguments());
  return ended ? *ended : QApplication::exec();
}
