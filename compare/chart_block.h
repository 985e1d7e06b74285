#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

/// Marks an empty cell of the chart block; the chart skips it, the ASCII table writes 0.0.
inline constexpr double kNoDataValue = std::numeric_limits<double>::epsilon();

/// The data of the current chart page. The matrices are series-major: row i of series j is at i + j * pointCount; rows
/// after a series' end hold the padding value in both.
struct CChartBlock {
    std::int32_t pointCount = 0;   ///< rows: points of the longest series
    std::int32_t seriesCount = 0;  ///< columns
    std::int64_t capacity = 0;     ///< doubles held by each matrix; shrinks only when memory runs out
    std::int32_t lineStyleMode = 0;
    double paddingValue = kNoDataValue;
    std::string titleOne, titleTwo;  ///< two further titles, which nothing fills
    std::string xTitle, yTitle;
    std::vector<double> x, y;  ///< empty when nobody needs them; see CQuorvelDoc::SetNeedsMatrices
};
