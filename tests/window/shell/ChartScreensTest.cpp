// The screens of the charts in the program, worked as a user works them.

#include "core/project/ChangeQuestions.h"
#include "core/shell/ChartQuestion.h"
#include "core/shell/QuestionPlace.h"
#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "window/shell/FrmFlowchart1.h"
#include "window/shell/PropertyQa.h"
#include "window/shell/ShellParts.h"

#include <QAccessible>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>

#include <gmock/gmock.h>

namespace tremlo {
namespace {

using test::DocumentState;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDialogs[] = {
    "CDlgPhaseProperty1",     "CDlgPhaseProperty2",     "CDlgPhaseProperty3",     "CDlgPhaseProperty4",
    "CDlgAmplitudeProperty1", "CDlgAmplitudeProperty2", "CDlgAmplitudeProperty3", "CDlgQaEnd"};

const char* DialogOf(ChartQuestion question) {
  return kDialogs[static_cast<int>(question)];
}

/// One dialog and what is done in it.
struct Step {
  ChartQuestion question;
  std::function<void(QWidget& dialog)> act;
};

void Click(QWidget& dialog, const char* button) {
  auto* const control = dialog.findChild<QAbstractButton*>(QLatin1String(button));
  ASSERT_NE(control, nullptr) << button;
  QTest::mouseClick(control, Qt::LeftButton);
}
void Yes(QWidget& dialog) {
  Click(dialog, "yesButton");
}
void No(QWidget& dialog) {
  Click(dialog, "noButton");
}
void Back(QWidget& dialog) {
  Click(dialog, "backButton");
}

/// The program on the guideline route, with the screens of the charts and logging ones for the others.
class ChartScreensTest : public test::ShellTest {
 protected:
  void SetUp() override {
    Begin({});
    log.clear();
  }
  void TearDown() override {
    Doc().SetModified(false);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }

  void Begin(const AskQuestion& ask) {
    ScreenTable screens = test::LoggingScreens(log);
    const ScreenTable own = ProgramScreens();
    for (const ScreenId id :
         {ScreenId::FlowCheck, ScreenId::Flowchart1, ScreenId::Flowchart2, ScreenId::Flowchart3})
      screens.screens[id] = own.screens.at(id);
    if (ask)
      screens.screens[ScreenId::Flowchart1] = [ask](const ScreenParts& parts) {
        return new CFrmFlowchart1(parts.doc, parts.prompt, parts.procedure, parts.gate, parts.follow, ask);
      };
    app = std::make_unique<CMorvaneApp>(settings, std::move(screens),
                                        DoorsWith([](QWidget*) { return TopChoice::GuidelineRoute; }));
    ExpectOffline();
    ASSERT_EQ(Start(), std::nullopt);
    app->Frame()->showNormal();
    app->Frame()->resize(1200, 800);
    ASSERT_TRUE(QTest::qWaitForWindowActive(app->Frame()));
  }

  void Open(ScreenId id) { ASSERT_EQ(app->Procedure().SwitchScreen(id), SwitchOutcome::Open); }
  ScreenId Active() { return *app->Procedure().ActiveScreen(); }
  template <class Control>
  Control* Find(const char* name) {
    auto* const control = app->Frame()->ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void ClickButton(const char* name) {
    QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton);
    Pause();
    QCoreApplication::processEvents();
  }
  QWidget* Box(ChartBox box) {
    return Find<QWidget>(("box" + std::to_string(static_cast<int>(box) + 1)).c_str());
  }
  void ClickBox(ChartBox box) { QTest::mouseClick(Box(box), Qt::LeftButton); }
  /// What a screen reader says of each box's state.
  QStringList States() {
    QStringList states;
    for (const ChartBox box : kChartBoxes)
      states << QAccessible::queryAccessibleInterface(Box(box))->text(QAccessible::Description);
    return states;
  }
  ChartAnswers Flags() {
    return {Doc().flowQ1Yes, Doc().flowQ2Yes, Doc().flowCollect, Doc().flowFaultSource,
            Doc().flowNeighbourWave};
  }
  std::vector<FlowStep> EnabledSteps() {
    std::vector<FlowStep> steps;
    for (const FlowStep step : kStepsBehindProcedure)
      if (app->Frame()->Pane()->StepsOf(step)->Button(step)->isEnabled()) steps.push_back(step);
    return steps;
  }
  static std::vector<FlowStep> EightWithout(std::initializer_list<FlowStep> missing) {
    std::vector<FlowStep> steps(kStepsBehindProcedure.begin(), kStepsBehindProcedure.end());
    for (const FlowStep step : missing) std::erase(steps, step);
    return steps;
  }

