#pragma once

#include "core/graphs/GraphFile.h"

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace tremlo {

class CDrawGraph;

/// A graph in so many pixels of a screen with the given ratio; null is an empty area.
QImage PaintedGraph(CDrawGraph* graph, const QSize& pixels, double devicePixelRatio);

/// The same for a view of that size, without its rim: 4 pixels of its width and 8 of its height.
QImage GraphPicture(CDrawGraph* graph, const QSize& view, double devicePixelRatio);

/// The content of a file with that picture: a PNG file with twice its pixels in either direction, an SVG or
/// PDF file with lines and texts as such. All are as large in a document as the picture on a screen at 100 %.
/// An SVG file is shown with the fonts of the machine that shows it, a PDF file brings its own. Throws
/// std::bad_alloc where there is no memory for it.
QByteArray PictureFile(PictureFormat format, CDrawGraph& graph, const QSize& view, double devicePixelRatio);

}  // namespace tremlo
