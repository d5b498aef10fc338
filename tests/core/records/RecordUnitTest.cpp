#include "core/records/RecordUnit.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo {
namespace {

double Gal(std::string_view word) {
  const auto unit = UnitOfWord(word);
  return unit ? unit->gal : 0.0;
}

TEST(RecordUnit, EachSpellingHasItsFactor) {
  for (const char* gal :
       {"gal", "Gal", "GAL", "cm/s2", "cm/s/s", "cm/sec2", "cm/sec/sec", "cm/s**2", "cm/s^2", "CM/SEC2"})
    EXPECT_EQ(Gal(gal), 1.0) << gal;
  for (const char* metre : {"m/s2", "m/s/s", "m/sec**2", "M/S^2"}) EXPECT_EQ(Gal(metre), 100.0) << metre;
  for (const char* milli : {"mm/s2", "mm/s/s"}) EXPECT_EQ(Gal(milli), 0.1) << milli;
  EXPECT_EQ(Gal("g"), 980.665);
  EXPECT_EQ(Gal("G"), 980.665);
  EXPECT_EQ(Gal("mg"), 0.980665);
  EXPECT_EQ(Gal("in/s2"), 2.54);
}

TEST(RecordUnit, VelocityCountsAndOtherWordsAreNone) {
  for (const char* word : {"cm/s", "cm/sec", "m/s", "mm/s", "count", "counts", "", "km/s2", "gallery", "kg"})
    EXPECT_EQ(Gal(word), 0.0) << word;
}

std::vector<double> GalsIn(std::string_view text) {
  std::vector<double> gals;
  for (const RecordUnit& unit : UnitsInText(text)) gals.push_back(unit.gal);
  return gals;
}

TEST(RecordUnit, TextsNameTheirUnits) {
  using Gals = std::vector<double>;
  EXPECT_EQ(GalsIn("SAMPLE values gal dt 0.01"), Gals{1.0});
  EXPECT_EQ(GalsIn("time acceleration (cm/s**2)"), Gals{1.0});
  EXPECT_EQ(GalsIn("Acc[m/s2]"), Gals{100.0});
  EXPECT_EQ(GalsIn("UNITS: G"), Gals{980.665});
  EXPECT_EQ(GalsIn("IN UNITS OF G,  PGV= 10 CM/SEC"), Gals{980.665});
  EXPECT_EQ(GalsIn("acc (g)"), Gals{980.665});
  EXPECT_EQ(GalsIn("mm/s2"), Gals{0.1});
  EXPECT_EQ(GalsIn("加速度(gal)"), Gals{1.0});
  EXPECT_EQ(GalsIn("gal or (g)"), (Gals{1.0, 980.665}));
}

TEST(RecordUnit, ALetterGAloneIsNoUnit) {
  EXPECT_TRUE(GalsIn("station g 12").empty());
  EXPECT_TRUE(GalsIn("PGV 3 cm/s").empty());
  EXPECT_TRUE(GalsIn("gallery 7").empty());
}

}  // namespace
}  // namespace tremlo
