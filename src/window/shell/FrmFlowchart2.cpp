#include "window/shell/FrmFlowchart2.h"

#include "window/graphs/NamedControl.h"

#include <QPushButton>

namespace tremlo {

CFrmFlowchart2::CFrmFlowchart2(Prompt& prompt, WorkProcedure& procedure, CommandGate& gate,
                               std::function<void(SwitchOutcome)> follow, QWidget* parent)
    : ChartScreen(FlowChartView::Use::TakesClicks, parent),
      m_procedure(procedure),
      m_gate(gate),
      m_follow(std::move(follow)),
      m_clicks(prompt) {
  connect(Chart(), &FlowChartView::BoxClicked, this, &CFrmFlowchart2::ClickBox);
  QPushButton* const fix = AddButton("fixButton", QStringLiteral("作業手順の確定"));
  connect(fix, &QAbstractButton::clicked, this, &CFrmFlowchart2::FixProcedure);
  std::vector<QWidget*> controls = Chart()->ClickBoxes();
  controls.push_back(fix);
  SetTabOrder(*this, controls);
  Refresh();
}

void CFrmFlowchart2::Entered() {
  m_clicks.Restart();
  Refresh();
}

void CFrmFlowchart2::Refresh() {
  Chart()->SetLooks(LooksOf(m_clicks.Answers()));
}

void CFrmFlowchart2::ClickBox(ChartBox box) {
  m_gate.Run([&] { m_clicks.Click(box); });
  Refresh();
}

void CFrmFlowchart2::FixProcedure() {
  m_gate.Run([this] { m_follow(m_procedure.FixByClicks(m_clicks.Answers())); });
}

}  // namespace tremlo
