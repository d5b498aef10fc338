// Takes the pictures of the manual: every screen and dialog on constructed data, in the program's own window.
//
//   tremlo_pictures PICTURES RECORDS SERVICE PROJECT
//
// PICTURES gets the PNG files; RECORDS, a relative path, holds the made-up records, SERVICE the answers of
// the made-up hazard service; the project of the guideline route is saved as PROJECT.

#include "pictures/GuidelineRoute.h"
#include "pictures/LoneDialogs.h"
#include "pictures/ResponseRoute.h"
#include "support/TestHome.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// Copies a folder of records to the same relative place below another one.
bool CopyRecords(const QDir& from, const QString& folder, const QString& to) {
  const QDir source(from.absoluteFilePath(folder)), target(QDir(to).filePath(folder));
  if (QDir::isAbsolutePath(folder) || !target.mkpath(QStringLiteral("."))) return false;
  const QStringList files = source.entryList(QDir::Files);
  return std::all_of(files.begin(), files.end(), [&](const QString& file) {
    return QFile::copy(source.filePath(file), target.filePath(file));
  });
}

}  // namespace

int main(int argc, char* argv[]) {
  using namespace tremlo;
  const test::TestHome home;
  if (!home.IsValid()) return EXIT_FAILURE;
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TREMLO_SOURCE_DIR "/docs/manual/monitor.json");
  const QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);  // else a picture would show it now and then
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 5) {
    std::fprintf(stderr, "Usage: tremlo_pictures PICTURES RECORDS SERVICE PROJECT\n");
    return 1;
  }
  const QDir start = QDir::current();
  const pictures::Places places{start.absoluteFilePath(words[1]), words[2], start.absoluteFilePath(words[4])};
  if (!QDir().mkpath(places.pictures)) return 2;
  const test::LocalService service(start.absoluteFilePath(words[3]));
  // Pictures show paths. In a folder of its own all of them are relative, the same wherever it is.
  const QTemporaryDir stage;
  if (!CopyRecords(start, words[2], stage.path()) || !QDir::setCurrent(stage.path())) {
    std::fprintf(stderr, "The records cannot be copied\n");
    return 2;
  }
  if (!service.IsReady()) {
    std::fprintf(stderr, "The local service does not start\n");
    return 2;
  }
  pictures::TakeResponseRoute(places, service);
  pictures::TakeGuidelineRoute(places, service);
  QDir::setCurrent(start.path());
  return 0;
}
