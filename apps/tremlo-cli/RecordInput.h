#pragma once

#include "core/records/ReadRecord.h"
#include "core/records/RecordOffset.h"

#include <QCommandLineOption>
#include <QList>

#include <optional>

namespace tremlo::cli {

class Arguments;

/// What the command line says about a record that is to be read in.
struct RecordOptions {
  RecordAnswers answers;
  std::optional<OffsetRule> offset;
  QString component;  ///< empty: the only one
  QString member;     ///< empty: the only one

  /// The options of every command that reads a wave.
  static QList<QCommandLineOption> All();
  /// False, with the fault of the command line in `error`, when a value is not what it should be.
  bool Parse(const Arguments& arguments, QString& error);
  bool IsEmpty() const;
};

/// One component of a record, its offset taken off.
struct RecordInput {
  QString name;
  double timeStep = 0.0;    ///< s
  std::vector<double> acc;  ///< gal
  std::vector<QString> warnings;

  /// Returns the exit status: a refused file, or a choice or an answer that the command line lacks; `error`
  /// then holds the line for standard error, which names the option to use.
  int Read(const QString& path, const RecordOptions& options, QString& error);
};

}  // namespace tremlo::cli
