#include "window/waves/NoteLabel.h"

namespace tremlo {

NoteLabel::NoteLabel(const char* objectName, const QString& spokenName, QWidget* parent)
    : QLabel(parent), m_spokenName(spokenName) {
  setObjectName(QLatin1String(objectName));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  hide();
}

void NoteLabel::Tell(const QString& text) {
  setText(text);
  setAccessibleName(m_spokenName + u' ' + text);  // it is read out in place of the text
  setVisible(!text.isEmpty());
  FitHeight();
}

void NoteLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  FitHeight();
}

void NoteLabel::FitHeight() {
  setMinimumHeight(0);  // it would count as needed
  if (!text().isEmpty()) setFixedHeight(heightForWidth(width()));
}

}  // namespace tremlo