  /// Keeps the next dialog away, as a command does, until Answer is called: however slow the machine is, none
  /// appears where nobody answers it.
  void Pause() {
    if (Active() == ScreenId::Flowchart1) app->Frame()->ScreenOnDisplay()->CommandBegins();
  }
  /// Goes through dialogs as they come, and pauses. Another dialog than the next of the script is cancelled
  /// with a failure.
  void Answer(std::vector<Step> steps) {
    std::size_t next = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
      auto* const dialog = qobject_cast<CPropertyQa*>(QApplication::activeModalWidget());
      if (!dialog && next == steps.size()) return Pause();
      if (!dialog || !dialog->isVisible()) return;
      poll.stop();  // what is done in the dialog may run the event loop
      if (next < steps.size() && dialog->objectName() == DialogOf(steps[next].question)) {
        steps[next++].act(*dialog);
      } else {
        ADD_FAILURE() << "dialog " << next + 1 << ": " << dialog->objectName().toStdString();
        next = steps.size();
        dialog->done(QDialog::Rejected);
      }
      poll.start(1);
    });
    poll.start(1);
    if (Active() == ScreenId::Flowchart1) app->Frame()->ScreenOnDisplay()->CommandEnded();
    const auto isOver = [&] {
      return next == steps.size() && !qobject_cast<CPropertyQa*>(QApplication::activeModalWidget());
    };
    EXPECT_TRUE(QTest::qWaitFor(isOver, 20000)) << "waited for dialog " << next + 1;
    Pause();
    QCoreApplication::processEvents();
  }
  /// A last step that leaves the questions.
  Step CancelAt(ChartQuestion question) {
    return {question, [this](QWidget& dialog) {
              prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
              dialog.close();
            }};
  }
};

using enum ChartQuestion;

// --- The choice ---

class FlowCheckTest : public ChartScreensTest {
 protected:
  void SetUp() override {
    ChartScreensTest::SetUp();
    Press(FlowStep::FlowCheck);
    ASSERT_EQ(Active(), ScreenId::FlowCheck);
  }
};

TEST_F(FlowCheckTest, ButtonsAndPicturesOpenTheirWay) {
  for (const char* control : {"clicksButton", "clicksPicture"}) {
    Open(ScreenId::FlowCheck);
    ClickButton(control);
    EXPECT_EQ(Active(), ScreenId::Flowchart2) << control;
    prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
    Open(ScreenId::FlowCheck);
  }
  for (const char* control : {"questionsButton", "questionsPicture"}) {
    ClickButton(control);
    EXPECT_EQ(Active(), ScreenId::Flowchart1) << control;
    Open(ScreenId::FlowCheck);
  }
}

TEST_F(FlowCheckTest, TheSignInTheTextIsNoShortcut) {
  auto* const button = Find<QPushButton>("questionsButton");
  EXPECT_EQ(button->text(), "Q&&Aで確認");
  EXPECT_TRUE(button->shortcut().isEmpty());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), "Q&Aで確認");
  EXPECT_EQ(Find<QPushButton>("clicksButton")->text(), "マウスクリックで確認");
  EXPECT_EQ(Find<QWidget>("questionsPicture")->toolTip(), "Q&Aで確認");
}

TEST_F(FlowCheckTest, TheGridDescribesBothWays) {
  auto* const grid = Find<QTableWidget>("descriptions");
  QStringList texts;
  for (int row = 0; row < grid->rowCount(); ++row) texts << grid->item(row, 0)->text();
  EXPECT_THAT(
      texts,
      ElementsAre("Q&Aで確認",
                  "国営造成農業用ダム耐震性能照査マニュアルに記載されているQ&"
                  "A集に対して「YES、NO」をクリックして答えて頂く"
                  "ことで作業フローチャートを確定していくモードです。",
                  "Q&A集を確認しながら作業フローチャートを決めたい場合にはこちらを選択してください。",
                  "フローチャートの結果によって画面左側の作業フローが許可されます。", "マウスクリックで確認",
                  "国営造成農業用ダム耐震性能照査マニュアルに記載されている作業フローチャートを任意にクリック"
                  "することで作業"
                  "フローチャートを確定していくモードです。",
                  "本ソフトウェアに慣れた方にはこちらがお勧めです。",
                  "フローチャートの結果によって画面左側の作業フローが許可されます。"));
  EXPECT_FALSE(grid->item(1, 0)->flags() & Qt::ItemIsEditable);
}

TEST_F(FlowCheckTest, LongTextsFoldInANarrowWindow) {
  auto* const grid = Find<QTableWidget>("descriptions");
  const auto isOneLine = [grid](int row) { return grid->rowHeight(row) < 2 * grid->fontMetrics().height(); };
  ASSERT_TRUE(QTest::qWaitFor([&] { return isOneLine(1); }));
  app->Frame()->resize(1020, 700);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !isOneLine(1); }));
  EXPECT_TRUE(isOneLine(2));
  app->Frame()->resize(1400, 800);
  ASSERT_TRUE(QTest::qWaitFor([&] { return isOneLine(1); }));
}

TEST_F(FlowCheckTest, KeyboardAloneOpensBothWays) {
  EXPECT_TRUE(Find<QWidget>("questionsPicture")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Find<QWidget>("clicksPicture")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  Open(ScreenId::FlowCheck);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Active(), ScreenId::Flowchart1);
}

TEST_F(FlowCheckTest, APressThatComesBehindAnotherScreenOpensNothing) {
  const std::vector<QAbstractButton*> presses = {
      Find<QAbstractButton>("questionsPicture"), Find<QAbstractButton>("questionsButton"),
      Find<QAbstractButton>("clicksPicture"), Find<QAbstractButton>("clicksButton")};
  Open(ScreenId::Field);
  for (QAbstractButton* const press : presses) {
    press->click();
    EXPECT_EQ(Active(), ScreenId::Field) << press->objectName().toStdString();
  }
}

// --- The questions ---

class QuestionScreenTest : public ChartScreensTest {
 protected:
  void SetUp() override {
    ChartScreensTest::SetUp();
    Open(ScreenId::FlowCheck);
    ClickButton("questionsButton");
    ASSERT_EQ(Active(), ScreenId::Flowchart1);
  }
};

