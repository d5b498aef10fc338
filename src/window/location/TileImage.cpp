#include "window/location/TileImage.h"

#include "core/location/PictureBound.h"

#include <QFileInfo>
#include <QImageReader>

namespace tremlo {

std::optional<QImage> LoadPicture(const QString& path, int largestSide) {
  // What is no plain file might never end, or never begin.
  if (!QFileInfo(path).isFile()) return std::nullopt;
  for (const char* format : {"png", "bmp"}) {
    QImageReader reader(path, format);
    // Else any of the reader's formats would be tried on what a service sent.
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!MayDecode(size.width(), size.height(), largestSide)) continue;
    QImage image = reader.read();
    if (!image.isNull()) return image;
  }
  return std::nullopt;
}

std::optional<QImage> LoadTileImage(const QString& path) {
  return LoadPicture(path, kLargestTileSide);
}

}  // namespace tremlo
