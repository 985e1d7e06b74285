#pragma once

#include <QColor>

/// A color for texts that should not catch the eye, between that of a text and that of its ground. Not the palette's
/// own for placeholders: some dark desktops leave that one black.
inline QColor QuietColor(const QColor& text, const QColor& ground) {
    constexpr int kTextShare = 65;  // percent; black on white then has a contrast of 7
    const auto mixed = [](int a, int b) { return (kTextShare * a + (100 - kTextShare) * b) / 100; };
    return {mixed(text.red(), ground.red()), mixed(text.green(), ground.green()), mixed(text.blue(), ground.blue())};
}
