#pragma once

#include "chart/chart_control.h"
#include "compare/chart_block.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The line-style values handed to the chart, kept between pages. The array never shrinks, so that a mode that
/// leaves the values unchanged finds those of the previous page.
class CLineStyles {
public:
    /// Sets and returns the first `seriesCount` values. Mode 0: 0 to 6, 9, 10, 11, repeated; mode 1: 0; mode 2: 5;
    /// mode 3: 6. Any other mode leaves the values unchanged. The span is valid until the next call.
    std::span<const std::int32_t> Set(std::int32_t mode, std::int32_t seriesCount);

private:
    std::vector<std::int32_t> m_values;
};

/// Longest text a title property takes, in characters.
inline constexpr std::size_t kLongestChartText = 47;

/// The first `kLongestChartText` characters of a UTF-8 text.
std::string_view CutChartText(std::string_view text);

/// Destroys an old chart and creates a new one over the whole client area of `parent`.
void CreateChart(CChartControl& chart, QWidget* parent, CChartSize clientArea, double noDataValue);

/// Passes the block on: counts, matrices, titles, legend, line styles. `names` has one text per series; a tab in a
/// name becomes a blank, since tabs separate the names. Ends with ResetChart. The chart shares the matrices, which must
/// not change while it does.
void FillChart(CChartControl& chart, const std::shared_ptr<const CChartBlock>& shared,
               std::span<const std::string> names, CLineStyles& lineStyles);

/// Clears what a previous page set and the new one did not.
void ResetChart(CChartControl& chart);

/// All that a page change needs: creates, fills, and draws.
void ShowChart(CChartControl& chart, QWidget* parent, CChartSize clientArea,
               const std::shared_ptr<const CChartBlock>& block, std::span<const std::string> names,
               CLineStyles& lineStyles);

/// Fits an existing chart to the client area's new size.
void ResizeChart(CChartControl& chart, CChartSize clientArea);
