#include "core/graphs/GraphAxis.h"

#include "core/files/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tremlo {
namespace {

// Part of a step by which a multiple may miss a limit through rounding and still be taken as on it.
constexpr double kOnLimit = 1e-9;

QString WithoutMinusZero(const QString& text) {
  const bool zero =
      std::all_of(text.begin(), text.end(), [](QChar c) { return c == u'-' || c == u'0' || c == u'.'; });
  return zero && text.startsWith(u'-') ? text.mid(1) : text;
}

}  // namespace

GraphAxis::GraphAxis(const AxisRange& range, Scale scale, int firstPixel, int lastPixel)
    : m_range(range),
      m_scale(scale),
      m_first(firstPixel),
      m_last(lastPixel),
      m_low(scale == Scale::Linear ? range.min : std::log10(range.min)),
      m_high(scale == Scale::Linear ? range.max : std::log10(range.max)),
      m_usable(std::isfinite(m_high - m_low) && (scale == Scale::Linear ? m_high > m_low : m_high >= m_low)) {
}

double GraphAxis::Offset(double value) const {
  const double pixels = m_last - m_first;
  // The order of the operations decides on which side of a whole pixel a tick falls.
  if (m_scale == Scale::Linear) return pixels * (value - m_low) / (m_high - m_low);
  return m_high == m_low ? 0.0 : (std::log10(value) - m_low) / (m_high - m_low) * pixels;
}

double GraphAxis::Position(double value) const {
  return m_first + Offset(value);
}

std::optional<int> GraphAxis::Pixel(double value) const {
  if (!m_usable || std::isnan(value)) return std::nullopt;
  if (value > m_range.max) return m_last;
  if (value < m_range.min) return m_first;
  const double offset = Offset(value);
  if (!std::isfinite(offset)) return std::nullopt;
  const double whole = m_scale == Scale::Linear ? std::trunc(offset) : std::round(offset);
  return m_first + static_cast<int>(whole);
}

double GraphAxis::Value(double position) const {
  const double onScale = m_low + (position - m_first) / (m_last - m_first) * (m_high - m_low);
  return m_scale == Scale::Linear ? onScale : std::pow(10.0, onScale);
}

std::vector<AxisLine> GraphAxis::GridLines() const {
  std::vector<AxisLine> lines;
  for (const double value : m_scale == Scale::Linear ? Ticks() : DecadeLines()) {
    if (m_scale == Scale::Linear && value == 0.0) continue;
    if (const auto pixel = Pixel(value)) lines.push_back({value, *pixel});
  }
  return lines;
}

std::vector<AxisLabel> GraphAxis::Labels(int decimals) const {
  std::vector<AxisLabel> labels;
  if (m_scale == Scale::Linear) {
    for (const double value : Ticks())
      if (const auto pixel = Pixel(value))
        labels.push_back({value, *pixel, WithoutMinusZero(FixedText(value, decimals))});
    return labels;
  }
  for (const double exponent : Decades()) {
    const double value = std::pow(10.0, exponent);
    if (const auto pixel = Pixel(value)) labels.push_back({value, *pixel, ShortText(value)});
  }
  return labels;
}

std::vector<double> GraphAxis::Ticks() const {
  std::vector<double> ticks;
  if (!m_usable) return ticks;
  const double step = m_range.step;
  const double first = std::floor(((10.0 / step) * m_range.min + 5.0) / 10.0);
  const double count = std::floor((m_range.max - first * step) / step + kOnLimit) + 1.0;
  if (Outnumbers(count)) return ticks;
  for (int i = 0; i < static_cast<int>(count); ++i) {
    // A multiple of the step rather than a running sum, which would drift off the round numbers.
    const double value = (first + i) * step;
    if (value >= m_range.min - kOnLimit * step) ticks.push_back(value);
  }
  return ticks;
}

std::vector<double> GraphAxis::Decades() const {
  std::vector<double> exponents;
  if (!m_usable) return exponents;
  const double count = std::floor(m_high + 1e-9 - m_low) + 1.0;
  if (Outnumbers(9.0 * count)) return exponents;
  for (int i = 0; i < static_cast<int>(count); ++i) exponents.push_back(m_low + i);
  return exponents;
}

std::vector<double> GraphAxis::DecadeLines() const {
  std::vector<double> values;
  bool first = true;
  for (const double exponent : Decades()) {
    const double decade = std::pow(10.0, exponent);
    const double next = std::pow(10.0, exponent + 1.0);
    const double step = (next - decade) / 9.0;
    if (!first) values.push_back(decade);
    first = false;
    for (int k = 1; k <= 8; ++k) {
      const double value = decade + k * step;
      if (value < next - 1e-9 && value < m_range.max) values.push_back(value);
    }
  }
  return values;
}

// Written so that a count that is not a number, or minus infinity, outnumbers as well.
bool GraphAxis::Outnumbers(double lines) const {
  return !(lines >= 0.0 && lines <= std::abs(m_last - m_first));
}

QString ShortText(double value) {
  const double magnitude = std::fabs(value);
  if (value != 0.0 && !(magnitude >= 1e-6 && magnitude < 1e9)) return QString::number(value, 'g', 6);
  const int digitsBefore = value == 0.0 ? 1 : static_cast<int>(std::floor(std::log10(magnitude))) + 1;
  QString text = FixedText(value, std::max(0, 6 - digitsBefore));
  if (text.contains(u'.')) {
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
  }
  return WithoutMinusZero(text);
}

}  // namespace tremlo
