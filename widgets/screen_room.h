#pragma once

#include <QScreen>
#include <QSize>
#include <QWidget>

/// The size at which `window` should open: `wanted`, limited to the room on its screen, less frame and title bar.
/// A window that has not been shown yet opens on the screen of its parent.
inline QSize WithinScreen(const QSize& wanted, const QWidget& window) {
    constexpr QSize kAroundWindow(40, 60);  // frame and title bar
    const QWidget* const opener = window.isVisible() ? nullptr : window.parentWidget();
    const QScreen* const screen = (opener != nullptr ? *opener : window).screen();
    return wanted.boundedTo(screen->availableSize() - kAroundWindow);
}
