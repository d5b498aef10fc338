#include "core/verify/VerifyInvariants.h"

#include "core/project/BaseSpectrum.h"
#include "core/project/ProjectFields.h"
#include "core/verify/VerifyFaults.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <set>
#include <string_view>

namespace tremlo {

namespace {

/// One rule with the places where it is broken.
class Rule {
 public:
  Rule(const char* key, const QString& name) {
    m_item.key = QStringLiteral("invariants.") + QLatin1String(key);
    m_item.name = name;
  }

  void Break(const QString& at, const QString& place, const QString& reason) {
    if (m_count++ > 0) return;
    m_item.outcome = VerifyOutcome::Differs;
    m_item.difference = std::numeric_limits<double>::quiet_NaN();
    m_item.at = at;
    m_item.place = place;
    m_item.reason = reason;
  }
  void Require(bool holds, const QString& at, const QString& place, const QString& reason) {
    if (!holds) Break(at, place, reason);
  }

  VerifyItem Item() const {
    VerifyItem item = m_item;
    if (m_count > 1) item.reason += QStringLiteral("ほか %1 か所。").arg(m_count - 1);
    return item;
  }

 private:
  VerifyItem m_item;
  int m_count = 0;
};

QString Member(const char* list, std::size_t index, const char* member) {
  return QLatin1String(list) + u'[' + QString::number(index) + QStringLiteral("].") + QLatin1String(member);
}

QString Quoted(const QString& name) {
  return u'「' + name + u'」';
}

/// What carries a mark of the base spectrum, by its label. Waves of one name count once, since marks are set
/// by name, and so do the lower limits that are marked as chosen together.
std::multiset<QString> MarkedLabels(const CMorvaneDoc& doc) {
  std::set<QString> waves;
  for (const CSeismicWave& wave : doc.seedWaves.Records())
    if (wave.baseSelected) waves.insert(wave.name);
  std::multiset<QString> labels(waves.begin(), waves.end());
  for (const FaultInfo& fault : doc.faults) {
    for (std::size_t plane = 0; plane < fault.shortBaseSelected.size(); ++plane)
      if (fault.shortBaseSelected[plane]) labels.insert(ShortestLabel(fault, plane));
    for (std::size_t plane = 0; plane < fault.equivBaseSelected.size(); ++plane)
      if (fault.equivBaseSelected[plane]) labels.insert(EquivalentLabel(fault, plane));
  }
  bool chosenCounted = false;
  for (const CSeismicWave& limit : doc.lowerSpectra.Records()) {
    if (!limit.baseSelected || (limit.lowerSelected && chosenCounted)) continue;
    chosenCounted = chosenCounted || limit.lowerSelected;
    labels.insert(limit.name);
  }
  return labels;
}

VerifyItem BaseRule(const CMorvaneDoc& doc) {
  Rule rule("base", QStringLiteral("基準スペクトルは一つで、名前と印が合う"));
  const QString at = QStringLiteral("baseSpectrumName");
  const std::multiset<QString> labels = MarkedLabels(doc);
  if (labels.size() > 1) {
    rule.Break(at, QString(), QStringLiteral("印が %1 個あります。").arg(labels.size()));
  } else if (labels.empty()) {
    rule.Require(doc.baseSpectrumName.isEmpty(), at, Quoted(doc.baseSpectrumName),
                 QStringLiteral("名前がありますが、印がどこにもありません。"));
  } else {
    rule.Require(*labels.begin() == doc.baseSpectrumName, at, Quoted(doc.baseSpectrumName),
                 QStringLiteral("印があるのは%1です。").arg(Quoted(*labels.begin())));
  }
  return rule.Item();
}

VerifyItem AdoptionRule(const CMorvaneDoc& doc) {
  Rule rule("adoption", QStringLiteral("採用した原種波形は一つで、名前と印が合う"));
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  const QString at = QStringLiteral("seedAdoptedName");
  const auto count =
      std::count_if(waves.begin(), waves.end(), [](const CSeismicWave& wave) { return wave.adopted; });
  if (!doc.seedAdopted) {
    rule.Require(count == 0, at, QString(),
                 QStringLiteral("採用の印がある波形がありますが、採用されていません。"));
    rule.Require(doc.seedAdoptedName.isEmpty(), at, Quoted(doc.seedAdoptedName),
                 QStringLiteral("採用した波形がないのに名前があります。"));
    return rule.Item();
  }
  const bool named = std::any_of(waves.begin(), waves.end(), [&](const CSeismicWave& wave) {
    return wave.adopted && wave.name == doc.seedAdoptedName;
  });
  rule.Require(named, at, Quoted(doc.seedAdoptedName),
               QStringLiteral("この名前で採用の印がある波形がありません。"));
  rule.Require(count <= 1, at, QString(), QStringLiteral("採用の印が %1 個あります。").arg(count));
  return rule.Item();
}

void CheckResults(const CMorvaneDoc& doc, std::size_t index, Rule& rule) {
  const CSeismicWave& wave = doc.seedWaves.At(index);
  const QString at = Member("seedWaves", index, "adjusted");
  const QString place = Quoted(wave.name);
  const bool hasData =
      !wave.adjustedAcc.empty() || !wave.adjustedPeriods.empty() || !wave.adjustedSpec.empty();
  rule.Require(wave.adjusted || !hasData, at, place,
               QStringLiteral("調整されていない波形に調整後の波形かスペクトルがあります。"));
  if (wave.adjusted) {
    // A run pads the seed to a power of two and leaves it so.
    rule.Require(wave.adjustedAcc.size() == std::bit_ceil(wave.acc.size()), at, place,
                 QStringLiteral("調整後波形の点数が種波形に合いません。"));
    rule.Require(!wave.adjustedSpec.empty(), at, place,
                 QStringLiteral("調整後波形のスペクトルがありません。"));
  }
  if (!doc.guidelineRoute) return;
  rule.Require(wave.adjusted || !wave.adjustChecked, Member("seedWaves", index, "adjustChecked"), place,
               QStringLiteral("「調整」の印がありますが、調整されていません。"));
  rule.Require(!wave.adjusted || (doc.seedAdopted && !doc.baseSpectrumName.isEmpty()), at, place,
               QStringLiteral("調整されていますが、採用した波形か基準スペクトルがありません。"));
}

VerifyItem ResultsRule(const CMorvaneDoc& doc) {
  Rule rule("adjusted", QStringLiteral("調整の結果は全部あるか、まったくないか"));
  for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) CheckResults(doc, i, rule);
  return rule.Item();
}

void CheckPairs(const char* list, const CSeismicWaveSet& set, Rule& rule) {
  const QString reason = QStringLiteral("周期と値の数が異なります。");
  for (std::size_t i = 0; i < set.Count(); ++i) {
    const CSeismicWave& record = set.At(i);
    rule.Require(record.periods.size() == record.accSpec.size(), Member(list, i, "accSpec"),
                 Quoted(record.name), reason);
    rule.Require(record.adjustedPeriods.size() == record.adjustedSpec.size(), Member(list, i, "adjustedSpec"),
                 Quoted(record.name), reason);
  }
}

VerifyItem SpectraRule(const CMorvaneDoc& doc) {
  Rule rule("spectra", QStringLiteral("スペクトルの周期と値は同じ数"));
  CheckPairs("seedWaves", doc.seedWaves, rule);
  CheckPairs("lowerSpectra", doc.lowerSpectra, rule);
  CheckPairs("respSpectra", doc.respSpectra, rule);
  return rule.Item();
}

/// Looks at the length of every list of a fault.
class PlaneLists {
 public:
  PlaneLists(std::size_t fault, QString place, std::size_t planes, Rule& rule)
      : m_fault(fault), m_place(std::move(place)), m_planes(planes), m_rule(rule) {}

