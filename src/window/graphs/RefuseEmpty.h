#pragma once

#include "core/ask/Prompt.h"
#include "window/graphs/ExpEdit.h"

namespace tremlo {

/// Tells what a field or grid refuses by the prompt, which outlives it.
inline ShowWarning WarningsBy(Prompt& prompt) {
  return [&prompt](QWidget*, const QString& title, const QString& text) {
    prompt.Show({.text = text, .title = title});
  };
}

/// Makes a text field refuse to be left empty: it tells `refusal`, and the old text comes back. The prompt
/// outlives the field.
inline void RefuseEmpty(CExpEdit& edit, Prompt& prompt, const QString& refusal) {
  edit.SetOwnerCheck([refusal](const QString& text) { return text.isEmpty() ? refusal : QString(); });
  edit.SetShowWarning(WarningsBy(prompt));
}

}  // namespace tremlo
