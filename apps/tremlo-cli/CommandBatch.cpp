#include "Arguments.h"
#include "BatchLine.h"
#include "Command.h"
#include "Interruption.h"
#include "Output.h"
#include "core/batch/BatchPart.h"
#include "core/batch/BatchWorkers.h"
#include "core/batch/SummaryTable.h"
#include "core/files/FileFault.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

namespace tremlo::cli {

namespace {

constexpr std::int32_t kMostThreads = 1024;

QList<QCommandLineOption> Options() {
  return {
      {QStringLiteral("out"), QStringLiteral("結果を書くフォルダ（なければ作る）"), QStringLiteral("DIR")},
      {QStringLiteral("jobs"), QStringLiteral("同時に計算する行の数（既定値はプロセッサの数）"),
       QStringLiteral("N")},
      {QStringLiteral("part"), QStringLiteral("N 行ごとに I 行目から計算する（複数の計算機に分けるとき）"),
       QStringLiteral("I/N")},
      {QStringLiteral("resume"), QStringLiteral("同じ入力から結果ができている行を飛ばす")}};
}

/// The options of `adjust` that a line may have.
QStringList LineOptions() {
  QStringList names;
  for (const QCommandLineOption& option : AdjustCommand().options()) names << option.names().constFirst();
  for (const char* name : {"seed", "target", "out"}) names.removeAll(QLatin1String(name));
  return names;
}

/// What the command line says.
struct Settings {
  QString jobsFile;
  QString outFolder;
  std::int32_t threads = 1;
  std::optional<BatchPart> part;
  bool resume = false;

  /// False, with the fault of the command line in `error`.
  bool Parse(const Arguments& arguments, QString& error);
};

bool Settings::Parse(const Arguments& arguments, QString& error) {
  jobsFile = arguments.Positional(0);
  outFolder = arguments.Text("out");
  resume = arguments.IsSet("resume");
  threads = static_cast<std::int32_t>(std::max(1U, std::thread::hardware_concurrency()));
  if (!arguments.IsSet("out")) {
    error = QStringLiteral("--out を指定してください。");
  } else if (!arguments.Whole("jobs", threads) || threads < 1 || threads > kMostThreads) {
    error = QStringLiteral("--jobs は 1 から %1 までの整数です：").arg(kMostThreads) + arguments.Text("jobs");
  } else if (arguments.IsSet("part")) {
    part = ParsePart(arguments.Text("part"));
    if (!part) error = QStringLiteral("--part は 1/2 のような番号です：") + arguments.Text("part");
  }
  return error.isEmpty();
}

/// The path without links and "..", be the file there or not: it may be written yet.
QString PlaceOfFile(const QString& path) {
  const QFileInfo file(path);
  if (file.exists()) return file.canonicalFilePath();
  const QString folder = QDir(file.absolutePath()).canonicalPath();
  return folder.isEmpty() ? QString() : QDir(folder).filePath(file.fileName());
}

/// Marks the lines that read what another line, or the summary, writes: what they came to would depend on who
/// is first.
void RefuseReadersOfOutput(std::vector<BatchJob>& jobs, const QDir& folder, const QDir& out,
                           const QString& summary) {
  QHash<QString, int> writers;
  for (const BatchJob& job : jobs)
    for (const QString& path : BatchLine(job, folder, out).OutputPaths()) writers.insert(path, job.line);
  for (BatchJob& job : jobs) {
    const BatchLine line(job, folder, out);
    for (const QString& path : {line.SeedPath(), line.TargetPath()}) {
      const QString file = PlaceOfFile(path);
      if (const auto writer = writers.constFind(file); writer != writers.cend())
        job.fault = QStringLiteral("%1: %2 行目の結果を書くファイルです。").arg(path).arg(*writer);
      if (file == summary) job.fault = QStringLiteral("%1: 一覧を書くファイルです。").arg(path);
    }
  }
}

/// How the lines came out.
struct Tally {
  int converged = 0, notConverged = 0, unreadable = 0, skipped = 0;

