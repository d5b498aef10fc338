#include "support/DocumentState.h"
#include "support/ProcedureParts.h"

#include <bit>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

/// The members that the snapshot finds changed after `change`.
std::vector<std::string> Found(const std::function<void(CMorvaneDoc&)>& change) {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  const DocumentState before(doc);
  change(doc);
  return before.DifferencesTo(DocumentState(doc));
}

TEST(DocumentState, TwoSnapshotsOfOneDocumentAreEqualAlsoWithNotANumberInIt) {
  EXPECT_THAT(Found([](CMorvaneDoc&) {}), IsEmpty());
}

TEST(DocumentState, SeesEveryKindOfChange) {
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.SetModified(true); }), ElementsAre("modified"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.site.comments[9] = "x"; }), ElementsAre("site"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.seedWaves.At(2).baseSelected = true; }),
              ElementsAre("seedWaves"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.seedWaves.At(0).origGraph.reserved[5] = 0; }),
              ElementsAre("seedWaves"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.faults[1].adjustShowEquiv[1] = true; }),
              ElementsAre("faults"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.faults[1].equivalentSpectrum.push_back({}); }),
              ElementsAre("faults"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.apiParameters.periodIndex = 1; }),
              ElementsAre("apiParameters"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.lowerSpectra.At(1).lowerSelected = true; }),
              ElementsAre("lowerSpectra"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.damCoefSets.emplace_back(); }), ElementsAre("damCoefSets"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.mainFaultRows.emplace_back(); }),
              ElementsAre("mainFaultRows"));
}

TEST(DocumentState, TellsNumbersApartByTheirBits) {
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.seedWaves.At(0).acc[1] = -kBlankSample; }),
              ElementsAre("seedWaves"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) { doc.seedWaves.At(0).acc[2] = 0.0; }), ElementsAre("seedWaves"));
  EXPECT_THAT(Found([](CMorvaneDoc& doc) {
                doc.seedWaves.At(0).acc[3] = std::bit_cast<double>(0x7FF8000000000001ULL);
              }),
              ElementsAre("seedWaves"));
}

TEST(DocumentState, AValueMovedToTheNextListIsAChange) {
  EXPECT_THAT(Found([](CMorvaneDoc& doc) {
                CSeismicWave& wave = doc.seedWaves.At(0);
                wave.adjustedPeriods.push_back(wave.adjustedSpec.front());
                wave.adjustedSpec.erase(wave.adjustedSpec.begin());
              }),
              ElementsAre("seedWaves"));
}

}  // namespace
}  // namespace tremlo
