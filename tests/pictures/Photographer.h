#pragma once

#include "support/LocalService.h"
#include "window/shell/MorvaneApp.h"

#include <QAbstractButton>
#include <QDir>

#include <functional>
#include <memory>

namespace tremlo::pictures {

/// The program with its window, worked as a user works it, whose screens and dialogs are kept as pictures:
/// one PNG each, in the folder given.
class Photographer {
 public:
  /// `service` answers for the public services. Pictures go to `folder`, which is there.
  Photographer(const QString& folder, const test::LocalService& service, TopChoice route);
  ~Photographer();

  CMainFrame& Frame() { return *m_app->Frame(); }
  CMorvaneDoc& Doc() { return m_app->Document(); }
  static QString ProgramFolder();

  /// A control of the screen on display by its object name.
  template <class Control>
  Control& Find(const char* name) {
    auto* const control = Frame().ScreenOnDisplay()->findChild<Control*>(QLatin1String(name));
    if (!control) qFatal("no control %s", name);
    return *control;
  }
  void Press(const char* button);
  void PressStep(FlowStep step);
  /// Rows and columns from 1.
  void ClickCell(const char* grid, int row, int column);
  void TypeCell(const char* grid, int row, int column, const QString& text);
  /// Turns the wheel over the middle of the map of the screen on display and waits for its tiles.
  void ZoomMap(int turns);

  /// The whole window.
  void TakeFrame(const char* picture);
  void Take(const char* picture, QWidget& widget);
  /// The column of steps, no farther down than its last button.
  void TakeSteps(const char* picture);
  /// Does something that puts up the dialog or box of that object name, takes it, and lets `then` go on; a
  /// dialog that stands yet is cancelled.
  void TakeDialog(const char* picture, const char* dialog, const std::function<void()>& open,
                  const std::function<void(QWidget&)>& then = {});
  /// Answers the dialogs that `act` puts up, in their order, by pressing a button of each.
  struct Reply {
    const char* picture;  ///< of the dialog; null: none
    const char* button;
    const char* behind = nullptr;  ///< of the window behind it
  };
  void AnswerDialogs(const std::vector<Reply>& replies, const std::function<void()>& act);

  QString nextFile;               ///< the answer of the next file dialog
  const char* nextBox = nullptr;  ///< the name under which the next message box is kept

 private:
  class Answers : public Prompt {
   public:
    explicit Answers(Photographer& owner) : m_owner(owner) {}
    PromptAnswer Show(const PromptBox& box) override;

   private:
    Photographer& m_owner;
  };
  class Files : public FileDialogs {
   public:
    explicit Files(const QString& next) : m_next(next) {}
    QString AskOpenPath(const FileQuestion&) override { return m_next; }
    /// Under "all files", so that a file is read as what it is.
    FileChoice AskOpenFile(const FileQuestion&) override { return {m_next, 1}; }
    QString AskSavePath(const FileQuestion&) override { return m_next; }

   private:
    const QString& m_next;
  };

  void AwaitMap();
  void OnDialog(const QByteArray& name, std::function<void(QWidget&)> act);
  void Keep(const char* picture, const QPixmap& pixmap);

  QDir m_folder;
  MessageBoxPrompt m_boxes;
  Answers m_answers{*this};
  Files m_files{nextFile};
  std::unique_ptr<CMorvaneApp> m_app;
};

/// Lets the event loop do what is due.
void Settle();

/// Draws a dialog that the program would show for a moment only.
void TakeStanding(Photographer& camera, const char* picture, QWidget& dialog);

}  // namespace tremlo::pictures