TEST_F(QuestionScreenTest, CollectingMaterialAloneOpensSixSteps) {
  Answer({{PhaseQ1, No}, {PhaseQ4, Yes}, {AmpQ1, No}, {AmpQ3, No}, {QaEnd, Yes}});
  EXPECT_EQ(Flags(), (ChartAnswers{false, false, true, false, false}));
  EXPECT_TRUE(Doc().flowFixed);
  EXPECT_EQ(EnabledSteps(), EightWithout({FlowStep::FaultSpectra, FlowStep::DamsiteWave}));
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
  EXPECT_EQ(app->Procedure().State(), ProcedureState::Fixed);
  EXPECT_THAT(States(), ElementsAre("採用中", "未採用", "未採用", "採用中", "未採用", "未採用", "", "", ""));
}

TEST_F(QuestionScreenTest, EveryPathTakenOpensAllSteps) {
  Answer({{PhaseQ1, Yes},
          {PhaseQ2, Yes},
          {PhaseQ3, Yes},
          {AmpQ1, Yes},
          {AmpQ2, Yes},
          {AmpQ3, Yes},
          {QaEnd, Yes}});
  EXPECT_EQ(Flags(), (ChartAnswers{true, true, false, true, true}));
  EXPECT_EQ(EnabledSteps(), EightWithout({}));
}

TEST_F(QuestionScreenTest, TheBoxesTellWhereTheQuestionsStand) {
  const QString lit = QStringLiteral("現在の質問"), on = QStringLiteral("採用中"),
                off = QStringLiteral("未採用");
  const auto sees = [this](std::vector<QString> expected, void (*press)(QWidget&)) {
    return [this, expected, press](QWidget& dialog) {
      EXPECT_THAT(States().mid(0, 6), testing::ElementsAreArray(expected));
      press(dialog);
    };
  };
  Answer({{PhaseQ1, sees({lit, off, off, off, off, off}, Yes)},
          {PhaseQ2, sees({on, lit, off, off, off, off}, No)},
          {PhaseQ4, sees({on, on, off, lit, off, off}, Back)},
          {PhaseQ2, sees({on, lit, off, off, off, off}, Yes)},
          {PhaseQ3, sees({on, on, lit, off, off, off}, Yes)},
          {AmpQ1, sees({on, on, on, off, lit, off}, Yes)},
          {AmpQ2, sees({on, on, on, off, lit, off}, Yes)},
          {AmpQ3, sees({on, on, on, off, on, lit}, No)},
          {QaEnd, sees({on, on, on, off, on, off}, Yes)}});
}

TEST_F(QuestionScreenTest, BackOfTheFirstAmplitudeQuestionKeepsItsFlagUntilTheAnswer) {
  Answer({{PhaseQ1, Yes},
          {PhaseQ2, Yes},
          {PhaseQ3, Yes},
          {AmpQ1, Back},
          {PhaseQ3,
           [this](QWidget& dialog) {
             EXPECT_TRUE(Doc().flowQ2Yes);
             Back(dialog);
           }},
          {PhaseQ2,
           [this](QWidget& dialog) {
             EXPECT_FALSE(Doc().flowQ2Yes);
             Yes(dialog);
           }},
          CancelAt(PhaseQ3)});
}

TEST_F(QuestionScreenTest, StartingAgainClearsTheDocumentAndAsksTheFirstQuestion) {
  Answer({{PhaseQ1, No},
          {PhaseQ4, Yes},
          {AmpQ1, Yes},
          {AmpQ2, Yes},
          {AmpQ3, Yes},
          {QaEnd,
           [this](QWidget& dialog) {
             EXPECT_EQ(Flags(), (ChartAnswers{false, false, true, true, true}));
             No(dialog);
           }},
          {PhaseQ1,
           [this](QWidget& dialog) {
             EXPECT_EQ(Flags(), ChartAnswers{});
             EXPECT_EQ(States()[0], "現在の質問");
             Yes(dialog);
           }},
          CancelAt(PhaseQ2)});
}

TEST_F(QuestionScreenTest, AllSixFlagsAreFalseWhenAChartComesOnDisplay) {
  Answer({{PhaseQ1, No}, {PhaseQ4, Yes}, CancelAt(AmpQ1)});
  EXPECT_EQ(Active(), ScreenId::FlowCheck);
  EXPECT_TRUE(Doc().flowCollect) << "a cancel leaves what has been written";
  EXPECT_FALSE(Doc().flowFixed);
  ClickButton("questionsButton");
  EXPECT_EQ(Flags(), ChartAnswers{});
  Answer({CancelAt(PhaseQ1)});
}

TEST_F(QuestionScreenTest, ADeclinedCancelKeepsTheDialogAndTheDocument) {
  int question = 0;
  const auto stays = [&](void (*press)(QWidget&)) {
    return [this, &question, press](QWidget& dialog) {
      const DocumentState before(Doc());
      for (const bool byKey : {true, false}) {
        prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
        if (byKey)
          QTest::keyClick(&dialog, Qt::Key_Escape);
        else
          EXPECT_FALSE(dialog.close());
        prompt.CheckUsedUp();
        EXPECT_TRUE(dialog.isVisible());
      }
      EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
      ++question;
      press(dialog);
    };
  };
  Answer({{PhaseQ1, stays(Yes)},
          {PhaseQ2, stays(Yes)},
          {PhaseQ3, stays(No)},
          {PhaseQ4, stays(Yes)},
          {AmpQ1, stays(Yes)},
          {AmpQ2, stays(No)},
          {AmpQ3, stays(Yes)},
          {QaEnd, stays(Yes)}});
  EXPECT_EQ(question, 8);
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
}

