#include "core/sources/DamSpectra.h"
#include "numeric/sources/DamAttenuation.h"
#include "support/TestFolder.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tremlo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kHorizontal = QString::fromUtf16(kHorizontalMethod);
const QString kVertical = QString::fromUtf16(kVerticalMethod);

/// A set whose factors tell class, kind and period apart, and whose other coefficients are 0: with the
/// distance at 1 (and no near-source term) a spectrum is its column of factors.
DamCoefSet SetOf(const QString& method, int kind, const std::vector<double>& periods, double factor) {
  DamCoefSet set;
  set.method = method;
  set.distanceKind = kind;
  set.period = periods;
  for (std::size_t j = 0; j < periods.size(); ++j) {
    const double value = factor + static_cast<double>(j);
    set.ampA.push_back(value);
    set.ampB.push_back(value + 100.0);
    set.ampC.push_back(value + 200.0);
    set.ampD.push_back(value + 300.0);
  }
  for (auto* column :
       {&set.coefM, &set.coefM2, &set.coefD, &set.coefX, &set.coefDX, &set.coefC, &set.coefNear})
    column->assign(periods.size(), 0.0);
  return set;
}

FaultInfo FaultOf(const std::vector<QString>& classes) {
  FaultInfo fault;
  fault.magnitude = "7.0";
  fault.geomNum = static_cast<std::int32_t>(classes.size());
  fault.groundClass = classes;
  fault.planeDepth.assign(classes.size(), 12.0);
  fault.shortestDistance.assign(classes.size(), 1.0);
  fault.equivalentDistance.assign(classes.size(), 1.0);
  return fault;
}

/// The fault after one run over the sets.
FaultInfo Computed(const std::vector<DamCoefSet>& sets, const FaultInfo& fault,
                   const QString& method = kHorizontal) {
  std::vector<FaultInfo> faults = {fault};
  EXPECT_FALSE(CalculateDamSpectra(sets, method, faults));
  return faults.front();
}

std::vector<DamCoefSet> TwoForms() {
  return {SetOf(kHorizontal, 0, {0.1, 0.5, 2.0}, 10.0), SetOf(kHorizontal, 1, {1.0, 0.2}, 50.0)};
}

TEST(DamSpectra, EachFormHasItsOwnPeriodsLongestFirst) {
  const FaultInfo fault = Computed(TwoForms(), FaultOf({"A"}));
  EXPECT_THAT(fault.shortestPeriods, ElementsAre(ElementsAre(2.0, 0.5, 0.1)));
  EXPECT_THAT(fault.shortestSpectrum, ElementsAre(ElementsAre(12.0, 11.0, 10.0)));
  EXPECT_THAT(fault.equivalentPeriods, ElementsAre(ElementsAre(1.0, 0.2)));
  EXPECT_THAT(fault.equivalentSpectrum, ElementsAre(ElementsAre(50.0, 51.0)));
}

TEST(DamSpectra, TableWithEqualEndsKeepsItsOrder) {
  const FaultInfo fault = Computed({SetOf(kHorizontal, 0, {0.5, 2.0, 0.5}, 10.0)}, FaultOf({"A"}));
  EXPECT_THAT(fault.shortestSpectrum, ElementsAre(ElementsAre(10.0, 11.0, 12.0)));
}

TEST(DamSpectra, ClassChoosesTheFactorColumnOfThePlane) {
  const FaultInfo fault = Computed(TwoForms(), FaultOf({"B", "D", "A", "C"}));
  EXPECT_THAT(fault.equivalentSpectrum, ElementsAre(ElementsAre(150.0, 151.0), ElementsAre(350.0, 351.0),
                                                    ElementsAre(50.0, 51.0), ElementsAre(250.0, 251.0)));
}

