#include "support/ScriptedFiles.h"
#include "support/ScriptedPrompt.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"
#include "window/report/ReportRun.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

class ReportRunTest : public testing::Test {
 protected:
  void Write(const CMorvaneDoc& doc) { WriteReport(doc, prompt, files, nullptr); }

  test::TestFolder folder;
  test::ScriptedPrompt prompt;
  test::ScriptedFiles files;
};

TEST_F(ReportRunTest, TheReportGoesToTheChosenFile) {
  const CMorvaneDoc doc = test::SoundProject();
  files.Choose(folder.Path("r.pdf"));
  Write(doc);
  EXPECT_TRUE(test::ReadAll(folder.Path("r.pdf")).startsWith("%PDF-"));
  ASSERT_EQ(files.saved.size(), 1U);
  EXPECT_EQ(files.saved[0].title, u"報告書の出力(PDF)");
  EXPECT_EQ(files.saved[0].proposedName, u"無題.pdf");
  EXPECT_EQ(files.saved[0].suffix, u"pdf");
}

TEST_F(ReportRunTest, TheNameOfTheProjectIsProposed) {
  CMorvaneDoc doc = test::SoundProject();
  doc.SetPathName(folder.Path("第2案.v1.trml"));
  files.Cancel();
  Write(doc);
  EXPECT_EQ(files.saved.at(0).proposedName, u"第2案.v1.pdf");
}

TEST_F(ReportRunTest, ACancelledDialogWritesNothing) {
  files.Cancel();
  Write(test::SoundProject());
  EXPECT_EQ(folder.Names(), QStringList());
}

TEST_F(ReportRunTest, WithoutAnAdjustedWaveItIsRefused) {
  CMorvaneDoc doc = test::SoundProject();
  doc.ClearResults();
  prompt.ExpectMessage(QStringLiteral("調整後の波形がありません。"));
  Write(doc);
}

TEST_F(ReportRunTest, AFileThatCannotBeWrittenIsTold) {
  const QString file = folder.Write("file", "x");
  const QString path = file + QStringLiteral("/r.pdf");
  files.Choose(path);
  prompt.ExpectMessage(QStringLiteral("報告書を保存できませんでした。\n") + QDir::toNativeSeparators(path));
  Write(test::SoundProject());
  EXPECT_EQ(test::ReadAll(file), QByteArray("x"));
}

}  // namespace
}  // namespace tremlo
