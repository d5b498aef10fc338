#include "fuzz/FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tremlo::fuzz::TREMLO_FUZZ_FUNCTION(data, size);
  return 0;
}
