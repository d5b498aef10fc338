#include "core/verify/VerifyFaults.h"

#include "core/location/Coordinates.h"
#include "core/location/PlaneZone.h"
#include "core/sources/DamSpectra.h"
#include "core/sources/FaultConversion.h"
#include "core/verify/Agreement.h"
#include "core/verify/StoredResults.h"

#include <algorithm>

namespace tremlo {

namespace {

using Rows = std::vector<std::vector<double>>;

constexpr double kLeastLengthKm = 1.0;

QString Element(std::size_t index) {
  return u'[' + QString::number(index) + u']';
}

/// Whether `other` tells more against an item than what it holds so far.
bool IsWorse(const Agreement& other, const VerifyItem& item) {
  if (other.outcome != item.outcome) return other.outcome > item.outcome;
  return other.outcome != VerifyOutcome::Equal && other.difference > item.difference;
}

QString MemberOf(ResultKind kind, std::size_t fault) {
  return QStringLiteral("faults") + Element(fault) + u'.' + QLatin1String(StoredResultOf(kind).member);
}

void TellNumbers(VerifyItem& item, ResultKind kind, const CMorvaneDoc& doc, std::size_t fault,
                 const std::vector<double>& stored, const std::vector<double>& anew) {
  const Agreement agreement = Compare(stored, anew, kLeastLengthKm);
  if (!IsWorse(agreement, item)) return;
  item.outcome = agreement.outcome;
  item.difference = agreement.difference;
  item.at = MemberOf(kind, fault) + Element(agreement.index);
  item.place = PlanePlaceText(doc, fault, agreement.index);
  item.reason = BothValues(agreement, stored.size(), anew.size());
}

/// One plane's row of a curve; `periods` are those of the curve computed anew.
void TellRow(VerifyItem& item, ResultKind kind, const CMorvaneDoc& doc, std::size_t fault, std::size_t plane,
             const std::vector<double>& stored, const std::vector<double>& anew,
             const std::vector<double>& periods) {
  const Agreement agreement = Compare(stored, anew);
  if (!IsWorse(agreement, item)) return;
  item.outcome = agreement.outcome;
  item.difference = agreement.difference;
  item.at = MemberOf(kind, fault) + Element(plane) + Element(agreement.index);
  item.place = PlanePlaceText(doc, fault, plane);
  if (agreement.index < periods.size())
    item.place += QStringLiteral("、周期 %1 秒").arg(QString::number(periods[agreement.index], 'g', 6));
  item.reason = BothValues(agreement, stored.size(), anew.size());
}

const std::vector<double>& RowAt(const Rows& rows, std::size_t row) {
  static const std::vector<double> none;
  return row < rows.size() ? rows[row] : none;
}

bool HasValues(const Rows& rows) {
  return std::any_of(rows.begin(), rows.end(), [](const std::vector<double>& row) { return !row.empty(); });
}

/// One form of the relation.
struct Form {
  ResultKind periods, spectrum;
  Rows FaultInfo::*periodRows;
  Rows FaultInfo::*spectrumRows;
  const char16_t* name;
};
constexpr Form kShortest{ResultKind::ShortestPeriods, ResultKind::ShortestSpectrum,
                         &FaultInfo::shortestPeriods, &FaultInfo::shortestSpectrum, u"最短距離"};
constexpr Form kEquivalent{ResultKind::EquivalentPeriods, ResultKind::EquivalentSpectrum,
                           &FaultInfo::equivalentPeriods, &FaultInfo::equivalentSpectrum, u"等価震源距離"};

void TellForm(const Form& form, const CMorvaneDoc& doc, const std::vector<FaultInfo>& anew,
              std::vector<VerifyItem>& items) {
  VerifyItem periods = PlanesItem(form.periods);
  VerifyItem spectra = PlanesItem(form.spectrum);
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    const FaultInfo& stored = doc.faults[i];
    const Rows& axis = anew[i].*form.periodRows;
    const std::size_t planes =
        std::max({(stored.*form.periodRows).size(), (stored.*form.spectrumRows).size(), axis.size()});
    for (std::size_t plane = 0; plane < planes; ++plane) {
      const std::vector<double>& row = RowAt(axis, plane);
      TellRow(periods, form.periods, doc, i, plane, RowAt(stored.*form.periodRows, plane), row, row);
      TellRow(spectra, form.spectrum, doc, i, plane, RowAt(stored.*form.spectrumRows, plane),
              RowAt(anew[i].*form.spectrumRows, plane), row);
    }
  }
  items.push_back(periods);
  items.push_back(spectra);
}

void VerifyForm(const Form& form, const CMorvaneDoc& doc, const DamCoefSet& table,
                const std::optional<TableFailure>& failure, const std::vector<FaultInfo>& anew,
                std::vector<VerifyItem>& items) {
  const bool stored = std::any_of(doc.faults.begin(), doc.faults.end(), [&](const FaultInfo& fault) {
    return HasValues(fault.*form.periodRows) || HasValues(fault.*form.spectrumRows);
  });
  if (!stored) return;
  if (!failure && table.method == doc.attenuationMethod) {
    TellForm(form, doc, anew, items);
    return;
  }
  const QString reason = failure ? failure->text
                                 : QStringLiteral("「%1」の%2の係数表がありません。")
                                       .arg(doc.attenuationMethod, QString::fromUtf16(form.name));
  for (const ResultKind kind : {form.periods, form.spectrum}) {
    const VerifyItem item = PlanesItem(kind);
    items.push_back(UncheckedItem(item.key, item.name, reason));
  }
}

}  // namespace

