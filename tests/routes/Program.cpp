#include "window/shell/MorvaneApp.h"
#include "window/shell/TremloApplication.h"

#include <QPalette>

namespace {

QString Word(const char* variable) {
  return qEnvironmentVariable(variable);
}

/// The services of this machine in place of the public ones, no pause that only serves a person, and a
/// program folder of the test's own.
tremlo::ProgramSettings TestSettings() {
  tremlo::ProgramSettings settings;
  settings.services.hazardAddress = settings.services.tileAddress = Word("TREMLO_TEST_SERVICE");
  settings.services.certificateFile = Word("TREMLO_TEST_CERTIFICATE");
  settings.services.probePauseMs = 1;
  settings.splashMs = 1;
  settings.folders = Word("TREMLO_TEST_PROGRAM_FOLDER");
  return settings;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (Word("TREMLO_TEST_SERVICE").isEmpty() || Word("TREMLO_TEST_PROGRAM_FOLDER").isEmpty()) {
    qCritical("TREMLO_TEST_SERVICE and TREMLO_TEST_PROGRAM_FOLDER must be set: no test asks a public host");
    return 2;
  }
  const tremlo::TremloApplication application(argc, argv);
  tremlo::CMorvaneApp program(TestSettings(), tremlo::ProgramScreens());
  // As on a dark desktop.
  if (!Word("TREMLO_TEST_DARK").isEmpty()) QApplication::setPalette(QPalette(QColor(40, 40, 40)));
  const std::optional<int> ended = program.Start(QCoreApplication::arguments());
  return ended ? *ended : QCoreApplication::exec();
}