TEST_F(QuestionScreenTest, KeyboardAloneAnswersEveryQuestion) {
  const auto holds = [](QWidget& dialog, const char* button) {
    EXPECT_EQ(dialog.focusWidget()->objectName(), button);
  };
  const auto enter = [holds](QWidget& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    holds(dialog, "yesButton");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  };
  const auto tabToNo = [holds](QWidget& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    holds(dialog, "noButton");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
  };
  const auto tabToBack = [holds](QWidget& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab);
    holds(dialog, "backButton");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
  };
  Answer({{PhaseQ1, enter},
          {PhaseQ2, tabToBack},
          {PhaseQ1, tabToNo},
          {PhaseQ4, enter},
          {AmpQ1, tabToNo},
          {AmpQ3, enter},
          {QaEnd, enter}});
  EXPECT_EQ(Flags(), (ChartAnswers{false, false, true, false, true}));
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
}

TEST_F(QuestionScreenTest, AHeldReturnKeyAnswersOneQuestion) {
  Answer({{PhaseQ1,
           [](QWidget& dialog) {
             ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
             QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
           }},
          {PhaseQ2, [this](QWidget& dialog) {
             ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
             for (int i = 0; i < 5; ++i) {
               QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
               QCoreApplication::sendEvent(dialog.focusWidget(), &held);
             }
             EXPECT_TRUE(dialog.isVisible());
             CancelAt(PhaseQ2).act(dialog);
           }}});
}

TEST_F(QuestionScreenTest, AKeyBetweenTwoDialogsReachesNoStepOfThePane) {
  QWidget* const focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  EXPECT_TRUE(app->Frame()->ScreenOnDisplay()->isAncestorOf(focus));
  QTest::keyClick(focus, Qt::Key_Return);
  QTest::keyClick(focus, Qt::Key_Space);
  EXPECT_EQ(Active(), ScreenId::Flowchart1);
  Answer({CancelAt(PhaseQ1)});
}

TEST_F(QuestionScreenTest, TheSecondHalfOfADoubleClickAnswersNoFurtherQuestion) {
  Answer({{PhaseQ1, Yes},
          {PhaseQ2, [this](QWidget& dialog) {
             auto* const yes = dialog.findChild<QAbstractButton*>(QStringLiteral("yesButton"));
             const QPointF at = yes->rect().center();
             for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
               QMouseEvent event(type, at, yes->mapToGlobal(at), Qt::LeftButton,
                                 type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                                 Qt::NoModifier);
               QCoreApplication::sendEvent(yes, &event);
             }
             QCoreApplication::processEvents();
             EXPECT_TRUE(dialog.isVisible());
             EXPECT_FALSE(yes->isDown());
             CancelAt(PhaseQ2).act(dialog);
           }}});
}

TEST_F(QuestionScreenTest, TheFirstDialogStandsByTheMonitorAndTheOthersWhereItWasLeft) {
  const QScreen* const monitor = app->Frame()->screen();
  const QPoint first =
      MovedOnto(monitor->availableGeometry(),
                monitor->geometry().topLeft() + FirstQuestionPlace(monitor->geometry().size()),
                CPropertyQa::DialogSize() + app->Frame()->frameSize() - app->Frame()->size());
  const QPoint dragged(first + QPoint(-57, 31));
  const auto standsAt = [](QPoint place, void (*press)(QWidget&)) {
    return [place, press](QWidget& dialog) {
      EXPECT_EQ(dialog.pos(), place);
      press(dialog);
    };
  };
  Answer({{PhaseQ1,
           [&](QWidget& dialog) {
             EXPECT_EQ(dialog.pos(), first);
             dialog.move(dragged);
             Yes(dialog);
           }},
          {PhaseQ2, standsAt(dragged, Yes)},
          {PhaseQ3, standsAt(dragged, No)},
          {PhaseQ4, standsAt(dragged, Back)},
          {PhaseQ3, standsAt(dragged, Yes)},
          {AmpQ1, standsAt(dragged, Yes)},
          {AmpQ2, standsAt(dragged, Back)},
          {AmpQ1, standsAt(dragged, No)},
          {AmpQ3, standsAt(dragged, No)},
          {QaEnd, standsAt(dragged, No)},
          {PhaseQ1, [&](QWidget& dialog) {
             EXPECT_EQ(dialog.pos(), dragged) << "starting again moves nothing";
             CancelAt(PhaseQ1).act(dialog);
           }}});
  ClickButton("questionsButton");
  Answer({{PhaseQ1, [&](QWidget& dialog) {
             EXPECT_EQ(dialog.pos(), first) << "a chart that is entered starts afresh";
             CancelAt(PhaseQ1).act(dialog);
           }}});
}

