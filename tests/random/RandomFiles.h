#pragma once

#include "random/Diary.h"
#include "random/SampleFolder.h"
#include "window/shell/FileDialogBoxes.h"

namespace tremlo::test {

/// Chooses a file by chance; now and then the real dialog is put up and driven like any other.
class RandomFiles : public FileDialogs {
 public:
  RandomFiles(SampleFolder& samples, RandomSource& random, Diary& diary)
      : m_samples(samples), m_random(random), m_diary(diary) {}

  /// The document behind the real dialog.
  void SetDocument(const CMorvaneDoc* doc) { m_doc = doc; }

  QString AskOpenPath(const FileQuestion& question) override;
  FileChoice AskOpenFile(const FileQuestion& question) override;
  QString AskSavePath(const FileQuestion& question) override;

  /// A file for the question that is asked last, for the real dialog's field.
  QString Choice();

 private:
  QString ToOpen(const FileQuestion& question);
  QString ToSave(const FileQuestion& question);

  SampleFolder& m_samples;
  RandomSource& m_random;
  Diary& m_diary;
  const CMorvaneDoc* m_doc = nullptr;
  std::function<QString()> m_choice;
};

}  // namespace tremlo::test
