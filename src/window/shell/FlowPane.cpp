#include "window/shell/FlowPane.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

namespace tremlo {

namespace {

QScrollArea* Scrolled(QWidget* steps) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidgetResizable(true);
  area->setWidget(steps);
  area->setFocusPolicy(Qt::NoFocus);
  // Room for the bar beside the steps on a low monitor.
  area->setMinimumWidth(steps->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
  return area;
}

}  // namespace

CPaneFlow::CPaneFlow(QWidget* parent)
    : QDockWidget(QStringLiteral("作業フロー"), parent),
      m_routes(new QStackedWidget(this)),
      m_flowDialog(new CDlgMakeSeismicWaveFlow),
      m_respDialog(new CDlgRespFlow) {
  setObjectName(QStringLiteral("flowPane"));
  setAccessibleName(windowTitle());
  // Without it there would be no way to the steps.
  setFeatures(QDockWidget::NoDockWidgetFeatures);
  setAllowedAreas(Qt::LeftDockWidgetArea);
  m_routes->addWidget(Scrolled(m_flowDialog));
  m_routes->addWidget(Scrolled(m_respDialog));
  setWidget(m_routes);
  connect(m_flowDialog, &FlowSteps::Pressed, this, &CPaneFlow::StepPressed);
  connect(m_respDialog, &FlowSteps::Pressed, this, &CPaneFlow::StepPressed);
}

void CPaneFlow::ShowRoute(bool guidelineRoute) {
  m_routes->setCurrentIndex(guidelineRoute ? 0 : 1);
}

void CPaneFlow::EnableStep(FlowStep step, bool enabled) {
  StepsOf(step)->Button(step)->setEnabled(enabled);
  UpdateReasons();
}

void CPaneFlow::SetCurrentStep(FlowStep step) {
  StepsOf(step)->SetCurrentStep(step);
}

void CPaneFlow::Highlight(FlowStep step, bool repaint) {
  StepsOf(step)->SetCurrentStep(step);
  StepsOf(step)->Highlight(repaint);
}

FlowSteps* CPaneFlow::StepsOf(FlowStep step) const {
  if (m_flowDialog->Holds(step)) return m_flowDialog;
  return m_respDialog;
}

FlowSteps* CPaneFlow::StepsOnDisplay() const {
  if (m_routes->currentIndex() == 0) return m_flowDialog;
  return m_respDialog;
}

void CPaneFlow::UpdateReasons() {
  const bool fixed = m_flowDialog->Button(FlowStep::OrigSeismicWave)->isEnabled();
  for (const FlowStep step : kStepsBehindProcedure) {
    StepButton* button = m_flowDialog->Button(step);
    const QString reason = fixed ? QStringLiteral("確定した作業手順では使用しません。")
                                 : QStringLiteral("作業手順を確定すると使用できます。");
    button->setToolTip(button->isEnabled() ? QString() : reason);
  }
}

}  // namespace tremlo