TEST_F(QuestionScreenTest, TheFirstDialogStandsOnTheMonitorOfTheWindow) {
  ASSERT_EQ(QGuiApplication::screens().size(), 2) << "to be run on the two monitors of its own";
  const auto firstPlace = [this](QPoint windowAt) {
    QPoint place;
    app->Frame()->move(windowAt);
    Open(ScreenId::FlowCheck);
    ClickButton("questionsButton");
    Answer({{PhaseQ1, [&](QWidget& dialog) {
               place = dialog.pos();
               CancelAt(PhaseQ1).act(dialog);
             }}});
    return place;
  };
  EXPECT_EQ(firstPlace({20, 40}), QPoint(426, 298));
  // 1280 + 5120 / 3; (1440 - 5120 / 3) / 2 would be above the monitor
  EXPECT_EQ(firstPlace({1500, 100}), QPoint(2986, 0));
}

TEST_F(QuestionScreenTest, ADialogLeftPartlyOutsideStaysThereAndALostOneIsFetchedBack) {
  const QRect monitor = app->Frame()->screen()->geometry();
  const QPoint partly(monitor.left() - 100, monitor.bottom() - 60);
  Answer({{PhaseQ1,
           [&](QWidget& dialog) {
             dialog.move(partly);
             Yes(dialog);
           }},
          {PhaseQ2,
           [&](QWidget& dialog) {
             EXPECT_EQ(dialog.pos(), partly);
             dialog.move(monitor.right() + 2000, 40);
             Yes(dialog);
           }},
          {PhaseQ3, [&](QWidget& dialog) {
             EXPECT_TRUE(monitor.contains(dialog.frameGeometry()));
             CancelAt(PhaseQ3).act(dialog);
           }}});
}

TEST_F(QuestionScreenTest, ACommandStopsTheClockAndTheAnswersKeepTheirPlace) {
  auto* const screen = static_cast<CFrmFlowchart1*>(app->Frame()->ScreenOnDisplay());
  Answer({{PhaseQ1, Yes}, {PhaseQ2, Yes}});
  const QStringList states = States();
  auto* const clock = screen->findChild<QTimer*>();
  screen->CommandEnded();
  EXPECT_TRUE(clock->isActive());
  EXPECT_EQ(clock->interval(), 100);
  EXPECT_TRUE(clock->isSingleShot());
  screen->CommandBegins();
  EXPECT_FALSE(clock->isActive());
  screen->Refresh();
  EXPECT_FALSE(clock->isActive());
  EXPECT_EQ(States(), states);
  screen->CommandEnded();
  EXPECT_TRUE(clock->isActive());
  Answer({CancelAt(PhaseQ3)});
}

TEST_F(QuestionScreenTest, GoingOnlineKeepsTheAnswers) {
  Answer({{PhaseQ1, Yes}, {PhaseQ2, Yes}});
  const QStringList states = States();
  ExpectOffline();
  Trigger(Menu()->online);
  EXPECT_EQ(States(), states);
  Answer({CancelAt(PhaseQ3)});
}

TEST_F(QuestionScreenTest, LeavingTheScreenEndsTheChart) {
  Screen* const chart = app->Frame()->ScreenOnDisplay();
  Answer({{PhaseQ1, No}, {PhaseQ4, Yes}});
  chart->CommandEnded();
  ASSERT_TRUE(chart->findChild<QTimer*>()->isActive());
  Press(FlowStep::Field);
  EXPECT_FALSE(chart->findChild<QTimer*>()->isActive());
  EXPECT_EQ(Active(), ScreenId::Field) << "no question: nothing is being decided by clicks";
  chart->CommandEnded();
  EXPECT_FALSE(chart->findChild<QTimer*>()->isActive()) << "it is not on display";
  Open(ScreenId::Flowchart1);
  Answer({CancelAt(PhaseQ1)});
}

TEST_F(QuestionScreenTest, ADialogWaitsWhileAMenuIsOpen) {
  QMenu* const menu = Menu()->actions().front()->menu();
  menu->popup({0, 0});
  QTimer* const clock = app->Frame()->ScreenOnDisplay()->findChild<QTimer*>();
  int ticks = 0;
  QObject::connect(clock, &QTimer::timeout, clock, [&ticks] { ++ticks; });
  app->Frame()->ScreenOnDisplay()->CommandEnded();
  ASSERT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  Pause();
  menu->close();
  Answer({CancelAt(PhaseQ1)});
}

TEST_F(QuestionScreenTest, ASmallWindowScrollsToTheCurrentQuestion) {
  app->Frame()->resize(640, 420);
  const auto isSeen = [this](ChartBox box) {
    QWidget* const view = Box(box);
    QWidget* page = view;
    while (page && !qobject_cast<QScrollArea*>(page)) page = page->parentWidget();
    auto* const area = qobject_cast<QScrollArea*>(page);
    const QRect seen(view->mapTo(area->viewport(), QPoint(0, 0)), view->size());
    return area->viewport()->rect().contains(seen);
  };
  Answer({{PhaseQ1, No},
          {PhaseQ4,
           [&](QWidget& dialog) {
             EXPECT_TRUE(isSeen(ChartBox::PhaseQ4));
             EXPECT_FALSE(isSeen(ChartBox::Amplitude1));
             Yes(dialog);
           }},
          {AmpQ1, [&](QWidget& dialog) {
             EXPECT_TRUE(isSeen(ChartBox::Amplitude1));
             CancelAt(AmpQ1).act(dialog);
           }}});
}

