#pragma once

#include "support/DocumentState.h"
#include "support/ProcedureParts.h"
#include "support/ScreenDriver.h"
#include "support/ScriptedFiles.h"
#include "support/TarBytes.h"
#include "support/TestFolder.h"
#include "window/waves/DlgImportRecord.h"
#include "window/waves/FrmOrigSeismicWave.h"
#include "window/waves/FrmRespOrigSeismicWave.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

namespace tremlo::test {

inline QString RecordPath(const QString& fixture) {
  return SourcePath(QStringLiteral("tests/data/records/") + fixture);
}

/// Does something in a dialog of that name once it is up, be it behind another one that comes before it.
class WhenDialog : public QObject {
 public:
  static void Opens(const char* name, std::function<void(QWidget& dialog)> action) {
    new WhenDialog(QLatin1String(name), std::move(action));
  }

 private:
  WhenDialog(const QString& name, std::function<void(QWidget&)> action)
      : QObject(qApp), m_name(name), m_action(std::move(action)) {
    m_since.start();
    startTimer(5);
  }
  void timerEvent(QTimerEvent* event) override {
    QWidget* const dialog = QApplication::activeModalWidget();
    const QWidget* const focus = QApplication::focusWidget();
    const bool ready = dialog && dialog->isActiveWindow() && focus && dialog->isAncestorOf(focus);
    if (ready && dialog->objectName() == m_name) {
      killTimer(event->timerId());
      const QPointer<QWidget> left(dialog);
      m_action(*dialog);
      if (left && left->isVisible()) {
        ADD_FAILURE() << m_name.toStdString() << " was left open";
        left->close();
      }
      deleteLater();
    } else if (m_since.hasExpired(20000)) {
      ADD_FAILURE() << "no dialog " << m_name.toStdString();
      killTimer(event->timerId());
      if (dialog) dialog->close();
      deleteLater();
    }
  }

  QString m_name;
  std::function<void(QWidget&)> m_action;
  QElapsedTimer m_since;
};

/// What the tests of reading records on the guideline route share.
class RecordImportScreen : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }

  RecordImportScreen() {
    screen.Entered();
    doc.SetModified(false);
  }

  void Read(const QString& path, int filter = 0) {
    files.Choose(path, filter);
    driver.Press("readButton");
  }
  void ReadFixture(const char* fixture, int filter = 0) {
    Read(RecordPath(QString::fromLatin1(fixture)), filter);
  }
  CSeismicWave& Wave(std::size_t index = 0) { return doc.seedWaves.At(index); }
  /// The line below the graph; empty while there is none.
  QString Line() {
    auto& label = driver.Find<QLabel>("recordNote");
    return label.isVisible() ? label.text() : QString();
  }

  ProcedureParts parts;
  CMorvaneDoc& doc = parts.doc;
  ScriptedPrompt& prompt = parts.prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmOrigSeismicWave screen{doc, prompt, files, parts.rules, gate};
  ScreenDriver driver{screen};
  TestFolder folder;
};

template <class Control>
Control& In(QWidget& dialog, const char* name) {
  auto* const control = dialog.findChild<Control*>(QLatin1String(name));
  if (!control) throw std::invalid_argument(std::string("no control ") + name);
  return *control;
}

/// The key goes to whatever has the focus.
inline void PressKey(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
  QTest::keyClick(QApplication::focusWidget(), key, keys);
  Settle();
}
inline void TypeText(const QString& text) {
  QTest::keyClicks(QApplication::focusWidget(), text);
  Settle();
}
/// Walks by the tab key to a control of the dialog; fails where it is not reached.
inline void TabTo(QWidget& dialog, const char* name) {
  for (int i = 0; i < 40; ++i) {
    const QWidget* const focus = QApplication::focusWidget();
    if (focus && focus->objectName() == QLatin1String(name)) return;
    PressKey(Qt::Key_Tab);
  }
  ADD_FAILURE() << "the tab key does not reach " << name << " of " << dialog.objectName().toStdString();
}

}  // namespace tremlo::test
