#include "core/shell/ClickChart.h"

namespace tremlo {

namespace {

void Toggle(bool& answer) {
  answer = !answer;
}

}  // namespace

bool ClickChart::TakesClicks(ChartBox box) {
  return box > ChartBox::PhaseQ1 && box <= ChartBox::Amplitude2;
}

void ClickChart::Click(ChartBox box) {
  switch (box) {
    case ChartBox::PhaseQ2:
      return ClickFirst();
    case ChartBox::PhaseQ3:
      return ClickSecond();
    case ChartBox::PhaseQ4:
      return Toggle(m_answers.collect);
    case ChartBox::Amplitude1:
      return Toggle(m_answers.faultSource);
    case ChartBox::Amplitude2:
      return Toggle(m_answers.neighbourWave);
    default:
      return;
  }
}

void ClickChart::ClickFirst() {
  if (!m_answers.q2Yes) {
    Toggle(m_answers.q1Yes);
  } else if (m_prompt.Ask(QStringLiteral("2つ目のYESのパスが消去されますがよろしいですか？"))) {
    m_answers.q1Yes = m_answers.q2Yes = false;
  }
}

void ClickChart::ClickSecond() {
  if (m_answers.q1Yes)
    Toggle(m_answers.q2Yes);
  else
    m_prompt.Tell(QStringLiteral("前の質問に答えてからクリックして下さい。"));
}

}  // namespace tremlo