  template <class T>
  void operator()(const char*, const T&) {}
  template <class T>
  void operator()(const char* member, const std::vector<T>& list) {
    if (list.size() == m_planes || (list.empty() && MayBeEmpty(member))) return;
    m_rule.Break(Member("faults", m_fault, member), m_place,
                 QStringLiteral("面は %1 個ですが、%2 個あります。").arg(m_planes).arg(list.size()));
  }

 private:
  /// Spectra are computed later than the rest, and two lists are never filled.
  static bool MayBeEmpty(std::string_view member) {
    constexpr std::string_view kMembers[] = {"furtherA",         "furtherB",          "shortestPeriods",
                                             "shortestSpectrum", "equivalentPeriods", "equivalentSpectrum"};
    return std::find(std::begin(kMembers), std::end(kMembers), member) != std::end(kMembers);
  }

  std::size_t m_fault;
  QString m_place;
  std::size_t m_planes;
  Rule& m_rule;
};

VerifyItem PlanesRule(const CMorvaneDoc& doc) {
  Rule rule("planes", QStringLiteral("断層の面ごとの値は面の数だけある"));
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    const FaultInfo& fault = doc.faults[i];
    PlaneLists lists(i, QStringLiteral("断層 %1").arg(i + 1) + Quoted(fault.ltename),
                     static_cast<std::size_t>(std::max(fault.geomNum, 0)), rule);
    VisitFaultFields(lists, fault);
  }
  return rule.Item();
}

VerifyItem ProcedureRule(const CMorvaneDoc& doc) {
  Rule rule("procedure", QStringLiteral("作業手順とその後の作業が合う"));
  const QString at = QStringLiteral("flowFixed");
  rule.Require(!doc.flowFixed || doc.flowQ2Yes || doc.flowCollect, at, QString(),
               QStringLiteral("位相特性の手順が決まらないまま確定しています。"));
  if (!doc.guidelineRoute || doc.flowFixed) return rule.Item();
  rule.Require(doc.faults.empty(), at, QString(),
               QStringLiteral("作業手順が確定していないのに断層データがあります。"));
  rule.Require(doc.baseSpectrumName.isEmpty(), at, QString(),
               QStringLiteral("作業手順が確定していないのに基準スペクトルがあります。"));
  const std::vector<CSeismicWave>& waves = doc.seedWaves.Records();
  rule.Require(
      std::none_of(waves.begin(), waves.end(), [](const CSeismicWave& wave) { return wave.siteUse; }), at,
      QString(), QStringLiteral("作業手順が確定していないのに現場近隣地震波形があります。"));
  return rule.Item();
}

}  // namespace

void VerifyInvariants(const CMorvaneDoc& doc, std::vector<VerifyItem>& items) {
  for (const auto rule : {BaseRule, AdoptionRule, ResultsRule, SpectraRule, PlanesRule, ProcedureRule})
    items.push_back(rule(doc));
}

}  // namespace tremlo
