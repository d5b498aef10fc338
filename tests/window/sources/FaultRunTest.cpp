#include "FaultScreenParts.h"
#include "core/location/PlaneZone.h"
#include "window/graphs/WorkerPrompt.h"
#include "window/sources/FaultRun.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <thread>

namespace tremlo {
namespace {

using test::DocumentState;
using test::FaultTest;
using testing::ElementsAre;
using testing::IsEmpty;

/// Acts when the dialog of an acquisition comes up, and notes all that it shows.
class DialogEar : public QObject {
 public:
  explicit DialogEar(std::function<void()> shown = [] {}) : m_shown(std::move(shown)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (auto* dialog = qobject_cast<CDlgNowGetFault*>(watched)) {
      const auto label = [&](const char* name) {
        return dialog->findChild<QLabel*>(QLatin1String(name))->text();
      };
      if (event->type() == QEvent::Show) {
        title = dialog->windowTitle();
        text = label("m_text");
        m_shown();
      }
      if (event->type() == QEvent::Hide) {
        last = label("m_progressText");
        const auto* bar = dialog->findChild<QProgressBar*>("m_progress");
        full = bar->value() == bar->maximum();
      }
    }
    return false;
  }
  QString title, text, last;
  bool full = false;

 private:
  std::function<void()> m_shown;
};

class FaultRunTest : public FaultTest {
 protected:
  /// Acquires within an event loop of the program, as a button does.
  bool AcquireInLoop(Prompt& asked) {
    bool stored = true;
    QTimer::singleShot(0, qApp, [&] {
      stored = AcquireBehindDialog(doc, services, asked, nullptr);
      QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return stored;
  }
};

TEST_F(FaultRunTest, TheDialogTellsTheFaultUnderWay) {
  Start();
  const DialogEar ear;
  ExpectUnknownModel();
  EXPECT_TRUE(AcquireBehindDialog(doc, services, prompt, nullptr));
  EXPECT_EQ(ear.title, QStringLiteral("計算中"));
  EXPECT_EQ(ear.text, QStringLiteral("J-SHISから断層データの取得中です。"));
  EXPECT_EQ(ear.last, QStringLiteral("11 / 11　木曽山脈西縁断層帯（主部／南部）"));
  EXPECT_TRUE(ear.full);
  EXPECT_THAT(doc.faults, testing::SizeIs(8));
  EXPECT_TRUE(doc.IsModified());
}

TEST_F(FaultRunTest, TheResultNeverGoesIntoAnotherProject) {
  Start();
  const DialogEar open([this] {
    doc.ResetDocument();
    doc.SetModified(false);
  });
  ExpectUnknownModel();
  EXPECT_FALSE(AcquireBehindDialog(doc, services, prompt, nullptr));
  EXPECT_THAT(doc.faults, IsEmpty());
  EXPECT_EQ(doc.lastAcquisition, std::nullopt);
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(FaultRunTest, TheWorkerTouchesNoRecord) {
  Start();
  const DocumentState before(doc);
  std::unique_ptr<DocumentState> during;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, qApp, [&] {
    if (!during && Asked() >= 3) during = std::make_unique<DocumentState>(doc);
  });
  poll.start(1);
  ExpectUnknownModel();
  EXPECT_TRUE(AcquireBehindDialog(doc, services, prompt, nullptr));
  ASSERT_NE(during, nullptr);
  EXPECT_THAT(during->DifferencesTo(before), IsEmpty());
}

TEST_F(FaultRunTest, AnUnknownZoneIsToldAndChangesNothing) {
  Start();
  doc.site.planeZone = QStringLiteral("?");
  const DocumentState before(doc);
  prompt.ExpectMessage(QString::fromUtf16(kUnknownZoneText), PromptIcon::Stop);
  EXPECT_FALSE(AcquireBehindDialog(doc, services, prompt, nullptr));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
  EXPECT_EQ(Asked(), 0);
}

TEST_F(FaultRunTest, TheEndOfTheProgramDoesNotWaitForASilentService) {
  for (const char* wishes : {"ranking=stall", "F005501=half"}) {
    Start(wishes);
    const DocumentState before(doc);
    const int asked = Asked();
    const int until = asked + (wishes[0] == 'r' ? 1 : 3);
    QTimer poll;
    QElapsedTimer sinceEnd;
    QObject::connect(&poll, &QTimer::timeout, qApp, [&] {
      if (Asked() < until) return;
      poll.stop();
      sinceEnd.start();
      QCoreApplication::exit();
    });
    poll.start(5);
    EXPECT_FALSE(AcquireInLoop(prompt)) << wishes;
    EXPECT_LT(sinceEnd.elapsed(), services.hazard.silenceTimeoutMs / 4) << wishes;
    EXPECT_EQ(Asked(), until) << wishes;
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty()) << wishes;
  }
}

/// A box that the end of the program closes.
class EndingPrompt : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    shown << box.text;
    thread = QThread::currentThread();
    QEventLoop loop;
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    loop.exec();
    return PromptAnswer::Ok;
  }
  QStringList shown;
  QThread* thread = nullptr;
};

TEST_F(FaultRunTest, TheEndOfTheProgramWithABoxUpDoesNotHang) {
  Start("ranking=garbage");
  EndingPrompt ending;
  const DocumentState before(doc);
  EXPECT_FALSE(AcquireInLoop(ending));
  EXPECT_THAT(ending.shown, testing::SizeIs(1));
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), IsEmpty());
}

