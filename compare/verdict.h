#pragma once

/// Verdict on a cell of the summary table.
enum class Verdict { None, Good, Bad };

/// The color (0xRRGGBB) that shows a verdict on the screen.
enum class VerdictColor { White = 0xFFFFFF, Green = 0x00E000, Red = 0xFF0000 };

/// White for no verdict, green for good, red for bad.
constexpr VerdictColor ColorOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::None:
            return VerdictColor::White;
        case Verdict::Good:
            return VerdictColor::Green;
        case Verdict::Bad:
            break;
    }
    return VerdictColor::Red;
}
