#include "window/waves/FitLabel.h"

namespace tremlo {

FitLabel::FitLabel(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("fitLabel"));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  hide();
}

void FitLabel::Tell(const QString& figures) {
  setText(figures);
  setAccessibleName(QStringLiteral("適合度 ") + figures);  // it is read out in place of the text
  setVisible(!figures.isEmpty());
}

}  // namespace tremlo
