#pragma once

#include "core/shell/ChartLook.h"

#include <QFont>
#include <QPolygonF>
#include <QRect>

class QPainter;

namespace tremlo {

/// The drawing of the chart of the questions, in its own pixels. It keeps its light colours in a dark theme.
/// The looks of a box differ in line, mark and weight of the text as well as in colour.

QFont ChartFont();  ///< of everything on the chart

QPolygonF OutlinePolygon(ChartBox box);
/// Where the box is painted, its line included.
QRect PlaceOfBox(ChartBox box);

/// Paper, areas, paths and captions; the boxes are painted over it.
void PaintChartGround(QPainter& painter);
void PaintChartBox(QPainter& painter, ChartBox box, BoxLook look);
/// The whole chart.
void PaintChart(QPainter& painter, const BoxLooks& looks);

}  // namespace tremlo
