#include "core/project/ProjectFile.h"
#include "fuzz/FuzzTargets.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QDirIterator>

#include <gtest/gtest.h>
#include <iostream>

namespace tremlo {
namespace {

/// A target under the name that its fuzz program and its folders have.
struct Target {
  const char* name;
  void (*run)(const std::uint8_t* data, std::size_t size);
};

constexpr Target kTargets[] = {
    {"fuzz_wave_csv", fuzz::FuzzWaveCsv},
    {"fuzz_tables", fuzz::FuzzTables},
    {"fuzz_project", fuzz::FuzzProject},
    {"fuzz_zone_map", fuzz::FuzzZoneMap},
    {"fuzz_answer", fuzz::FuzzAnswer},
    {"fuzz_record", fuzz::FuzzRecord},
    {"fuzz_record_archive", fuzz::FuzzRecordArchive},
};

void PrintTo(const Target& target, std::ostream* out) {
  *out << target.name;
}

class CorpusReplay : public testing::TestWithParam<Target> {};

/// Runs every file of `folder` and returns how many there are.
int Replay(const Target& target, const QString& folder) {
  const QDir dir(
      test::SourcePath(QStringLiteral("fuzz/") + folder + u'/' + QString::fromLatin1(target.name)));
  const QStringList names = dir.entryList(QDir::Files);
  for (const QString& name : names) {
    // A broken rule ends the process: the last line then names the file.
    std::cout << folder.toStdString() << ' ' << name.toStdString() << std::endl;
    const QByteArray content = test::ReadAll(dir.filePath(name));
    target.run(reinterpret_cast<const std::uint8_t*>(content.constData()),
               static_cast<std::size_t>(content.size()));
  }
  return static_cast<int>(names.size());
}

TEST_P(CorpusReplay, EveryFileKeepsTheRules) {
  EXPECT_GT(Replay(GetParam(), QStringLiteral("corpus")), 20);
}

INSTANTIATE_TEST_SUITE_P(Fuzz, CorpusReplay, testing::ValuesIn(kTargets),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Corpus, FormerFindingsKeepTheRules) {
  int files = 0;
  for (const Target& target : kTargets) files += Replay(target, QStringLiteral("regressions"));
  EXPECT_GE(files, 3);
}

TEST(Corpus, ProjectsAreWholeOrBrokenAsTheirNamesSay) {
  const QDir dir(test::SourcePath(QStringLiteral("fuzz/corpus/fuzz_project")));
  int whole = 0;
  for (const QString& name : dir.entryList(QDir::Files)) {
    // What the fuzzer added is named by a checksum.
    if (name.size() == 40) continue;
    const QByteArray content = test::ReadAll(dir.filePath(name));
    CMorvaneDoc doc(QStringLiteral("/no such folder"));
    const bool loaded =
        LoadProject(doc, {content.constData(), static_cast<std::size_t>(content.size())}).whole;
    EXPECT_EQ(loaded, name.startsWith(QStringLiteral("whole_"))) << name.toStdString();
    whole += loaded ? 1 : 0;
  }
  EXPECT_GT(whole, 10);
}

TEST(Corpus, StaysUnderOneMebibyte) {
  qint64 bytes = 0;
  QDirIterator files(test::SourcePath(QStringLiteral("fuzz/corpus")), QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    bytes += files.fileInfo().size();
  }
  EXPECT_GT(bytes, 0);
  EXPECT_LT(bytes, 1024 * 1024);
}

}  // namespace
}  // namespace tremlo