TEST(DamSpectra, UnknownClassLeavesItsPlaneEmpty) {
  for (const char* text : {"E", "a", "", "A "}) {
    const FaultInfo fault = Computed(TwoForms(), FaultOf({"A", QString(text)}));
    ASSERT_EQ(fault.shortestSpectrum.size(), 2U);
    EXPECT_EQ(fault.shortestSpectrum[0].size(), 3U);
    EXPECT_THAT(fault.shortestPeriods[1], IsEmpty());
    EXPECT_THAT(fault.shortestSpectrum[1], IsEmpty());
    EXPECT_THAT(fault.equivalentPeriods[1], IsEmpty());
    EXPECT_THAT(fault.equivalentSpectrum[1], IsEmpty());
  }
}

TEST(DamSpectra, EachFormTakesItsOwnDistanceAndThePlanesDepth) {
  std::vector<DamCoefSet> sets = {SetOf(kHorizontal, 0, {0.5}, 1.0), SetOf(kHorizontal, 1, {0.5}, 1.0)};
  const DamCoefficients coef = {.coefM = 0.5,
                                .coefM2 = -0.02,
                                .coefD = 0.004,
                                .coefX = 0.003,
                                .coefDX = 0.00001,
                                .coefC = 0.3,
                                .coefNear = 0.01};
  for (DamCoefSet& set : sets) {
    set.coefM = {coef.coefM};
    set.coefM2 = {coef.coefM2};
    set.coefD = {coef.coefD};
    set.coefX = {coef.coefX};
    set.coefDX = {coef.coefDX};
    set.coefC = {coef.coefC};
    set.coefNear = {coef.coefNear};
  }
  FaultInfo fault = FaultOf({"A", "A"});
  fault.planeDepth = {5.0, 12.0};
  fault.shortestDistance = {2.0, 20.0};
  fault.equivalentDistance = {4.0, 23.8};
  fault = Computed(sets, fault);
  EXPECT_EQ(fault.shortestSpectrum[1][0], ShortestDistanceResponse(coef, 1.0, 7.0, 12.0, 20.0));
  EXPECT_EQ(fault.equivalentSpectrum[1][0], EquivalentDistanceResponse(coef, 1.0, 7.0, 12.0, 23.8));
  EXPECT_EQ(fault.shortestSpectrum[0][0], ShortestDistanceResponse(coef, 1.0, 7.0, 5.0, 2.0));
}

TEST(DamSpectra, UnreadableMagnitudeCountsAsZero) {
  std::vector<DamCoefSet> sets = {SetOf(kHorizontal, 0, {0.5}, 1.0)};
  sets[0].coefM = {1.0};
  FaultInfo fault = FaultOf({"A"});
  fault.magnitude = "-";
  EXPECT_EQ(Computed(sets, fault).shortestSpectrum[0][0], 1.0);
  fault.magnitude = "2.0abc";
  EXPECT_NEAR(Computed(sets, fault).shortestSpectrum[0][0], 100.0, 1e-11);
}

TEST(DamSpectra, OtherRelationReplacesAllSpectra) {
  std::vector<DamCoefSet> sets = TwoForms();
  sets.push_back(SetOf(kVertical, 0, {3.0}, 7.0));
  std::vector<FaultInfo> faults = {FaultOf({"A"}), FaultOf({"A", "B"})};
  ASSERT_FALSE(CalculateDamSpectra(sets, kHorizontal, faults));
  ASSERT_FALSE(CalculateDamSpectra(sets, kVertical, faults));
  for (const FaultInfo& fault : faults) {
    EXPECT_THAT(fault.shortestPeriods[0], ElementsAre(3.0));
    EXPECT_THAT(fault.shortestSpectrum[0], ElementsAre(7.0));
    EXPECT_THAT(fault.equivalentPeriods[0], IsEmpty());
    EXPECT_THAT(fault.equivalentSpectrum[0], IsEmpty());
  }
  EXPECT_THAT(faults[1].shortestSpectrum[1], ElementsAre(107.0));
}

