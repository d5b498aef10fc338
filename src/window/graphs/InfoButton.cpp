#include "window/graphs/InfoButton.h"

#include "window/graphs/NamedControl.h"

#include <QStyle>

namespace tremlo {

InfoButton::InfoButton(const char* objectName, const QString& spokenName, const QString& text, Prompt& prompt,
                       CommandGate& gate, QWidget* parent)
    : QToolButton(parent) {
  Named(this, objectName, spokenName);
  setToolTip(spokenName);
  setFocusPolicy(Qt::StrongFocus);
  setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
  connect(this, &QAbstractButton::clicked, this,
          [text, &prompt, &gate] { gate.Run([&] { prompt.Tell(text, PromptIcon::Information); }); });
}

}  // namespace tremlo
