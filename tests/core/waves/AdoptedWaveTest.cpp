#include "core/waves/AdoptedWave.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

TEST(AdoptedWave, TheFirstThatIsAdoptedCounts) {
  CSeismicWaveSet waves;
  EXPECT_EQ(AdoptedWave(waves), std::nullopt);
  for (const char* name : {"A", "B", "C"}) waves.Add(QString::fromLatin1(name));
  EXPECT_EQ(AdoptedWave(waves), std::nullopt);
  waves.At(2).adopted = true;
  EXPECT_EQ(AdoptedWave(waves), 2U);
  waves.At(1).adopted = true;
  EXPECT_EQ(AdoptedWave(waves), 1U);
}

}  // namespace
}  // namespace tremlo
