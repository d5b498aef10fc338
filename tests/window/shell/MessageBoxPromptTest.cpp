#include "window/shell/MessageBoxPrompt.h"
#include "window/shell/ShellParts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QTest>

#include <gmock/gmock.h>
#include <thread>

namespace tremlo {
namespace {

using test::WhenModal;

class MessageBoxPromptTest : public testing::Test {
 protected:
  PromptAnswer Answer(const PromptBox& box, std::function<void(QMessageBox*)> act) {
    WhenModal(QStringLiteral("prompt"),
              [act = std::move(act)](QWidget* window) { act(qobject_cast<QMessageBox*>(window)); });
    return prompt.Show(box);
  }
  static void Click(QMessageBox* window, const char* name) {
    auto* button = window->findChild<QAbstractButton*>(QLatin1String(name));
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  static QStringList Buttons(const QMessageBox* window) {
    QStringList texts;
    for (const QAbstractButton* button : window->buttons()) texts << button->text();
    return texts;
  }

  MessageBoxPrompt prompt;
  const PromptBox question{.text = QStringLiteral("a<b>?"), .buttons = PromptButtons::YesNo};
  const PromptBox saving{.text = QStringLiteral("保存しますか？"), .buttons = PromptButtons::YesNoCancel};
};

TEST_F(MessageBoxPromptTest, QuestionHasJapaneseButtonsOfWhichTheFirstIsTheDefault) {
  EXPECT_EQ(Answer(question,
                   [](QMessageBox* window) {
                     EXPECT_EQ(window->windowTitle(), u"Tremlo");
                     EXPECT_EQ(window->icon(), QMessageBox::Warning);
                     EXPECT_THAT(Buttons(window), testing::UnorderedElementsAre("はい(&Y)", "いいえ(&N)"));
                     QTest::keyClick(window, Qt::Key_Return);
                   }),
            PromptAnswer::Yes);
}

TEST_F(MessageBoxPromptTest, ClickedButtonIsTheAnswer) {
  EXPECT_EQ(Answer(question, [](QMessageBox* window) { Click(window, "yes"); }), PromptAnswer::Yes);
  EXPECT_EQ(Answer(question, [](QMessageBox* window) { Click(window, "no"); }), PromptAnswer::No);
  EXPECT_EQ(Answer(saving, [](QMessageBox* window) { Click(window, "yes"); }), PromptAnswer::Yes);
  EXPECT_EQ(Answer(saving, [](QMessageBox* window) { Click(window, "no"); }), PromptAnswer::No);
  EXPECT_EQ(Answer(saving, [](QMessageBox* window) { Click(window, "cancel"); }), PromptAnswer::Cancel);
}

TEST_F(MessageBoxPromptTest, EscapeAndCloseBoxCountAsTheLastButton) {
  const auto escape = [](QMessageBox* window) { QTest::keyClick(window, Qt::Key_Escape); };
  const auto close = [](QMessageBox* window) { window->close(); };
  EXPECT_EQ(Answer(question, escape), PromptAnswer::No);
  EXPECT_EQ(Answer(question, close), PromptAnswer::No);
  EXPECT_EQ(Answer(saving, escape), PromptAnswer::Cancel);
  EXPECT_EQ(Answer(saving, close), PromptAnswer::Cancel);
  EXPECT_EQ(Answer({.text = QStringLiteral("m")}, escape), PromptAnswer::Ok);
}

TEST_F(MessageBoxPromptTest, BoxThatGoesWithoutAClickCountsAsTheLastButton) {
  const auto hide = [](QMessageBox* window) { window->hide(); };
  EXPECT_EQ(Answer(question, hide), PromptAnswer::No);
  EXPECT_EQ(Answer(saving, hide), PromptAnswer::Cancel);
}

TEST_F(MessageBoxPromptTest, TextIsShownAsItStands) {
  Answer(question, [](QMessageBox* window) {
    EXPECT_EQ(window->textFormat(), Qt::PlainText);
    EXPECT_EQ(window->text(), u"a<b>?");
    window->close();
  });
}

TEST_F(MessageBoxPromptTest, ASecondTextStandsBelowTheFirstAsItIs) {
  const QString details = QStringLiteral("<b>4.98</b> & 7 %\n次の行");
  Answer({.text = QStringLiteral("a<b>?"), .details = details}, [&](QMessageBox* window) {
    EXPECT_EQ(window->text(), u"a<b>?");
    EXPECT_EQ(window->informativeText(), details);
    auto* const label = window->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    window->close();
  });
  Answer(question, [](QMessageBox* window) {
    EXPECT_EQ(window->informativeText(), QString());
    window->close();
  });
}

TEST_F(MessageBoxPromptTest, IconIsTheOneAskedFor) {
  const std::pair<PromptIcon, QMessageBox::Icon> icons[] = {
      {PromptIcon::None, QMessageBox::NoIcon},
      {PromptIcon::Information, QMessageBox::Information},
      {PromptIcon::Warning, QMessageBox::Warning},
      {PromptIcon::Stop, QMessageBox::Critical}};
  for (const auto& [asked, shown] : icons)
    Answer({.text = QStringLiteral("m"), .icon = asked}, [shown = shown](QMessageBox* window) {
      EXPECT_EQ(window->icon(), shown);
      window->close();
    });
}

TEST_F(MessageBoxPromptTest, BoxBelongsToTheMainWindowWhileAnotherProgramIsInFront) {
  QMainWindow frame;
  frame.show();
  QApplication::setActiveWindow(nullptr);
  Answer(question, [&](QMessageBox* window) {
    EXPECT_EQ(window->parentWidget(), &frame);
    window->close();
  });
}

TEST_F(MessageBoxPromptTest, WorkerWaitsForTheAnswer) {
  std::atomic<bool> answered = false;
  PromptAnswer answer = PromptAnswer::Cancel;
  WhenModal(QStringLiteral("prompt"), [&](QWidget* window) {
    EXPECT_FALSE(answered);
    Click(qobject_cast<QMessageBox*>(window), "no");
  });
  std::thread worker([&] {
    answer = prompt.Show(question);
    answered = true;
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answered.load(); }, 30000));
  worker.join();
  EXPECT_EQ(answer, PromptAnswer::No);
}

TEST_F(MessageBoxPromptTest, BoxDuringAWaitHasAPointer) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  Answer(question, [](QMessageBox* window) {
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    window->close();
  });
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
}

}  // namespace
}  // namespace tremlo
