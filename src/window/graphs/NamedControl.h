#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QSignalBlocker>
#include <QString>

#include <vector>

namespace tremlo {

/// A control with the name by which programs find it and the name that a screen reader says.
template <class Control>
Control* Named(Control* control, const char* objectName, const QString& accessibleName) {
  control->setObjectName(QLatin1String(objectName));
  control->setAccessibleName(accessibleName);
  return control;
}

/// A button that is called what stands on it.
template <class Button>
Button* NamedButton(const char* objectName, const QString& text, QWidget* parent) {
  auto* const button = new Button(parent);
  button->setText(text);
  return Named(button, objectName, text);
}

/// Shows a state that the program has, as opposed to one that the user chooses: `toggled` is not emitted.
///
/// What a check box does is connected to `toggled`, since the action that the accessibility bus offers on it
/// toggles it without a click.
inline void ShowChecked(QAbstractButton& button, bool checked) {
  const QSignalBlocker quiet(button);
  button.setChecked(checked);
}

/// A label before its field, which bears its text as accessible name.
inline QLabel* LabelFor(QWidget* field, const QString& text) {
  auto* const label = new QLabel(text, field->parentWidget());
  label->setBuddy(field);
  field->setAccessibleName(text);
  return label;
}

/// The controls of a screen in the order of the tab key, the first of them the screen's first.
inline void SetTabOrder(QWidget& screen, const std::vector<QWidget*>& controls) {
  // Qt puts nothing behind a widget that takes no focus, and in the ring of the chain the last control
  // already stands before the first one.
  const Qt::FocusPolicy policy = screen.focusPolicy();
  screen.setFocusPolicy(Qt::TabFocus);
  QWidget* before = &screen;
  for (QWidget* const control : controls) {
    QWidget::setTabOrder(before, control);
    before = control;
  }
  screen.setFocusPolicy(policy);
}

}  // namespace tremlo
