// A ranking of 50 faults with 3 planes each, acquired from the local service, against a bare libcurl loop
// that asks for the same 51 addresses over one kept connection and writes and reads the same file. To stay
// below a ratio of 2.

#include "core/ask/Prompt.h"
#include "core/sources/FaultAcquisition.h"
#include "support/LocalService.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <curl/curl.h>

namespace tremlo {

namespace {

constexpr int kFaults = 50;
constexpr int kPlanes = 3;

class Silent : public Prompt {
 public:
  PromptAnswer Show(const PromptBox&) override { return PromptAnswer::Ok; }
};

void Write(const QString& path, const QString& text) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) std::abort();
}

/// The answers of the service, in the size of real ones.
void WriteAnswers(const QDir& folder) {
  QStringList entries;
  const QString feature = QStringLiteral(
      R"({"type":"Feature","geometry":{"type":"Polygon","coordinates":[[[136.65,36.45,4.0],[136.77,36.66,4.0],)"
      R"([136.90,36.61,19.3],[136.77,36.40,19.3],[136.65,36.45,4.0]]]},"properties":{"lon":"136.650","lat":"36.453",)"
      R"("dep":"4.0","len":"26.0","wid":"20.0","str":"25.7","dip":"50.0"}})");
  for (int i = 1; i <= kFaults; ++i) {
    const QString code = QStringLiteral("F%1").arg(i, 6, 10, QChar(u'0'));
    entries
        << QStringLiteral(
               R"({"rank":"%1","ltecode":"%2","ltename":"試験断層帯","eqcode":"LND_A98F","eqgroup":"A",)"
               R"("magnitude":"-6.7","ijma":"6.4","i45_ps":"0.999","i50_ps":"0.993","i55_ps":"0.921","i60_ps":"0.4"})")
               .arg(i)
               .arg(code);
    Write(folder.filePath(QStringLiteral("fltinfo_%1.geojson").arg(code)),
          QStringLiteral(
              R"({"status":"Success","seisact_model":{"avract":"2000","newact":"1000","t30p":"0.01",)"
              R"("t50p":"0.02","magu":"-6.7","geom_num":%1},"features":[%2]})")
              .arg(kPlanes)
              .arg(QStringList(kPlanes, feature).join(u',')));
  }
  Write(folder.filePath(QStringLiteral("fltsearch_C.json")),
        QStringLiteral(R"({"status":"Success","Fault":[%1]})").arg(entries.join(u',')));
}

std::size_t ToFile(char* data, std::size_t size, std::size_t count, void* file) {
  return std::fwrite(data, size, count, static_cast<std::FILE*>(file));
}

/// Asks for every address in turn, each answer written to one file and read back.
void BareLoop(const std::vector<QByteArray>& urls, const ServiceSettings& settings) {
  const QByteArray path = QFile::encodeName(QDir(settings.answerFolder).filePath(QStringLiteral("bare")));
  const QByteArray certificates = QFile::encodeName(settings.certificateFile);
  CURL* easy = curl_easy_init();
  curl_easy_setopt(easy, CURLOPT_CAINFO, certificates.constData());
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &ToFile);
  std::string text;
  for (const QByteArray& url : urls) {
    std::FILE* file = std::fopen(path.constData(), "wb");
    curl_easy_setopt(easy, CURLOPT_URL, url.constData());
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, file);
    if (curl_easy_perform(easy) != CURLE_OK) std::abort();
    const auto size = static_cast<std::size_t>(std::ftell(file));
    std::fclose(file);
    text.resize(size);
    file = std::fopen(path.constData(), "rb");
    if (std::fread(text.data(), 1, size, file) != size) std::abort();
    std::fclose(file);
  }
  curl_easy_cleanup(easy);
}

template <class Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Acquisition(benchmark::State& state, const char* port) {
  const QTemporaryDir data;
  WriteAnswers(QDir(data.path()));
  const test::LocalService service(data.path());
  const ServiceSettings settings = service.Settings(QString::fromLatin1(port));
  FaultAcquisitionInput input;
  input.latitude = 36.56144;
  input.longitude = 136.61409;
  input.zone = 7;
  Silent messages;
  std::vector<FaultInfo> faults;
  const auto acquire = [&] { AcquireFaults(input, settings, messages, faults); };

  acquire();
  std::vector<QByteArray> urls;
  for (const QString& path : service.Paths()) urls.push_back((settings.hazardAddress + path).toUtf8());
  if (faults.size() != kFaults || faults.back().shortestDistance.size() != kPlanes ||
      urls.size() != kFaults + 1)
    std::abort();

  double acquired = 0.0;
  double bare = 0.0;
  for (auto _ : state) {
    bare += Seconds([&] { BareLoop(urls, settings); });
    const double seconds = Seconds(acquire);
    acquired += seconds;
    state.SetIterationTime(seconds);
  }
  state.counters["bare_ms"] = bare / static_cast<double>(state.iterations()) * 1000.0;
  state.counters["ratio"] = acquired / bare;
}
BENCHMARK_CAPTURE(Acquisition, http, "http")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Acquisition, https, "https")->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace tremlo

BENCHMARK_MAIN();