TEST_F(ChartScreensTest, ADialogThatCannotBeShownEndsTheProgram) {
  app.reset();
  Begin([](ChartQuestion, const std::function<bool()>&, QPoint&, QWidget*) { return QuestionEnd::NotShown; });
  prompt.ExpectMessage(QStringLiteral("位相特性Q1を表示させることができませんでした。"));
  Open(ScreenId::Flowchart1);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !ended.empty(); }));
  EXPECT_THAT(ended, ElementsAre(1));
  app->Frame()->ScreenOnDisplay()->CommandEnded();
  EXPECT_FALSE(app->Frame()->ScreenOnDisplay()->findChild<QTimer*>()->isActive()) << "nothing more is asked";
}

// --- The clicks ---

class ClickScreenTest : public ChartScreensTest {
 protected:
  void SetUp() override {
    ChartScreensTest::SetUp();
    Doc().flowQ1Yes = Doc().flowCollect = Doc().flowNeighbourWave = true;
    Open(ScreenId::FlowCheck);
    ClickButton("clicksButton");
    ASSERT_EQ(Active(), ScreenId::Flowchart2);
  }
};

TEST_F(ClickScreenTest, AChartStartsAfreshAndClearsTheDocument) {
  EXPECT_EQ(Flags(), ChartAnswers{});
  EXPECT_THAT(States(), ElementsAre("採用中", "未採用", "未採用", "未採用", "未採用", "未採用", "", "", ""));
  EXPECT_TRUE(app->Procedure().FlowCheckActive());
}

TEST_F(ClickScreenTest, ClicksTakePathsAndTheButtonFixesThem) {
  for (const ChartBox box : {ChartBox::PhaseQ2, ChartBox::PhaseQ3, ChartBox::Amplitude2}) ClickBox(box);
  EXPECT_THAT(States(), ElementsAre("採用中", "採用中", "採用中", "未採用", "未採用", "採用中", "", "", ""));
  EXPECT_EQ(Flags(), ChartAnswers{}) << "before the button nothing is stored";
  ClickButton("fixButton");
  EXPECT_EQ(Flags(), (ChartAnswers{true, true, false, false, true}));
  EXPECT_TRUE(Doc().flowFixed);
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
  EXPECT_FALSE(app->Procedure().FlowCheckActive());
  EXPECT_EQ(EnabledSteps(), EightWithout({FlowStep::FaultSpectra}));
  EXPECT_THAT(States(), ElementsAre("採用中", "採用中", "採用中", "未採用", "未採用", "採用中", "", "", ""));
}

TEST_F(ClickScreenTest, TheFirstBoxAsksBeforeItClearsTheSecond) {
  ClickBox(ChartBox::PhaseQ2);
  ClickBox(ChartBox::PhaseQ3);
  const QString question = QStringLiteral("2つ目のYESのパスが消去されますがよろしいですか？");
  prompt.ExpectQuestion(question, PromptAnswer::No);
  ClickBox(ChartBox::PhaseQ2);
  EXPECT_THAT(States().mid(1, 2), ElementsAre("採用中", "採用中"));
  prompt.ExpectQuestion(question, PromptAnswer::Yes);
  ClickBox(ChartBox::PhaseQ2);
  EXPECT_THAT(States().mid(1, 2), ElementsAre("未採用", "未採用"));
}

TEST_F(ClickScreenTest, TheSecondBoxWaitsForTheFirst) {
  prompt.ExpectMessage(QStringLiteral("前の質問に答えてからクリックして下さい。"));
  ClickBox(ChartBox::PhaseQ3);
  EXPECT_EQ(States()[2], "未採用");
  EXPECT_FALSE(static_cast<QAbstractButton*>(Box(ChartBox::PhaseQ3))->isChecked());
}

TEST_F(ClickScreenTest, AnIncompleteChartIsRefusedAndStays) {
  ClickBox(ChartBox::PhaseQ2);
  ClickBox(ChartBox::Amplitude1);
  const DocumentState before(Doc());
  const QStringList states = States();
  prompt.ExpectMessage(QStringLiteral("位相特性のフローチャートが不正です。"));
  ClickButton("fixButton");
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
  EXPECT_EQ(States(), states);
}

TEST_F(ClickScreenTest, OnlyTheBoxItselfTakesAClick) {
  QTest::mouseClick(Box(ChartBox::PhaseQ2), Qt::LeftButton, {}, {4, 4});
  EXPECT_EQ(States()[1], "未採用") << "a corner beside the box";
  for (const ChartBox fixed :
       {ChartBox::PhaseQ1, ChartBox::SeedWave, ChartBox::BaseSpectrum, ChartBox::Adjustment})
    ClickBox(fixed);
  QTest::mouseClick(Find<QWidget>("chart"), Qt::LeftButton, {}, {5, 5});
  EXPECT_EQ(States().filter(QStringLiteral("採用中")).size(), 1);
  QTest::mouseClick(Box(ChartBox::PhaseQ2), Qt::RightButton);
  EXPECT_EQ(States()[1], "未採用");
}

TEST_F(ClickScreenTest, KeyboardAloneFixesTheProcedure) {
  EXPECT_TRUE(Box(ChartBox::PhaseQ2)->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(Box(ChartBox::PhaseQ3)->hasFocus());
  EXPECT_THAT(States().mid(1, 2), ElementsAre("採用中", "採用中"));
  for (const ChartBox next : {ChartBox::PhaseQ4, ChartBox::Amplitude1, ChartBox::Amplitude2}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Box(next)->hasFocus());
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Find<QWidget>("fixButton")->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(Flags(), (ChartAnswers{true, true, false, false, true}));
}

TEST_F(ClickScreenTest, AHeldReturnKeyTogglesOnce) {
  QWidget* const box = Box(ChartBox::PhaseQ4);
  box->setFocus();
  QTest::keyPress(box, Qt::Key_Return);
  for (int i = 0; i < 4; ++i) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(box, &held);
  }
  EXPECT_EQ(States()[3], "採用中");
}

