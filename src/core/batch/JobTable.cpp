#include "core/batch/JobTable.h"

#include <QFileInfo>

namespace tremlo {

namespace {

constexpr qsizetype kFixedCells = 2;

std::optional<QString> HeadingFault(const QStringList& heading, const QStringList& optionNames) {
  if (heading.value(0) != u"seed" || heading.value(1) != u"target")
    return QStringLiteral("1 行目が「seed,target」で始まる見出しではありません。");
  for (qsizetype i = kFixedCells; i < heading.size(); ++i) {
    if (!optionNames.contains(heading[i]))
      return QStringLiteral("1 行目の見出し「%1」は adjust のオプションではありません。次のどれかです：%2")
          .arg(heading[i], optionNames.join(u'、'));
    if (heading.indexOf(heading[i]) != i)
      return QStringLiteral("1 行目の見出し「%1」が二つあります。").arg(heading[i]);
  }
  return std::nullopt;
}

BatchJob JobOf(int line, const QString& text, const QStringList& heading) {
  BatchJob job;
  job.line = line;
  const std::optional<QStringList> cells = CellsOf(text);
  if (!cells) {
    job.fault = QStringLiteral("引用符が閉じていません。");
    return job;
  }
  job.seed = cells->value(0);
  job.target = cells->value(1);
  for (qsizetype i = kFixedCells; i < cells->size() && i < heading.size(); ++i)
    if (!(*cells)[i].isEmpty()) job.options.emplace_back(heading[i], (*cells)[i]);
  for (qsizetype i = heading.size(); i < cells->size(); ++i)
    if (!(*cells)[i].isEmpty()) job.fault = QStringLiteral("見出しより多くの値があります。");
  if (job.seed.isEmpty() || job.target.isEmpty()) job.fault = QStringLiteral("seed か target がありません。");
  return job;
}

}  // namespace

std::optional<QString> ParseJobs(const QByteArray& content, const QStringList& optionNames, JobTable& table) {
  table.encoding = EncodingOf(content);
  table.jobs.clear();
  const QStringList lines = LinesOf(content);
  QStringList heading = CellsOf(lines.value(0)).value_or(QStringList());
  // Spreadsheets write the commas of columns that were emptied.
  while (heading.size() > kFixedCells && heading.back().isEmpty()) heading.removeLast();
  if (auto fault = HeadingFault(heading, optionNames)) return fault;
  for (qsizetype i = 1; i < lines.size(); ++i) {
    QString bare = lines[i];
    if (bare.remove(u',').trimmed().isEmpty()) continue;
    table.jobs.push_back(JobOf(static_cast<int>(i + 1), lines[i], heading));
  }
  return std::nullopt;
}

QString OutputName(const BatchJob& job) {
  const QString name = QFileInfo(job.seed).fileName();
  const QString ending = QStringLiteral(".csv");
  return QStringLiteral("%1_%2").arg(job.line, 4, 10, QChar(u'0')).arg(name) +
         (name.endsWith(ending, Qt::CaseInsensitive) ? QString() : ending);
}

}  // namespace tremlo
