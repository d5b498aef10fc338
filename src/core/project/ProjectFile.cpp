#include "core/project/ProjectFile.h"

#include "core/files/WholeFile.h"
#include "core/project/ProjectFields.h"

#include <QDir>
#include <QHash>

#include <algorithm>
#include <array>
#include <exception>

namespace tremlo {

namespace {

constexpr char16_t kExtension[] = u".trml";
constexpr qsizetype kLongestTitle = 256;

// Records that the file only hints at (names without bodies yet, namesakes of a record) may take this much of
// memory, or this many times the size of the file, whichever is more.
constexpr std::size_t kExtraBytes = std::size_t{1} << 30;
constexpr std::size_t kExtraTimes = 64;

/// Hands the fields to an archive that stores (or adds up what storing would take).
template <class Archive>
class FieldWriter {
 public:
  explicit FieldWriter(Archive& archive) : m_archive(archive) {}

  template <class T>
  void operator()(std::string_view, const T& member) {
    Put(member);
  }

 private:
  template <class T>
  void Put(const T& value) {
    m_archive.Value(value);
  }
  template <class T, std::size_t N>
  void Put(const std::array<T, N>& values) {
    for (const T& value : values) Put(value);
  }
  void Put(const WaveGraphSetting& graph) { VisitGraphFields(*this, graph); }
  void Put(const CSeismicWave& wave) { VisitWaveBody(*this, wave); }
  void Put(const CSeismicWaveSet& set) {
    m_archive.Count(set.Count());
    for (const CSeismicWave& wave : set.Records()) Put(wave.name);
    for (const CSeismicWave& wave : set.Records()) Put(wave);
  }
  void Put(const std::vector<FaultInfo>& faults) {
    m_archive.Count(faults.size());
    for (const FaultInfo& fault : faults) VisitFaultFields(*this, fault);
  }

  Archive& m_archive;
};

/// For each record the index of the first one of its name.
std::vector<std::size_t> FirstRecords(const CSeismicWaveSet& set) {
  std::vector<std::size_t> first(set.Count());
  QHash<QString, std::size_t> known;
  for (std::size_t i = 0; i < set.Count(); ++i) {
    const QString& name = set.At(i).name;
    const auto found = known.constFind(name);
    first[i] = found == known.cend() ? i : *found;
    if (found == known.cend()) known.insert(name, i);
  }
  return first;
}

std::size_t SampleBytes(const CSeismicWave& wave) {
  return sizeof(double) * (wave.acc.size() + wave.periods.size() + wave.accSpec.size() +
                           wave.adjustedAcc.size() + wave.adjustedPeriods.size() + wave.adjustedSpec.size());
}

/// Fills the fields from an archive that loads. A field that the archive cannot give any more is not touched.
class FieldReader {
 public:
  explicit FieldReader(ArchiveReader& archive)
      : m_archive(archive), m_extraLeft(std::max(kExtraBytes, kExtraTimes * archive.Size())) {}

  template <class T>
  void operator()(std::string_view, T& member) {
    if (!m_archive.Failed()) Take(member);
  }

 private:
  template <class T>
  void Take(T& value) {
    m_archive.Value(value);
  }
  template <class T, std::size_t N>
  void Take(std::array<T, N>& values) {
    for (T& value : values) Take(value);
  }
  void Take(WaveGraphSetting& graph) { VisitGraphFields(*this, graph); }
  void Take(CSeismicWave& wave) { VisitWaveBody(*this, wave); }
  void Take(CSeismicWaveSet& set);
  void Take(std::vector<FaultInfo>& faults);

  void TakeNames(CSeismicWaveSet& set);
  void CopyToNamesakes(CSeismicWaveSet& set, const std::vector<std::size_t>& first);
  /// Fails the archive instead of letting a small file fill the memory.
  bool Spend(std::size_t bytes);

