#include "Arguments.h"
#include "Command.h"
#include "Output.h"
#include "RecordInput.h"
#include "WaveInput.h"
#include "core/files/FileFault.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/FourierSpectrum.h"

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
  std::vector<double> amplitudes;
  {
    ProgressLine line;
    line.Show(QStringLiteral("フーリエスペクトルの計算中（%1 点）").arg(wave.acc.size()));
    ComputeFourierSpectrum(wave.acc, periods, amplitudes, wave.timeStep);
  }

  const QString out = arguments.Text("out");
  if (arguments.IsSet("out") && !periods.empty() &&
      !WriteCsv(out, FourierName(wave.name), wave.timeStep, periods, amplitudes))
    return Fail(kBadFile, FileFault(out, QStringLiteral("ファイルを保存できませんでした。")));

  if (arguments.WantsJson()) {
    JsonWriter json;
    json.BeginObject();
    json.Member("name", wave.name);
    json.Member("timeStep", wave.timeStep);
    json.Member("periods", periods);
    json.Member("amplitudes", amplitudes);
    json.EndObject();
    PrintJson(json);
    return kDone;
  }
  PrintWaveLine(wave);
  PrintSpectrum(QStringLiteral("フーリエスペクトル（フィルタなし）"), periods, amplitudes,
                QStringLiteral("gal·sec"));
  return kDone;
}

}  // namespace

Command FourierCommand() {
  return {"fourier",
          "WAVE [--component NAME] [--unit UNIT] [--step DT] [--offset none|whole|T] [--member PATH] [--out "
          "FILE.csv]",
          "波形のフーリエ振幅スペクトル",
          1,
          Options,
          Run};
}

}  // namespace tremlo::cli