  void Count(JobStatus status) {
    ++(status == JobStatus::Converged      ? converged
       : status == JobStatus::NotConverged ? notConverged
                                           : unreadable);
  }
  int Status() const { return unreadable > 0 ? kBadFile : notConverged > 0 ? kGoalMissed : kDone; }
};

QString DurationText(double seconds) {
  const qint64 whole = std::llround(seconds);
  if (whole < 60) return QStringLiteral("%1 秒").arg(whole);
  if (whole < 3600) return QStringLiteral("%1 分 %2 秒").arg(whole / 60).arg(whole % 60);
  return QStringLiteral("%1 時間 %2 分").arg(whole / 3600).arg(whole / 60 % 60);
}

/// The lines of one run, and what becomes of them.
class Batch {
 public:
  Batch(std::vector<BatchJob> jobs, const QDir& folder, const QDir& out, SummaryTable& summary)
      : m_jobs(std::move(jobs)),
        m_folder(folder),
        m_out(out),
        m_summary(summary),
        m_kept(m_jobs.size()),
        m_results(m_jobs.size()) {}

  /// Takes over the rows of an earlier run; whether they still hold is seen when their line comes up.
  void Keep(const std::vector<KeptRow>& rows);
  /// False when the summary cannot be written.
  bool Run(unsigned threads, const std::atomic<bool>& stop);

  const Tally& Outcome() const { return m_tally; }
  std::size_t Count() const { return m_jobs.size(); }
  void PrintNotes(const QString& jobsFile) const;

 private:
  /// What a line came to: a row of this run or one kept from an earlier one.
  struct Result {
    bool skipped = false;
    JobStatus status = JobStatus::Unreadable;
    QString text, note;
  };

  void Work(std::size_t job, const std::atomic<bool>& stop);
  void Collect(std::span<const std::size_t> done);
  void ShowProgress();

