#pragma once

#include <QScreen>
#include <QSize>
#include <QWidget>

/// The size at which `window` should open: `wanted` as far as its screen has room for it, frame and title bar included.
/// A window that was not shown yet opens on the screen of its parent.
inline QSize WithinScreen(const QSize& wanted, const QWidget& window) {
    constexpr QSize kAroundWindow(40, 60);  // frame and title bar
    const QWidget* const opener = window.isVisible() ? nullptr : window.parentWidget();
    const QScreen* const screen = (opener != nullptr ? *opener : window).screen();
    return wanted.boundedTo(screen->availableSize() - kAroundWindow);
}
