#include "core/project/ProjectFile.h"
#include "random/DocumentChanges.h"
#include "support/ProcedureParts.h"
#include "support/TestFolder.h"

#include <functional>
#include <gmock/gmock.h>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What is told of a change that an action made to a project far on in the work.
std::vector<std::string> ToldOf(const std::function<void(CMorvaneDoc&)>& change) {
  CMorvaneDoc doc{QString()};
  FillProject(doc);
  const DocumentMoment before(doc);
  change(doc);
  return WrongChanges(before, DocumentMoment(doc));
}

TEST(DocumentChanges, AMarkedChangeIsInOrder) {
  EXPECT_THAT(ToldOf([](CMorvaneDoc&) {}), IsEmpty());
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) {
                doc.site.title = QStringLiteral("題");
                doc.SetModified(true);
              }),
              IsEmpty());
}

TEST(DocumentChanges, AChangeWithoutItsMarkIsToldWithWhatHasChanged) {
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) { doc.site.title = QStringLiteral("題"); }),
              ElementsAre(HasSubstr("its file holds another: site")));
}

TEST(DocumentChanges, AProjectIsNotModifiedWhenItsFileHoldsIt) {
  const TestFolder folder;
  CMorvaneDoc doc{QString()};
  FillProject(doc);
  doc.SetModified(true);
  const DocumentMoment before(doc);
  ASSERT_TRUE(SaveProject(doc, folder.Path(QStringLiteral("a.trml"))));
  EXPECT_THAT(WrongChanges(before, DocumentMoment(doc)), IsEmpty());
  folder.Write(QStringLiteral("a.trml"), "another");
  EXPECT_THAT(WrongChanges(before, DocumentMoment(doc)), ElementsAre(HasSubstr("it has lost its mark")));
}

TEST(DocumentChanges, AnotherRouteIsTold) {
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) {
                doc.guidelineRoute = false;
                doc.SetModified(true);
              }),
              ElementsAre(HasSubstr("route")));
}

TEST(DocumentChanges, ResultsThatOutliveTheirDataAreTold) {
  const auto change = [](const std::function<void(CSeismicWave&)>& data) {
    return ToldOf([&](CMorvaneDoc& doc) {
      data(doc.seedWaves.At(0));
      doc.SetModified(true);
    });
  };
  EXPECT_THAT(change([](CSeismicWave& wave) { wave.acc[0] = 9.0; }),
              ElementsAre(HasSubstr("its fit was kept: A")));
  EXPECT_THAT(change([](CSeismicWave& wave) { wave.timeStep = 0.02; }),
              ElementsAre(HasSubstr("its fit was kept: A")));
  EXPECT_THAT(change([](CSeismicWave& wave) {
                wave.acc.push_back(9.0);
                wave.adjusted = false;
              }),
              ElementsAre(HasSubstr("its spectrum was kept: A")));
  EXPECT_THAT(change([](CSeismicWave& wave) {
                wave.acc.push_back(9.0);
                wave.adjusted = wave.spectrumValid = false;
              }),
              IsEmpty());
}

TEST(DocumentChanges, FaultsOfAnotherSiteAreTold) {
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) {
                doc.site.latSec += 1.0;
                doc.SetModified(true);
              }),
              ElementsAre(HasSubstr("its faults were kept")));
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) {
                doc.site.planeZone = QStringLiteral("II (2)");
                doc.ClearFaultsAndAfter();
              }),
              IsEmpty());
}

TEST(DocumentChanges, AnotherProjectIsJudgedByItself) {
  EXPECT_THAT(ToldOf([](CMorvaneDoc& doc) {
                doc.ResetDocument();
                doc.SetModified(false);
              }),
              IsEmpty());
}

}  // namespace
}  // namespace tremlo::test
