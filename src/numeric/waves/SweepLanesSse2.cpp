#include "numeric/waves/SweepLanes.h"

#include <emmintrin.h>

namespace tremlo::lanes {

#define V __m128d
#define LANES 2
#define VECTORS 4
#define LOAD _mm_load_pd
#define STORE _mm_storeu_pd
#define SET1 _mm_set1_pd
#define ADD _mm_add_pd
#define SUB _mm_sub_pd
#define MUL _mm_mul_pd
#define ABS(value) _mm_andnot_pd(_mm_set1_pd(-0.0), value)
#define LARGER _mm_max_pd

void SweepBlockSse2(const double* rows, const double* acc, std::size_t count, double timeStep,
                    double* peaks) {
#include "numeric/waves/SweepLanesLoop.inc"
}

}  // namespace tremlo::lanes
