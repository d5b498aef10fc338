#pragma once

#include "ProgramFolder.h"
#include "StepTable.h"
#include "window/shell/MorvaneApp.h"

#include <functional>

namespace tremlo {

/// The program with its window on one route, worked by mouse and keys. What is done is noted in a table of
/// steps.
class WindowDriver {
 public:
  /// Starts the program with a new project. `services`: those of the probes.
  WindowDriver(const ProgramFolder& folder, const ServiceSettings& services,
               TopChoice route = TopChoice::ResponseRoute);

  void Do(const char* step, const std::function<void()>& act, StepKind kind = StepKind::Plain);
  /// The same for an action that opens a dialog: `inDialog` acts on it once it is painted, then Esc closes
  /// it.
  void DoWithDialog(const char* step, const std::function<void()>& open,
                    const std::function<void(QWidget*)>& inDialog);
  void BeginRound() { m_steps.BeginRound(); }
  void Print() const { m_steps.Print(); }

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
  Answers m_answers;
  Files m_files{nextFile};
  CMorvaneApp m_app;
  StepTable m_steps;
};

}  // namespace tremlo
