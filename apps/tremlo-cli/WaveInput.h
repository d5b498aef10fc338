#pragma once

#include <QString>

#include <vector>

namespace tremlo::cli {

/// A wave file that a calculation can run on: samples there (blanks read as 0), time step a finite number
/// above 0.
struct WaveInput {
  QString name;
  double timeStep = 0.0;    ///< s
  std::vector<double> acc;  ///< gal

  /// False, with the line for standard error in `error`, when the file is not that.
  bool Read(const QString& path, QString& error);
};

/// Prints a line about the wave.
void PrintWaveLine(const WaveInput& wave);

}  // namespace tremlo::cli
