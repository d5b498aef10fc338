#pragma once

#include <QImage>
#include <QString>

#include <optional>

namespace tremlo {

/// Loads a PNG or a BMP of at most so many pixels a side. None when the file is no such picture, or says that
/// it is larger, in which case not one of its pixels is decoded.
std::optional<QImage> LoadPicture(const QString& path, int largestSide);

/// The same for a file of the tile cache.
std::optional<QImage> LoadTileImage(const QString& path);

}  // namespace tremlo
