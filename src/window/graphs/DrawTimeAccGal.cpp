#include "window/graphs/DrawTimeAccGal.h"

#include "core/waves/SeismicWave.h"

#include <cmath>

namespace tremlo {

void CDrawTimeAccGal::AddWave(const std::vector<double>& samples, double timeStep, const CurvePen& pen,
                              const QString& name) {
  GraphSeries series{name, {}, WithoutBlanks(samples), pen};
  series.x.reserve(samples.size());
  for (std::size_t i = 0; i < samples.size(); ++i) {
    series.x.push_back(static_cast<double>(i) * timeStep);
    if (!std::isfinite(samples[i])) continue;
    m_smallest = std::fmin(m_smallest, samples[i]);
    m_largest = std::fmax(m_largest, samples[i]);
  }
  m_end = std::fmax(m_end, static_cast<double>(samples.size()) * timeStep);
  m_series.push_back(std::move(series));
}

void CDrawTimeAccGal::ComputeRange() {
  SetDataRange(m_end, 0.0, m_largest, m_smallest > 0.0 ? 0.0 : m_smallest);
}

}  // namespace tremlo
