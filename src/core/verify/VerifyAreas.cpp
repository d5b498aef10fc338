#include "core/verify/VerifyAreas.h"

#include "core/project/BaseCandidates.h"
#include "core/verify/Agreement.h"
#include "core/verify/StoredResults.h"
#include "core/verify/VerifyFaults.h"
#include "numeric/waves/SpectrumFigures.h"

#include <set>
#include <tuple>

namespace tremlo {

namespace {

/// An area as it is stored, with all that is needed to judge it.
struct KeptArea {
  double stored = 0.0;
  double anew = 0.0;
  bool candidate = false;
  bool spectrumValid = true;
};

/// Why an area cannot be judged; empty when it can.
QString WhyUnchecked(const KeptArea& area) {
  const bool differs = Compare(area.stored, area.anew).outcome == VerifyOutcome::Differs;
  if (!differs) return {};
  if (!area.spectrumValid) return QStringLiteral("波形のスペクトルが計算し直されていません。");
  if (!area.candidate)
    return QStringLiteral("今は基準スペクトルの候補ではありません。候補だったときの面積が残っています。");
  if (area.stored == 0.0)
    return QStringLiteral("面積がまだ計算されていません（「基準スペクトル設定」を開くと計算されます）。");
  return {};
}

/// Whether there is an area to speak of: until the list of candidates is built for the first time all are 0.
bool IsKept(const KeptArea& area, bool baseChosen) {
  return area.stored != 0.0 || (area.candidate && baseChosen);
}

/// Takes one area into the item of all that are checked, or into that of those that are not.
class AreaItems {
 public:
  AreaItems(const CMorvaneDoc& doc, const VerifyItem& item)
      : m_baseChosen(!doc.baseSpectrumName.isEmpty()), m_checked(item), m_unchecked(item) {}

  void Take(const KeptArea& area, const QString& at, const QString& place) {
    if (!IsKept(area, m_baseChosen)) return;
    if (const QString reason = WhyUnchecked(area); !reason.isEmpty()) {
      if (m_uncheckedCount++ == 0) {
        m_unchecked = UncheckedItem(m_unchecked.key, m_unchecked.name, reason);
        m_unchecked.at = at;
        m_unchecked.place = place;
      }
      return;
    }
    ++m_checkedCount;
    const Agreement agreement = Compare(area.stored, area.anew);
    const bool worse = agreement.outcome > m_checked.outcome || (agreement.outcome == m_checked.outcome &&
                                                                 agreement.difference > m_checked.difference);
    if (!worse) return;
    m_checked.outcome = agreement.outcome;
    m_checked.difference = agreement.difference;
    m_checked.at = at;
    m_checked.place = place;
    m_checked.reason = BothValues(agreement, 1, 1);
    if (agreement.outcome == VerifyOutcome::Differs)
      m_checked.reason += QStringLiteral(
          "面積は候補の一覧を作るときに保存されます。その後でスペクトルが変わると、「基準スペクトル設定」を次"
          "に開く"
          "まで合いません。");
  }

  void Put(std::vector<VerifyItem>& items) {
    if (m_checkedCount > 0) items.push_back(m_checked);
    if (m_uncheckedCount == 0) return;
    if (m_uncheckedCount > 1) m_unchecked.reason += QStringLiteral("ほか %1 個。").arg(m_uncheckedCount - 1);
    items.push_back(m_unchecked);
  }

 private:
  bool m_baseChosen;
  VerifyItem m_checked;
  VerifyItem m_unchecked;
  int m_checkedCount = 0;
  int m_uncheckedCount = 0;
};

/// The candidates, to be looked up: a project may have any number of planes.
class Candidates {
 public:
  explicit Candidates(const CMorvaneDoc& doc) {
    for (const BaseItem& item : BaseItems(doc)) m_items.insert(KeyOf(item));
  }
  bool Has(const BaseItem& item) const { return m_items.count(KeyOf(item)) > 0; }

 private:
  using Key = std::tuple<BaseSource, std::size_t, std::size_t>;
  static Key KeyOf(const BaseItem& item) { return {item.source, item.index, item.plane}; }

  std::set<Key> m_items;
};

double AreaOf(const SpectrumView& spectrum) {
  return SpectrumArea(spectrum.periods, spectrum.values);
}

void VerifyWaveAreas(const CMorvaneDoc& doc, const Candidates& candidates, std::vector<VerifyItem>& items) {
  for (std::size_t i = 0; i < doc.seedWaves.Count(); ++i) {
    const CSeismicWave& wave = doc.seedWaves.At(i);
    const bool candidate = candidates.Has({BaseSource::Wave, i, 0});
    const VerifyItem item = RecordItem(ResultKind::WaveArea, i, wave.name);
    AreaItems area(doc, item);
    area.Take({wave.spectrumArea, SpectrumArea(wave.periods, wave.accSpec), candidate, wave.spectrumValid},
              item.key, QString());
    area.Put(items);
  }
}

void VerifyPlaneAreas(const CMorvaneDoc& doc, const Candidates& candidates, BaseSource source,
                      ResultKind kind, std::vector<VerifyItem>& items) {
  AreaItems areas(doc, PlanesItem(kind));
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    const std::vector<double>& stored =
        source == BaseSource::ShortestPlane ? doc.faults[i].shortArea : doc.faults[i].equivArea;
    for (std::size_t plane = 0; plane < stored.size(); ++plane) {
      const BaseItem item{source, i, plane};
      areas.Take(
          {stored[plane], AreaOf(SpectrumOf(doc, item)), candidates.Has(item), true},
          QStringLiteral("faults[%1].%2[%3]")
              .arg(QString::number(i), QLatin1String(StoredResultOf(kind).member), QString::number(plane)),
          PlanePlaceText(doc, i, plane));
    }
  }
  areas.Put(items);
}

/// All limits that are marked keep the area of the first of them, which is the candidate.
void VerifyLowerAreas(const CMorvaneDoc& doc, const Candidates& candidates, std::vector<VerifyItem>& items) {
  const bool candidate = candidates.Has(BaseItem{});
  for (std::size_t i = 0; i < doc.lowerSpectra.Count(); ++i) {
    const CSeismicWave& limit = doc.lowerSpectra.At(i);
    const VerifyItem item = RecordItem(ResultKind::LowerArea, i, limit.name);
    const double anew = limit.lowerSelected ? AreaOf(SpectrumOf(doc, BaseItem{}))
                                            : SpectrumArea(limit.periods, limit.accSpec);
    AreaItems area(doc, item);
    area.Take({limit.spectrumArea, anew, candidate && limit.lowerSelected, true}, item.key, QString());
    area.Put(items);
  }
}

}  // namespace

void VerifyAreas(const CMorvaneDoc& doc, std::vector<VerifyItem>& items) {
  const Candidates candidates(doc);
  VerifyWaveAreas(doc, candidates, items);
  VerifyPlaneAreas(doc, candidates, BaseSource::ShortestPlane, ResultKind::ShortestArea, items);
  VerifyPlaneAreas(doc, candidates, BaseSource::EquivalentPlane, ResultKind::EquivalentArea, items);
  VerifyLowerAreas(doc, candidates, items);
}

}  // namespace tremlo
