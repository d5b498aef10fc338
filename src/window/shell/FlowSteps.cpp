#include "window/shell/FlowSteps.h"

#include <QGroupBox>
#include <QPainter>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr QRgb kBackground = 0xFFEAFFEA;

/// The pane keeps its light ground in a dark theme, so its text must not follow the theme either.
QPalette PanePalette(QPalette palette) {
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, Qt::black);
  palette.setColor(QPalette::Window, QColor(kBackground));
  return palette;
}

QVBoxLayout* MakeColumn(QWidget* owner) {
  auto* column = new QVBoxLayout(owner);
  column->setSpacing(8);
  return column;
}

}  // namespace

FlowSteps::FlowSteps(FlowStep first, QWidget* parent) : QWidget(parent), m_currentStep(first) {
  setPalette(PanePalette(palette()));
}

void FlowSteps::AddStep(FlowStep step, const char* name, QVBoxLayout* column) {
  auto* button = new StepButton(QString::fromUtf16(RowOf(step).title), this);
  button->setObjectName(QLatin1String(name));
  connect(button, &StepButton::clicked, this, [this, step] { Q_EMIT Pressed(step); });
  column->addWidget(button);
  m_buttons[step] = button;
}

void FlowSteps::Highlight(bool repaint) {
  for (const auto& [step, button] : m_buttons) {
    button->SetCurrent(step == m_currentStep);
    if (repaint) button->update();
  }
}

void FlowSteps::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), QColor(kBackground));
}

CDlgMakeSeismicWaveFlow::CDlgMakeSeismicWaveFlow(QWidget* parent) : FlowSteps(FlowStep::Field, parent) {
  setObjectName(QStringLiteral("flowDialog"));
  QVBoxLayout* column = MakeColumn(this);
  AddStep(FlowStep::Field, "fieldButton", column);
  AddStep(FlowStep::FlowCheck, "flowCheckButton", column);
  AddStep(FlowStep::OrigSeismicWave, "origSeismicWaveButton", column);
  auto* group = new QGroupBox(QStringLiteral("スペクトル設定"), this);
  group->setObjectName(QStringLiteral("spectrumGroup"));
  QVBoxLayout* inner = MakeColumn(group);
  AddStep(FlowStep::DamsiteWave, "damsiteWaveButton", inner);
  AddStep(FlowStep::FaultSpectra, "faultSpectraButton", inner);
  AddStep(FlowStep::LowerSpectrum, "lowerSpectrumButton", inner);
  AddStep(FlowStep::BaseSpectrum, "baseSpectrumButton", inner);
  column->addWidget(group);
  AddStep(FlowStep::AdjustSeismicWave, "adjustSeismicWaveButton", column);
  AddStep(FlowStep::Visualization, "visualizationButton", column);
  AddStep(FlowStep::Print, "printButton", column);
  column->addStretch();
  Highlight(false);
}

CDlgRespFlow::CDlgRespFlow(QWidget* parent) : FlowSteps(FlowStep::RespOrigSeismicWave, parent) {
  setObjectName(QStringLiteral("respDialog"));
  QVBoxLayout* column = MakeColumn(this);
  AddStep(FlowStep::RespOrigSeismicWave, "respOrigSeismicWaveButton", column);
  AddStep(FlowStep::RespAdjustSpectrum, "respAdjustSpectrumButton", column);
  AddStep(FlowStep::RespVisualization, "respVisualizationButton", column);
  column->addStretch();
  Highlight(false);
}

}  // namespace tremlo
