#pragma once

#include "core/ask/FileDialogs.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <vector>

namespace tremlo::test {

/// Answers questions about files by a script and notes them. A question without an answer fails the test and
/// counts as cancelled; so does every answer that is left over.
class ScriptedFiles : public FileDialogs {
 public:
  ScriptedFiles() = default;
  ~ScriptedFiles() override { EXPECT_TRUE(m_answers.isEmpty()) << "A file dialog was not shown"; }
  ScriptedFiles(const ScriptedFiles&) = delete;
  ScriptedFiles& operator=(const ScriptedFiles&) = delete;

  /// `filter`: the place of the one that the file is chosen under.
  void Choose(const QString& path, int filter = 0) {
    m_answers << path;
    m_filter = filter;
  }
  void Cancel() { m_answers << QString(); }

  QString AskOpenPath(const FileQuestion& question) override { return Next(opened, question); }
  FileChoice AskOpenFile(const FileQuestion& question) override { return {Next(opened, question), m_filter}; }
  QString AskSavePath(const FileQuestion& question) override { return Next(saved, question); }

  std::vector<FileQuestion> opened, saved;

 private:
  QString Next(std::vector<FileQuestion>& asked, const FileQuestion& question) {
    asked.push_back(question);
    if (!m_answers.isEmpty()) return m_answers.takeFirst();
    ADD_FAILURE() << "An unexpected file dialog was shown";
    return {};
  }

  QStringList m_answers;
  int m_filter = 0;
};

}  // namespace tremlo::test
