#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "window/graphs/CommandGate.h"

#include <QMenu>

namespace tremlo {

class GraphView;

/// What a graph asks of the program around it. All of it outlives the graph.
struct GraphDoors {
  CommandGate& gate;
  FileDialogs& files;
  Prompt& prompt;
};

/// The context menu of a graph, whose commands save its picture or its curves to a file. A file is written
/// whole or not at all, and a failure is told.
class GraphMenu : public QMenu {
  Q_OBJECT
 public:
  GraphMenu(GraphView& graph, const GraphDoors& doors);

 private:
  QAction* AddCommand(const char* name, const QString& text, void (GraphMenu::*act)());
  void Open(const QPoint& globalSpot);
  void SavePicture();
  void SaveCurves();
  void Write(const QString& path, std::string_view content);

  GraphView& m_graph;
  GraphDoors m_doors;
  QAction* m_savePicture;
  QAction* m_saveCurves;
};

}  // namespace tremlo