TEST_F(ClickScreenTest, TheActionOfAScreenReaderDoesWhatAClickDoes) {
  QAccessibleInterface* const box = QAccessible::queryAccessibleInterface(Box(ChartBox::PhaseQ2));
  EXPECT_EQ(box->text(QAccessible::Name), "位相特性　Q2　地震計が加速度波形を記録している");
  ASSERT_FALSE(box->actionInterface()->actionNames().isEmpty());
  for (const QString& action : box->actionInterface()->actionNames()) {
    const bool before = box->state().checked;
    box->actionInterface()->doAction(action);
    if (action == QAccessibleActionInterface::setFocusAction()) continue;
    EXPECT_TRUE(QTest::qWaitFor([&] { return box->state().checked != before; }, 2000))
        << action.toStdString();
    EXPECT_EQ(States()[1] == "採用中", !before);
  }
  // Refused, the mark stays as it was.
  ClickBox(ChartBox::PhaseQ4);
  QAccessibleInterface* const second = QAccessible::queryAccessibleInterface(Box(ChartBox::PhaseQ3));
  if (box->state().checked) ClickBox(ChartBox::PhaseQ2);
  prompt.ExpectMessage(QStringLiteral("前の質問に答えてからクリックして下さい。"));
  second->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(second->state().checked);
}

TEST_F(ClickScreenTest, TwoQuickClicksBothCountButNotHalfADoubleClick) {
  QWidget* const box = Box(ChartBox::Amplitude1);
  const QPointF at = box->rect().center();
  const auto send = [&](QEvent::Type type) {
    QMouseEvent event(type, at, box->mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box, &event);
  };
  // The double click began on the button that opened the chart.
  send(QEvent::MouseButtonDblClick);
  send(QEvent::MouseButtonRelease);
  EXPECT_EQ(States()[4], "未採用");
  send(QEvent::MouseButtonPress);
  send(QEvent::MouseButtonRelease);
  EXPECT_EQ(States()[4], "採用中");
  send(QEvent::MouseButtonDblClick);
  send(QEvent::MouseButtonRelease);
  EXPECT_EQ(States()[4], "未採用");
}

TEST_F(ClickScreenTest, ADeclinedStepLeavesTheChartAndMovesTheHighlight) {
  ClickBox(ChartBox::PhaseQ4);
  const QStringList states = States();
  const DocumentState before(Doc());
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  Press(FlowStep::Field);
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
  EXPECT_EQ(States(), states);
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
  EXPECT_TRUE(app->Frame()->Pane()->StepsOf(FlowStep::Field)->Button(FlowStep::Field)->IsCurrent());
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  Press(FlowStep::Field);
  EXPECT_EQ(Active(), ScreenId::Field);
}

TEST_F(ClickScreenTest, NewAndOpenAskFirst) {
  ClickBox(ChartBox::PhaseQ4);
  const QStringList states = States();
  Doc().SetModified(false);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  Trigger(Menu()->newProject);
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
  EXPECT_EQ(States(), states);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::No);
  Trigger(Menu()->openProject);
  EXPECT_EQ(States(), states);
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  files.Expect("open", SavedProject(QStringLiteral("a.trml"), true));
  Trigger(Menu()->openProject);
  EXPECT_EQ(Active(), ScreenId::Field) << "and no second question";
  EXPECT_FALSE(app->Procedure().FlowCheckActive());
}

TEST_F(ClickScreenTest, SavingAndGoingOnlineKeepTheAnswers) {
  ClickBox(ChartBox::PhaseQ4);
  ClickBox(ChartBox::Amplitude1);
  const QStringList states = States();
  files.Expect("save", folder.Path(QStringLiteral("x.trml")));
  Trigger(Menu()->saveProject);
  ExpectOffline();
  Trigger(Menu()->online);
  app->Procedure().RefreshActiveScreen();
  EXPECT_EQ(States(), states);
  EXPECT_EQ(Active(), ScreenId::Flowchart2);
}

TEST_F(ClickScreenTest, AWindowThatComesBackKeepsTheAnswers) {
  ClickBox(ChartBox::PhaseQ4);
  const QStringList states = States();
  app->Frame()->hide();
  app->Frame()->show();
  EXPECT_EQ(States(), states);
}

TEST_F(ClickScreenTest, APressThatComesBehindAnotherScreenFixesNothing) {
  for (const ChartBox box : {ChartBox::PhaseQ2, ChartBox::PhaseQ3}) ClickBox(box);
  auto* const box = qobject_cast<QAbstractButton*>(Box(ChartBox::PhaseQ3));
  auto* const fix = Find<QAbstractButton>("fixButton");
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  Open(ScreenId::Field);
  const DocumentState before(Doc());
  fix->click();  // as the bus does, which gives the press its effect a moment later
  EXPECT_EQ(Active(), ScreenId::Field);
  EXPECT_FALSE(Doc().flowFixed);
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
  const QString state = box->accessibleDescription();
  box->click();
  EXPECT_EQ(box->accessibleDescription(), state);
}

// --- The fixed procedure ---

