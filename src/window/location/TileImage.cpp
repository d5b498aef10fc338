#include "window/location/TileImage.h"

#include "core/location/PictureBound.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace tremlo {

namespace {

/// By what the file begins with: no other format of the reader is tried on what a service has sent.
const char* FormatOf(QFile& file) {
  const QByteArray start = file.peek(8);
  if (start == QByteArray("\x89PNG\r\n\x1A\n", 8)) return "png";
  return start.startsWith("BM") ? "bmp" : nullptr;
}

}  // namespace

std::optional<QImage> LoadPicture(const QString& path, int largestSide) {
  // What is no plain file might never end, or never begin.
  if (!QFileInfo(path).isFile()) return std::nullopt;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const char* const format = FormatOf(file);
  if (!format) return std::nullopt;
  QImageReader reader(&file, format);
  const QSize size = reader.size();
  if (!MayDecode(size.width(), size.height(), largestSide)) return std::nullopt;
  QImage image = reader.read();
  if (image.isNull()) return std::nullopt;
  return image;
}

std::optional<QImage> LoadTileImage(const QString& path) {
  return LoadPicture(path, kLargestTileSide);
}

}  // namespace tremlo
