#include "core/project/ProjectFields.h"
#include "core/project/ProjectFile.h"
#include "core/verify/StoredResults.h"
#include "core/verify/VerifyProject.h"
#include "support/SoundProject.h"

#include <bit>
#include <gtest/gtest.h>
#include <string>

namespace tremlo {
namespace {

/// Turns one bit of the last number of a member, wherever the fields of the file have it.
class BitTurner {
 public:
  BitTurner(const StoredResult& result, int bit) : m_result(result), m_bit(bit) {}

  template <class T>
  void operator()(const char* name, T& member) {
    Enter(name, member);
  }
  int Turned() const { return m_turned; }

 private:
  template <class T>
  void Enter(const std::string&, T&) {}
  void Enter(const std::string& name, double& value) {
    if (!m_inList || name != m_result.member || m_turned > 0) return;
    if (value == 0.0) return;  // that record has none
    value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) ^ (std::uint64_t{1} << m_bit));
    ++m_turned;
  }
  void Enter(const std::string& name, std::vector<double>& values) {
    if (!values.empty()) Enter(name, values.back());
  }
  void Enter(const std::string& name, std::vector<std::vector<double>>& rows) {
    if (!rows.empty()) Enter(name, rows.back());
  }
  void Enter(const std::string& name, CSeismicWaveSet& set) {
    m_inList = name == m_result.list;
    for (std::size_t i = 0; i < set.Count(); ++i) VisitWaveBody(*this, set.At(i));
    m_inList = false;
  }
  void Enter(const std::string& name, std::vector<FaultInfo>& faults) {
    m_inList = name == m_result.list;
    for (FaultInfo& fault : faults) VisitFaultFields(*this, fault);
    m_inList = false;
  }

  const StoredResult& m_result;
  int m_bit;
  bool m_inList = false;
  int m_turned = 0;
};

const CMorvaneDoc& Sound() {
  static const CMorvaneDoc doc = test::SoundProject();
  return doc;
}

CMorvaneDoc WithBitTurned(const StoredResult& result, int bit) {
  CMorvaneDoc doc = Sound();
  BitTurner turner(result, bit);
  VisitProjectFields(turner, doc);
  EXPECT_EQ(turner.Turned(), 1);
  return doc;
}

/// The outcome of the items about that member, taken together.
VerifyOutcome OutcomeFor(const VerifyReport& report, const StoredResult& result) {
  std::vector<VerifyItem> items;
  for (const VerifyItem& item : report.items)
    if (item.key.startsWith(QLatin1String(result.list)) &&
        item.key.endsWith(u'.' + QString::fromLatin1(result.member)))
      items.push_back(item);
  EXPECT_FALSE(items.empty());
  return OutcomeOf(items);
}

class OneBit : public testing::TestWithParam<StoredResult> {};

TEST_P(OneBit, OfTheMantissasTopMakesItDiffer) {
  const VerifyReport report = VerifyProject(WithBitTurned(GetParam(), 51));
  EXPECT_EQ(report.outcome, VerifyOutcome::Differs);
  EXPECT_EQ(OutcomeFor(report, GetParam()), VerifyOutcome::Differs);
}

TEST_P(OneBit, TheLastOneIsSeenAsWell) {
  const VerifyReport report = VerifyProject(WithBitTurned(GetParam(), 0));
  EXPECT_EQ(OutcomeFor(report, GetParam()), VerifyOutcome::Close);
  EXPECT_NE(report.outcome, VerifyOutcome::Equal);
}

TEST_P(OneBit, WithoutItAllAgree) {
  EXPECT_EQ(OutcomeFor(VerifyProject(Sound()), GetParam()), VerifyOutcome::Equal);
}

INSTANTIATE_TEST_SUITE_P(Results, OneBit, testing::ValuesIn(StoredResults().begin(), StoredResults().end()),
                         [](const auto& result) {
                           return std::string(result.param.list) + "_" + result.param.member;
                         });

}  // namespace
}  // namespace tremlo
