#include "core/batch/SummaryRow.h"

#include <QLocale>

#include <cmath>

namespace tremlo {

namespace {

enum Cells { kLine, kSeed, kTarget, kStatus, kHash = 13, kNote, kCellCount };

QString ShortestText(double value) {
  return std::isnan(value) ? QString() : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

bool StatusOf(const QString& text, JobStatus& status) {
  for (const JobStatus known : {JobStatus::Converged, JobStatus::Unreadable, JobStatus::NotConverged}) {
    if (text != QString::number(static_cast<int>(known))) continue;
    status = known;
    return true;
  }
  return false;
}

}  // namespace

QString SummaryHeading() {
  return QStringLiteral(
      "line,seed,target,status,converged,passes,deviation,overshoot,undershoot,pga,pgv,pgd,files,hash,note");
}

QString RowText(const SummaryRow& row) {
  const bool ran = row.status != JobStatus::Unreadable;
  const QString converged =
      row.status == JobStatus::Converged ? QStringLiteral("true") : QStringLiteral("false");
  return LineOf({QString::number(row.line), row.seed, row.target,
                 QString::number(static_cast<int>(row.status)), ran ? converged : QString(),
                 row.passes < 0 ? QString() : QString::number(row.passes), ShortestText(row.deviation),
                 ShortestText(row.overshoot), ShortestText(row.undershoot), ShortestText(row.pga),
                 ShortestText(row.pgv), ShortestText(row.pgd), row.files.join(u';'), row.hash, row.note});
}

std::vector<KeptRow> ParseSummary(const QByteArray& content) {
  std::vector<KeptRow> rows;
  const QStringList lines = LinesOf(content);
  if (lines.value(0) != SummaryHeading()) return rows;
  for (const QString& line : lines.mid(1)) {
    const QStringList cells = CellsOf(line).value_or(QStringList());
    if (cells.size() != kCellCount) continue;
    KeptRow row;
    row.line = cells[kLine].toInt();
    row.seed = cells[kSeed];
    row.target = cells[kTarget];
    if (!StatusOf(cells[kStatus], row.status)) continue;
    row.hash = cells[kHash];
    row.note = cells[kNote];
    row.text = line;
    rows.push_back(row);
  }
  return rows;
}

}  // namespace tremlo
