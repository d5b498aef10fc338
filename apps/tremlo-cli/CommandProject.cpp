#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "ProjectInput.h"
#include "RecordJson.h"
#include "TablesInput.h"
#include "core/files/FileFault.h"
#include "core/project/ProjectFile.h"

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return {};
}

int Save(CMorvaneDoc& doc, const QString& path, const Arguments& arguments) {
  if (!SaveProject(doc, path))
    return Fail(kBadFile, FileFault(path, QStringLiteral("ファイルを保存できませんでした。")));
  if (arguments.WantsJson()) {
    JsonWriter json;
    json.BeginObject();
    json.EndObject();
    PrintJson(json);
  } else {
    PrintLine(QStringLiteral("保存しました：") + path);
  }
  return kDone;
}

int RunNew(const Arguments& arguments) {
  CMorvaneDoc doc(arguments.Folders());
  if (const auto failure = LoadTables(doc)) return Fail(kBadFile, *failure);
  const int status = Save(doc, arguments.Positional(0), arguments);
  if (status == kDone && !arguments.WantsJson()) PrintSampleNotice(doc.Folders());
  return status;
}

int RunCopy(const Arguments& arguments) {
  CMorvaneDoc doc(arguments.Folders());
  const int status = OpenInput(doc, arguments.Positional(0));
  return status == kDone ? Save(doc, arguments.Positional(1), arguments) : status;
}

QString NameOrNone(const QString& name) {
  return name.isEmpty() ? QStringLiteral("（なし）") : name;
}

void PrintSet(const QString& label, const CSeismicWaveSet& set) {
  PrintLine(QStringLiteral("%1：%2 個").arg(label, QString::number(set.Count())));
  for (const CSeismicWave& wave : set.Records())
    PrintLine(QStringLiteral("  %1（%2 点、スペクトル %3 点%4）")
                  .arg(wave.name, QString::number(wave.acc.size()), QString::number(wave.accSpec.size()),
                       wave.adjusted ? QStringLiteral("、調整済み") : QString()));
}

void PrintSummary(const CMorvaneDoc& doc) {
  PrintLine(QStringLiteral("タイトル：") + NameOrNone(doc.site.title));
  PrintLine(QStringLiteral("現場名：") + NameOrNone(doc.site.siteName));
  PrintLine(doc.guidelineRoute ? QStringLiteral("指針に沿って解析波形を作成")
                               : QStringLiteral("加速度応答スペクトルへの調整"));
  PrintLine(doc.flowFixed ? QStringLiteral("作業手順：確定") : QStringLiteral("作業手順：未確定"));
  PrintSet(QStringLiteral("登録波形"), doc.seedWaves);
  PrintLine(QStringLiteral("断層：%1 個").arg(doc.faults.size()));
  for (const FaultInfo& fault : doc.faults)
    PrintLine(
        QStringLiteral("  %1 %2（%3 面）").arg(fault.rank, fault.ltename, QString::number(fault.geomNum)));
  PrintSet(QStringLiteral("下限スペクトル"), doc.lowerSpectra);
  PrintLine(QStringLiteral("基準スペクトル：") + NameOrNone(doc.baseSpectrumName));
  PrintLine(QStringLiteral("採用した波形：") + NameOrNone(doc.seedAdoptedName));
  PrintSet(QStringLiteral("調整用スペクトル"), doc.respSpectra);
}

int RunShow(const Arguments& arguments) {
  CMorvaneDoc doc(arguments.Folders());
  if (const int status = OpenInput(doc, arguments.Positional(0)); status != kDone) return status;
  if (!arguments.WantsJson()) {
    PrintSummary(doc);
    return kDone;
  }
  JsonWriter json;
  WriteProject(json, doc);
  PrintJson(json);
  return kDone;
}

}  // namespace

Command ProjectNewCommand() {
  return {"project new", "OUT.trml [--data DIR]", "新しいプロジェクトのファイルを作る", 1, Options, RunNew};
}

Command ProjectShowCommand() {
  return {"project show", "FILE.trml", "プロジェクトファイルの内容", 1, Options, RunShow};
}

Command ProjectCopyCommand() {
  return {"project copy", "IN.trml OUT.trml", "プロジェクトを読み込み、別のファイルに保存する", 2, Options,
          RunCopy};
}

}  // namespace tremlo::cli
