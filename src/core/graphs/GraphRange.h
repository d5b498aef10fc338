#pragma once

#include "core/waves/WaveGraphSetting.h"

namespace tremlo {

/// The three graphs: acceleration over time, response spectrum over period, Fourier amplitude over period.
enum class GraphKind { Time, Spectrum, Fourier };

/// Where a block keeps the limits and the step of one axis. A logarithmic axis has no step.
struct AxisFields {
  double WaveGraphSetting::*min = nullptr;
  double WaveGraphSetting::*max = nullptr;
  double WaveGraphSetting::*step = nullptr;
};
AxisFields HorizontalFields(GraphKind kind, bool logarithmic);
AxisFields VerticalFields(GraphKind kind);

/// The switch of the logarithmic period axis; null for the time graph, which has none.
std::int32_t WaveGraphSetting::*LogField(GraphKind kind);
std::int32_t WaveGraphSetting::*ColorField(GraphKind kind);
bool HasLogarithmicAxis(GraphKind kind, const WaveGraphSetting& setting);

/// Limits of a graph's data, as its own scan finds them.
struct DataRange {
  double xMax = 0.0, xMin = 0.0, yMax = 0.0, yMin = 0.0;
};

/// The axes at work for one drawing. The steps are always positive and finite, the limits of a logarithmic x
/// axis never 0 nor negative; any limit may be infinite or not a number.
struct GraphRange {
  double xMin = 0.0, xMax = 0.0, xStep = 1.0;
  double dataXMin = 0.0, dataXMax = 0.0;
  double yStep = 1.0, yMin = 0.0, yMax = 0.0;
  bool logarithmic = false;  ///< the x axis
};

/// The range of a drawing: the block's own values, or, with `autoRange` on, those of the data: the upper x
/// limit at least 20, the upper y limit at least 100, both y limits widened by the factor `autoMargin`. A
/// logarithmic x axis has the block's limits either way.
GraphRange WorkingRange(GraphKind kind, const WaveGraphSetting& setting, const DataRange& data,
                        double autoMargin);

/// The step, or 1.0 for one that cannot divide an axis: zero, negative, infinite, not a number.
double UsableStep(double step);

/// The step of an axis that follows the data: `step` while it makes 3 to 12 intervals, else the smallest of
/// 1, 2, 5 times a power of ten that makes at most 12. An axis without extent keeps `step`.
double StepForSpan(double span, double step);

}  // namespace tremlo
