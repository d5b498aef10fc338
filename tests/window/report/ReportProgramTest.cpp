#include "core/project/ProjectFile.h"
#include "support/SoundProject.h"
#include "support/TestFolder.h"
#include "window/report/PdfText.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

struct Outcome {
  int status = -1;
  QString out, err;
};

class ReportProgramTest : public testing::Test {
 protected:
  ReportProgramTest() {
    project = folder.Write("p.trml", QByteArray::fromStdString(ProjectBytes(test::SoundProject())));
  }

  /// Without a display, whatever the tests have.
  static Outcome Run(QStringList words) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(QLatin1String(name));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(TREMLO_PROGRAM_DIR "/tremlo-report"),
                  words << "--data" << test::SourcePath("data"));
    if (!program.waitForFinished(120000) || program.exitStatus() != QProcess::NormalExit) return {};
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
  }

  test::TestFolder folder;
  QString project;
};

TEST_F(ReportProgramTest, TheReportIsWrittenWithoutADisplay) {
  const Outcome outcome = Run({project, folder.Path("r.pdf"), "--date", "2026-04-05"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, QString());
  EXPECT_TRUE(outcome.out.startsWith(u"保存しました："));
  EXPECT_TRUE(outcome.out.contains(u"見本の表を使用中"));
  const QByteArray report = test::ReadAll(folder.Path("r.pdf"));
  EXPECT_TRUE(test::PagesOfPdf(report).value(0).contains(u"作成日 2026-04-05"));

  ASSERT_EQ(Run({project, folder.Path("again.pdf"), "--date", "2026-04-05"}).status, 0);
  EXPECT_EQ(test::ReadAll(folder.Path("again.pdf")), report);
}

TEST_F(ReportProgramTest, ABadCommandLineEndsWithOne) {
  const QString report = folder.Path("r.pdf");
  const QByteArray before = test::ReadAll(project);
  for (const QStringList& words :
       {QStringList{}, QStringList{project}, QStringList{project, report, "x"},
        QStringList{project, QString()}, QStringList{project, report, "--date", "2026-02-30"},
        QStringList{project, report, "--date", "2026/02/03"},
        QStringList{project, report, "--date", "2026-02-03x"}, QStringList{project, project},
        QStringList{project, report, "--unknown"}}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 1) << words.join(u' ').toStdString();
    EXPECT_TRUE(outcome.err.contains(u"Usage: tremlo-report")) << outcome.err.toStdString();
  }
  EXPECT_EQ(folder.Names(), QStringList{"p.trml"});
  EXPECT_EQ(test::ReadAll(project), before);
}

TEST_F(ReportProgramTest, FilesThatCannotBeUsedEndWithTwo) {
  const QString broken = folder.Write("broken.trml", test::ReadAll(project).left(1000));
  CMorvaneDoc bare = test::SoundProject();
  bare.ClearResults();
  const QString empty = folder.Write("bare.trml", QByteArray::fromStdString(ProjectBytes(bare)));
  for (const QString& name : {broken, empty, folder.Path("none.trml")}) {
    const Outcome outcome = Run({name, folder.Path("r.pdf")});
    EXPECT_EQ(outcome.status, 2) << name.toStdString();
    EXPECT_TRUE(outcome.err.startsWith(name)) << outcome.err.toStdString();
  }
  EXPECT_EQ(Run({project, broken + QStringLiteral("/r.pdf")}).status, 2);
  EXPECT_FALSE(folder.Names().contains(u"r.pdf"));
}

TEST_F(ReportProgramTest, HelpAndVersionAreTold) {
  EXPECT_TRUE(Run({"--help"}).out.contains(u"--date YYYY-MM-DD"));
  EXPECT_EQ(Run({"--help"}).status, 0);
  EXPECT_TRUE(Run({"--version"}).out.startsWith(u"tremlo-report "));
}

}  // namespace
}  // namespace tremlo
