#include "window/graphs/GraphMenu.h"

#include "core/files/WholeFile.h"
#include "core/graphs/GraphCsv.h"
#include "core/project/ProjectFile.h"
#include "window/graphs/GraphPicture.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/WaitCursor.h"

#include <algorithm>

namespace tremlo {

GraphMenu::GraphMenu(GraphView& graph, const GraphDoors& doors)
    : QMenu(&graph), m_graph(graph), m_doors(doors) {
  setObjectName(QStringLiteral("graphMenu"));
  setAccessibleName(QStringLiteral("グラフ"));
  m_savePicture =
      AddCommand("savePictureAction", QStringLiteral("画像をファイルに保存..."), &GraphMenu::SavePicture);
  m_saveCurves =
      AddCommand("saveCurvesAction", QStringLiteral("データをCSVで保存..."), &GraphMenu::SaveCurves);
  connect(&graph, &GraphView::MenuAsked, this, [this](const QPoint& globalSpot) {
    // Behind a dialog no menu comes up.
    m_doors.gate.Run([&] { Open(globalSpot); });
  });
}

QAction* GraphMenu::AddCommand(const char* name, const QString& text, void (GraphMenu::*act)()) {
  QAction* const action = addAction(text);
  action->setObjectName(QLatin1String(name));
  connect(action, &QAction::triggered, this,
          [this, act] { m_doors.gate.Run([this, act] { (this->*act)(); }); });
  return action;
}

void GraphMenu::Open(const QPoint& globalSpot) {
  const std::shared_ptr<CDrawGraph> graph = m_graph.Graph();
  m_savePicture->setEnabled(graph != nullptr);
  m_saveCurves->setEnabled(graph && std::any_of(graph->Series().begin(), graph->Series().end(), IsLine));
  popup(globalSpot);
}

void GraphMenu::SavePicture() {
  const std::shared_ptr<CDrawGraph> graph = m_graph.Graph();
  if (!graph) return;
  const QString path = m_doors.files.AskSavePath(PictureToWrite(graph->Kind(), graph->Series()));
  if (path.isEmpty()) return;
  const std::optional<PictureFormat> format = PictureFormatOf(path);
  if (!format) return m_doors.prompt.Tell(UnknownPictureText(path));
  const WaitCursor waiting;
  Write(path, PictureFile(*format, *graph, m_graph.size(), m_graph.devicePixelRatioF()).toStdString());
}

void GraphMenu::SaveCurves() {
  const std::shared_ptr<CDrawGraph> graph = m_graph.Graph();
  if (!graph) return;
  const QString path = m_doors.files.AskSavePath(CurvesToWrite(graph->Kind(), graph->Series()));
  if (path.isEmpty()) return;
  const WaitCursor waiting;
  Write(path, CurvesCsv(graph->Kind(), graph->Series()));
}

void GraphMenu::Write(const QString& path, std::string_view content) {
  if (!WriteWholeFile(path, content)) m_doors.prompt.Tell(SaveFailureText(path));
}

}  // namespace tremlo
