#include "support/TestFolder.h"
#include "window/graphs/RunBehindDialog.h"
#include "window/waves/DlgNowCalc.h"
#include "window/waves/DlgNowCalcAccSpec.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <new>
#include <semaphore>
#include <stdexcept>

namespace tremlo {
namespace {

constexpr std::chrono::milliseconds kNoPause{0};

QString ProgressText(const QDialog& dialog) {
  return dialog.findChild<QLabel*>(QStringLiteral("m_progressText"))->text();
}

QProgressBar& Bar(const QDialog& dialog) {
  return *dialog.findChild<QProgressBar*>(QStringLiteral("m_progress"));
}

void Post(RunDialog& dialog, int message, int data) {
  QCoreApplication::postEvent(&dialog, new RunEndEvent(message, data));
}

/// A run whose worker, once it has done `work`, waits until what the test does in front of the dialog is
/// over.
class RunDialogTest : public testing::Test {
 protected:
  bool Run(const std::function<bool()>& work, const std::function<void()>& inFront) {
    QTimer::singleShot(0, &dialog, [&] {
      inFront();
      finish.release();
    });
    return RunBehindDialog(
        dialog,
        [&] {
          const bool result = work();
          finish.acquire();
          return result;
        },
        kNoPause);
  }

  std::binary_semaphore finish{0};
  CDlgNowCalc dialog{100, 0.05, nullptr};
};

TEST_F(RunDialogTest, TheDialogsSayWhatRuns) {
  const CDlgNowCalcAccSpec spectra(nullptr);
  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("計算中"));
  EXPECT_EQ(spectra.windowTitle(), QStringLiteral("計算中"));
  const auto text = [](const QDialog& d) { return d.findChild<QLabel*>(QStringLiteral("m_text"))->text(); };
  EXPECT_EQ(text(dialog), QStringLiteral("振幅調整の計算中です。"));
  EXPECT_EQ(text(spectra), QStringLiteral("加速度応答スペクトルの計算中です。"));
  EXPECT_EQ(dialog.EndMessage(), 0x8004);
  EXPECT_EQ(spectra.EndMessage(), 0x8006);
}

TEST_F(RunDialogTest, ThereIsNoButtonAndNoCloseBox) {
  EXPECT_TRUE(dialog.findChildren<QAbstractButton*>().isEmpty());
  EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
  EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
  EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}

TEST_F(RunDialogTest, KeysAndCloseRequestsDoNothingWhileItRuns) {
  bool seen = false;
  const bool result =
      Run([] { return true; },
          [&] {
            ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
            EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space}) {
              QTest::keyClick(&dialog, key);
              EXPECT_TRUE(dialog.isVisible()) << key;
            }
            QTest::keyClick(&dialog, Qt::Key_F4, Qt::AltModifier);
            EXPECT_FALSE(dialog.close());
            dialog.reject();
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_FALSE(dialog.IsFinished());
            seen = true;
          });
  EXPECT_TRUE(seen);
  EXPECT_TRUE(result);
  EXPECT_TRUE(dialog.IsFinished());
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(RunDialogTest, TheResultIsThatOfTheWork) {
  EXPECT_TRUE(RunBehindDialog(
      dialog, [] { return true; }, kNoPause));
  CDlgNowCalc second(100, 0.05, nullptr);
  EXPECT_FALSE(RunBehindDialog(
      second, [] { return false; }, kNoPause));
}

TEST_F(RunDialogTest, TheWorkRunsOnAThreadThatIsOverAtTheEnd) {
  // The thread takes longer to end than the dialog, unless nobody waits for it.
  static std::binary_semaphore returned{0};
  static std::atomic<bool> threadEnded{false};
  struct AtThreadEnd {
    ~AtThreadEnd() {
      static_cast<void>(returned.try_acquire_for(std::chrono::milliseconds(300)));
      threadEnded = true;
    }
  };
  QThread* thread = QThread::currentThread();
  EXPECT_TRUE(RunBehindDialog(
      dialog,
      [&] {
        static thread_local const AtThreadEnd atEnd;
        static_cast<void>(atEnd);
        return QThread::currentThread() != thread;
      },
      kNoPause));
  EXPECT_TRUE(threadEnded);
  returned.release();
}

