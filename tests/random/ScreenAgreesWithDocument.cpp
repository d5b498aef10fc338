#include "random/ScreenAgreesWithDocument.h"

#include "core/project/ProjectFile.h"
#include "random/ScreenPicture.h"

#include <QFileInfo>

#include <algorithm>

namespace tremlo::test {

namespace {

constexpr int kToldDifferences = 5;

void AddDifferences(const QStringList& shown, const QStringList& read, std::vector<std::string>& told) {
  int count = 0;
  for (qsizetype i = 0; i < std::max(shown.size(), read.size()); ++i) {
    const QString was = i < shown.size() ? shown[i] : QStringLiteral("nothing");
    const QString is = i < read.size() ? read[i] : QStringLiteral("nothing");
    if (was == is || ++count > kToldDifferences) continue;
    told.push_back("shown is <" + was.toStdString() + ">, the document says <" + is.toStdString() + ">");
  }
}

bool IsOpen(const CMorvaneDoc& doc, FlowStep step) {
  switch (step) {
    case FlowStep::Field:
    case FlowStep::FlowCheck:
    case FlowStep::RespOrigSeismicWave:
    case FlowStep::RespAdjustSpectrum:
    case FlowStep::RespVisualization:
      return true;
    case FlowStep::DamsiteWave:
      return doc.flowFixed && doc.flowNeighbourWave;
    case FlowStep::FaultSpectra:
      return doc.flowFixed && doc.flowFaultSource;
    default:
      return doc.flowFixed;
  }
}

bool IsOfRoute(ScreenId screen, bool guidelineRoute) {
  return (screen <= ScreenId::Visualization) == guidelineRoute;
}

}  // namespace

std::vector<std::string> ScreenDisagreements(CMainFrame& frame, const CMorvaneDoc& doc,
                                             WorkProcedure& procedure) {
  std::vector<std::string> told;
  Screen* const screen = frame.ScreenOnDisplay();
  if (!screen) return {"no screen is on display"};
  const std::string bytes = ProjectBytes(doc);
  const bool modified = doc.IsModified();
  const QStringList shown = ScreenPicture(*screen);
  procedure.RefreshActiveScreen();
  AddDifferences(shown, ScreenPicture(*screen), told);
  if (ProjectBytes(doc) != bytes) told.push_back("reading the document again has changed it");
  if (doc.IsModified() != modified) told.push_back("reading the document again has changed its mark");
  return told;
}

std::vector<std::string> FrameDisagreements(CMainFrame& frame, const CMorvaneDoc& doc,
                                            const WorkProcedure& procedure) {
  std::vector<std::string> told;
  const FlowSteps* const steps = frame.Pane()->StepsOnDisplay();
  if (steps->Holds(FlowStep::Field) != doc.guidelineRoute) told.push_back("the pane shows the other route");
  for (int number = 0; number <= static_cast<int>(FlowStep::RespVisualization); ++number) {
    const auto step = static_cast<FlowStep>(number);
    if (!steps->Holds(step) || steps->Button(step)->isEnabled() == IsOpen(doc, step)) continue;
    told.push_back("the step " + QString::fromUtf16(RowOf(step).title).toStdString() +
                   (IsOpen(doc, step) ? " is closed against the document" : " is open against the document"));
  }
  const std::optional<ScreenId> active = procedure.ActiveScreen();
  if (!active) {
    told.push_back("no screen is open");
  } else {
    if (!IsOfRoute(*active, doc.guidelineRoute))
      told.push_back("the open screen is one of the other route: " +
                     std::to_string(static_cast<int>(*active)));
    if (frame.ScreenOf(*active) != frame.ScreenOnDisplay())
      told.push_back("the screen on display is not the open one");
  }
  const QString name =
      doc.PathName().isEmpty() ? QStringLiteral("無題") : QFileInfo(doc.PathName()).fileName();
  const QString title = frame.windowTitle().replace(QStringLiteral("[*][*]"), QStringLiteral("[*]"));
  if (!title.startsWith(name + QStringLiteral(" - ")))
    told.push_back("the caption is " + title.toStdString() + ", the project " + name.toStdString());
  return told;
}

}  // namespace tremlo::test
