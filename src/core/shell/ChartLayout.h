#pragma once

#include "core/location/DPoly.h"
#include "core/shell/ChartLook.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace tremlo {

/// Where everything stands on the chart, in its own pixels, y downwards.
inline constexpr QSize kChartSize{950, 664};

/// The outline of a box: what is drawn, and what a click has to hit.
CDPoly OutlineOf(ChartBox box);
/// The box below a point of the chart.
std::optional<ChartBox> BoxAt(QPoint point);

/// A path of the chart.
struct ChartLine {
  std::vector<QPoint> points;
  bool head = true;  ///< an arrow head at its end; without, it joins another path
};
const std::vector<ChartLine>& ChartLines();

/// The two arrows that join the characteristics for the adjustment.
struct ChartArrow {
  QPoint from;
  QPoint to;
};
inline constexpr std::array<ChartArrow, 2> kChartArrows = {
    {{{772, 480}, {772, 592}}, {{488, 607}, {705, 607}}}};
inline constexpr int kChartArrowWidth = 10;

enum class LabelKind {
  Start,      ///< in a rounded box
  Heading,    ///< of a characteristic
  YesOrNo,    ///< beside a path
  Reference,  ///< to the manual
};

struct ChartLabel {
  LabelKind kind;
  const char16_t* text;
  QRect place;
};
const std::vector<ChartLabel>& ChartLabels();

/// The areas of the two characteristics.
inline constexpr std::array<QRect, 2> kChartAreas = {QRect{14, 66, 556, 570}, QRect{608, 66, 332, 428}};

}  // namespace tremlo
