#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "ProjectInput.h"
#include "core/verify/VerifyProject.h"

#include <algorithm>
#include <cmath>

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {};
}

void PrintObject(const VerifyReport& report) {
  JsonWriter json;
  json.BeginObject();
  json.Member("outcome", QString::fromLatin1(OutcomeWord(report.outcome)));
  json.Key("items");
  json.BeginArray();
  for (const VerifyItem& item : report.items) {
    json.BeginObject();
    json.Member("item", item.key);
    json.Member("outcome", QString::fromLatin1(OutcomeWord(item.outcome)));
    json.Member("difference", item.difference);
    json.Member("at", item.at);
    json.Member("reason", item.reason);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  PrintJson(json);
}

QString DifferenceText(const VerifyItem& item) {
  QString text;
  if (std::isfinite(item.difference)) text = QStringLiteral("最大差 ") + NumberText(item.difference);
  if (!item.place.isEmpty()) text += (text.isEmpty() ? QString() : QStringLiteral("、")) + item.place;
  return text;
}

/// What is as it should be in one line, everything else by itself.
void PrintSummary(const VerifyReport& report) {
  for (const VerifyOutcome outcome :
       {VerifyOutcome::Equal, VerifyOutcome::Close, VerifyOutcome::Differs, VerifyOutcome::Unchecked}) {
    const auto count = std::count_if(report.items.begin(), report.items.end(),
                                     [&](const VerifyItem& item) { return item.outcome == outcome; });
    PrintLine(QStringLiteral("%1：%2 項目").arg(OutcomeText(outcome)).arg(count));
    if (outcome == VerifyOutcome::Equal) continue;
    for (const VerifyItem& item : report.items) {
      if (item.outcome != outcome) continue;
      PrintLine(QStringLiteral("  ") + item.name);
      for (const QString& line : {DifferenceText(item), item.reason})
        if (!line.isEmpty()) PrintLine(QStringLiteral("    ") + line);
    }
  }
}

int Run(const Arguments& arguments) {
  CMorvaneDoc doc(arguments.Folders());
  if (const int status = OpenInput(doc, arguments.Positional(0)); status != kDone) return status;
  std::vector<DamCoefSet> sets;
  const std::optional<TableFailure> failure = LoadDamCoefFolder(doc.Folders(), sets);
  VerifyReport report;
  {
    ProgressLine line;
    report = VerifyProject(doc, failure, [&](int done, int count, const QString& name) {
      if (line.IsShown()) line.Show(QStringLiteral("%1 / %2　%3").arg(done).arg(count).arg(name));
    });
  }
  if (arguments.WantsJson()) {
    PrintObject(report);
  } else {
    PrintSummary(report);
    PrintSampleNotice(doc.Folders());
  }
  return report.outcome == VerifyOutcome::Differs ? kGoalMissed : kDone;
}

}  // namespace

Command ProjectVerifyCommand() {
  return {"project verify",
          "FILE.trml [--data DIR]",
          "プロジェクトに保存された結果を計算し直して照合する",
          1,
          Options,
          Run};
}

}  // namespace tremlo::cli
