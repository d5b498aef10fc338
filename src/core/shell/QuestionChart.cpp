#include "core/shell/QuestionChart.h"

#include <algorithm>

namespace tremlo {

namespace {

using enum ChartQuestion;

constexpr std::int32_t kFromPhaseQ1 = 315;
constexpr std::int32_t kFromPhaseQ2 = 316;
constexpr std::int32_t kFromPhaseQ3 = 317;
constexpr std::int32_t kFromAmpQ1 = 318;
constexpr std::int32_t kFromAmpQ2 = 319;
constexpr std::int32_t kFromPhaseQ4 = 338;

bool Offers(ChartQuestion question, ChartReply reply) {
  const ChartQuestionRow& row = RowOf(question);
  return reply == ChartReply::Yes || (reply == ChartReply::No ? row.no : row.back) != nullptr;
}

}  // namespace

void QuestionChart::Restart() {
  m_state = {};
  m_state.focus[static_cast<std::size_t>(ChartBox::PhaseQ1)] = true;
  m_wroteFlag = true;
}

std::optional<ChartQuestion> QuestionChart::Due() const {
  const auto due = std::find(m_state.answered.begin(), m_state.answered.end(), false);
  if (due == m_state.answered.end()) return std::nullopt;
  return static_cast<ChartQuestion>(due - m_state.answered.begin());
}

bool QuestionChart::Reply(ChartReply reply) {
  const std::optional<ChartQuestion> question = Due();
  if (!question || !Offers(*question, reply)) return false;
  m_wroteFlag = false;
  switch (*question) {
    case PhaseQ1:
      ReplyPhaseQ1(reply);
      break;
    case PhaseQ2:
      ReplyPhaseQ2(reply);
      break;
    case PhaseQ3:
      ReplyPhaseQ3(reply);
      break;
    case PhaseQ4:
      ReplyPhaseQ4(reply);
      break;
    case AmpQ1:
      ReplyAmpQ1(reply);
      break;
    case AmpQ2:
      ReplyAmpQ2(reply);
      break;
    case AmpQ3:
      ReplyAmpQ3(reply);
      break;
    case QaEnd:
      ReplyQaEnd(reply);
      break;
  }
  return m_wroteFlag;
}

void QuestionChart::ReplyPhaseQ1(ChartReply reply) {
  Pass(PhaseQ1);
  YesPath(ChartBox::PhaseQ1) = true;
  if (reply == ChartReply::Yes) {
    MoveFocus(ChartBox::PhaseQ1, ChartBox::PhaseQ2);
    return;
  }
  Pass(PhaseQ2);
  Pass(PhaseQ3);
  m_state.backFromPhaseQ4 = kFromPhaseQ1;
  MoveFocus(ChartBox::PhaseQ1, ChartBox::PhaseQ4);
}

void QuestionChart::ReplyPhaseQ2(ChartReply reply) {
  Write(m_state.flags.q1Yes, true);
  if (reply == ChartReply::Back) {
    Write(m_state.flags.q1Yes, false);
    Reopen(PhaseQ1);
    YesPath(ChartBox::PhaseQ1) = false;
    MoveFocus(ChartBox::PhaseQ2, ChartBox::PhaseQ1);
    return;
  }
  YesPath(ChartBox::PhaseQ2) = true;
  Pass(PhaseQ2);
  if (reply == ChartReply::Yes) {
    MoveFocus(ChartBox::PhaseQ2, ChartBox::PhaseQ3);
    return;
  }
  Pass(PhaseQ3);
  m_state.backFromPhaseQ4 = kFromPhaseQ2;
  MoveFocus(ChartBox::PhaseQ2, ChartBox::PhaseQ4);
}

void QuestionChart::ReplyPhaseQ3(ChartReply reply) {
  Write(m_state.flags.q2Yes, true);
  if (reply == ChartReply::Back) {
    Write(m_state.flags.q2Yes, false);
    Reopen(PhaseQ2);
    YesPath(ChartBox::PhaseQ2) = false;
    MoveFocus(ChartBox::PhaseQ3, ChartBox::PhaseQ2);
    return;
  }
  YesPath(ChartBox::PhaseQ3) = true;
  Pass(PhaseQ3);
  if (reply == ChartReply::Yes) {
    Pass(PhaseQ4);
    m_state.backFromAmpQ1 = kFromPhaseQ3;
    MoveFocus(ChartBox::PhaseQ3, ChartBox::Amplitude1);
    return;
  }
  m_state.backFromPhaseQ4 = kFromPhaseQ3;
  MoveFocus(ChartBox::PhaseQ3, ChartBox::PhaseQ4);
}

void QuestionChart::ReplyPhaseQ4(ChartReply reply) {
  Write(m_state.flags.collect, true);
  if (reply == ChartReply::Yes) {
    Pass(PhaseQ4);
    m_state.backFromAmpQ1 = kFromPhaseQ4;
    MoveFocus(ChartBox::PhaseQ4, ChartBox::Amplitude1);
    YesPath(ChartBox::PhaseQ4) = true;
    return;
  }
  Write(m_state.flags.collect, false);
  Reopen(PhaseQ3);
  if (m_state.backFromPhaseQ4 == kFromPhaseQ3) {
    YesPath(ChartBox::PhaseQ3) = false;
    MoveFocus(ChartBox::PhaseQ4, ChartBox::PhaseQ3);
    return;
  }
  Reopen(PhaseQ2);
  if (m_state.backFromPhaseQ4 == kFromPhaseQ2) {
    YesPath(ChartBox::PhaseQ2) = false;
    MoveFocus(ChartBox::PhaseQ4, ChartBox::PhaseQ2);
    return;
  }
  Reopen(PhaseQ1);
  YesPath(ChartBox::PhaseQ1) = false;
  MoveFocus(ChartBox::PhaseQ4, ChartBox::PhaseQ1);
}

void QuestionChart::ReplyAmpQ1(ChartReply reply) {
  Write(m_state.flags.faultSource, true);
  if (reply == ChartReply::Yes) {
    Pass(AmpQ1);  // the box stays lit for AmpQ2
    return;
  }
  Write(m_state.flags.faultSource, false);
  if (reply == ChartReply::No) {
    Pass(AmpQ1);
    Pass(AmpQ2);
    m_state.backFromAmpQ3 = kFromAmpQ1;
    YesPath(ChartBox::Amplitude1) = false;
    MoveFocus(ChartBox::Amplitude1, ChartBox::Amplitude2);
    return;
  }
  Reopen(PhaseQ4);
  if (m_state.backFromAmpQ1 == kFromPhaseQ4) {
    YesPath(ChartBox::PhaseQ4) = false;
    MoveFocus(ChartBox::Amplitude1, ChartBox::PhaseQ4);
    return;
  }
  Reopen(PhaseQ3);
  YesPath(ChartBox::PhaseQ3) = false;
  MoveFocus(ChartBox::Amplitude1, ChartBox::PhaseQ3);
}

/// A Yes does not set the flag again that a No has cleared and "戻る" of the next question has left so. The
/// step of the sources follows the path of the box.
void QuestionChart::ReplyAmpQ2(ChartReply reply) {
  if (reply == ChartReply::Back) {
    Reopen(AmpQ1);
    return;
  }
  if (reply == ChartReply::No) Write(m_state.flags.faultSource, false);
  Pass(AmpQ2);
  m_state.backFromAmpQ3 = kFromAmpQ2;
  YesPath(ChartBox::Amplitude1) = reply == ChartReply::Yes;
  MoveFocus(ChartBox::Amplitude1, ChartBox::Amplitude2);
}

void QuestionChart::ReplyAmpQ3(ChartReply reply) {
  Write(m_state.flags.neighbourWave, true);
  if (reply != ChartReply::Yes) Write(m_state.flags.neighbourWave, false);
  if (reply == ChartReply::Back) {
    Reopen(AmpQ2);
    if (m_state.backFromAmpQ3 == kFromAmpQ1) Reopen(AmpQ1);
    YesPath(ChartBox::Amplitude1) = false;
    MoveFocus(ChartBox::Amplitude2, ChartBox::Amplitude1);
    return;
  }
  Pass(AmpQ3);
  m_state.focus[static_cast<std::size_t>(ChartBox::Amplitude2)] = false;
  YesPath(ChartBox::Amplitude2) = reply == ChartReply::Yes;
}

void QuestionChart::ReplyQaEnd(ChartReply reply) {
  if (reply == ChartReply::No) {
    Restart();
    return;
  }
  Write(m_state.fixed, true);
  if (reply == ChartReply::Yes) {
    Pass(QaEnd);
    return;
  }
  Reopen(AmpQ3);
  Write(m_state.fixed, false);
  YesPath(ChartBox::Amplitude2) = false;
  m_state.focus[static_cast<std::size_t>(ChartBox::Amplitude2)] = true;
}

void QuestionChart::MoveFocus(ChartBox from, ChartBox to) {
  m_state.focus[static_cast<std::size_t>(from)] = false;
  m_state.focus[static_cast<std::size_t>(to)] = true;
}

void QuestionChart::Write(bool& flag, bool value) {
  flag = value;
  m_wroteFlag = true;
}

}  // namespace tremlo
