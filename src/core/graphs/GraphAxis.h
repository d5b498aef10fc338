#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace tremlo {

/// Limits and step of one axis; the step is positive and finite, and not used by a logarithmic axis.
struct AxisRange {
  double min = 0.0, max = 0.0, step = 1.0;
};

struct AxisLine {
  double value = 0.0;
  int pixel = 0;
};

struct AxisLabel {
  double value = 0.0;
  int pixel = 0;
  QString text;
};

/// One axis of a graph: values to pixels and back, grid lines, labels. An axis whose limits are not finite or
/// do not ascend has no lines, no labels and no pixels (a logarithmic one may have equal limits: all is at
/// its first pixel). An axis whose lines would outnumber its pixels has neither lines nor labels.
class GraphAxis {
 public:
  enum class Scale { Linear, Logarithmic };

  /// `firstPixel` belongs to the lower limit and `lastPixel` to the upper one; the first is the larger for an
  /// axis that runs upwards. The limits of a logarithmic axis are positive.
  GraphAxis(const AxisRange& range, Scale scale, int firstPixel, int lastPixel);

  bool IsUsable() const { return m_usable; }
  bool IsLogarithmic() const { return m_scale == Scale::Logarithmic; }
  double Min() const { return m_range.min; }
  double Max() const { return m_range.max; }
  int FirstPixel() const { return m_first; }
  int LastPixel() const { return m_last; }

  /// Between the limits, both included.
  bool Contains(double value) const { return value >= m_range.min && value <= m_range.max; }
  /// Unrounded and unlimited; not a number, or infinite, for a value without a place on the axis.
  double Position(double value) const;
  /// The whole pixel, values beyond a limit at that limit's pixel; empty for what is not a number.
  std::optional<int> Pixel(double value) const;
  /// The value at a pixel: the inverse of Position().
  double Value(double position) const;

  /// Ascending. A linear axis: the multiples of the step within the limits but for zero. A logarithmic one:
  /// the decades, counted from the lower limit, but for the first, and between two of them the lines at 2 to
  /// 9 times the lower.
  std::vector<AxisLine> GridLines() const;
  /// Ascending. A linear axis: the multiples of the step within the limits, with `decimals` places. A
  /// logarithmic one: its decades, with as few places as they need.
  std::vector<AxisLabel> Labels(int decimals) const;

 private:
  double Offset(double value) const;
  std::vector<double> Ticks() const;
  std::vector<double> Decades() const;
  std::vector<double> DecadeLines() const;
  bool Outnumbers(double lines) const;

  AxisRange m_range;
  Scale m_scale;
  int m_first, m_last;
  double m_low, m_high;  ///< the limits on the scale: themselves, or their logarithms
  bool m_usable;
};

/// The value rounded to six significant digits, but never within its whole part, and without trailing zeros;
/// with an exponent only where it is tiny or huge: "0.01", "20", "1e+09".
QString ShortText(double value);

}  // namespace tremlo
