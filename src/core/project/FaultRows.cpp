#include "core/project/FaultRows.h"

#include "core/files/NumberText.h"
#include "core/files/TextScan.h"
#include "core/project/BaseSpectrum.h"
#include "core/project/PlaneNames.h"
#include "core/sources/FaultAcquisition.h"

namespace tremlo {

namespace {

enum Columns { kRank = 1, kName, kMagnitude, kShortest, kEquivalent, kFirstFigure };

using Column = TitledRows::Column;

std::vector<Column> ColumnsOf(bool ranking) {
  std::vector<Column> columns{{u"順位"},
                              {u"断層名"},
                              {u"マグニチュード", CellType::Number},
                              {u"最短距離 (km)", CellType::Number},
                              {u"等価震源距離 (km)", CellType::Number}};
  if (ranking) {
    for (const char16_t* title : {u"震度5弱 (%)", u"震度5強 (%)", u"震度6弱 (%)", u"震度6強 (%)"})
      columns.push_back({title, CellType::Number});
  } else {
    columns.push_back({u"平均活動間隔"});
    columns.push_back({u"最新活動時期"});
    columns.push_back({u"30年発生確率", CellType::Number});
    columns.push_back({u"50年発生確率", CellType::Number});
  }
  return columns;
}

/// A probability of the activity model; what the service left out stays a dash.
QString ProbabilityText(const QString& text) {
  return text == u"-" ? text : FixedText(TextToDouble(text), 5);
}

}  // namespace

QString DistanceText(const std::vector<double>& distances, std::size_t plane) {
  return plane < distances.size() ? FixedText(distances[plane], 4) : QString();
}

FaultRows::FaultRows(const CMorvaneDoc& doc, std::int32_t acquireMode)
    : TitledRows(ColumnsOf(acquireMode != kAcquireRange)),
      m_doc(doc),
      m_ranking(acquireMode != kAcquireRange) {}

int FaultRows::RowCount() const {
  return PlaneRowCount(m_doc.faults);
}

std::vector<GridBlock> FaultRows::Spans() const {
  std::vector<GridBlock> spans;
  int row = 1;
  for (const FaultInfo& fault : m_doc.faults) {
    const int planes = static_cast<int>(PlaneCount(fault));
    for (int column = 1; column <= ColumnCount() && planes > 1; ++column)
      if (column != kShortest && column != kEquivalent)
        spans.push_back({row, column, row + planes - 1, column});
    row += planes;
  }
  return spans;
}

QString FaultRows::CellText(int row, int column) const {
  const auto place = PlaneOfRow(m_doc.faults, row);
  if (!place) return {};
  const FaultInfo& fault = m_doc.faults[place->fault];
  switch (column) {
    case kRank:
      return m_ranking ? fault.rank : QString::number(place->fault + 1);
    case kName:
      return fault.ltename;
    case kMagnitude:
      return fault.magnitude;
    case kShortest:
      return DistanceText(fault.shortestDistance, place->plane);
    case kEquivalent:
      return DistanceText(fault.equivalentDistance, place->plane);
    default:
      return m_ranking ? RankingText(fault, column) : RangeText(fault, column);
  }
}

QString FaultRows::RankingText(const FaultInfo& fault, int column) const {
  const QString* const texts[] = {&fault.i45_ps, &fault.i50_ps, &fault.i55_ps, &fault.i60_ps};
  return *texts[column - kFirstFigure];
}

QString FaultRows::RangeText(const FaultInfo& fault, int column) const {
  switch (column - kFirstFigure) {
    case 0:
      return fault.avract;
    case 1:
      return fault.newact;
    case 2:
      return ProbabilityText(fault.t30p);
    default:
      return ProbabilityText(fault.t50p);
  }
}

}  // namespace tremlo
