#pragma once

#include "core/files/ProgramFolders.h"

#include <QCommandLineParser>
#include <QStringList>

#include <cstdint>
#include <span>

namespace tremlo::cli {

struct Command;

/// The command line behind the command's name.
class Arguments {
 public:
  /// Adds the options that every command has. Call Parse before anything else.
  explicit Arguments(const Command& command);
  explicit Arguments(Command&&) = delete;  ///< the command must outlive it

  /// False, with Error() set, for an unknown option, a missing value, an output file without a name or a
  /// wrong number of file arguments.
  bool Parse(const QStringList& words);
  const QString& Error() const { return m_error; }

  bool WantsHelp() const { return m_parser.isSet(QStringLiteral("help")); }
  bool WantsVersion() const { return m_parser.isSet(QStringLiteral("version")); }
  bool WantsJson() const { return m_parser.isSet(QStringLiteral("json")); }
  /// Where DamCoef, LowSpec and SystemData are.
  ProgramFolders Folders() const;

  QStringList Positionals() const { return m_parser.positionalArguments(); }
  QString Positional(int index) const { return m_parser.positionalArguments().at(index); }
  bool IsSet(const char* option) const { return m_parser.isSet(QString::fromLatin1(option)); }
  QString Text(const char* option) const { return m_parser.value(QString::fromLatin1(option)); }
  QStringList Texts(const char* option) const { return m_parser.values(QString::fromLatin1(option)); }

  /// Reads an option as a number into `value`, which keeps its value when the option is not given. False when
  /// the text is not one whole number of that kind.
  bool Number(const char* option, double& value) const;
  bool Whole(const char* option, std::int32_t& value) const;

 private:
  const Command& m_command;
  QCommandLineParser m_parser;
  QString m_error;
};

/// The text as one number, finite or not; nothing may follow it.
bool ParseNumber(const QString& text, double& value);

/// The text as exactly as many finite numbers as `values` holds, with commas between them. `values` is filled
/// as far as the text goes.
bool ParseNumberList(const QString& text, std::span<double> values);

/// Whether the numbers (degrees) are a latitude of 90 and a longitude of 180 either way at most.
bool IsPlace(double latitude, double longitude);

}  // namespace tremlo::cli
