#include "Command.h"
#include "Output.h"
#include "ProjectInput.h"
#include "StandardStreams.h"
#include "core/files/FileFault.h"
#include "core/files/WholeFile.h"
#include "core/report/ReportFacts.h"
#include "core/report/ReportWave.h"
#include "core/shell/TitleText.h"
#include "core/verify/VerifyProject.h"
#include "window/graphs/JapaneseFont.h"
#include "window/report/ReportPages.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

#include <exception>

namespace tremlo::cli {

namespace {

constexpr char kUsage[] = "tremlo-report PROJECT.trml OUT.pdf [--data DIR] [--date YYYY-MM-DD]";

void PrintHelp() {
  PrintLine(QStringLiteral("Usage: ") + QLatin1String(kUsage));
  PrintLine(QStringLiteral(
      "\nプロジェクトの報告書を PDF で書き出す\n\n"
      "  --data DIR         DamCoef, LowSpec, SystemData のあるフォルダ（既定値はプログラムの表）\n"
      "  --date YYYY-MM-DD  報告書の日付（既定値は今日）\n"
      "  --help             説明を表示する\n"
      "  --version          版を表示する\n\n"
      "終了状態：0 正常、1 コマンドの誤り、2 ファイルの誤り"));
}

int BadCommandLine(const QString& reason) {
  return Fail(kBadCommandLine, reason + QStringLiteral("\nUsage: ") + QLatin1String(kUsage));
}

struct ReportCall {
  QString project, report;
  ProgramFolders folders;
  QDate date;
};

int WriteReport(const ReportCall& call) {
  CMorvaneDoc doc(call.folders);
  if (const int status = OpenInput(doc, call.project); status != kDone) return status;
  if (!OffersReport(doc))
    return Fail(kBadFile, FileFault(call.project, QStringLiteral("調整後の波形がありません。")));
  std::vector<DamCoefSet> sets;
  const std::optional<TableFailure> failure = LoadDamCoefFolder(doc.Folders(), sets);
  const VerifyReport check = VerifyProject(doc, failure);
  const ReportFacts facts = GatherReportFacts(doc, call.date);
  const std::optional<QByteArray> pdf = ReportPdf(doc, facts, check);
  if (!pdf) return Fail(kBadFile, FileFault(call.report, QStringLiteral("報告書を作成できませんでした。")));
  if (!WriteWholeFile(call.report, {pdf->constData(), static_cast<std::size_t>(pdf->size())}))
    return Fail(kBadFile, FileFault(call.report, QStringLiteral("ファイルを保存できませんでした。")));
  PrintLine(QStringLiteral("保存しました：") + call.report);
  if (facts.sampleTables) PrintSampleNotice(doc.Folders());
  return kDone;
}

int Main(const QStringList& words) {
  QCommandLineParser parser;
  const QCommandLineOption data(QStringLiteral("data"), {}, QStringLiteral("DIR"));
  const QCommandLineOption date(QStringLiteral("date"), {}, QStringLiteral("YYYY-MM-DD"));
  const QCommandLineOption help(QStringLiteral("help")), version(QStringLiteral("version"));
  parser.addOptions({data, date, help, version});
  const bool understood = parser.parse(words);
  if (parser.isSet(help)) {
    PrintHelp();
    return kDone;
  }
  if (parser.isSet(version)) {
    PrintLine(QStringLiteral("tremlo-report ") + VersionAndCommit());
    return kDone;
  }
  if (!understood) return BadCommandLine(parser.errorText());
  const QStringList files = parser.positionalArguments();
  if (files.size() != 2 || files.contains(QString()))
    return BadCommandLine(QStringLiteral("プロジェクトと報告書のファイル名を 1 つずつ指定してください。"));
  ReportCall call{files[0], files[1],
                  parser.isSet(data) ? ProgramFolders(parser.value(data)) : InstalledFolders(),
                  QDate::currentDate()};
  if (parser.isSet(date)) call.date = QDate::fromString(parser.value(date), QStringLiteral("yyyy-MM-dd"));
  if (!call.date.isValid())
    return BadCommandLine(QStringLiteral("--date: 日付ではありません：") + parser.value(date));
  const QString place = QFileInfo(call.report).canonicalFilePath();
  if (!place.isEmpty() && place == QFileInfo(call.project).canonicalFilePath())
    return BadCommandLine(QStringLiteral("報告書がプロジェクトのファイルに上書きされます：") + call.report);
  try {
    return WriteReport(call);
  } catch (const std::exception& failure) {  // memory, for a project of any size
    return Fail(kBadFile, FileFault(call.project, QString::fromUtf8(failure.what())));
  }
}

}  // namespace

}  // namespace tremlo::cli

int main(int argc, char* argv[]) {
  tremlo::cli::PrepareStreams();
#ifndef _WIN32
  // It paints on paper alone: without a display too, and the same wherever it runs. On Windows there is
  // always one.
  qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  const QApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tremlo-report"));
  tremlo::InstallJapaneseFonts();
  return tremlo::cli::FinishOutput(tremlo::cli::Main(QCoreApplication::arguments()));
}
