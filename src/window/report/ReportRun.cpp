#include "window/report/ReportRun.h"

#include "core/files/WholeFile.h"
#include "core/project/ProjectFile.h"
#include "core/report/ReportWave.h"
#include "core/shell/TitleText.h"
#include "core/verify/VerifyProject.h"
#include "window/graphs/ExceptionText.h"
#include "window/graphs/RunBehindDialog.h"
#include "window/report/ReportPages.h"

#include <QDir>
#include <QFileInfo>

namespace tremlo {

namespace {

constexpr int kEndOfReport = 0x8007;
constexpr char kSuffix[] = ".pdf";

/// The name of the project's file with the report's suffix.
QString ProposedName(const CMorvaneDoc& doc) {
  return QFileInfo(ProposedFileName(ProjectTitle(doc.PathName()))).completeBaseName() +
         QLatin1String(kSuffix);
}

std::optional<QByteArray> MakeReport(const CMorvaneDoc& doc, RunDialog& dialog) {
  std::vector<DamCoefSet> sets;
  const std::optional<TableFailure> failure = LoadDamCoefFolder(doc.Folders(), sets);
  const VerifyReport check = VerifyProject(doc, failure, [&](int done, int count, const QString& name) {
    dialog.SetProgress(done, count, QStringLiteral("検算 %1 / %2　%3").arg(done).arg(count).arg(name));
  });
  return ReportPdf(doc, GatherReportFacts(doc, QDate::currentDate()), check);
}

}  // namespace

void WriteReport(const CMorvaneDoc& doc, Prompt& prompt, FileDialogs& files, QWidget* parent) {
  if (!OffersReport(doc)) {
    prompt.Tell(QStringLiteral("調整後の波形がありません。"));
    return;
  }
  const QString path = files.AskSavePath({.title = QStringLiteral("報告書の出力(PDF)"),
                                          .nameFilters = QStringLiteral("PDF ファイル (*.pdf)"),
                                          .suffix = QStringLiteral("pdf"),
                                          .proposedName = ProposedName(doc)});
  if (path.isEmpty()) return;
  std::optional<QByteArray> pdf;
  QString failure = QStringLiteral("報告書を作成できませんでした。");
  RunDialog dialog(QStringLiteral("報告書を作成しています。"), kEndOfReport, parent);
  // Screens may be painted meanwhile, and a graph in them may compute what it lacks.
  const CMorvaneDoc copy = doc;
  const auto work = [&] {
    try {
      pdf = MakeReport(copy, dialog);
    } catch (...) {
      failure = CurrentExceptionText();
    }
    dialog.SetAllDone();
    return pdf.has_value();
  };
  if (!RunBehindDialog(dialog, work, std::chrono::milliseconds(0))) {
    prompt.Tell(failure);
    return;
  }
  if (!WriteWholeFile(path, {pdf->constData(), static_cast<std::size_t>(pdf->size())}))
    prompt.Tell(QStringLiteral("報告書を保存できませんでした。\n") + QDir::toNativeSeparators(path));
}

}  // namespace tremlo
