#include "app/keyboard_indicators.h"

#include <QGuiApplication>
#include <X11/extensions/XKB.h>

#include <optional>

#if defined(_WIN32)

#include <windows.h>

std::optional<CKeyboardIndicators> ReadKeyboardIndicators() {
    const auto isOn = [](int key) { return (GetKeyState(key) & 1) != 0; };
    return CKeyboardIndicators{isOn(VK_CAPITAL), isOn(VK_NUMLOCK), isOn(VK_SCROLL)};
}

#elif defined(QUORVEL_X11)

// After Qt's headers: its macros redefine names that Qt uses.
#include <X11/XKBlib.h>

namespace {

// Bits of the core keyboard's indicator map in the order in which servers name them.
constexpr unsigned kCapsLockBit = 1U;
constexpr unsigned kNumLockBit = 2U;
constexpr unsigned kScrollLockBit = 4U;

}  // namespace

std::optional<CKeyboardIndicators> ReadKeyboardIndicators() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Without a screen the interface may exist without a server.
    if (x11 == nullptr || x11->display() == nullptr) return std::nullopt;
    unsigned state = 0;
    if (XkbGetIndicatorState(x11->display(), XkbUseCoreKbd, &state) != 0) return std::nullopt;
    return CKeyboardIndicators{(state & kCapsLockBit) != 0, (state & kNumLockBit) != 0, (state & kScrollLockBit) != 0};
}

#else

std::optional<CKeyboardIndicators> ReadKeyboardIndicators() {
    return std::nullopt;
}

#endif
