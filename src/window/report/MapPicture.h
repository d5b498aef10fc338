#pragma once

#include "core/project/MorvaneDoc.h"

#include <QImage>
#include <QSize>

#include <optional>

namespace tremlo {

/// The map around the site as the screens show it, with the planes of the faults, cross and scale, from the
/// tiles in the program's cache alone. `size` in logical pixels, `ratio` pixels of the picture to each. None
/// when a tile is not there.
std::optional<QImage> MapPicture(const CMorvaneDoc& doc, QSize size, double ratio);

/// Whose map it is, and under which terms.
QString MapAttributionText();

}  // namespace tremlo