  std::vector<BatchJob> m_jobs;
  QDir m_folder, m_out;
  SummaryTable& m_summary;
  std::vector<std::optional<KeptRow>> m_kept;
  std::vector<std::optional<Result>> m_results;  ///< each written by the thread that has the job
  Tally m_tally;
  std::optional<ProgressLine> m_line;  ///< while they run
  std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
  std::size_t m_done = 0;
};

void Batch::Keep(const std::vector<KeptRow>& rows) {
  QHash<int, std::size_t> jobOfLine;
  for (std::size_t i = 0; i < m_jobs.size(); ++i) jobOfLine.insert(m_jobs[i].line, i);
  for (const KeptRow& row : rows) {
    const auto job = jobOfLine.constFind(row.line);
    if (job == jobOfLine.cend()) continue;
    m_kept[*job] = row;
    m_summary.Put(*job, row.text);
  }
}

void Batch::Work(std::size_t job, const std::atomic<bool>& stop) {
  const BatchLine line(m_jobs[job], m_folder, m_out);
  if (const auto& kept = m_kept[job]; kept && line.IsStill(*kept)) {
    m_results[job] = Result{true, kept->status, kept->text, kept->note};
  } else if (const auto row = line.Run(stop)) {
    m_results[job] = Result{false, row->status, RowText(*row), row->note};
  }
}

void Batch::Collect(std::span<const std::size_t> done) {
  for (const std::size_t job : done) {
    const auto& result = m_results[job];
    if (!result) continue;  // interrupted
    ++m_done;
    m_tally.Count(result->status);
    if (result->skipped) {
      ++m_tally.skipped;
    } else {
      m_summary.Put(job, result->text);
    }
  }
  m_summary.WriteIfDue();
  ShowProgress();
}

void Batch::ShowProgress() {
  if (!m_line->IsShown()) return;
  QString text = QStringLiteral("%1 / %2 行").arg(m_done).arg(m_jobs.size());
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - m_begin;
  const std::size_t computed = m_done - static_cast<std::size_t>(m_tally.skipped);
  if (computed > 0)
    text += QStringLiteral("　残り約 %1")
                .arg(DurationText(passed.count() / static_cast<double>(computed) *
                                  static_cast<double>(m_jobs.size() - m_done)));
  if (m_tally.notConverged > 0) text += QStringLiteral("　収束しない %1").arg(m_tally.notConverged);
  if (m_tally.unreadable > 0) text += QStringLiteral("　読めない %1").arg(m_tally.unreadable);
  m_line->Show(text);
}

bool Batch::Run(unsigned threads, const std::atomic<bool>& stop) {
  if (!m_summary.Write()) return false;
  m_line.emplace();
  RunOnWorkers(
      m_jobs.size(), threads, [&](std::size_t job) { Work(job, stop); },
      [&](std::span<const std::size_t> done) { Collect(done); }, stop);
  m_line.reset();
  return m_summary.Write();
}

void Batch::PrintNotes(const QString& jobsFile) const {
  for (std::size_t i = 0; i < m_jobs.size(); ++i)
    if (const auto& result = m_results[i]; result && !result->note.isEmpty())
      Fail(kDone,
           QStringLiteral("%1: %2 行目：%3").arg(jobsFile, QString::number(m_jobs[i].line), result->note));
}

void PrintOutcome(const Batch& batch, const QString& summary, bool asJson) {
  const Tally& tally = batch.Outcome();
  if (asJson) {
    JsonWriter json;
    json.BeginObject();
    json.Member("lines", static_cast<int>(batch.Count()));
    json.Member("converged", tally.converged);
    json.Member("notConverged", tally.notConverged);
    json.Member("unreadable", tally.unreadable);
    json.Member("skipped", tally.skipped);
    json.Member("summary", summary);
    json.EndObject();
    PrintJson(json);
    return;
  }
  PrintLine(QStringLiteral("%1 行：収束 %2、収束しない %3、読めない %4（うち前の結果のまま %5）")
                .arg(QString::number(batch.Count()), QString::number(tally.converged),
                     QString::number(tally.notConverged), QString::number(tally.unreadable),
                     QString::number(tally.skipped)));
  PrintLine(QStringLiteral("一覧：") + summary);
}

int Run(const Arguments& arguments) {
  Settings settings;
  QString error;
  if (!settings.Parse(arguments, error)) return FailUsage(error);
  QByteArray content;
  JobTable table;
  if (!ReadWholeFile(settings.jobsFile, content))
    return Fail(kBadFile, FileFault(settings.jobsFile, QStringLiteral("ファイルを開けませんでした。")));
  if (const auto fault = ParseJobs(content, LineOptions(), table))
    return Fail(kBadFile, FileFault(settings.jobsFile, *fault));
  if (!QDir().mkpath(settings.outFolder))
    return Fail(kBadFile, FileFault(settings.outFolder, QStringLiteral("フォルダを作れませんでした。")));

  const QDir out(QFileInfo(settings.outFolder).canonicalFilePath());
  const QDir folder(QFileInfo(settings.jobsFile).absolutePath());
  const QString summaryPath = out.absoluteFilePath(SummaryName(settings.part));
  if (QFileInfo(settings.jobsFile).canonicalFilePath() == summaryPath)
    return FailUsage(QStringLiteral("一覧を書くファイルと同じです：") + settings.jobsFile);
  RefuseReadersOfOutput(table.jobs, folder, out, summaryPath);
  std::vector<BatchJob> jobs = settings.part ? settings.part->JobsOf(table.jobs) : table.jobs;

  SummaryTable summary(summaryPath, table.encoding, jobs.size());
  Batch batch(std::move(jobs), folder, out, summary);
  QByteArray earlier;
  if (settings.resume && ReadWholeFile(summaryPath, earlier)) batch.Keep(ParseSummary(earlier));
  {
    const Interruption interruption;
    const bool written = batch.Run(static_cast<unsigned>(settings.threads), interruption.Flag());
    interruption.EndIfRaised();
    if (!written)
      return Fail(kBadFile, FileFault(summaryPath, QStringLiteral("ファイルを保存できませんでした。")));
  }
  batch.PrintNotes(settings.jobsFile);
  PrintOutcome(batch, summaryPath, arguments.WantsJson());
  return batch.Outcome().Status();
}

}  // namespace

Command BatchCommand() {
  return {"batch",
          "JOBS.csv --out DIR [--jobs N] [--part I/N] [--resume]",
          "表の各行の原種波形を目標スペクトルに合わせて調整する",
          1,
          Options,
          Run};
}

}  // namespace tremlo::cli
