// Reading a K-NET file of 300 s beside reading its bytes and one from_chars a number, and listing an event's
// archive of 7,200 members, two levels deep, beside gzip -dc of the same bytes. Each pair is taken in turn,
// so that both shares of the machine change alike; more than twice the time, and more memory than 200 MiB, is
// an error. Every value is made up.

#include "core/records/ReadRecord.h"
#include "core/records/RecordArchive.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <benchmark/benchmark.h>
#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace tremlo {
namespace {

constexpr double kMostRatio = 2.0;
constexpr double kMostMiB = 200.0;
constexpr int kRate = 100;  // Hz

template <class Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Of the processor, for work of a millisecond: a slice of time that another process takes is longer than
/// that.
template <class Work>
double ProcessorSeconds(Work work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double PeakMiB() {
#ifdef _WIN32
  return 0.0;
#else
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
#endif
}

/// A record in the format of K-NET.
std::string KnetFile(int seconds, const std::string& station, const char* direction, double phase) {
  std::string text =
      "Origin Time       2000/01/01 00:00:00\nLat.              35.000\nLong.             135.000\n"
      "Depth. (km)       10\nMag.              5.0\nStation Code      " +
      station +
      "\nStation Lat.      35.1000\nStation Long.     135.1000\nStation Height(m) 100\n"
      "Record Time       2000/01/01 00:00:25\nSampling Freq(Hz) 100Hz\nDuration Time(s)  " +
      std::to_string(seconds) + "\nDir.              " + direction +
      "\nScale Factor      3920(gal)/6182761\nMax. Acc. (gal)   0.000\n"
      "Last Correction   2000/01/01 00:00:25\nMemo.             SAMPLE made-up values, not a record\n";
  const int count = seconds * kRate;
  char number[16];
  for (int i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) / count;
    const double envelope = std::sin(3.14159265 * x) * std::sin(3.14159265 * x);
    const double noise = static_cast<double>((static_cast<unsigned>(i) * 2654435761U) >> 24U) - 128.0;
    const auto value = static_cast<int>(-12053.0 + 200000.0 * envelope * std::sin(0.13 * i + phase) + noise);
    const int length = std::snprintf(number, sizeof number, "%8d ", value);
    text.append(number, static_cast<std::size_t>(length));
    if (i % 8 == 7 || i + 1 == count) text += '\n';
  }
  return text;
}

void Write(const QString& path, const std::string& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
    qFatal("the folder for the benchmark cannot be written");
}

/// The bytes of the file, each number behind its header by one from_chars.
std::vector<double> ReadNumbers(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("the record cannot be read");
  const QByteArray bytes = file.readAll();
  const char* at = bytes.constData() + bytes.indexOf('\n', bytes.indexOf("Memo.")) + 1;
  const char* const end = bytes.constData() + bytes.size();
  std::vector<double> values;
  for (;;) {
    while (at != end && (*at == ' ' || *at == '\n')) ++at;
    if (at == end) return values;
    double value = 0.0;
    at = std::from_chars(at, end, value).ptr;
    values.push_back(value);
  }
}

void ReadKnetOf300Seconds(benchmark::State& state) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("SMP0010001010000.NS"));
  Write(path, KnetFile(300, "SMP001", "N-S", 0.0));
  double ours = 0.0;
  double plain = 0.0;
  std::size_t samples = 0;
  std::size_t numbers = 0;
  for ([[maybe_unused]] auto _ : state) {
    plain += ProcessorSeconds([&] { numbers = ReadNumbers(path).size(); });
    const double seconds = ProcessorSeconds([&] {
      const std::vector<RecordReading> readings = ReadRecordFile(path);
      samples = readings.front().components.empty() ? 0 : readings.front().components.front().acc.size();
    });
    state.SetIterationTime(seconds);
    ours += seconds;
  }
  state.counters["from_chars_ratio"] = ours / plain;
  if (samples != 30000 || numbers != samples) state.SkipWithError("not read whole");
  if (ours > kMostRatio * plain) state.SkipWithError("more than twice a from_chars a number");
}
BENCHMARK(ReadKnetOf300Seconds)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The header of a member of an archive that is being written.
void AddHeader(archive* writer, const std::string& name, qint64 size) {
  archive_entry* const entry = archive_entry_new();
  archive_entry_set_pathname(entry, name.c_str());
  archive_entry_set_filetype(entry, AE_IFREG);
  archive_entry_set_perm(entry, 0644);
  archive_entry_set_size(entry, size);
  if (archive_write_header(writer, entry) != ARCHIVE_OK) qFatal("the archive cannot be written");
  archive_entry_free(entry);
}

