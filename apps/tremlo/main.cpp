#include "window/shell/MorvaneApp.h"
#include "window/shell/TremloApplication.h"

int main(int argc, char* argv[]) {
  const tremlo::TremloApplication application(argc, argv);
  QGuiApplication::setDesktopFileName(QStringLiteral("tremlo"));
  tremlo::CMorvaneApp program(tremlo::ProgramSettings{}, tremlo::ProgramScreens());
  const std::optional<int> ended = program.Start(QCoreApplication::arguments());
  return ended ? *ended : QCoreApplication::exec();
}
