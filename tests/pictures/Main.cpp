// Takes the pictures of the manual: every screen and dialog on constructed data, in the program's own window.
//
//   tremlo_pictures PICTURES RECORDS SERVICE PROJECT
//
// PICTURES gets the PNG files; RECORDS holds the made-up records, SERVICE the answers of the made-up hazard
// service; the project of the guideline route is saved as PROJECT.

#include "pictures/GuidelineRoute.h"
#include "pictures/LoneDialogs.h"
#include "pictures/ResponseRoute.h"
#include "support/TestHome.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

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
  const pictures::Places places{words[1], words[2], words[4]};
  if (!QDir().mkpath(places.pictures)) return 2;
  const test::LocalService service(words[3]);
  if (!service.IsReady()) {
    std::fprintf(stderr, "The local service does not start\n");
    return 2;
  }
  pictures::TakeResponseRoute(places, service);
  pictures::TakeGuidelineRoute(places, service);
  return 0;
}
