#include "window/graphs/InfoButton.h"

#include "window/graphs/NamedControl.h"

#include <QStyle>

namespace tremlo {

InfoButton::InfoButton(const char* objectName, const QString& spokenName, QWidget* parent)
    : QToolButton(parent) {
  Named(this, objectName, spokenName);
  setToolTip(spokenName);
  setFocusPolicy(Qt::StrongFocus);
  setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
}

InfoButton::InfoButton(const char* objectName, const QString& spokenName, const QString& text, Prompt& prompt,
                       QWidget* parent)
    : InfoButton(objectName, spokenName, parent) {
  connect(this, &QAbstractButton::clicked, this,
          [text, &prompt] { prompt.Tell(text, PromptIcon::Information); });
}

InfoButton::InfoButton(const char* objectName, const QString& spokenName, const QString& text, Prompt& prompt,
                       CommandGate& gate, QWidget* parent)
    : InfoButton(objectName, spokenName, parent) {
  connect(this, &QAbstractButton::clicked, this,
          [text, &prompt, &gate] { gate.Run([&] { prompt.Tell(text, PromptIcon::Information); }); });
}

}  // namespace tremlo
