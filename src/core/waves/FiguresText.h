#pragma once

#include "core/waves/SeismicWave.h"
#include "numeric/waves/WaveFigures.h"

#include <QString>

#include <vector>

namespace tremlo {

/// One figure of a wave as it is shown.
struct FigureText {
  QString label;
  QString value;       ///< with its unit
  QString definition;  ///< a sentence

  QString Text() const { return label + u' ' + value; }
};

/// The figures of a wave behind what it is called.
struct FiguresLine {
  QString title;
  std::vector<FigureText> figures;

  /// The line: the title and every figure, with a full-width blank between them.
  QString Text() const;
};

/// Up to four digits that count, at most four of them behind the point; "－" when it is no finite number.
QString FigureNumber(double value);

FiguresLine MakeFiguresLine(const QString& title, const WaveFigures& figures);

/// The lines of a seed wave, blank samples as 0, and of its adjusted wave while that is there.
std::vector<FiguresLine> FiguresOf(const CSeismicWave& wave);

}  // namespace tremlo
