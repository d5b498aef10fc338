#pragma once

#include "core/ask/FileDialogs.h"
#include "core/ask/Prompt.h"
#include "window/graphs/CommandGate.h"

#include <QMenu>

#include <functional>

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
  /// Of a graph in a dialog, which no command of the program gets in front of. Files and prompt outlive it.
  GraphMenu(GraphView& graph, FileDialogs& files, Prompt& prompt);

 private:
  GraphMenu(GraphView& graph, CommandGate* gate, FileDialogs& files, Prompt& prompt);
  /// Behind a dialog nothing runs.
  void Run(const std::function<void()>& command);
  QAction* AddCommand(const char* name, const QString& text, void (GraphMenu::*act)());
  void Open(const QPoint& globalSpot);
  void SavePicture();
  void SaveCurves();
  void Write(const QString& path, std::string_view content);

  GraphView& m_graph;
  CommandGate* m_gate;  ///< null in a dialog
  FileDialogs& m_files;
  Prompt& m_prompt;
  QAction* m_savePicture;
  QAction* m_saveCurves;
};

}  // namespace tremlo
