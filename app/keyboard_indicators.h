#pragma once

#include <optional>

/// Which of the keyboard's locks are on.
struct CKeyboardIndicators {
    bool isCapsLockOn = false;
    bool isNumLockOn = false;
    bool isScrollLockOn = false;
};

/// The locks as the platform reports them, on Windows and under X11; no value elsewhere.
std::optional<CKeyboardIndicators> ReadKeyboardIndicators();
