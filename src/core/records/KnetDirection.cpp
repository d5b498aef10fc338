#include "core/records/KnetDirection.h"

#include <array>

namespace tremlo {

bool IsKikNetDirection(const QString& direction) {
  return direction.size() == 1 && direction[0] >= u'1' && direction[0] <= u'6';
}

QString ComponentOfDirection(const QString& direction) {
  static const std::array<const char*, 6> kikNet = {"NS1", "EW1", "UD1", "NS2", "EW2", "UD2"};
  if (IsKikNetDirection(direction))
    return QString::fromLatin1(kikNet[static_cast<std::size_t>(direction[0].unicode() - u'1')]);
  return QString(direction).remove(u'-');
}

}  // namespace tremlo
