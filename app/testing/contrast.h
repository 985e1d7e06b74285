#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// Relative luminance of a color, 0 to 1, as the Web Content Accessibility Guidelines define it (WCAG 2.1).
inline double Luminance(const QColor& color) {
    const auto linear = [](float share) {
        const auto part = static_cast<double>(share);
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Contrast of two colors, 1 to 21: text needs 4.5, a graphic 3 (WCAG 2.1).
inline double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}
