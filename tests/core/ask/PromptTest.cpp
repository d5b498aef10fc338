#include "support/ScriptedPrompt.h"
#include "support/TestFolder.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <optional>

namespace tremlo {
namespace {

using test::ScriptedPrompt;

/// Keeps the one box that it is shown.
class KeepingPrompt : public Prompt {
 public:
  PromptAnswer Show(const PromptBox& box) override {
    shown = box;
    return answer;
  }
  std::optional<PromptBox> shown;
  PromptAnswer answer = PromptAnswer::Ok;
};

TEST(Prompt, AQuestionHasYesAndNoAWarningIconAndTheProgramsName) {
  KeepingPrompt prompt;
  prompt.answer = PromptAnswer::Yes;
  EXPECT_TRUE(prompt.Ask("よろしいですか？"));
  EXPECT_EQ(prompt.shown,
            (PromptBox{"よろしいですか？", PromptIcon::Warning, PromptButtons::YesNo, "Tremlo"}));
}

TEST(Prompt, AnythingButYesIsNo) {
  KeepingPrompt prompt;
  prompt.answer = PromptAnswer::No;
  EXPECT_FALSE(prompt.Ask("?"));
  prompt.answer = PromptAnswer::Ok;
  EXPECT_FALSE(prompt.Ask("?"));
}

TEST(Prompt, AMessageHasOneButtonAndAWarningIconUnlessToldOtherwise) {
  KeepingPrompt prompt;
  prompt.Tell("a");
  EXPECT_EQ(prompt.shown, (PromptBox{"a", PromptIcon::Warning, PromptButtons::Ok, "Tremlo"}));
  prompt.Tell("b", PromptIcon::Stop);
  EXPECT_EQ(prompt.shown, (PromptBox{"b", PromptIcon::Stop, PromptButtons::Ok, "Tremlo"}));
}

TEST(Prompt, AMessageMayHaveASecondText) {
  KeepingPrompt prompt;
  prompt.Tell("a", PromptIcon::Warning, "b");
  EXPECT_EQ(prompt.shown, (PromptBox{"a", PromptIcon::Warning, PromptButtons::Ok, "Tremlo", "b"}));
}

TEST(ScriptedPrompt, AnotherSecondTextFails) {
  ScriptedPrompt prompt;
  prompt.ExpectMessage("a", PromptIcon::Warning, "b");
  EXPECT_NONFATAL_FAILURE(prompt.Tell("a"), "Another box");
  prompt.ExpectMessage("a", PromptIcon::Warning, "b");
  prompt.Tell("a", PromptIcon::Warning, "b");
}

TEST(ScriptedPrompt, AnswersInItsOrder) {
  ScriptedPrompt prompt;
  prompt.ExpectQuestion("a", PromptAnswer::Yes);
  prompt.ExpectQuestion("b", PromptAnswer::No);
  prompt.ExpectMessage("c");
  EXPECT_TRUE(prompt.Ask("a"));
  EXPECT_FALSE(prompt.Ask("b"));
  prompt.Tell("c");
}

TEST(ScriptedPrompt, AnUnexpectedBoxFailsAndCountsAsNo) {
  ScriptedPrompt prompt;
  bool answer = true;
  EXPECT_NONFATAL_FAILURE(answer = prompt.Ask("a"), "unexpected box");
  EXPECT_FALSE(answer);
}

TEST(ScriptedPrompt, AnotherTextOrIconOrKindOfBoxFails) {
  ScriptedPrompt prompt;
  bool answer = true;
  prompt.ExpectQuestion("a", PromptAnswer::Yes);
  EXPECT_NONFATAL_FAILURE(answer = prompt.Ask("a "), "Another box");
  EXPECT_FALSE(answer);
  prompt.ExpectMessage("a", PromptIcon::Stop);
  EXPECT_NONFATAL_FAILURE(prompt.Tell("a"), "Another box");
  prompt.ExpectMessage("a");
  EXPECT_NONFATAL_FAILURE(prompt.Ask("a"), "Another box");
}

TEST(ScriptedPrompt, AnUnusedAnswerFailsAtItsEnd) {
  auto prompt = std::make_unique<ScriptedPrompt>();
  prompt->ExpectMessage("a");
  EXPECT_NONFATAL_FAILURE(prompt.reset(), "not shown");
}

}  // namespace
}  // namespace tremlo
