#include "random/SampleFolder.h"

#include "core/project/ProjectFile.h"
#include "core/waves/WaveFile.h"
#include "numeric/waves/ResponseSpectrum.h"
#include "support/ProcedureParts.h"
#include "support/Waves.h"

#include <QDirIterator>

#include <algorithm>

namespace tremlo::test {

namespace {

constexpr int kOldFilePercent = 30;
constexpr std::size_t kMostProjects = 24;

std::vector<double> Times(std::size_t count, double step) {
  std::vector<double> times(count);
  for (std::size_t i = 0; i < count; ++i) times[i] = step * static_cast<double>(i);
  return times;
}

/// The first samples of a record that the tests come with.
std::vector<double> SampleCut(std::size_t count) {
  QString name;
  double step = 0.0;
  std::vector<double> acc;
  ReadWaveFile(SourcePath(QStringLiteral("samples/waves/hses_2016_n80w_0005_8192.csv")), name, step, acc);
  acc.resize(std::min(count, acc.size()));
  return acc;
}

}  // namespace

SampleFolder::SampleFolder() {
  CopyTables(m_program);
  MakeWaves();
  FindRecords();
  MakeSpectra();
  MakeProjects();
}

void SampleFolder::MakeWaves() {
  const auto add = [this](const QString& file, const QString& name, double step,
                          const std::vector<double>& acc) {
    const QString path = m_files.Path(file);
    if (WriteCsv(path, name, step, Times(acc.size(), step), acc)) m_soundWaves.push_back(path);
  };
  add(QStringLiteral("short.csv"), QStringLiteral("短い波"), 0.01, CenteredRecord(64, 1));
  add(QStringLiteral("middle.csv"), QStringLiteral("波 ①髙～"), 0.01, CenteredRecord(256, 2));
  add(QStringLiteral("0.02s.csv"), QStringLiteral("粗い波"), 0.02, CenteredRecord(512, 3));
  add(QStringLiteral("cut.csv"), QStringLiteral("実記録"), 0.005, SampleCut(2048));
  m_odd.push_back(m_files.Write(QStringLiteral("empty.csv"), {}));
  m_odd.push_back(m_files.Write(QStringLiteral("one.csv"), "a,0.01,1\n0,5\n"));
  m_odd.push_back(m_files.Write(QStringLiteral("comma.csv"), "\"a, b\",0.01,1\n0,1\n0.01,-2\n"));
  m_odd.push_back(
      m_files.Write(QStringLiteral("huge.csv"), "h,1e300,1\n0,1e308\n1,-1e308\n2,1e400\n3,nan\n4,inf\n"));
  m_odd.push_back(m_files.Write(QStringLiteral("zero.csv"), "z,0,1\n0,1\n0,2\n0,3\n"));
  m_odd.push_back(m_files.Write(QStringLiteral("text.txt"), "Das ist keine Welle\nund das auch nicht\n"));
  m_odd.push_back(
      m_files.Write(QStringLiteral("bytes"), QByteArray("\0\xff\x80\xfe\r\n\r", 7).repeated(300)));
  m_odd.push_back(m_files.Path(QStringLiteral("none.csv")));
  m_odd.push_back(m_files.Path());
}

void SampleFolder::FindRecords() {
  QDirIterator files(SourcePath(QStringLiteral("tests/data/records")), QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) m_records.push_back(files.next());
  // A seed draws the same files whatever the order of the folder.
  std::sort(m_records.begin(), m_records.end());
}

void SampleFolder::MakeSpectra() {
  const auto add = [this](const char* file, const std::vector<double>& periods,
                          const std::vector<double>& values) {
    const QString path = m_files.Path(QLatin1String(file));
    if (WriteCsv(path, QStringLiteral("目標"), 0.01, periods, values)) m_soundSpectra.push_back(path);
  };
  std::vector<double> periods, values;
  ComputeResponseSpectrum(CenteredRecord(256, 2), periods, values, 0.01);
  add("own-spectrum.csv", periods, values);
  for (double& value : values) value *= 1.5;
  std::reverse(periods.begin(), periods.end());
  std::reverse(values.begin(), values.end());
  add("rising-spectrum.csv", periods, values);
  add("two-points.csv", {5.0, 0.02}, {10.0, 200.0});
  m_soundSpectra.push_back(SourcePath(QStringLiteral("samples/spectra/target_sample_005_5s.csv")));
}

void SampleFolder::MakeProjects() {
  const auto save = [this](const char* name, CMorvaneDoc& doc) {
    const QString path = m_files.Path(QLatin1String(name));
    SaveProject(doc, path);
    return path;
  };
  CMorvaneDoc guideline(m_program.Path());
  guideline.ResetDocument();
  guideline.guidelineRoute = true;
  m_soundProjects.push_back(save("guideline.trml", guideline));
  // Further on: the procedure is fixed, a wave is registered and in use near the site.
  guideline.flowQ1Yes = guideline.flowQ2Yes = guideline.flowFixed = true;
  guideline.flowFaultSource = guideline.flowNeighbourWave = true;
  AddImportedWave(guideline.seedWaves, QStringLiteral("波"), 0.01, CenteredRecord(256, 2));
  AddImportedWave(guideline.seedWaves, QStringLiteral("別の波"), 0.005, SampleCut(1024));
  guideline.seedWaves.At(0).siteUse = true;
  m_soundProjects.push_back(save("further.trml", guideline));
  CMorvaneDoc response(m_program.Path());
  response.ResetDocument();
  response.guidelineRoute = false;
  response.seedWaves.Add(QStringLiteral("地震波形"));
  m_soundProjects.push_back(save("[*] response.trml", response));

  CMorvaneDoc awkward(m_program.Path());
  awkward.ResetDocument();
  FillProject(awkward);
  m_odd.push_back(save("awkward.trml", awkward));
  const QByteArray whole = ReadAll(m_soundProjects[1]);
  m_odd.push_back(m_files.Write(QStringLiteral("cut.trml"), whole.left(whole.size() / 2)));
  QByteArray damaged = whole;
  for (qsizetype i = 40; i < 400 && i < damaged.size(); i += 37) damaged[i] = static_cast<char>(i * 7);
  m_odd.push_back(m_files.Write(QStringLiteral("damaged.trml"), damaged));
  m_odd.push_back(m_files.Write(QStringLiteral("empty.trml"), {}));
}

QString SampleFolder::Wave(RandomSource& random) const {
  return random.Percent(85) ? random.Pick(m_soundWaves) : Any(random);
}

QString SampleFolder::Record(RandomSource& random) const {
  return random.Pick(m_records);
}

QString SampleFolder::Spectrum(RandomSource& random) const {
  return random.Percent(85) ? random.Pick(m_soundSpectra) : Any(random);
}

QString SampleFolder::Project(RandomSource& random) const {
  return random.Percent(85) ? random.Pick(m_soundProjects) : Any(random);
}

QString SampleFolder::Any(RandomSource& random) const {
  switch (random.Below(4)) {
    case 0:
      return random.Pick(m_soundWaves);
    case 1:
      return random.Pick(m_soundProjects);
    default:
      return random.Pick(m_odd);
  }
}

QString SampleFolder::NewFile(RandomSource& random, const QString& suffix) {
  if (random.Percent(8)) return m_files.Path(QStringLiteral("empty.csv/below-a-file.") + suffix);
  // The samples themselves stay: a name that the run has saved under before.
  const bool old = m_saved > 0 && random.Percent(kOldFilePercent);
  const int number = old ? random.Below(static_cast<std::size_t>(m_saved)) : m_saved++;
  return m_files.Path(QStringLiteral("保存 %1.%2").arg(number % 40).arg(suffix));
}

void SampleFolder::Remember(const QString& path) {
  if (!path.endsWith(QStringLiteral(".trml"))) return;
  if (std::find(m_soundProjects.begin(), m_soundProjects.end(), path) != m_soundProjects.end()) return;
  if (m_soundProjects.size() < kMostProjects) m_soundProjects.push_back(path);
}

}  // namespace tremlo::test
