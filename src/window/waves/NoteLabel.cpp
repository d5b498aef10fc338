#include "window/waves/NoteLabel.h"

#include <QStringList>

namespace tremlo {

NoteLabel::NoteLabel(const char* objectName, QString spokenName, QWidget* parent)
    : QLabel(parent), m_spokenName(std::move(spokenName)) {
  setObjectName(QLatin1String(objectName));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  hide();
}

void NoteLabel::Tell(const QString& text) {
  m_told = text;
  setText(text);
  setAccessibleName(m_spokenName + u' ' + text);  // it is read out in place of the text
  setVisible(!text.isEmpty());
  FitHeight();
}

void NoteLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  FitHeight();
}

bool NoteLabel::Fits(const QString& text) {
  setText(text);
  return heightForWidth(width()) <= m_mostLines * fontMetrics().lineSpacing() + 2 * margin();
}

void NoteLabel::FitHeight() {
  setMinimumHeight(0);  // it would count as needed
  if (m_told.isEmpty()) return;
  const bool cut = m_mostLines > 0 && !Fits(m_told);
  if (cut) {
    const auto shortened = [this](qsizetype length) { return m_told.left(length) + u'…'; };
    qsizetype fits = 0;
    qsizetype tooLong = m_told.size();
    while (tooLong - fits > 1) {
      const qsizetype middle = (fits + tooLong) / 2;
      (Fits(shortened(middle)) ? fits : tooLong) = middle;
    }
    setText(shortened(fits));
  }
  QStringList tips;
  if (cut) tips << m_told;
  if (!m_definitions.isEmpty()) tips << m_definitions;
  setToolTip(tips.join(QStringLiteral("\n\n")));
  setFixedHeight(heightForWidth(width()));
}

}  // namespace tremlo
