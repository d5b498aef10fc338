#pragma once

#include "random/Controls.h"
#include "random/Diary.h"
#include "random/RandomFiles.h"
#include "random/RandomSource.h"
#include "random/SampleFolder.h"

#include <QEvent>
#include <QPointer>

namespace tremlo {
class CMainFrame;
}

namespace tremlo::test {

class LocalService;

/// One action of a user who does anything: with whatever control stands in front, by pointer, keys,
/// clipboard, accessibility bus or the window itself. Each is told to the diary before it is done.
class RandomHands {
 public:
  RandomHands(RandomSource& random, Diary& diary, SampleFolder& samples, RandomFiles& files,
              LocalService& service);

  /// Null while the program has no window yet.
  void SetFrame(CMainFrame* frame) { m_frame = frame; }

  /// Any action on the frontmost window.
  void Act();
  /// One that comes from behind a dialog: it must be refused.
  void ActBehind();
  /// Closes a dialog as its user would: its default button, any of its buttons, Esc, the close box.
  void Leave(QWidget& dialog);

  void Click(QAbstractButton& button);
  void PressCell(CSpread7& grid, const Cell& cell);
  void Drop(const QString& path);
  void Misbehave(bool honest);

 private:
  using Action = void (RandomHands::*)(QWidget& window);
  struct Choice {
    int weight;
    Action action;
    bool onFrameOnly;
  };
  static const std::vector<Choice>& Choices();

  void ClickSomeButton(QWidget& window);
  void TypeSomewhere(QWidget& window);
  void ChooseInCombo(QWidget& window);
  void WorkGrid(QWidget& window);
  void TickSomeCell(QWidget& window);
  void DragSomewhere(QWidget& window);
  void Wheel(QWidget& window);
  void OpenContextMenu(QWidget& window);
  void PressKey(QWidget& window);
  void UseBus(QWidget& window);
  void FillClipboard(QWidget& window);
  void TriggerEntry(QWidget& window);
  void DropSomeFile(QWidget& window);
  void HandleWindow(QWidget& window);
  void ChangeService(QWidget& window);
  void QueueBatch(QWidget& window);

  void WorkPopup(QWidget& popup);
  void WorkFileDialog(QWidget& dialog);
  void TypeInto(QWidget& target, const QString& text);
  void LeaveField(QWidget& field);
  void UseBusOn(QWidget& control);
  void Mouse(QWidget& target, QEvent::Type type, const QPoint& place, Qt::MouseButtons held);
  QWidget* AnyControl(QWidget& window);
  QPoint AnyPlace(const QWidget& widget);
  QString AnyText();
  QString AnyTable();

  RandomSource& m_random;
  Diary& m_diary;
  SampleFolder& m_samples;
  RandomFiles& m_files;
  LocalService& m_service;
  CMainFrame* m_frame = nullptr;
  QPointer<QWidget> m_dragged;  ///< under a pressed button
};

}  // namespace tremlo::test
