#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tremlo::cli {

class Arguments;

/// A wave file that a calculation can run on: samples there (blanks read as 0), time step a finite number
/// above 0.
struct WaveInput {
  QString name;
  double timeStep = 0.0;    ///< s
  std::vector<double> acc;  ///< gal

  /// Reads a wave file of ours, or the record that the options `--component`, `--unit`, ... of the command
  /// line choose; what is doubtful about it goes to standard error. Returns the exit status, and says on
  /// standard error what is wrong.
  int Read(const QString& path, const Arguments& arguments);
  /// The same without a word: what is wrong, or what is doubtful, goes to the arguments.
  int Read(const QString& path, const Arguments& arguments, QString& error, QStringList& warnings);

 private:
  /// A wave file of ours. False, with the line for standard error in `error`, when it is not sound.
  bool ReadOwn(const QString& path, QString& error);
};

/// Prints a line about the wave.
void PrintWaveLine(const WaveInput& wave);

}  // namespace tremlo::cli
