// The map while it is dragged and zoomed with every tile in memory, while its tile service is dead, and what
// a long walk over it leaves in memory. Prints a table of its own.

#include "BenchPlatform.h"
#include "EventLoopWatch.h"
#include "window/location/MapControl.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <vector>

namespace tremlo {
namespace {

constexpr QSize kSize(1200, 800);
constexpr int kFrames = 60;

/// A tile as the service sends it: a palette, thin lines, lettering.
QByteArray TilePicture() {
  QImage image(256, 256, QImage::Format_RGB32);
  image.fill(0xFFF4F8F0);
  QPainter painter(&image);
  for (int i = 0; i < 40; ++i) {
    painter.setPen(QColor::fromHsv(i * 9, 120, 200));
    painter.drawLine(i * 7, 0, 255 - i * 3, 255);
    painter.drawText(i * 37 % 230, i * 53 % 250, QString::number(i));
  }
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.convertToFormat(QImage::Format_Indexed8).save(&buffer, "PNG");
  return bytes;
}

/// Answers at once, or never.
class Service {
 public:
  TileDownload Download() {
    return [this](const QString&, QByteArray& content, const std::stop_token& stop) {
      std::unique_lock lock(m_mutex);
      m_changed.wait(lock, stop, [this] { return !m_dead; });
      if (stop.stop_requested()) return TileOutcome::BrokenOff;
      content = m_picture;
      return TileOutcome::Done;
    };
  }
  void SetDead(bool dead) {
    const std::lock_guard lock(m_mutex);
    m_dead = dead;
    m_changed.notify_all();
  }

 private:
  QByteArray m_picture = TilePicture();
  std::mutex m_mutex;
  std::condition_variable_any m_changed;
  bool m_dead = false;
};

void Finish(const MapControl& map) {
  while (map.IsPainting()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QCoreApplication::processEvents();  // the paint event itself
}

/// Median time in milliseconds from a change of the view to its picture on display.
template <class Change>
double MedianFrame(MapControl& map, Change change) {
  std::vector<double> times;
  for (int frame = 0; frame < kFrames; ++frame) {
    QElapsedTimer timer;
    timer.start();
    change(frame);
    Finish(map);
    times.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
  }
  std::nth_element(times.begin(), times.begin() + kFrames / 2, times.end());
  return times[kFrames / 2];
}

/// Memory of this process in MiB.
double ResidentMemory() {
  std::ifstream statm("/proc/self/statm");
  double pages = 0.0;
  statm >> pages >> pages;
  return pages * 4096.0 / (1024.0 * 1024.0);
}

void Report(const char* what, double value, const char* unit) {
  std::printf("%-58s %8.2f %s\n", what, value, unit);
}

void Run(const QString& folder) {
  CMorvaneDoc doc(folder);
  doc.site.mapZoom = 12;
  doc.site.mapScale = 1.1;
  Service service;
  MapControl map(
      doc, [] { return true; },
      TileCache(folder, QStringLiteral("http://tiles.example"), service.Download()));
  map.resize(kSize);
  map.show();
  Finish(map);
  const GeoPoint center{map.Map().view.centerLon, map.Map().view.centerLat};
  const auto pan = [&](int frame) { map.CenterOn({center.lon + (frame % 10) * 0.002, center.lat}); };
  const auto zoom = [&](int frame) {
    doc.site.mapScale = 0.8 + 0.01 * (frame % 60);
    map.Repaint();
  };
  for (int frame = 0; frame < 60; ++frame) {
    pan(frame);
    Finish(map);
    zoom(frame);
    Finish(map);
  }
  Report("pan, tiles in memory, median frame", MedianFrame(map, pan), "ms");
  Report("zoom, tiles in memory, median frame", MedianFrame(map, zoom), "ms");

  service.SetDead(true);
  EventLoopWatch watch(1);
  for (int move = 0; move < 200; ++move) {
    map.CenterOn({center.lon + 1.0 + move * 0.002, center.lat});
    QCoreApplication::processEvents();
  }
  map.Abandon();
  watch.RunTicks(2);
  Report("drag over missing tiles of a dead service, longest step", watch.LongestMs(), "ms");
  service.SetDead(false);

  const double before = ResidentMemory();
  const std::size_t first = map.TileCount();
  for (int step = 0; map.TileCount() < first + 2000; ++step) {
    map.CenterOn({center.lon + 2.0 + (step % 20) * 0.4, center.lat + step / 20 * 0.2});
    Finish(map);
  }
  Report("2,000 tiles more in memory", ResidentMemory() - before, "MiB");
}

}  // namespace
}  // namespace tremlo

int main(int argc, char* argv[]) {
  const QTemporaryDir folder;
  tremlo::PaintOffscreenByDefault(folder.path());
  const QApplication application(argc, argv);
  tremlo::Run(folder.path());
}