  ArchiveReader& m_archive;
  std::size_t m_extraLeft;
};

bool FieldReader::Spend(std::size_t bytes) {
  if (bytes > m_extraLeft) {
    m_archive.Fail();
    return false;
  }
  m_extraLeft -= bytes;
  return true;
}

void FieldReader::TakeNames(CSeismicWaveSet& set) {
  std::vector<QString> names;
  for (std::uint32_t left = m_archive.Count(); left > 0; --left) {
    QString name;
    m_archive.Value(name);
    if (m_archive.Failed()) break;
    names.push_back(std::move(name));
  }
  if (!Spend(names.size() * sizeof(CSeismicWave))) return;
  set.Resize(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) set.At(i).name = std::move(names[i]);
}

void FieldReader::Take(CSeismicWaveSet& set) {
  set.Clear();  // the reset has filled the lower limits from the tables; the project has its own
  TakeNames(set);
  const std::vector<std::size_t> first = FirstRecords(set);
  for (std::size_t i = 0; i < set.Count() && !m_archive.Failed(); ++i) Take(set.At(first[i]));
  CopyToNamesakes(set, first);
}

void FieldReader::CopyToNamesakes(CSeismicWaveSet& set, const std::vector<std::size_t>& first) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < first.size(); ++i)
    if (first[i] != i) bytes += SampleBytes(set.At(first[i]));
  if (!Spend(bytes)) return;
  for (std::size_t i = 0; i < first.size(); ++i)
    if (first[i] != i) set.At(i) = set.At(first[i]);
}

void FieldReader::Take(std::vector<FaultInfo>& faults) {
  for (std::uint32_t left = m_archive.Count(); left > 0 && !m_archive.Failed(); --left)
    VisitFaultFields(*this, faults.emplace_back());
}

}  // namespace

void Serialize(ArchiveWriter& archive, const CMorvaneDoc& doc) {
  FieldWriter writer(archive);
  VisitProjectFields(writer, doc);
}

std::optional<TableFailure> Serialize(ArchiveReader& archive, CMorvaneDoc& doc) {
  std::optional<TableFailure> failure = doc.ResetDocument();
  FieldReader reader(archive);
  VisitProjectFields(reader, doc);
  return failure;
}

std::string ProjectBytes(const CMorvaneDoc& doc) {
  try {
    ArchiveSize size;
    FieldWriter counter(size);
    VisitProjectFields(counter, doc);
    ArchiveWriter archive(size.Bytes());
    Serialize(archive, doc);
    return archive.Failed() ? std::string() : archive.TakeBytes();
  } catch (const std::exception&) {  // memory
    return {};
  }
}

LoadOutcome LoadProject(CMorvaneDoc& doc, std::string_view bytes) {
  LoadOutcome outcome;
  try {
    ArchiveReader archive(bytes);
    outcome.tableFailure = Serialize(archive, doc);
    outcome.whole = !archive.Failed();
  } catch (const std::exception&) {  // memory; as for a list that is too long
    outcome.whole = false;
  }
  return outcome;
}

OpenOutcome OpenProject(CMorvaneDoc& doc, const QString& path) {
  OpenOutcome outcome;
  QByteArray bytes;
  if (!ReadWholeFile(path, bytes)) return outcome;
  LoadOutcome load = LoadProject(doc, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  doc.SetPathName(load.whole ? path : QString());
  doc.SetModified(false);
  outcome.result = load.whole ? OpenResult::kOpened : OpenResult::kBroken;
  outcome.tableFailure = std::move(load.tableFailure);
  return outcome;
}

bool SaveProject(CMorvaneDoc& doc, const QString& path) {
  const std::string bytes = ProjectBytes(doc);
  if (bytes.empty() || !WriteWholeFile(path, bytes)) return false;
  doc.SetPathName(path);
  doc.SetModified(false);
  return true;
}

QString OpenFailureText(const QString& path) {
  return QStringLiteral("ファイルを開けませんでした。\n") + QDir::toNativeSeparators(path);
}

QString SaveFailureText(const QString& path) {
  return QStringLiteral("ファイルを保存できませんでした。\n") + QDir::toNativeSeparators(path);
}

QString ProposedFileName(const QString& title) {
  QString name = title;
  if (name.endsWith(QStringView(kExtension), Qt::CaseInsensitive)) name.chop(QStringView(kExtension).size());
  const auto end = std::find_if(name.cbegin(), name.cend(),
                                [](QChar unit) { return QStringView(u":/\\").contains(unit); });
  name.truncate(std::min<qsizetype>(end - name.cbegin(), kLongestTitle));
  // Half of a surrogate pair has no place in a file name.
  if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
  return name.append(QStringView(kExtension));
}

}  // namespace tremlo
