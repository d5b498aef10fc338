#pragma once

#include <QLabel>
#include <QString>

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

/// A label before its field, which bears its text as accessible name.
inline QLabel* LabelFor(QWidget* field, const QString& text) {
  auto* const label = new QLabel(text, field->parentWidget());
  label->setBuddy(field);
  field->setAccessibleName(text);
  return label;
}

}  // namespace tremlo
