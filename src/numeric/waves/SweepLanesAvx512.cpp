#include "numeric/waves/SweepLanes.h"

#include <immintrin.h>

namespace tremlo::lanes {

#define V __m512d
#define LANES 8
#define VECTORS 4
#define LOAD _mm512_load_pd
#define STORE _mm512_storeu_pd
#define SET1 _mm512_set1_pd
#define ADD _mm512_add_pd
#define SUB _mm512_sub_pd
#define MUL _mm512_mul_pd
#define ABS _mm512_abs_pd
#define LARGER _mm512_max_pd

void SweepBlockAvx512(const double* rows, const double* acc, std::size_t count, double timeStep,
                      double* peaks) {
#include "numeric/waves/SweepLanesLoop.inc"
}

}  // namespace tremlo::lanes
