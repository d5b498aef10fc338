#include "Arguments.h"
#include "Command.h"
#include "FiguresJson.h"
#include "Output.h"
#include "RecordInput.h"
#include "WaveInput.h"
#include "core/files/FileFault.h"
#include "core/waves/FiguresText.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"

namespace tremlo::cli {

namespace {

QList<QCommandLineOption> Options() {
  return RecordOptions::All() +
         QList<QCommandLineOption>{{QStringLiteral("out"), QStringLiteral("スペクトルを書く CSV ファイル"),
                                    QStringLiteral("FILE.csv")}};
}

int Run(const Arguments& arguments) {
  WaveInput wave;
  if (const int status = wave.Read(arguments.Positional(0), arguments); status != kDone) return status;

  std::vector<double> periods;
  std::vector<double> accSpec;
  {
    ProgressLine line;
    SweepProgress progress;
    if (line.IsShown())
      progress = [&](std::size_t done, std::size_t count) {
        line.ShowShare(QStringLiteral("加速度応答スペクトルの計算中"), done, count);
      };
    ComputeResponseSpectrum(wave.acc, periods, accSpec, wave.timeStep, progress);
  }

  const QString out = arguments.Text("out");
  if (arguments.IsSet("out") && !periods.empty() &&
      !WriteCsv(out, AccSpecName(wave.name), wave.timeStep, periods, accSpec))
    return Fail(kBadFile, FileFault(out, QStringLiteral("ファイルを保存できませんでした。")));

  const WaveFigures figures = ComputeWaveFigures(wave.acc, wave.timeStep);
  if (arguments.WantsJson()) {
    JsonWriter json;
    json.BeginObject();
    json.Member("name", wave.name);
    json.Member("timeStep", wave.timeStep);
    json.Member("samples", static_cast<int>(wave.acc.size()));
    json.Member("periods", periods);
    json.Member("accSpec", accSpec);
    WriteFigures(json, "figures", figures);
    json.EndObject();
    PrintJson(json);
    return kDone;
  }
  PrintWaveLine(wave);
  PrintSpectrum(QStringLiteral("加速度応答スペクトル（減衰定数 5 %）"), periods, accSpec,
                QStringLiteral("gal"));
  PrintLine(MakeFiguresLine(QStringLiteral("波形"), figures).Text());
  return kDone;
}

}  // namespace

Command ResponseCommand() {
  return {"response",
          "WAVE [--component NAME] [--unit UNIT] [--step DT] [--offset none|whole|T] [--member PATH] [--out "
          "FILE.csv]",
          "波形の加速度応答スペクトル（減衰定数 5 %）",
          1,
          Options,
          Run};
}

}  // namespace tremlo::cli
