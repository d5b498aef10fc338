#pragma once

#include <QPoint>
#include <QRect>

namespace tremlo {

/// Where the first question's dialog appears on a monitor of that size in pixels, from the monitor's upper
/// left corner. On a wide monitor it lies above it.
QPoint FirstQuestionPlace(QSize monitor);

/// The place nearest to `place` at which a window of that size lies within the monitor; one that is too large
/// for it stands in its upper left corner.
QPoint MovedOnto(const QRect& monitor, QPoint place, QSize window);

}  // namespace tremlo
