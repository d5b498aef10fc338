#include "core/shell/QuestionRound.h"

#include "core/project/ChangeQuestions.h"

namespace tremlo {

bool QuestionRound::MayCancel() {
  return m_prompt.Ask(LeaveFlowCheckQuestion());
}

std::optional<SwitchOutcome> QuestionRound::Take(QuestionEnd end) {
  switch (end) {
    case QuestionEnd::Yes:
      return TakeReply(ChartReply::Yes);
    case QuestionEnd::No:
      return TakeReply(ChartReply::No);
    case QuestionEnd::Back:
      return TakeReply(ChartReply::Back);
    case QuestionEnd::Cancelled:
      return m_procedure.SwitchScreen(ScreenId::FlowCheck);
    case QuestionEnd::NotShown:
      break;
  }
  if (const std::optional<ChartQuestion> due = Due()) m_prompt.Tell(QString::fromUtf16(RowOf(*due).notShown));
  return SwitchOutcome::EndProgram;
}

std::optional<SwitchOutcome> QuestionRound::TakeReply(ChartReply reply) {
  if (m_chart.Reply(reply)) StoreFlags();
  if (!Chart().fixed) return std::nullopt;
  const auto taken = [this](ChartBox box) { return Chart().yesPath[static_cast<std::size_t>(box)]; };
  return m_procedure.FixByQuestions(taken(ChartBox::Amplitude1), taken(ChartBox::Amplitude2));
}

void QuestionRound::StoreFlags() {
  const ChartAnswers& flags = Chart().flags;
  m_doc.flowQ1Yes = flags.q1Yes;
  m_doc.flowQ2Yes = flags.q2Yes;
  m_doc.flowCollect = flags.collect;
  m_doc.flowFaultSource = flags.faultSource;
  m_doc.flowNeighbourWave = flags.neighbourWave;
  m_doc.flowFixed = Chart().fixed;
  m_doc.SetModified(true);
}

}  // namespace tremlo
