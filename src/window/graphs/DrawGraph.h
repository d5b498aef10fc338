#pragma once

#include "core/graphs/CurvePick.h"
#include "core/graphs/GraphAxis.h"
#include "core/graphs/GraphRange.h"
#include "core/graphs/GraphSeries.h"

#include <QRectF>

#include <cstdint>
#include <optional>
#include <vector>

class QPainter;

namespace tremlo {

class CurveTracer;
class GraphSurface;

/// The rectangle of a graph's box, in pixels of the surface, its edges included.
struct PlotFrame {
  std::int32_t plotLeft = 0, plotTop = 0, plotRight = 0, plotBottom = 0;
  bool IsEmpty() const { return plotRight <= plotLeft || plotBottom <= plotTop; }
};

/// The area without its margins: top 28, bottom 32, left 44, right 16 pixels at a scale of 1.
PlotFrame FrameIn(const QRect& area, double scale);

/// What the three graphs share: a box with grid, labels, titles, curves and their legend on white, in colours
/// of its own whatever the palette. It draws on any painter, sharp at any scale; between drawings it keeps
/// its curves and its range.
class CDrawGraph {
 public:
  virtual ~CDrawGraph() = default;
  CDrawGraph(const CDrawGraph&) = delete;
  CDrawGraph& operator=(const CDrawGraph&) = delete;

  /// Gives the graph the limits of its data. What becomes of them says WorkingRange().
  virtual void SetDataRange(double xMax, double xMin, double yMax, double yMin);
  /// Scans the graph's own curves and calls SetDataRange().
  virtual void ComputeRange() = 0;
  /// Grid, zero lines, labels, titles.
  virtual void DrawFrame(const GraphSurface& surface) const;
  /// The tracer has the axes of this drawing.
  virtual void DrawSeries(const GraphSurface& surface, CurveTracer& tracer, const GraphSeries& series) const;

  /// The whole graph: range, frame, every curve, the legend of several, box.
  void Draw(QPainter& painter, const QRectF& area);

  GraphKind Kind() const { return m_kind; }
  const GraphRange& Range() const { return m_range; }
  const std::vector<GraphSeries>& Series() const { return m_series; }

  /// The data point to show for a position within an area in which the graph is drawn at a scale of 1; empty
  /// outside the box. Takes the range as the last ComputeRange() left it.
  std::optional<PickedPoint> PointAt(const QRect& area, const QPoint& position) const;

  double autoMargin = 1.2;  ///< extra room on the y axis when it follows the data
  double xTickFont = 1.0, yTickFont = 1.0, xTitleFont = 1.0, yTitleFont = 1.0;  ///< times 9 points

 protected:
  /// Keeps a copy of the block.
  CDrawGraph(GraphKind kind, const WaveGraphSetting& setting) : m_kind(kind), m_setting(setting) {}

  std::vector<GraphSeries> m_series;

 private:
  GraphAxis XAxis(const PlotFrame& frame) const;
  GraphAxis YAxis(const PlotFrame& frame) const;
  void DrawGrid(const GraphSurface& surface, const PlotFrame& frame) const;
  void DrawZeroLines(const GraphSurface& surface, const PlotFrame& frame) const;
  void DrawLabels(const GraphSurface& surface, const PlotFrame& frame) const;
  void DrawTitles(const GraphSurface& surface, const PlotFrame& frame) const;
  void DrawLegend(const GraphSurface& surface) const;
  void DrawBox(const GraphSurface& surface) const;

  GraphKind m_kind;
  WaveGraphSetting m_setting;
  GraphRange m_range;
};

}  // namespace tremlo
