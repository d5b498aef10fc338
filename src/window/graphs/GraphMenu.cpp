#include "window/graphs/GraphMenu.h"

#include "core/files/WholeFile.h"
#include "core/graphs/GraphCsv.h"
#include "core/project/ProjectFile.h"
#include "window/graphs/GraphPicture.h"
#include "window/graphs/GraphView.h"
#include "window/graphs/PendingEntry.h"
#include "window/graphs/WaitCursor.h"

#include <QApplication>

#include <algorithm>

namespace tremlo {

GraphMenu::GraphMenu(GraphView& graph, const GraphDoors& doors)
    : GraphMenu(graph, &doors.gate, doors.files, doors.prompt) {}

GraphMenu::GraphMenu(GraphView& graph, FileDialogs& files, Prompt& prompt)
    : GraphMenu(graph, nullptr, files, prompt) {}

GraphMenu::GraphMenu(GraphView& graph, CommandGate* gate, FileDialogs& files, Prompt& prompt)
    : QMenu(&graph), m_graph(graph), m_gate(gate), m_files(files), m_prompt(prompt) {
  setObjectName(QStringLiteral("graphMenu"));
  setAccessibleName(QStringLiteral("グラフ"));
  m_savePicture =
      AddCommand("savePictureAction", QStringLiteral("画像をファイルに保存..."), &GraphMenu::SavePicture);
  m_saveCurves =
      AddCommand("saveCurvesAction", QStringLiteral("データをCSVで保存..."), &GraphMenu::SaveCurves);
  connect(&graph, &GraphView::MenuAsked, this,
          [this](const QPoint& globalSpot) { Run([&] { Open(globalSpot); }); });
}

void GraphMenu::Run(const std::function<void()>& command) {
  if (m_gate)
    m_gate->Run(command);
  else if (QApplication::activeModalWidget() == m_graph.window() && FinishPendingEntry())
    command();
}

QAction* GraphMenu::AddCommand(const char* name, const QString& text, void (GraphMenu::*act)()) {
  QAction* const action = addAction(text);
  action->setObjectName(QLatin1String(name));
  connect(action, &QAction::triggered, this, [this, act] { Run([this, act] { (this->*act)(); }); });
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
  const QString path = m_files.AskSavePath(PictureToWrite(graph->Kind(), graph->Series()));
  if (path.isEmpty()) return;
  const std::optional<PictureFormat> format = PictureFormatOf(path);
  if (!format) return m_prompt.Tell(UnknownPictureText(path));
  const WaitCursor waiting;
  Write(path, PictureFile(*format, *graph, m_graph.size(), m_graph.devicePixelRatioF()).toStdString());
}

void GraphMenu::SaveCurves() {
  const std::shared_ptr<CDrawGraph> graph = m_graph.Graph();
  if (!graph) return;
  const QString path = m_files.AskSavePath(CurvesToWrite(graph->Kind(), graph->Series()));
  if (path.isEmpty()) return;
  const WaitCursor waiting;
  Write(path, CurvesCsv(graph->Kind(), graph->Series()));
}

void GraphMenu::Write(const QString& path, std::string_view content) {
  if (!WriteWholeFile(path, content)) m_prompt.Tell(SaveFailureText(path));
}

}  // namespace tremlo
