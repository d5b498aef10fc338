#include "core/report/ReportFacts.h"

#include "core/files/WholeFile.h"
#include "core/project/ProjectFile.h"
#include "core/report/ReportWave.h"
#include "core/shell/TitleText.h"
#include "core/waves/WaveFile.h"

#include <QCryptographicHash>

#include <algorithm>
#include <new>
#include <string_view>

namespace tremlo {

namespace {

QString HashOf(const QByteArray& content) {
  return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

QString HashOf(const std::string& content) {
  return HashOf(QByteArray::fromRawData(content.data(), static_cast<qsizetype>(content.size())));
}

/// The first of the three files of an export.
std::string AdjustedWaveFile(const CSeismicWave& wave) {
  std::vector<double> times(wave.adjustedAcc.size());
  for (std::size_t i = 0; i < times.size(); ++i) times[i] = static_cast<double>(i) * wave.timeStep;
  return CsvContent(wave.name, wave.timeStep, times, wave.adjustedAcc);
}

std::vector<TableOrigin> OriginsOf(const ProgramFolders& folders) {
  const std::vector<QString> samples = SampleTableFolders(folders);
  std::vector<TableOrigin> origins;
  for (const char* folder : {"DamCoef", "LowSpec", "SystemData"}) {
    const QString name = QLatin1String(folder);
    const bool sample = std::find(samples.begin(), samples.end(), name) != samples.end();
    for (const TableFile& file : ListTableFiles(folders, name)) {
      QByteArray content;
      origins.push_back(
          {file.shown, ReadWholeFile(file.path, content) ? HashOf(content) : QString(), sample});
    }
  }
  return origins;
}

/// Whether a project file of this content gives the document as it is now.
bool Holds(const QByteArray& file, const CMorvaneDoc& doc, const std::string& bytes) {
  const std::string_view content(file.constData(), static_cast<std::size_t>(file.size()));
  if (content == bytes) return true;
  // Not every file is as this program would write it: there may be more behind its last field.
  CMorvaneDoc read(doc.Folders());
  return LoadProject(read, content).whole && ProjectBytes(read) == bytes;
}

void TakeProject(const CMorvaneDoc& doc, ReportFacts& facts) {
  const std::string bytes = ProjectBytes(doc);
  if (bytes.empty()) throw std::bad_alloc();
  QByteArray file;
  facts.projectName = ProjectTitle(doc.PathName());
  facts.unsaved =
      doc.PathName().isEmpty() || !ReadWholeFile(doc.PathName(), file) || !Holds(file, doc, bytes);
  facts.projectHash = facts.unsaved ? HashOf(bytes) : HashOf(file);
}

}  // namespace

ReportFacts GatherReportFacts(const CMorvaneDoc& doc, QDate date) {
  const CSeismicWave& wave = *ReportWave(doc);
  ReportFacts facts;
  facts.date = date;
  TakeProject(doc, facts);
  facts.waveHash = HashOf(AdjustedWaveFile(wave));
  // The other route works with the user's own spectrum alone.
  if (doc.guidelineRoute) facts.tables = OriginsOf(doc.Folders());
  facts.sampleTables = std::any_of(facts.tables.begin(), facts.tables.end(),
                                   [](const TableOrigin& table) { return table.sample; });
  facts.run = RunAdjustment(ReportInput(doc, wave));
  return facts;
}

}  // namespace tremlo
