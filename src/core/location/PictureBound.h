#pragma once

namespace tremlo {

/// Largest side of a tile's picture in pixels: the service sends 256, others twice that. A small file may
/// claim a picture that fills the memory; beyond this bound it is none.
inline constexpr int kLargestTileSide = 1024;
/// The same for the picture that stands in place of the map while the program is offline.
inline constexpr int kLargestOfflineSide = 4096;

/// Whether a picture that says it is so large may be decoded. One without a size may not.
constexpr bool MayDecode(int width, int height, int largestSide) {
  return width >= 1 && height >= 1 && width <= largestSide && height <= largestSide;
}

}  // namespace tremlo
