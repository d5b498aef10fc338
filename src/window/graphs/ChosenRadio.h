#pragma once

#include <QRadioButton>
#include <QWidget>

namespace tremlo {

/// Of the radio buttons in one parent makes the chosen one the stop of the tab key. Qt sees to that for a
/// button that has the focus alone: before that the first of them would be the stop, and an arrow key would
/// choose the neighbour of a button that is not chosen.
inline void StopAtChosen(const QRadioButton& chosen) {
  for (QRadioButton* const radio :
       chosen.parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
    radio->setFocusPolicy(radio == &chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

}  // namespace tremlo
