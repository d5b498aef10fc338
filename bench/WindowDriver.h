#pragma once

#include "EventLoopWatch.h"
#include "ProgramFolder.h"
#include "window/shell/MorvaneApp.h"

#include <functional>
#include <string>
#include <vector>

namespace tremlo {

/// What may keep the event loop for long by its nature.
enum class StepKind {
  Plain,
  Spectrum,  ///< the response spectrum that a screen computes when it first paints it, under the wait cursor
  ModalRun,  ///< a run behind its dialog, which leaves the event loop free
};

/// The program with its window on one route, worked by mouse and keys. Every action begins from the
/// event loop, which then runs until all is painted that follows from it.
class WindowDriver {
 public:
  /// Starts the program with a new project. `services`: those of the probes.
  WindowDriver(const ProgramFolder& folder, const ServiceSettings& services,
               TopChoice route = TopChoice::ResponseRoute);

  /// Acts and notes for the step the longest time in which the event loop did not turn. A step of several
  /// actions counts the longest of all.
  void Do(const char* step, const std::function<void()>& act, StepKind kind = StepKind::Plain);
  /// The same for an action that opens a dialog: `inDialog` acts on it once it is painted, then Esc closes
  /// it.
  void DoWithDialog(const char* step, const std::function<void()>& open,
                    const std::function<void(QWidget*)>& inDialog);
  /// What is noted from here on belongs to the next round.
  void BeginRound() { ++m_round; }
  /// Prints the steps as a Markdown table.
  void Print() const;

  CMainFrame& Frame() { return *m_app.Frame(); }
  CMorvaneDoc& Doc() { return m_app.Document(); }
  WorkProcedure& Procedure() { return m_app.Procedure(); }
  /// A control of the screen on display by its object name.
  template <class Control>
  Control& Find(const char* name) {
    auto* const control = Frame().ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    if (!control) qFatal("no control %s", name);
    return *control;
  }

  void Click(QWidget& control);
  void PressButton(const char* name);
  void PressStep(FlowStep step);
  /// A key to where the focus is.
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void MovePointer(QWidget& over, QPoint position);
  void Wheel(QWidget& over, int steps);

  QString nextFile;  ///< the answer of the next file dialog

 private:
  class Answers : public Prompt {
   public:
    PromptAnswer Show(const PromptBox& box) override;
  };
  class Files : public FileDialogs {
   public:
    explicit Files(const QString& next) : m_next(next) {}
    QString AskOpenPath(const FileQuestion&) override { return m_next; }
    QString AskSavePath(const FileQuestion&) override { return m_next; }

   private:
    const QString& m_next;
  };
  struct Row {
    std::string step;
    StepKind kind;
    std::vector<double> longest;  ///< ms, by round
  };

  Row& RowOf(const char* step, StepKind kind);

  Answers m_answers;
  Files m_files{nextFile};
  CMorvaneApp m_app;
  EventLoopWatch m_watch;
  std::vector<Row> m_rows;
  std::size_t m_round = 0;
};

}  // namespace tremlo
