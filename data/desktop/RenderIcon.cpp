// RenderIcon PICTURE.svg SIZE OUT.png: the picture as an icon of SIZE by SIZE pixels. A step of the build, so
// that no icon is older than its picture.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 4) return 1;
  QSvgRenderer picture(words[1]);
  const int size = words[2].toInt();
  if (!picture.isValid() || size <= 0) return 1;
  QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
  icon.fill(Qt::transparent);
  {
    QPainter painter(&icon);
    picture.render(&painter);
  }
  return icon.save(words[3], "PNG") ? 0 : 1;
}
