#include "window/shell/LockKeys.h"

#ifdef TREMLO_HAS_X11
#include <QGuiApplication>

#include <X11/XKBlib.h>
#elif defined(_WIN32)
#include <windows.h>
#endif

namespace tremlo {

#ifdef TREMLO_HAS_X11

namespace {

/// The lamp of the keyboard by its name: its number differs from one keyboard map to another.
bool IsLit(Display* display, const char* lamp) {
  const Atom name = XInternAtom(display, lamp, True);
  int lit = False;
  return name != 0 && XkbGetNamedIndicator(display, name, nullptr, &lit, nullptr, nullptr) == True &&
         lit == True;
}

}  // namespace

std::optional<LockKeys> LockKeysNow() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // Without a screen the interface is there, but no display behind it.
  Display* const display = x11 ? x11->display() : nullptr;
  if (!display) return std::nullopt;
  return LockKeys{.caps = IsLit(display, "Caps Lock"),
                  .num = IsLit(display, "Num Lock"),
                  .scroll = IsLit(display, "Scroll Lock")};
}

#elif defined(_WIN32)

std::optional<LockKeys> LockKeysNow() {
  const auto isOn = [](int key) { return (GetKeyState(key) & 1) != 0; };
  return LockKeys{.caps = isOn(VK_CAPITAL), .num = isOn(VK_NUMLOCK), .scroll = isOn(VK_SCROLL)};
}

#else

std::optional<LockKeys> LockKeysNow() {
  return std::nullopt;
}

#endif

}  // namespace tremlo
