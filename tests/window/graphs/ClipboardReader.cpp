// Writes the picture on the clipboard to standard output as PNG; ends with 1 if there is none.

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <cstdio>

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  const QImage picture = QGuiApplication::clipboard()->image();
  QFile out;
  const bool written =
      !picture.isNull() && out.open(stdout, QIODevice::WriteOnly) && picture.save(&out, "PNG") && out.flush();
  return written ? 0 : 1;
}
