#include "window/shell/FrmFlowchart3.h"

#include <QPushButton>

namespace tremlo {

CFrmFlowchart3::CFrmFlowchart3(const CMorvaneDoc& doc, WorkProcedure& procedure, CommandGate& gate,
                               std::function<void(SwitchOutcome)> follow, QWidget* parent)
    : ChartScreen(FlowChartView::Use::Shows, parent),
      m_doc(doc),
      m_procedure(procedure),
      m_gate(gate),
      m_follow(std::move(follow)) {
  QPushButton* const change = AddButton("changeButton", QStringLiteral("作業手順の変更"));
  connect(change, &QAbstractButton::clicked, this, &CFrmFlowchart3::ChangeProcedure);
  Refresh();
}

void CFrmFlowchart3::Refresh() {
  Chart()->SetLooks(LooksOf(FixedAnswers(m_doc)));
}

void CFrmFlowchart3::ChangeProcedure() {
  m_gate.Run([this] { m_follow(m_procedure.ChangeProcedure()); });
}

}  // namespace tremlo
