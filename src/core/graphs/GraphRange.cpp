#include "core/graphs/GraphRange.h"

#include <cmath>

namespace tremlo {
namespace {

constexpr double kMinIntervals = 3.0;
constexpr double kMaxIntervals = 12.0;

double LogarithmicLimit(double limit) {
  return limit == 0.0 ? 1.0 : std::fabs(limit);
}

}  // namespace

AxisFields HorizontalFields(GraphKind kind, bool logarithmic) {
  using Block = WaveGraphSetting;
  switch (kind) {
    case GraphKind::Time:
      return {&Block::timeXMin, &Block::timeXMax, &Block::timeXStep};
    case GraphKind::Spectrum:
      if (logarithmic) return {&Block::specLogXMin, &Block::specLogXMax, nullptr};
      return {&Block::specXMin, &Block::specXMax, &Block::specXStep};
    case GraphKind::Fourier:
      break;
  }
  if (logarithmic) return {&Block::fourierLogXMin, &Block::fourierLogXMax, nullptr};
  return {&Block::fourierXMin, &Block::fourierXMax, &Block::fourierXStep};
}

AxisFields VerticalFields(GraphKind kind) {
  using Block = WaveGraphSetting;
  switch (kind) {
    case GraphKind::Time:
      return {&Block::timeYMin, &Block::timeYMax, &Block::timeYStep};
    case GraphKind::Spectrum:
      return {&Block::specYMin, &Block::specYMax, &Block::specYStep};
    case GraphKind::Fourier:
      break;
  }
  return {&Block::fourierYMin, &Block::fourierYMax, &Block::fourierYStep};
}

std::int32_t WaveGraphSetting::*LogField(GraphKind kind) {
  if (kind == GraphKind::Time) return nullptr;
  return kind == GraphKind::Spectrum ? &WaveGraphSetting::specLog : &WaveGraphSetting::fourierLog;
}

std::int32_t WaveGraphSetting::*ColorField(GraphKind kind) {
  if (kind == GraphKind::Time) return &WaveGraphSetting::timeColor;
  return kind == GraphKind::Spectrum ? &WaveGraphSetting::specColor : &WaveGraphSetting::fourierColor;
}

bool HasLogarithmicAxis(GraphKind kind, const WaveGraphSetting& setting) {
  const auto field = LogField(kind);
  return field != nullptr && setting.*field != 0;
}

GraphRange WorkingRange(GraphKind kind, const WaveGraphSetting& setting, const DataRange& data,
                        double autoMargin) {
  const bool logarithmic = HasLogarithmicAxis(kind, setting);
  const AxisFields x = HorizontalFields(kind, logarithmic);
  const AxisFields y = VerticalFields(kind);

  GraphRange range;
  range.logarithmic = logarithmic;
  range.dataXMin = data.xMin;
  range.dataXMax = data.xMax;
  range.xMin = setting.*x.min;
  range.xMax = setting.*x.max;
  range.xStep = logarithmic ? 1.0 : UsableStep(setting.*x.step);
  range.yMin = setting.*y.min;
  range.yMax = setting.*y.max;
  range.yStep = UsableStep(setting.*y.step);

  if (logarithmic) {
    range.xMin = LogarithmicLimit(range.xMin);
    range.xMax = LogarithmicLimit(range.xMax);
  }
  if (setting.autoRange == 0) return range;

  if (!logarithmic) {
    range.xMin = data.xMin;
    range.xMax = data.xMax >= 20.1 ? data.xMax : 20.0;
    range.xStep = StepForSpan(range.xMax - range.xMin, range.xStep);
  }
  range.yMin = autoMargin * data.yMin;
  range.yMax = autoMargin * (data.yMax >= 100.1 ? data.yMax : 100.0);
  range.yStep = StepForSpan(range.yMax - range.yMin, range.yStep);
  return range;
}

double UsableStep(double step) {
  return std::isfinite(step) && step > 0.0 ? step : 1.0;
}

double StepForSpan(double span, double step) {
  if (!std::isfinite(span) || span <= 0.0) return step;
  const double intervals = span / step;
  if (intervals >= kMinIntervals && intervals <= kMaxIntervals) return step;

  const int exponent = static_cast<int>(std::floor(std::log10(span / kMaxIntervals)));
  for (int power = exponent; power <= exponent + 1; ++power) {
    for (const double mantissa : {1.0, 2.0, 5.0}) {
      // A power below one is divided by, since 0.1 itself is no exact number.
      const double candidate =
          power < 0 ? mantissa / std::pow(10.0, -power) : mantissa * std::pow(10.0, power);
      if (span / candidate <= kMaxIntervals) return candidate;
    }
  }
  return step;
}

}  // namespace tremlo
