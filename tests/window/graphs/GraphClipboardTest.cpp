#include "window/graphs/DrawFreqAccSpec.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/JapaneseFont.h"

#include <QApplication>
#include <QClipboard>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace tremlo {
namespace {

constexpr int kMostMs = 60000;

class GraphClipboardTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  void SetUp() override {
    // Without a display server nothing leaves the process.
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
    m_view.SetSource([] {
      auto graph = std::make_unique<CDrawFreqAccSpec>(WaveGraphSetting{});
      graph->AddSpectrum({10, 1, 0.1, 0.01}, {100, 800, 950, 300}, {0xFF3232, 2});
      return graph;
    });
  }

  /// What a program started now finds on the clipboard, while this one goes on serving it.
  static QImage SeenByAnotherProcess() {
    QProcess reader;
    reader.start(QStringLiteral(TREMLO_CLIPBOARD_READER), QStringList());
    const auto ended = [&] { return reader.state() == QProcess::NotRunning; };
    EXPECT_TRUE(QTest::qWaitFor(ended, kMostMs));
    EXPECT_EQ(reader.exitStatus(), QProcess::NormalExit) << reader.readAllStandardError().toStdString();
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    return QImage::fromData(reader.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
  }

  GraphView m_view;
};

TEST_F(GraphClipboardTest, AnotherProgramGetsThePicturePixelForPixel) {
  m_view.resize(660, 300);
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  m_view.CopyPicture();
  EXPECT_EQ(SeenByAnotherProcess(), m_view.Picture(1.0));
  EXPECT_EQ(SeenByAnotherProcess().size(), QSize(656, 292));
}

TEST_F(GraphClipboardTest, ThePictureOutlivesTheGraphThatItShows) {
  m_view.resize(660, 300);
  const QImage copied = m_view.Picture(1.0);
  m_view.CopyPicture();
  m_view.SetSource([] { return std::make_unique<CDrawFreqAccSpec>(WaveGraphSetting{}); });
  ASSERT_NE(m_view.Picture(1.0), copied);
  EXPECT_EQ(SeenByAnotherProcess(), copied);
}

}  // namespace
}  // namespace tremlo
