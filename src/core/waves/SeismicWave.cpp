#include "core/waves/SeismicWave.h"

#include <algorithm>

namespace tremlo {

std::vector<double> WithoutBlanks(const std::vector<double>& acc) {
  std::vector<double> samples = acc;
  std::replace(samples.begin(), samples.end(), kBlankSample, 0.0);
  return samples;
}

}  // namespace tremlo
