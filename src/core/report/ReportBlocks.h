#pragma once

#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace tremlo {

/// What the report of a project is made of, before it has pages.

struct ReportTable {
  QString title;
  QStringList headings;  ///< none: the first column names the rows
  std::vector<QStringList> rows;
  std::vector<bool> numbers;  ///< by column: its texts stand at the right
};

enum class ReportPicture {
  Map,
  Chart,
  FaultSpectra,
  LowerLimit,
  NeighbourSpectra,
  Candidates,
  Target,  ///< of the route with a target of its own
  TimeHistories,
  Spectra,
  Fourier,
};

struct ReportFigure {
  ReportPicture picture;
  QString caption;
};

/// A text, a table, or a figure.
using ReportBlock = std::variant<QString, ReportTable, ReportFigure>;

struct ReportSection {
  QString title;
  std::vector<ReportBlock> blocks;
};

}  // namespace tremlo
