#pragma once

#include "compare/chart_block.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A block with its legend names, as a chart page provides them.
struct CSamplePage {
    CChartBlock block;
    std::vector<std::string> names;
};

/// A copy of the page's block for a chart to share.
std::shared_ptr<const CChartBlock> SharedBlock(const CSamplePage& page);

/// `seriesCount` series of `pointCount` points: x runs evenly from `xStart` to `xEnd`, y is value(series, x).
CSamplePage SamplePage(std::int32_t seriesCount, std::int32_t pointCount, double xStart, double xEnd,
                       const std::function<double(int, double)>& value);

/// Crash pulses of different height and length with a ripple, in G over 0.15 s; named "Reference", "v01001aa0.001" and
/// so on.
CSamplePage PulsePage(std::int32_t seriesCount, std::int32_t pointCount);

/// Turns the last `count` points of a series into padding, as after the end of a shorter series.
void PadEnd(CChartBlock& block, std::int32_t series, std::int32_t count);
