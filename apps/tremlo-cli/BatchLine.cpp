#include "BatchLine.h"

#include "AdjustJob.h"
#include "Arguments.h"
#include "Command.h"
#include "core/files/FileFault.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "numeric/waves/WaveFigures.h"

#include <exception>

namespace tremlo::cli {

namespace {

/// Leaves the passes of an adjustment that nobody wants any more.
struct Stopped {};

QString WithWarnings(const QStringList& warnings) {
  return warnings.isEmpty() ? QString() : QStringLiteral("警告：") + warnings.join(u' ');
}

}  // namespace

std::vector<QString> BatchLine::OutputPaths() const {
  const SavePath path = SplitSavePath(m_out.absoluteFilePath(OutputName(m_job)));
  std::vector<QString> paths;
  for (const char* ending : {"", "_AccSpec", "_FFT"})
    paths.push_back(path.base + QLatin1String(ending) + path.extension);
  return paths;
}

/// The options of `adjust` that the line stands for.
QStringList BatchLine::Words() const {
  QStringList words = {QStringLiteral("--seed=") + SeedPath(), QStringLiteral("--target=") + TargetPath()};
  for (const auto& [name, value] : m_job.options) words << QStringLiteral("--") + name + u'=' + value;
  return words;
}

InputDigest BatchLine::Digest() const {
  return {QStringLiteral(TREMLO_VERSION), m_job};
}

bool BatchLine::IsStill(const KeptRow& row) const {
  if (row.status == JobStatus::Unreadable || !m_job.fault.isEmpty() || row.seed != m_job.seed ||
      row.target != m_job.target)
    return false;
  InputDigest digest = Digest();
  if (!digest.AddInput(SeedPath()) || !digest.AddInput(TargetPath())) return false;
  if (row.status == JobStatus::Converged && !digest.AddOutputs(OutputPaths())) return false;
  return digest.Hex() == row.hash;
}

SummaryRow BatchLine::Row() const {
  SummaryRow row;
  row.line = m_job.line;
  row.seed = m_job.seed;
  row.target = m_job.target;
  return row;
}

SummaryRow BatchLine::RunToItsEnd(const std::atomic<bool>& stop) const {
  SummaryRow row = Row();
  row.note = m_job.fault;
  if (!row.note.isEmpty()) return row;
  InputDigest digest = Digest();
  const Command command = AdjustCommand();
  Arguments arguments(command);
  if (!arguments.Parse(Words())) {
    row.note = arguments.Error();
    return row;
  }
  // Before the job reads them: inputs that change in between do not pass for those of its results.
  const bool known = digest.AddInput(SeedPath()) && digest.AddInput(TargetPath());
  AdjustJob job;
  QStringList warnings;
  if (job.Read(arguments, row.note, warnings) != kDone) return row;
  if (!known) {
    row.note = FileFault(SeedPath(), QStringLiteral("読んでいる間に変わりました。"));
    return row;
  }
  Adjustment result = job.Run([&](const FitFigures&) {
    if (stop) throw Stopped();
  });
  row.passes = result.passes;
  row.deviation = result.fit.deviation;
  row.overshoot = result.fit.overshoot;
  row.undershoot = result.fit.undershoot;
  row.note = WithWarnings(warnings);
  if (!result.converged) {
    row.status = JobStatus::NotConverged;
    row.hash = digest.Hex();
    return row;
  }
  ComputeResponseSpectrum(result.acc, result.periods, result.spectrum, job.seed.timeStep);
  const std::vector<FileContent> files =
      ExportFiles(SplitSavePath(OutputPaths().front()), job.seed.name, job.seed.timeStep, result.acc,
                  result.periods, result.spectrum);
  if (const auto failed = WriteWholeFiles(files)) {
    row = Row();
    row.note = FileFault(*failed, QStringLiteral("ファイルを保存できませんでした。"));
    return row;
  }
  for (const FileContent& file : files) {
    digest.AddOutput(file.content);
    row.files << QFileInfo(file.path).fileName();
  }
  const WaveFigures figures = ComputeWaveFigures(result.acc, job.seed.timeStep);
  row.pga = figures.pga;
  row.pgv = figures.pgv;
  row.pgd = figures.pgd;
  row.status = JobStatus::Converged;
  row.hash = digest.Hex();
  return row;
}

QStringList BatchLine::LeftFiles() const {
  QStringList names;
  for (const QString& path : OutputPaths())
    if (const QFileInfo file(path); file.isFile()) names << file.fileName();
  return names;
}

std::optional<SummaryRow> BatchLine::Run(const std::atomic<bool>& stop) const {
  SummaryRow row;
  try {
    row = RunToItsEnd(stop);
  } catch (const Stopped&) {
    return std::nullopt;
  } catch (const std::exception& failure) {  // memory, for an input of any size
    row = Row();
    row.note = QString::fromUtf8(failure.what());
  }
  if (row.status == JobStatus::Converged) return row;
  // They stay, as after any run that fails, but nobody is to take them for what this run came to.
  if (const QStringList left = LeftFiles(); !left.isEmpty())
    row.note += (row.note.isEmpty() ? QString() : QStringLiteral(" ")) +
                QStringLiteral("前の計算の結果が残っています：") + left.join(u';');
  return row;
}

}  // namespace tremlo::cli