TEST_F(FaultRunTest, BoxesStandOnTheThreadOfTheUserInterfaceAndInOrder) {
  class Threads : public Prompt {
   public:
    PromptAnswer Show(const PromptBox& box) override {
      shown << box.text;
      here = here && QThread::currentThread() == qApp->thread();
      inFront = inFront && qobject_cast<CDlgNowGetFault*>(QApplication::activeModalWidget());
      return PromptAnswer::Ok;
    }
    QStringList shown;
    bool here = true;
    bool inFront = true;
  } asked;
  Start("F005501=garbage");
  EXPECT_TRUE(AcquireBehindDialog(doc, services, asked, nullptr));
  EXPECT_TRUE(asked.here);
  EXPECT_TRUE(asked.inFront) << "while the dialog is up";
  EXPECT_THAT(
      asked.shown,
      ElementsAre(
          QStringLiteral("Jsonファイルの文法エラーです。(地震活動モデル情報, F005501)"),
          QStringLiteral(
              "指定された現場位置とAPIパラメータの断層データはありません。(地震活動モデル情報, F099999)")));
}

TEST_F(FaultRunTest, AConnectionClosedAfterEachAnswerIsNoFailure) {
  for (const char* wishes : {"all=close", "all=drop_second", "all=reset"}) {
    Start(wishes);
    ExpectUnknownModel();
    EXPECT_TRUE(AcquireBehindDialog(doc, services, prompt, nullptr)) << wishes;
    EXPECT_THAT(doc.faults, testing::SizeIs(8)) << wishes;
    EXPECT_EQ(doc.lastAcquisition->unread.size(), 1u) << wishes;
  }
}

TEST(WorkerPrompt, AStopMakesNoBoxWaitAndShowsNone) {
  test::ScriptedPrompt none;
  QObject home;
  std::stop_source stop;
  stop.request_stop();
  PromptAnswer question = PromptAnswer::Yes;
  PromptAnswer message = PromptAnswer::Yes;
  std::thread([&] {
    WorkerPrompt boxes(none, home, stop.get_token());
    question = boxes.Show({.text = "?", .buttons = PromptButtons::YesNo});
    message = boxes.Show({.text = "!"});
  }).join();
  QCoreApplication::processEvents();
  EXPECT_EQ(question, PromptAnswer::No);
  EXPECT_EQ(message, PromptAnswer::Ok);
}

TEST(WorkerPrompt, ABoxThatBreaksDoesNotLeaveTheWorkerWaiting) {
  class Breaking : public Prompt {
   public:
    PromptAnswer Show(const PromptBox&) override { throw std::bad_alloc(); }
  } broken;
  QObject home;
  PromptAnswer answer = PromptAnswer::Yes;
  std::thread worker([&] {
    WorkerPrompt boxes(broken, home, {});
    answer = boxes.Show({.text = "?", .buttons = PromptButtons::YesNo});
  });
  bool told = false;
  while (!told) {
    try {
      QCoreApplication::processEvents();
    } catch (const std::bad_alloc&) {
      told = true;
    }
  }
  worker.join();
  EXPECT_EQ(answer, PromptAnswer::No);
}

TEST(WorkerPrompt, TheAnswerReachesTheWorker) {
  test::ScriptedPrompt asked;
  asked.ExpectQuestion("?", PromptAnswer::Yes);
  QObject home;
  std::atomic<bool> done = false;
  PromptAnswer answer = PromptAnswer::No;
  std::thread worker([&] {
    WorkerPrompt boxes(asked, home, {});
    answer = boxes.Show({.text = "?", .buttons = PromptButtons::YesNo});
    done = true;
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }));
  worker.join();
  EXPECT_EQ(answer, PromptAnswer::Yes);
}

}  // namespace
}  // namespace tremlo
