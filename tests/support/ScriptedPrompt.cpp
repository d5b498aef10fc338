#include "support/ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace tremlo::test {

namespace {

std::string Described(const PromptBox& box) {
  return box.title.toStdString() + " / icon " + std::to_string(static_cast<int>(box.icon)) + " / buttons " +
         std::to_string(static_cast<int>(box.buttons)) + "\n" + box.text.toStdString() +
         (box.details.isEmpty() ? std::string() : "\n\n" + box.details.toStdString());
}

}  // namespace

ScriptedPrompt::~ScriptedPrompt() {
  CheckUsedUp();
}

void ScriptedPrompt::ExpectQuestion(const QString& text, PromptAnswer answer) {
  ExpectBox({.text = text, .icon = PromptIcon::Warning, .buttons = PromptButtons::YesNo}, answer);
}

void ScriptedPrompt::ExpectMessage(const QString& text, PromptIcon icon, const QString& details) {
  ExpectBox({.text = text, .icon = icon, .buttons = PromptButtons::Ok, .details = details}, PromptAnswer::Ok);
}

void ScriptedPrompt::CheckUsedUp() {
  for (const Entry& entry : m_script) ADD_FAILURE() << "A box was not shown:\n" << Described(entry.box);
  m_script.clear();
}

PromptAnswer ScriptedPrompt::Show(const PromptBox& box) {
  if (m_log) m_log->append(QStringLiteral("box"));
  if (m_script.empty()) {
    ADD_FAILURE() << "An unexpected box was shown:\n" << Described(box);
    return PromptAnswer::No;
  }
  const Entry entry = m_script.front();
  m_script.pop_front();
  if (!(entry.box == box)) {
    ADD_FAILURE() << "Another box was shown:\n"
                  << Described(box) << "\nthan expected:\n"
                  << Described(entry.box);
    return PromptAnswer::No;
  }
  return entry.answer;
}

}  // namespace tremlo::test
