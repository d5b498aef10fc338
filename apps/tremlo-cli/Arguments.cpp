#include "Arguments.h"

#include "Command.h"
#include "core/files/TextScan.h"

#include <QCoreApplication>

#include <cmath>

namespace tremlo::cli {

Arguments::Arguments(const Command& command) : m_command(command) {
  m_parser.addOption({QStringLiteral("help"), QStringLiteral("この説明を表示する")});
  m_parser.addOption({QStringLiteral("version"), QStringLiteral("版を表示する")});
  m_parser.addOption({QStringLiteral("json"), QStringLiteral("結果を JSON で標準出力に書く")});
  m_parser.addOption({QStringLiteral("data"), QStringLiteral("DamCoef, LowSpec, SystemData のあるフォルダ"),
                      QStringLiteral("DIR")});
  m_parser.addOptions(command.options());
}

bool Arguments::Parse(const QStringList& words) {
  // The parser takes the first word for the program's name.
  if (!m_parser.parse(QStringList(QCoreApplication::applicationName()) + words)) {
    m_error = m_parser.errorText();
    return false;
  }
  if (WantsHelp() || WantsVersion()) return true;
  if (m_parser.optionNames().contains(QStringLiteral("out")) && Text("out").isEmpty()) {
    m_error = QStringLiteral("--out のファイル名が空です。");
    return false;
  }
  if (m_command.positional == kOneFileOrMore) {
    if (m_parser.positionalArguments().isEmpty()) m_error = QStringLiteral("ファイルを指定してください。");
    return m_error.isEmpty();
  }
  if (m_parser.positionalArguments().size() != m_command.positional) {
    m_error = QStringLiteral("ファイルの指定が %1 個必要です（%2 個あります）。")
                  .arg(m_command.positional)
                  .arg(m_parser.positionalArguments().size());
    return false;
  }
  return true;
}

ProgramFolders Arguments::Folders() const {
  return IsSet("data") ? ProgramFolders(Text("data")) : InstalledFolders();
}

bool Arguments::Number(const char* option, double& value) const {
  return !IsSet(option) || ParseNumber(Text(option), value);
}

bool Arguments::Whole(const char* option, std::int32_t& value) const {
  if (!IsSet(option)) return true;
  bool sound = false;
  const int number = Text(option).toInt(&sound);
  if (sound) value = number;
  return sound;
}

bool ParseNumber(const QString& text, double& value) {
  const std::string bytes = text.toStdString();
  LineScanner scan(bytes);
  double number = 0.0;
  if (!scan.Number(number) || !scan.Rest().empty()) return false;
  value = number;
  return true;
}

bool ParseNumberList(const QString& text, std::span<double> values) {
  const QStringList parts = text.split(u',');
  if (static_cast<std::size_t>(parts.size()) != values.size()) return false;
  for (std::size_t i = 0; i < values.size(); ++i)
    if (!ParseNumber(parts[static_cast<qsizetype>(i)], values[i]) || !std::isfinite(values[i])) return false;
  return true;
}

bool IsPlace(double latitude, double longitude) {
  return std::fabs(latitude) <= 90.0 && std::fabs(longitude) <= 180.0;
}

}  // namespace tremlo::cli
