#include "core/shell/TitleText.h"
#include "window/shell/MorvaneApp.h"
#include "window/shell/TremloApplication.h"

#include <cstdio>
#include <string_view>

int main(int argc, char* argv[]) {
  // Told without a display, too.
  if (argc == 2 && std::string_view(argv[1]) == "--version") {
    std::puts(("tremlo " + tremlo::VersionAndCommit()).toUtf8().constData());
    return 0;
  }
  const tremlo::TremloApplication application(argc, argv);
  QGuiApplication::setDesktopFileName(QStringLiteral("tremlo"));
  tremlo::CMorvaneApp program(tremlo::ProgramSettings{}, tremlo::ProgramScreens());
  const std::optional<int> ended = program.Start(QCoreApplication::arguments());
  return ended ? *ended : QCoreApplication::exec();
}
