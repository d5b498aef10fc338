#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "StandardStreams.h"
#include "core/shell/TitleText.h"

#include <QCoreApplication>

#include <exception>
#include <vector>

namespace tremlo::cli {

namespace {

void PrintSummary(const Command& command) {
  PrintLine(QStringLiteral("  %1 %2\n      %3")
                .arg(QString::fromUtf8(command.name), QString::fromUtf8(command.usage),
                     QString::fromUtf8(command.summary)));
}

void PrintHelp() {
  PrintLine(QStringLiteral("Usage: tremlo-cli COMMAND [OPTIONS]\n"));
  for (const Command& command : AllCommands()) PrintSummary(command);
  PrintLine(
      QStringLiteral("\nすべてのコマンドに共通：\n"
                     "  --json      結果を JSON で標準出力に書く\n"
                     "  --data DIR  DamCoef, LowSpec, SystemData のあるフォルダ（既定値はプログラムの表）\n"
                     "  --help      説明を表示する\n"
                     "  --version   版を表示する\n\n"
                     "終了状態：0 正常、1 コマンドの誤り、2 ファイルの誤り、3 目標に達しない"));
}

void PrintHelp(const Command& command) {
  PrintLine(QStringLiteral("Usage: tremlo-cli %1 %2\n\n%3\n")
                .arg(QString::fromUtf8(command.name), QString::fromUtf8(command.usage),
                     QString::fromUtf8(command.summary)));
  for (const QCommandLineOption& option : command.options()) {
    const QString value = option.valueName().isEmpty() ? QString() : u' ' + option.valueName();
    PrintLine(
        QStringLiteral("  --%1%2\n      %3").arg(option.names().constFirst(), value, option.description()));
  }
}

void PrintVersion() {
  PrintLine(QStringLiteral("tremlo-cli ") + VersionAndCommit());
}

/// The commands whose name begins with the word and goes on behind it.
std::vector<const Command*> CommandsOfGroup(const QString& word) {
  std::vector<const Command*> commands;
  for (const Command& command : AllCommands())
    if (QString::fromLatin1(command.name).startsWith(word + u' ')) commands.push_back(&command);
  return commands;
}

/// A line that names no command, but perhaps a group of them.
int RunGroup(const QStringList& line) {
  const QString& group = line.constFirst();
  const std::vector<const Command*> commands = CommandsOfGroup(group);
  if (commands.empty()) return FailUsage(QStringLiteral("このコマンドはありません：") + group);
  if (line.value(1) == u"--version") {
    PrintVersion();
    return kDone;
  }
  if (line.value(1) != u"--help")
    return FailUsage(QStringLiteral("このコマンドはありません：") + line.mid(0, 2).join(u' '));
  PrintLine(QStringLiteral("Usage: tremlo-cli %1 COMMAND [OPTIONS]\n").arg(group));
  for (const Command* command : commands) PrintSummary(*command);
  return kDone;
}

/// The command that the first word, or the first two, name; their number goes to `words`.
const Command* FindCommand(const QStringList& line, qsizetype& words) {
  for (const Command& command : AllCommands()) {
    const QStringList name = QString::fromLatin1(command.name).split(u' ');
    if (line.mid(0, name.size()) != name) continue;
    words = name.size();
    return &command;
  }
  return nullptr;
}

int Main(const QStringList& line) {
  if (line.isEmpty()) return FailUsage(QStringLiteral("コマンドを指定してください。"));
  if (line.constFirst() == u"--help") {
    PrintHelp();
    return kDone;
  }
  if (line.constFirst() == u"--version") {
    PrintVersion();
    return kDone;
  }
  qsizetype words = 0;
  const Command* command = FindCommand(line, words);
  if (!command) return RunGroup(line);
  Arguments arguments(*command);
  if (!arguments.Parse(line.mid(words))) return FailUsage(arguments.Error());
  if (arguments.WantsVersion()) {
    PrintVersion();
    return kDone;
  }
  if (arguments.WantsHelp()) {
    PrintHelp(*command);
    return kDone;
  }
  try {
    return command->run(arguments);
  } catch (const std::exception& failure) {  // memory, for an input of any size
    return Fail(kBadFile, QString::fromLatin1(command->name) + QStringLiteral(": ") +
                              QString::fromUtf8(failure.what()));
  }
}

}  // namespace

}  // namespace tremlo::cli

int main(int argc, char* argv[]) {
  tremlo::cli::PrepareStreams();
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tremlo-cli"));
  return tremlo::cli::FinishOutput(tremlo::cli::Main(QCoreApplication::arguments().mid(1)));
}
