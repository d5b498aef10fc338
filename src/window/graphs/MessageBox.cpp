#include "window/graphs/MessageBox.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace tremlo {

namespace {

QMessageBox::Icon IconOf(PromptIcon icon) {
  switch (icon) {
    case PromptIcon::Information:
      return QMessageBox::Information;
    case PromptIcon::Warning:
      return QMessageBox::Warning;
    case PromptIcon::Stop:
      return QMessageBox::Critical;
    case PromptIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

void AddAnswer(QMessageBox& box, PromptAnswer answer, const QString& text, const char* name) {
  QPushButton* button = box.addButton(text, QMessageBox::ActionRole);
  button->setObjectName(QLatin1String(name));
  button->setProperty("answer", static_cast<int>(answer));
  if (box.buttons().size() == 1) box.setDefaultButton(button);
  box.setEscapeButton(button);  // the last one added stays
}

void AddAnswers(QMessageBox& box, PromptButtons buttons) {
  if (buttons == PromptButtons::Ok) {
    AddAnswer(box, PromptAnswer::Ok, QStringLiteral("OK"), "ok");
    return;
  }
  AddAnswer(box, PromptAnswer::Yes, QStringLiteral("はい(&Y)"), "yes");
  AddAnswer(box, PromptAnswer::No, QStringLiteral("いいえ(&N)"), "no");
  if (buttons == PromptButtons::YesNoCancel)
    AddAnswer(box, PromptAnswer::Cancel, QStringLiteral("キャンセル"), "cancel");
}

/// The format of the box is that of its first text alone, and so is its width.
void ShowDetails(QMessageBox& box, const QString& details) {
  box.setInformativeText(details);
  for (QLabel* const label : box.findChildren<QLabel*>()) {
    if (label->text() != details) continue;
    label->setTextFormat(Qt::PlainText);
    int widest = 0;
    for (const QString& line : details.split(u'\n'))
      widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
    label->setMinimumWidth(std::min(widest + 1, box.screen()->geometry().width() / 2));
  }
}

}  // namespace

PromptAnswer ShowMessageBox(QWidget* parent, const PromptBox& box) {
  QMessageBox window(parent);
  window.setObjectName(QStringLiteral("prompt"));
  window.setWindowTitle(box.title);
  window.setTextFormat(Qt::PlainText);
  window.setText(box.text);
  if (!box.details.isEmpty()) ShowDetails(window, box.details);
  window.setIcon(IconOf(box.icon));
  AddAnswers(window, box.buttons);
  // Where the program waits with a wait cursor, the box has a pointer to be clicked with.
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  window.exec();
  QApplication::restoreOverrideCursor();
  // None was clicked if the box went because the program ends.
  const QAbstractButton* clicked = window.clickedButton();
  if (!clicked) clicked = window.escapeButton();
  return static_cast<PromptAnswer>(clicked->property("answer").toInt());
}

void ShowWarningBox(QWidget* parent, const QString& title, const QString& text) {
  ShowMessageBox(parent, {.text = text, .title = title});
}

}  // namespace tremlo