/// A file as a member, piece by piece: the peak of the memory is to be that of the reader.
void AddFile(archive* writer, const std::string& name, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("an inner archive cannot be read");
  AddHeader(writer, name, file.size());
  for (QByteArray piece; !(piece = file.read(1 << 16)).isEmpty();)
    if (archive_write_data(writer, piece.constData(), static_cast<std::size_t>(piece.size())) < 0)
      qFatal("the archive cannot be written");
}

void WriteArchive(const QString& path, bool gzip, const std::vector<std::pair<std::string, QString>>& files,
                  int stations, const std::vector<const char*>& directions) {
  archive* const writer = archive_write_new();
  archive_write_set_format_ustar(writer);
  if (gzip) archive_write_add_filter_gzip(writer);
  archive_write_open_filename(writer, QFile::encodeName(path).constData());
  for (const auto& [name, source] : files) AddFile(writer, name, source);
  constexpr int kSeconds = 60;
  for (int station = 0; station < stations; ++station) {
    std::string code("S");
    code += std::to_string(10000 + station);
    for (std::size_t i = 0; i < directions.size(); ++i) {
      std::string name = code;
      name += "0001010000.";
      name += std::to_string(i);
      const std::string bytes =
          KnetFile(kSeconds, code, directions[i], 0.1 * station + static_cast<double>(i));
      AddHeader(writer, name, static_cast<qint64>(bytes.size()));
      archive_write_data(writer, bytes.data(), bytes.size());
    }
  }
  archive_write_close(writer);
  archive_write_free(writer);
}

/// An event of 1,000 stations with three components and 700 with six.
struct EventArchive {
  QTemporaryDir folder;
  QString surface = folder.filePath(QStringLiteral("20000101000000.knt.tar.gz"));
  QString both = folder.filePath(QStringLiteral("20000101000000.kik.tar.gz"));
  QString event = folder.filePath(QStringLiteral("20000101000000.tar"));

  EventArchive() {
    WriteArchive(surface, true, {}, 1000, {"N-S", "E-W", "U-D"});
    WriteArchive(both, true, {}, 700, {"1", "2", "3", "4", "5", "6"});
    WriteArchive(event, false, {{"20000101000000.knt.tar.gz", surface}, {"20000101000000.kik.tar.gz", both}},
                 0, {});
  }
  static constexpr int kMembers = 7200;

  /// Written once for all.
  static const EventArchive& Shared() {
    static const EventArchive archive;
    return archive;
  }
};

void ListEventOf7200Members(benchmark::State& state) {
  const QString gzip = QStandardPaths::findExecutable(QStringLiteral("gzip"));
  if (gzip.isEmpty()) return state.SkipWithError("no gzip");
  const EventArchive& archive = EventArchive::Shared();
  double ours = 0.0;
  double plain = 0.0;
  int members = 0;
  for ([[maybe_unused]] auto _ : state) {
    plain += Seconds([&] {
      QProcess unpack;
      unpack.setStandardOutputFile(QProcess::nullDevice());
      unpack.start(gzip, {QStringLiteral("-dc"), archive.surface, archive.both});
      if (!unpack.waitForFinished(-1) || unpack.exitCode() != 0) qFatal("gzip failed");
    });
    members = 0;
    const double seconds = Seconds([&] {
      WalkRecords(
          archive.event, {}, [](RecordReading&&) {},
          [&](const QString& member) {
            members += member.isEmpty() ? 0 : 1;
            return false;
          });
    });
    state.SetIterationTime(seconds);
    ours += seconds;
  }
  state.counters["gzip_ratio"] = ours / plain;
  state.counters["peak MiB"] = PeakMiB();
  if (members != EventArchive::kMembers) state.SkipWithError("not all members");
  if (ours > kMostRatio * plain) state.SkipWithError("more than twice gzip -dc");
  if (PeakMiB() > kMostMiB) state.SkipWithError("more than 200 MiB");
}
BENCHMARK(ListEventOf7200Members)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

/// The same archive with every record read, as tremlo-cli inspect does.
void InspectEventOf7200Members(benchmark::State& state) {
  const EventArchive& archive = EventArchive::Shared();
  int components = 0;
  for ([[maybe_unused]] auto _ : state) {
    components = 0;
    WalkRecords(archive.event, {},
                [&](RecordReading&& reading) { components += static_cast<int>(reading.components.size()); });
  }
  state.counters["peak MiB"] = PeakMiB();
  if (components != EventArchive::kMembers) state.SkipWithError("not all records");
  if (PeakMiB() > kMostMiB) state.SkipWithError("more than 200 MiB");
}
BENCHMARK(InspectEventOf7200Members)->UseRealTime()->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tremlo

BENCHMARK_MAIN();
