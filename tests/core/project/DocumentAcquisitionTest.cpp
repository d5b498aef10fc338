#include "core/graphs/CurvePalette.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/DocumentAcquisition.h"
#include "core/project/FaultRows.h"
#include "support/DocumentState.h"
#include "support/LocalService.h"
#include "support/ProcedureParts.h"
#include "support/RecordedMessages.h"
#include "support/TestFolder.h"

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

CMorvaneDoc Project() {
  CMorvaneDoc doc{QString()};
  test::FillProject(doc);
  return doc;
}

FaultAcquisitionResult Ended(bool changed, ServiceOutcome outcome = ServiceOutcome::Done) {
  FaultAcquisitionResult result;
  result.changed = changed;
  result.outcome = outcome;
  return result;
}

/// The site of the answers of the local service.
void SetSite(CMorvaneDoc& doc) {
  doc.site.latDeg = 36.0;
  doc.site.latMin = 33.0;
  doc.site.latSec = 41.184;
  doc.site.lonDeg = 136.0;
  doc.site.lonMin = 36.0;
  doc.site.lonSec = 50.724;
  doc.site.planeZone = QStringLiteral("VII (7)");
}

/// Acquires from the local service into the document, as the screen does.
FaultAcquisitionResult Acquire(CMorvaneDoc& doc) {
  test::LocalService local;
  EXPECT_TRUE(local.IsReady());
  test::RecordedMessages messages;
  const FaultAcquisitionInput input = AcquisitionInput(doc);
  std::vector<FaultInfo> faults;
  const FaultAcquisitionResult result = AcquireFaults(input, local.Settings(), messages, faults);
  StoreAcquisition(doc, input, result, std::move(faults));
  return result;
}

TEST(DocumentAcquisition, TheInputIsWhatTheDocumentHolds) {
  CMorvaneDoc doc = Project();
  SetSite(doc);
  doc.faultAcquireMode = 1;
  doc.searchRangeKm = -2.5;
  doc.mainFaultRows.resize(3);
  const FaultAcquisitionInput input = AcquisitionInput(doc);
  EXPECT_EQ(input.mode, kAcquireRange);
  EXPECT_EQ(input.searchRangeKm, -2.5);
  EXPECT_DOUBLE_EQ(input.latitude, 36.56144);
  EXPECT_DOUBLE_EQ(input.longitude, 136.61409);
  EXPECT_EQ(input.zone, 7);
  EXPECT_EQ(input.parameters, doc.apiParameters);
  EXPECT_THAT(input.mainFaultRows, SizeIs(3));
  doc.site.planeZone = QStringLiteral("VII");
  EXPECT_EQ(AcquisitionInput(doc).zone, -1);
}

TEST(DocumentAcquisition, ModeAndRangeReachTheDocument) {
  CMorvaneDoc doc = Project();
  SetAcquireMode(doc, kAcquireRange);
  EXPECT_EQ(AcquisitionInput(doc).mode, kAcquireRange);
  EXPECT_TRUE(doc.IsModified());
  doc.searchRangeKm = 50.5;
  doc.SetModified(false);
  EnterSearchRange(doc, QString());
  EXPECT_EQ(doc.searchRangeKm, 50.5);
  EXPECT_FALSE(doc.IsModified());
  for (const double range : {0.0, -3.0, 120.0}) {
    EnterSearchRange(doc, QString::number(range));
    EXPECT_EQ(AcquisitionInput(doc).searchRangeKm, range);
    EXPECT_TRUE(doc.IsModified());
  }
}

TEST(DocumentAcquisition, EveryPlaneGetsAColourOfThePalette) {
  CMorvaneDoc doc = Project();
  std::vector<FaultInfo> faults = doc.faults;
  for (FaultInfo& fault : faults) fault.attenColor.assign(fault.attenColor.size(), 0);
  StoreAcquisition(doc, {}, Ended(true), faults);
  EXPECT_THAT(doc.faults[0].attenColor, ElementsAre(PaletteColor(0)));
  EXPECT_THAT(doc.faults[0].equivBaseColor, ElementsAre(PaletteColor(1)));
  EXPECT_THAT(doc.faults[1].attenColor, ElementsAre(PaletteColor(1), PaletteColor(2)));
  EXPECT_THAT(doc.faults[1].equivBaseColor, ElementsAre(PaletteColor(2), PaletteColor(3)));
  for (const FaultInfo& fault : doc.faults) EXPECT_EQ(fault.shortBaseColor, fault.attenColor);
  EXPECT_TRUE(doc.IsModified());
}

