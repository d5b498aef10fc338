#pragma once

#include "core/graphs/GraphRange.h"
#include "core/graphs/GraphSeries.h"

#include <QString>

#include <vector>

namespace tremlo {

/// The words of one graph. `xLabelDecimals` are the places of the labels along a linear x axis.
struct GraphTexts {
  QString name;
  QString xName, xUnit, yName, yUnit;
  QString note;  ///< stands inside the frame; empty for none
  int xLabelDecimals = 0;

  QString Caption() const { return QStringLiteral("グラフ (") + name + u')'; }
  QString XTitle() const { return xName + QStringLiteral(" (") + xUnit + u')'; }
  QString YTitle() const { return yName + QStringLiteral(" (") + yUnit + u')'; }
};

const GraphTexts& TextsOf(GraphKind kind);

/// The axes and their limits in words, for a screen reader.
QString DescribeAxes(GraphKind kind, const GraphRange& range);

/// The names of the curves that are seen, in words as well: the first ten, then how many others there are.
/// Empty when none has a name.
QString DescribeCurves(const std::vector<GraphSeries>& series);

/// The values of a data point in words, for the status bar; a curve with a name stands before them.
QString DescribePoint(GraphKind kind, const QString& curve, double x, double y);

}  // namespace tremlo