TEST(DamSpectra, RelationWithoutTablesGivesEmptySpectra) {
  const FaultInfo fault = Computed(TwoForms(), FaultOf({"A"}), QStringLiteral("別の式"));
  EXPECT_THAT(fault.shortestSpectrum, ElementsAre(IsEmpty()));
  EXPECT_THAT(fault.equivalentPeriods, ElementsAre(IsEmpty()));
}

TEST(DamSpectra, LaterSetOfAKindReplacesTheEarlier) {
  std::vector<DamCoefSet> sets = TwoForms();
  sets.push_back(SetOf(kHorizontal, 0, {4.0}, 9.0));
  const FaultInfo fault = Computed(sets, FaultOf({"A"}));
  EXPECT_THAT(fault.shortestSpectrum[0], ElementsAre(9.0));
  EXPECT_EQ(fault.equivalentSpectrum[0].size(), 2U);
}

TEST(DamSpectra, KindThatIsNeitherEndsTheProgramAndLeavesTheFaults) {
  std::vector<DamCoefSet> sets = TwoForms();
  std::vector<FaultInfo> faults = {Computed(sets, FaultOf({"A"}))};
  const std::vector<FaultInfo> before = faults;
  sets.push_back(SetOf(kHorizontal, 2, {1.0}, 1.0));
  const std::optional<TableFailure> failure = CalculateDamSpectra(sets, kHorizontal, faults);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, QString("ダム距離減衰式の係数取得においてエラーが発生しました。"));
  EXPECT_EQ(failure->exitStatus, 1);
  EXPECT_EQ(faults, before);
  EXPECT_FALSE(CalculateDamSpectra(sets, kVertical, faults));
}

TEST(DamSpectra, FaultWithoutPlanesKeepsEmptyOutputs) {
  const FaultInfo fault = Computed(TwoForms(), FaultOf({}));
  EXPECT_TRUE(fault.shortestPeriods.empty() && fault.shortestSpectrum.empty() &&
              fault.equivalentPeriods.empty() && fault.equivalentSpectrum.empty());
}

TEST(DamSpectra, PlanesEndWhereTheirNumberOrAVectorEnds) {
  FaultInfo fault = FaultOf({"A", "A", "A"});
  fault.geomNum = 9;
  fault.equivalentDistance.pop_back();
  EXPECT_EQ(Computed(TwoForms(), fault).shortestSpectrum.size(), 2U);
  fault.geomNum = 1;
  EXPECT_EQ(Computed(TwoForms(), fault).equivalentSpectrum.size(), 1U);
  fault.geomNum = -1;
  EXPECT_TRUE(Computed(TwoForms(), fault).shortestPeriods.empty());
}

// M 7, depth 12 km, X 20 km, Xeq 23.8 km, class A; reckoned from the rows of the tables with 40 digits.
TEST(DamSpectra, ShippedTablesByTheirPeriods) {
  std::vector<DamCoefSet> sets;
  ASSERT_FALSE(LoadDamCoefFolder(test::SourcePath("data"), sets));
  FaultInfo fault = FaultOf({"A"});
  fault.shortestDistance = {20.0};
  fault.equivalentDistance = {23.8};
  fault = Computed(sets, fault);
  const auto at = [](const std::vector<double>& periods, const std::vector<double>& values, double period) {
    for (std::size_t j = 0; j < periods.size(); ++j)
      if (periods[j] == period) return values[j];
    return 0.0;
  };
  const std::vector<std::array<double, 3>> figures = {{0.02, 89.03049768385957, 88.65809169553105},
                                                      {0.1, 252.0697120258479, 249.8786853351480},
                                                      {1.0, 38.76132623379365, 40.88478732198525},
                                                      {5.0, 6.603535485938393, 6.773151079667993}};
  for (const auto& [period, shortest, equivalent] : figures) {
    EXPECT_NEAR(at(fault.shortestPeriods[0], fault.shortestSpectrum[0], period), shortest, 1e-10) << period;
    EXPECT_NEAR(at(fault.equivalentPeriods[0], fault.equivalentSpectrum[0], period), equivalent, 1e-10)
        << period;
  }
}

}  // namespace
}  // namespace tremlo
