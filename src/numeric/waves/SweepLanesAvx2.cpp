#include "numeric/waves/SweepLanes.h"

#include <immintrin.h>

namespace tremlo::lanes {

#define V __m256d
#define LANES 4
#define VECTORS 3
#define LOAD _mm256_load_pd
#define STORE _mm256_storeu_pd
#define SET1 _mm256_set1_pd
#define ADD _mm256_add_pd
#define SUB _mm256_sub_pd
#define MUL _mm256_mul_pd
#define ABS(value) _mm256_andnot_pd(_mm256_set1_pd(-0.0), value)
#define LARGER _mm256_max_pd

void SweepBlockAvx2(const double* rows, const double* acc, std::size_t count, double timeStep,
                    double* peaks) {
#include "numeric/waves/SweepLanesLoop.inc"
}

}  // namespace tremlo::lanes
