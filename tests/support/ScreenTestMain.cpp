#include "support/TestHome.h"

#include <QApplication>

#include <cstdlib>
#include <gmock/gmock.h>

int main(int argc, char* argv[]) {
  const tremlo::test::TestHome home;
  if (!home.IsValid()) return EXIT_FAILURE;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
