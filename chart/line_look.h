#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// How one curve is drawn.
struct CLineLook {
    std::uint32_t rgb = 0;           ///< 0xRRGGBB
    double width = 0.0;              ///< pixels
    std::span<const double> dashes;  ///< lengths of line and blank in turn, in units of `width`; none when solid
};

enum class CChartBackground { Light, Dark };

/// The look of the series at `index` with a chart line style. The ten styles 0 to 6 and 9 to 11 differ in pattern or
/// width; any other is drawn as 0. The color follows the index through seven colors, so that the first seventy
/// curves of a page all look different, those of one style still differ, and no pair is told apart by color alone.
CLineLook LookOfLine(std::int32_t lineStyle, std::size_t index, CChartBackground background);
