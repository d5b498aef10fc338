#pragma once

#include "window/graphs/ExpEdit.h"
#include "window/graphs/JapaneseFont.h"
#include "window/graphs/Spread7.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>

namespace tremlo::test {

/// Runs what a key or click has left to the event loop.
inline void Settle() {
  for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
}

/// A screen in a window of its own, worked by mouse and keys. Controls are found by their object names.
class ScreenDriver {
 public:
  explicit ScreenDriver(QWidget& screen, QSize size = {840, 640}) : m_screen(screen) {
    InstallJapaneseFonts();
    auto* const layout = new QVBoxLayout(&m_window);
    layout->setContentsMargins({});
    layout->addWidget(&screen);
    m_window.resize(size);
    m_window.show();
    m_window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
  }
  ~ScreenDriver() { m_screen.setParent(nullptr); }
  ScreenDriver(const ScreenDriver&) = delete;
  ScreenDriver& operator=(const ScreenDriver&) = delete;

  template <class Control>
  Control& Find(const char* name) {
    auto* const control = m_screen.findChild<Control*>(QLatin1String(name));
    if (!control) throw std::invalid_argument(std::string("no control ") + name);
    return *control;
  }
  void Press(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    // The box or the patch at its left is what every kind of button takes a click on.
    QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    Settle();
  }
  std::string Text(const char* edit) { return Find<QLineEdit>(edit).text().toStdString(); }
  /// Replaces the text of a field and goes to the next one by the tab key.
  void Enter(const char* edit, const QString& text) {
    Type(edit, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    Settle();
  }
  void Type(const char* edit, const QString& text) {
    auto& field = Find<QLineEdit>(edit);
    QTest::mouseClick(&field, Qt::LeftButton);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
  }

  CSpread7& Grid(const char* name) { return Find<CSpread7>(name); }
  void Click(const char* name, int row, int column, Qt::KeyboardModifiers keys = {}) {
    CSpread7& grid = Grid(name);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, keys,
                      grid.visualRect(grid.model()->index(row - 1, column - 1)).center());
    Settle();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, keys);
    Settle();
  }
  /// Types a number into a cell and leaves it by Enter.
  void EnterCell(const char* name, int row, int column, const char* text) {
    Click(name, row, column);
    QTest::keyClick(&Grid(name), Qt::Key_F2);
    // Beside one that was closed, which the event loop has still to delete.
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, QLatin1String(text));
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
  }
  std::string Cell(const char* name, int row, int column) {
    return Grid(name).GetCellText(row, column).toStdString();
  }

  /// Does something in the dialog that the next command opens.
  static void InDialog(std::function<void(QWidget& dialog)> action) {
    QTimer::singleShot(0, qApp, [action = std::move(action)] {
      QWidget* const dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      action(*dialog);
    });
  }

  QImage Picture() { return m_window.grab().toImage(); }
  /// Whether a pixel of the control has the colour.
  bool Shows(const char* name, QRgb color) {
    const QImage image = Find<QWidget>(name).grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, y) == color) return true;
    return false;
  }

 private:
  QWidget m_window;
  QWidget& m_screen;
};

/// Presses a button of a dialog.
inline void PressIn(QWidget& dialog, const char* name) {
  auto* const button = dialog.findChild<QAbstractButton*>(QLatin1String(name));
  ASSERT_NE(button, nullptr) << name;
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Space);
}

}  // namespace tremlo::test
