#include "Arguments.h"
#include "Command.h"
#include "Output.h"

#include <QCoreApplication>

#include <exception>

namespace tremlo::cli {

namespace {

void PrintHelp() {
  PrintLine(QStringLiteral("Usage: tremlo-cli COMMAND [OPTIONS]\n"));
  for (const Command& command : AllCommands())
    PrintLine(QStringLiteral("  %1 %2\n      %3")
                  .arg(QString::fromUtf8(command.name), QString::fromUtf8(command.usage),
                       QString::fromUtf8(command.summary)));
  PrintLine(QStringLiteral(
      "\nすべてのコマンドに共通：\n"
      "  --json      結果を JSON で標準出力に書く\n"
      "  --data DIR  DamCoef, LowSpec, SystemData のあるフォルダ（既定値はプログラムのフォルダ）\n"
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
    PrintLine(QStringLiteral("tremlo-cli " TREMLO_VERSION));
    return kDone;
  }
  qsizetype words = 0;
  const Command* command = FindCommand(line, words);
  if (!command) return FailUsage(QStringLiteral("このコマンドはありません：") + line.constFirst());
  Arguments arguments(*command);
  if (!arguments.Parse(line.mid(words))) return FailUsage(arguments.Error());
  if (arguments.WantsVersion()) {
    PrintLine(QStringLiteral("tremlo-cli " TREMLO_VERSION));
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
                              QString::fromLocal8Bit(failure.what()));
  }
}

}  // namespace

}  // namespace tremlo::cli

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tremlo-cli"));
  return tremlo::cli::Main(QCoreApplication::arguments().mid(1));
}
