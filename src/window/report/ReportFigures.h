#pragma once

#include "core/project/MorvaneDoc.h"
#include "core/report/ReportBlocks.h"

#include <QSizeF>

#include <optional>

class QPainter;

namespace tremlo {

/// The figures of a report, drawn as the screens draw them, as vectors but for the map. Sizes are in the
/// logical pixels of a screen at 100 %.

/// Width of every figure.
inline constexpr int kFigureWidth = 640;

/// Height of the figure; none when there is nothing to draw: a map of which the cache lacks a tile.
std::optional<int> FigureHeight(const CMorvaneDoc& doc, ReportPicture picture);

/// Draws it from the painter's origin. The document has a wave to report on.
void PaintFigure(const CMorvaneDoc& doc, ReportPicture picture, QPainter& painter);

}  // namespace tremlo
