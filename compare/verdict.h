#pragma once

/// Verdict on a cell of the summary table.
enum class CVerdict { None, Good, Bad };

/// The color (0xRRGGBB) that shows a verdict on the screen.
enum class CVerdictColor { White = 0xFFFFFF, Green = 0x00E000, Red = 0xFF0000 };

/// White for no verdict, green for good, red for bad.
constexpr CVerdictColor ColorOf(CVerdict verdict) {
    switch (verdict) {
        case CVerdict::None:
            return CVerdictColor::White;
        case CVerdict::Good:
            return CVerdictColor::Green;
        case CVerdict::Bad:
            break;
    }
    return CVerdictColor::Red;
}
