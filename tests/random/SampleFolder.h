#pragma once

#include "random/RandomSource.h"
#include "support/TestFolder.h"

#include <QStringList>

namespace tremlo::test {

/// A program folder with its tables, and beside it a folder of files that a user might choose: sound ones,
/// odd ones, damaged ones, and what the run itself saves.
class SampleFolder {
 public:
  SampleFolder();

  QString ProgramFolder() const { return m_program.Path(); }

  QString Wave(RandomSource& random) const;  ///< mostly a sound one
  /// In one of the formats in which records come, sound or broken.
  QString Record(RandomSource& random) const;
  QString Spectrum(RandomSource& random) const;
  QString Project(RandomSource& random) const;
  QString Any(RandomSource& random) const;
  /// Where to save: a new name, an old one, seldom one that cannot be written.
  QString NewFile(RandomSource& random, const QString& suffix);
  /// A project that the run has saved may be opened later.
  void Remember(const QString& path);

 private:
  void MakeWaves();
  void FindRecords();
  void MakeSpectra();
  void MakeProjects();

  TestFolder m_program, m_files;
  std::vector<QString> m_soundWaves, m_records, m_soundSpectra, m_soundProjects, m_odd;
  int m_saved = 0;
};

}  // namespace tremlo::test