QString PlanePlaceText(const CMorvaneDoc& doc, std::size_t fault, std::size_t plane) {
  return QStringLiteral("断層 %1「%2」の面 %3")
      .arg(QString::number(fault + 1), doc.faults[fault].ltename, QString::number(plane + 1));
}

void VerifyDistances(const CMorvaneDoc& doc, std::vector<VerifyItem>& items) {
  struct Length {
    ResultKind kind;
    std::vector<double> FaultInfo::*values;
  };
  constexpr Length kLengths[] = {{ResultKind::PlaneDepth, &FaultInfo::planeDepth},
                                 {ResultKind::ShortestDistance, &FaultInfo::shortestDistance},
                                 {ResultKind::EquivalentDistance, &FaultInfo::equivalentDistance}};
  constexpr double kMetresPerKm = 1000.0;
  const bool any = std::any_of(doc.faults.begin(), doc.faults.end(), [](const FaultInfo& fault) {
    return RectangleCount(fault) > 0 || !fault.planeDepth.empty() || !fault.shortestDistance.empty() ||
           !fault.equivalentDistance.empty();
  });
  if (!any) return;
  const int zone = ZoneFromLabel(doc.site.planeZone);
  std::vector<VerifyItem> lengths;
  for (const Length& length : kLengths) lengths.push_back(PlanesItem(length.kind));
  if (zone < 1) {
    for (const VerifyItem& item : lengths)
      items.push_back(UncheckedItem(item.key, item.name, QString::fromUtf16(kUnknownZoneText)));
    return;
  }
  const PlanePoint site = ToPlaneRectangular(zone, SiteLatitude(doc.site), SiteLongitude(doc.site));
  for (std::size_t i = 0; i < doc.faults.size(); ++i) {
    FaultInfo anew = doc.faults[i];
    ComputeFaultDistances(anew, zone, site.easting / kMetresPerKm, site.northing / kMetresPerKm);
    for (std::size_t j = 0; j < lengths.size(); ++j)
      TellNumbers(lengths[j], kLengths[j].kind, doc, i, doc.faults[i].*kLengths[j].values,
                  anew.*kLengths[j].values);
  }
  items.insert(items.end(), lengths.begin(), lengths.end());
}

void VerifyPlaneSpectra(const CMorvaneDoc& doc, const std::optional<TableFailure>& tableFailure,
                        std::vector<VerifyItem>& items) {
  DamCoefSet form0;
  DamCoefSet form1;
  std::vector<FaultInfo> anew = doc.faults;
  std::optional<TableFailure> failure = tableFailure;
  if (!failure) failure = FetchDamCoefficients(doc.damCoefSets, doc.attenuationMethod, form0, form1);
  if (!failure) failure = CalculateDamSpectra(doc.damCoefSets, doc.attenuationMethod, anew);
  VerifyForm(kShortest, doc, form0, failure, anew, items);
  VerifyForm(kEquivalent, doc, form1, failure, anew, items);
}

}  // namespace tremlo
