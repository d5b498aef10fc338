#include "core/shell/QuestionPlace.h"

#include <algorithm>

namespace tremlo {

QPoint FirstQuestionPlace(QSize monitor) {
  const int third = monitor.width() / 3;
  // The width counts for the height, too, on purpose.
  return {third * 2 / 2, (monitor.height() / 3 * 3 - third) / 2};
}

QPoint MovedOnto(const QRect& monitor, QPoint place, QSize window) {
  const auto within = [](int value, int first, int room, int length) {
    return std::max(first, std::min(value, first + room - length));
  };
  return {within(place.x(), monitor.x(), monitor.width(), window.width()),
          within(place.y(), monitor.y(), monitor.height(), window.height())};
}

}  // namespace tremlo
