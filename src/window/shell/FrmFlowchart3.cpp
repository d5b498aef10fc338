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
  Chart()->SetLooks(LooksOf(ChartAnswers{m_doc.flowQ1Yes, m_doc.flowQ2Yes, m_doc.flowCollect,
                                         m_doc.flowFaultSource, m_doc.flowNeighbourWave}));
}

void CFrmFlowchart3::ChangeProcedure() {
  m_gate.Run([this] { m_follow(m_procedure.ChangeProcedure()); });
}

}  // namespace tremlo