class FixedChartTest : public ChartScreensTest {
 protected:
  void SetUp() override {
    ChartScreensTest::SetUp();
    test::FillProject(Doc());
    app->Procedure().ApplyFlowState();
    Press(FlowStep::FlowCheck);
    ASSERT_EQ(Active(), ScreenId::Flowchart3);
    Doc().SetModified(false);
  }
};

TEST_F(FixedChartTest, TheChartShowsTheDocument) {
  for (int flags = 0; flags < 32; ++flags) {
    Doc().flowQ1Yes = (flags & 1) != 0;
    Doc().flowQ2Yes = (flags & 2) != 0;
    Doc().flowCollect = (flags & 4) != 0;
    Doc().flowFaultSource = (flags & 8) != 0;
    Doc().flowNeighbourWave = (flags & 16) != 0;
    app->Procedure().RefreshActiveScreen();
    QStringList expected = {QStringLiteral("採用中")};
    for (int box = 0; box < 5; ++box)
      expected << (flags & 1 << box ? QStringLiteral("採用中") : QStringLiteral("未採用"));
    EXPECT_EQ(States().mid(0, 6), expected) << flags;
  }
}

TEST_F(FixedChartTest, ItsBoxesTakeNoClicks) {
  const QStringList states = States();
  const DocumentState before(Doc());
  for (const ChartBox box : kChartBoxes) {
    EXPECT_EQ(qobject_cast<QAbstractButton*>(Box(box)), nullptr);
    ClickBox(box);
  }
  EXPECT_EQ(States(), states);
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
}

TEST_F(FixedChartTest, ADeclinedChangeLeavesTheDocumentByteForByte) {
  const DocumentState before(Doc());
  prompt.ExpectQuestion(ChangeProcedureQuestion(), PromptAnswer::No);
  ClickButton("changeButton");
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
  EXPECT_EQ(Active(), ScreenId::Flowchart3);
}

TEST_F(FixedChartTest, AChangeLeadsBackToTheChoice) {
  prompt.ExpectQuestion(ChangeProcedureQuestion(), PromptAnswer::Yes);
  QTest::keyClick(Find<QWidget>("changeButton"), Qt::Key_Space);
  EXPECT_EQ(Active(), ScreenId::FlowCheck);
  EXPECT_FALSE(Doc().flowFixed);
  EXPECT_TRUE(Doc().flowQ1Yes) << "the other flags stay until the procedure is fixed again";
  EXPECT_THAT(EnabledSteps(), IsEmpty());
  EXPECT_EQ(Doc().seedWaves.Count(), 3U);
  EXPECT_THAT(Doc().faults, IsEmpty());
}

TEST_F(FixedChartTest, ReturnOnTheButtonChangesNothing) {
  QWidget* const button = Find<QWidget>("changeButton");
  EXPECT_TRUE(button->hasFocus());
  QTest::keyClick(button, Qt::Key_Return);
  EXPECT_EQ(Active(), ScreenId::Flowchart3) << "a key held from the last question asks nothing here";
}

TEST_F(FixedChartTest, APressThatComesBehindAnotherScreenAsksNothing) {
  auto* const change = Find<QAbstractButton>("changeButton");
  Open(ScreenId::Field);
  const DocumentState before(Doc());
  change->click();
  EXPECT_EQ(Active(), ScreenId::Field);
  EXPECT_THAT(before.DifferencesTo(DocumentState(Doc())), IsEmpty());
}

// --- All of them ---

TEST_F(ChartScreensTest, TheChartsFitTheWindowAndScrollInASmallerOne) {
  for (const ScreenId id : {ScreenId::Flowchart1, ScreenId::Flowchart2}) {
    app->Frame()->resize(1200, 800);
    Open(id);
    app->Procedure().ClearFlowAnswers();
    QWidget* const screen = app->Frame()->ScreenOnDisplay();
    auto* const page = qobject_cast<QScrollArea*>(screen->parentWidget()->parentWidget());
    ASSERT_NE(page, nullptr);
    test::Settle();
    EXPECT_FALSE(page->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(page->verticalScrollBar()->isVisible());
    // What menu, bar and frame of other desktops may take more.
    EXPECT_GE(page->viewport()->width() - screen->minimumSizeHint().width(), 20);
    EXPECT_GE(page->viewport()->height() - screen->minimumSizeHint().height(), 20);
    app->Frame()->resize(800, 600);
    test::Settle();
    EXPECT_TRUE(page->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(page->verticalScrollBar()->isVisible());
  }
  prompt.ExpectQuestion(LeaveFlowCheckQuestion(), PromptAnswer::Yes);
  Open(ScreenId::Field);
}

TEST_F(ChartScreensTest, WindowsBearTheirNames) {
  const std::map<ScreenId, QString> names = {{ScreenId::FlowCheck, QStringLiteral("FlowCheck")},
                                             {ScreenId::Flowchart1, QStringLiteral("Flowchart1")},
                                             {ScreenId::Flowchart2, QStringLiteral("Flowchart2")},
                                             {ScreenId::Flowchart3, QStringLiteral("Flowchart3")}};
  for (const auto& [id, name] : names) {
    EXPECT_EQ(app->Frame()->ScreenOf(id)->objectName(), name);
    EXPECT_EQ(app->Frame()->ScreenOf(id)->accessibleName(), "作業手順の確認");
  }
}

}  // namespace
}  // namespace tremlo
