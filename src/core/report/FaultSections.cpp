#include "core/files/NumberText.h"
#include "core/location/HazardTables.h"
#include "core/project/FaultRows.h"
#include "core/project/PlaneNames.h"
#include "core/report/ReportParts.h"
#include "core/sources/FaultAcquisition.h"
#include "numeric/waves/SpectrumFigures.h"

namespace tremlo {

namespace {

QString AcquisitionText(const CMorvaneDoc& doc) {
  if (doc.faultAcquireMode != kAcquireRange) return QStringLiteral("現場位置に影響の大きい断層");
  return QStringLiteral("探索範囲内の断層（%1 km）").arg(FixedText(doc.searchRangeKm, 1));
}

template <class T>
T ValueAt(const std::vector<T>& values, std::size_t index) {
  return index < values.size() ? T(values[index]) : T{};
}

/// A row for each plane: ground class, largest value of either form, in use or not.
ReportTable PlaneTable(const CMorvaneDoc& doc) {
  ReportTable table;
  table.headings = QStringList{QStringLiteral("順位"),
                               QStringLiteral("断層面"),
                               QStringLiteral("地盤種別"),
                               QStringLiteral("最短距離による最大値 (gal)"),
                               QStringLiteral("等価震源距離による最大値 (gal)"),
                               QStringLiteral("利用")};
  table.numbers = {false, false, false, true, true, false};
  for (int row = 1; row <= PlaneRowCount(doc.faults); ++row) {
    const auto place = PlaneOfRow(doc.faults, row);
    if (!place) continue;
    const FaultInfo& fault = doc.faults[place->fault];
    const std::size_t plane = place->plane;
    const auto largest = [&](const std::vector<std::vector<double>>& spectra) {
      const std::vector<double> values = ValueAt(spectra, plane);
      return values.empty() ? QStringLiteral("-") : FixedText(LargestValue(values), 2);
    };
    table.rows.push_back({fault.rank, PlaneName(fault, plane), ValueAt(fault.groundClass, plane),
                          largest(fault.shortestSpectrum), largest(fault.equivalentSpectrum),
                          ValueAt(fault.attenUse, plane) ? QStringLiteral("○") : QString()});
  }
  return table;
}

/// The rectangle of each plane as the service has it.
ReportTable GeometryTable(const CMorvaneDoc& doc) {
  ReportTable table;
  table.title = QStringLiteral("断層面の形状");
  table.headings = QStringList{
      QStringLiteral("断層面"),          QStringLiteral("東経 (°)"),  QStringLiteral("北緯 (°)"),
      QStringLiteral("上端の深さ (km)"), QStringLiteral("長さ (km)"), QStringLiteral("幅 (km)"),
      QStringLiteral("走向 (°)"),        QStringLiteral("傾斜 (°)"),  QStringLiteral("中心の深さ (km)")};
  table.numbers = std::vector<bool>(static_cast<std::size_t>(table.headings.size()), true);
  table.numbers.front() = false;
  for (const FaultInfo& fault : doc.faults)
    for (std::size_t plane = 0; plane < PlaneCount(fault); ++plane) {
      QStringList row{PlaneName(fault, plane)};
      for (const auto* const texts :
           {&fault.lon, &fault.lat, &fault.dep, &fault.len, &fault.wid, &fault.str, &fault.dip})
        row << ValueAt(*texts, plane);
      table.rows.push_back(row << DistanceText(fault.planeDepth, plane));
    }
  return table;
}

}  // namespace

std::vector<ReportSection> FaultSections(const CMorvaneDoc& doc) {
  if (!doc.guidelineRoute || !doc.flowFaultSource || doc.faults.empty()) return {};
  ReportSection faults{QStringLiteral("想定する断層"), {}};
  faults.blocks.emplace_back(
      PropertyTable({}, {{QStringLiteral("断層データの取得"), AcquisitionText(doc)},
                         {QStringLiteral("断層の数"), QString::number(doc.faults.size())},
                         {QStringLiteral("断層面の数"), QString::number(PlaneRowCount(doc.faults))}}));
  faults.blocks.emplace_back(TableOf(QStringLiteral("断層と距離"), FaultRows(doc, doc.faultAcquireMode)));
  faults.blocks.emplace_back(GeometryTable(doc));
  ReportSection spectra{QStringLiteral("距離減衰式による応答スペクトル"), {}};
  spectra.blocks.emplace_back(PropertyTable({}, {{QStringLiteral("距離減衰式"), doc.attenuationMethod}}));
  spectra.blocks.emplace_back(ReportFigure{ReportPicture::FaultSpectra,
                                           QStringLiteral("断層面の加速度応答スペクトル（減衰定数 5 %）")});
  ReportTable planes = PlaneTable(doc);
  planes.title = QStringLiteral("断層面の応答スペクトル");
  spectra.blocks.emplace_back(std::move(planes));
  return {faults, spectra};
}

}  // namespace tremlo
