#include "support/TestHome.h"

#include <QCoreApplication>

#include <cstdlib>
#include <gmock/gmock.h>

int main(int argc, char* argv[]) {
  const tremlo::test::TestHome home;
  if (!home.IsValid()) return EXIT_FAILURE;
  const QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