TEST(DocumentAcquisition, AListThatWasOnlyEmptiedIsAChangeToo) {
  CMorvaneDoc doc = Project();
  StoreAcquisition(doc, {}, Ended(true, ServiceOutcome::NoAnswer), {});
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_TRUE(doc.IsModified());
}

TEST(DocumentAcquisition, AnUnknownZoneChangesNothing) {
  CMorvaneDoc doc = Project();
  doc.site.planeZone = QStringLiteral("?");
  const DocumentState before(doc);
  test::RecordedMessages messages;
  std::vector<FaultInfo> faults;
  const FaultAcquisitionInput input = AcquisitionInput(doc);
  const FaultAcquisitionResult result = AcquireFaults(input, {}, messages, faults);
  StoreAcquisition(doc, input, result, std::move(faults));
  EXPECT_THAT(before.DifferencesTo(DocumentState(doc)), IsEmpty());
}

TEST(DocumentAcquisition, ABaseElsewhereStays) {
  CMorvaneDoc doc = Project();
  test::ChooseBase(doc, test::kLowerLabel);
  StoreAcquisition(doc, {}, Ended(true), {});
  EXPECT_EQ(doc.baseSpectrumName, QString::fromUtf16(test::kLowerLabel));
  EXPECT_EQ(MarkedBase(doc), BaseItem{});
}

TEST(DocumentAcquisition, TheReportLastsUntilTheNextProject) {
  CMorvaneDoc doc = Project();
  EXPECT_EQ(doc.lastAcquisition, std::nullopt);
  StoreAcquisition(doc, {}, Ended(true), {});
  ASSERT_TRUE(doc.lastAcquisition.has_value());
  EXPECT_EQ(doc.lastAcquisition->searchVersion, 13);
  doc.ClearFaults();
  EXPECT_TRUE(doc.lastAcquisition.has_value());
  doc.ResetDocument();
  EXPECT_EQ(doc.lastAcquisition, std::nullopt);
}

TEST(DocumentAcquisition, AnAcquiredRankingIsShownAsReckonedApart) {
  CMorvaneDoc doc = Project();
  SetSite(doc);
  doc.apiParameters = ApiParameterSet{};
  Acquire(doc);
  const FaultRows rows(doc, kAcquireRanking);
  QStringList expected =
      QString::fromUtf8(
          test::ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/expected_distances.csv"))))
          .trimmed()
          .split(u'\n')
          .mid(2);
  ASSERT_EQ(rows.RowCount(), expected.size());
  for (int row = 1; row <= rows.RowCount(); ++row) {
    const QStringList fields = expected[row - 1].split(u',');
    EXPECT_EQ(rows.Text(row, 3), fields[2]) << row;
    EXPECT_EQ(rows.Text(row, 4), fields[4]) << row;
    EXPECT_EQ(rows.Text(row, 5), fields[5]) << row;
  }
  EXPECT_EQ(rows.Text(1, 1), QString("1"));
  EXPECT_EQ(rows.Text(13, 1), QString("8"));  // the ranking has no gap where sources went
  EXPECT_EQ(rows.Text(1, 6), QString("99.9"));
  EXPECT_EQ(rows.Text(1, 9), QString("48.2"));
  EXPECT_THAT(rows.Spans(), SizeIs(7));  // the six planes of one fault
  for (const FaultInfo& fault : doc.faults) {
    EXPECT_THAT(fault.attenShow, Each(true));
    EXPECT_THAT(fault.attenUse, Each(true));
    EXPECT_THAT(fault.shortBaseSelected, Each(false));
  }
}

TEST(DocumentAcquisition, ARangeWithoutAFaultEmptiesTheList) {
  CMorvaneDoc doc = Project();
  SetSite(doc);
  doc.faultAcquireMode = kAcquireRange;
  doc.searchRangeKm = 0.0;
  doc.mainFaultRows.resize(1);  // not at the site
  EXPECT_EQ(Acquire(doc).outcome, ServiceOutcome::NothingFound);
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_TRUE(doc.IsModified());
}

}  // namespace
}  // namespace tremlo
