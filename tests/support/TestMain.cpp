#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdlib>
#include <gmock/gmock.h>

int main(int argc, char* argv[]) {
  // No test sees the user's folders, nor those of another test that runs beside it.
  const QTemporaryDir home;
  if (!home.isValid()) return EXIT_FAILURE;
  for (const char* variable :
       {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
    const QString folder = home.filePath(QString::fromLatin1(variable));
    QDir().mkpath(folder);
    qputenv(variable, folder.toUtf8());
  }
  const QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
