#pragma once

#include <optional>

namespace tremlo {

/// Which of the keys that lock are on.
struct LockKeys {
  bool caps = false;
  bool num = false;
  bool scroll = false;

  bool operator==(const LockKeys&) const = default;
};

/// Asks the window system. Empty where it does not tell: Qt has no question for it, so this is known on X11
/// and Windows alone. Needs the application object.
std::optional<LockKeys> LockKeysNow();

}  // namespace tremlo