TEST_F(RunDialogTest, WhatTheWorkThrowsIsAFailedRun) {
  EXPECT_FALSE(RunBehindDialog(
      dialog, []() -> bool { throw std::bad_alloc(); }, kNoPause));
  CDlgNowCalc second(100, 0.05, nullptr);
  EXPECT_FALSE(RunBehindDialog(
      second, []() -> bool { throw std::length_error("vector too long"); }, kNoPause));
  CDlgNowCalc third(100, 0.05, nullptr);
  EXPECT_FALSE(RunBehindDialog(
      third, []() -> bool { throw 1; }, kNoPause));
}

TEST_F(RunDialogTest, TheDialogStaysForThePause) {
  EXPECT_EQ(kRunPause, std::chrono::seconds(1));
  for (const bool fails : {false, true}) {
    CDlgNowCalc paused(100, 0.05, nullptr);
    QElapsedTimer timer;
    timer.start();
    RunBehindDialog(
        paused, [&]() { return fails ? throw std::bad_alloc() : true; }, std::chrono::milliseconds(250));
    EXPECT_GE(timer.elapsed(), 250) << fails;
  }
}

TEST_F(RunDialogTest, OnlyItsOwnMessageWithOneEndsIt) {
  EXPECT_TRUE(Run([] { return true; },
                  [&] {
                    Post(dialog, 0x8006, 1);
                    Post(dialog, 0x8004, 0);
                    QCoreApplication::sendPostedEvents(&dialog);
                    EXPECT_FALSE(dialog.IsFinished());
                    Post(dialog, 0x8004, 1);
                    QCoreApplication::sendPostedEvents(&dialog);
                    EXPECT_TRUE(dialog.IsFinished());
                    EXPECT_TRUE(dialog.isVisible());  // until the next tick
                  }));
}

TEST_F(RunDialogTest, AWorkerCanAskTheUserInFrontOfTheDialog) {
  bool answered = false;
  EXPECT_TRUE(RunBehindDialog(
      dialog,
      [&] {
        QMetaObject::invokeMethod(
            &dialog, [&] { answered = dialog.isVisible(); }, Qt::BlockingQueuedConnection);
        return answered;
      },
      kNoPause));
}

TEST_F(RunDialogTest, PassAndDeviationShowWhileItRuns) {
  Run(
      [&] {
        dialog.SetFit({.pass = 11, .deviation = 0.07314});
        return true;
      },
      [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] {
          return ProgressText(dialog) == u"12 / 100 回　偏差 7.31 %（収束判定 5.00 %）";
        })) << ProgressText(dialog).toStdString();
        EXPECT_EQ(Bar(dialog).maximum(), 100);
        EXPECT_EQ(Bar(dialog).value(), 12);
      });
}

TEST_F(RunDialogTest, BeforeTheFirstPassThereIsNoDeviation) {
  Run([] { return true; },
      [&] {
        EXPECT_EQ(ProgressText(dialog), u"0 / 100 回　偏差 －（収束判定 5.00 %）");
        EXPECT_EQ(Bar(dialog).value(), 0);
        dialog.SetFit({.deviation = std::nan("")});
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return ProgressText(dialog) == u"1 / 100 回　偏差 －（収束判定 5.00 %）"; }));
      });
}

TEST_F(RunDialogTest, WaveAndNameShowInFullOrCutOff) {
  CDlgNowCalcAccSpec spectra(nullptr);
  spectra.SetWave(2, 5, QStringLiteral("八戸 & <b>EW</b>"));
  spectra.show();
  EXPECT_EQ(ProgressText(spectra), u"2 / 5　八戸 & <b>EW</b>");
  EXPECT_EQ(Bar(spectra).maximum(), 5);
  EXPECT_EQ(Bar(spectra).value(), 1);
  const int width = spectra.width();
  spectra.SetWave(3, 5, QString(260, u'長'));
  EXPECT_TRUE(QTest::qWaitFor([&] { return ProgressText(spectra).startsWith(u"3 / 5　長長"); }));
  EXPECT_TRUE(ProgressText(spectra).endsWith(u'…'));
  EXPECT_EQ(spectra.width(), width);
}

}  // namespace
}  // namespace tremlo
