#include "chart/testing/sample_blocks.h"

#include "compare/chart_block.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <numbers>
#include <string>

namespace {

constexpr double kPi = std::numbers::pi;

double Pulse(int series, double x) {
    const double end = 0.09 + 0.004 * (series % 7);
    const double height = 30.0 + 1.5 * (series % 11);
    const double body = x > 0.0 && x < end ? -height * std::sin(kPi * x / end) : 0.0;
    return body + 2.0 * std::sin(2.0 * kPi * (300.0 + 13.0 * series) * x) * std::exp(-20.0 * std::abs(x));
}

std::string Name(int series) {
    if (series == 0) return "Reference";
    std::string number = std::to_string(1000 + series);
    std::string name = "v0";
    name += number;
    name += "aa0.001";
    return name;
}

}  // namespace

std::shared_ptr<const CChartBlock> SharedBlock(const CSamplePage& page) {
    return std::make_shared<const CChartBlock>(page.block);
}

CSamplePage SamplePage(std::int32_t seriesCount, std::int32_t pointCount, double xStart, double xEnd,
                       const std::function<double(int, double)>& value) {
    CSamplePage page;
    page.block.seriesCount = seriesCount;
    page.block.pointCount = pointCount;
    const double step = pointCount > 1 ? (xEnd - xStart) / (pointCount - 1) : 0.0;
    for (int series = 0; series < seriesCount; ++series) {
        page.names.push_back(Name(series));
        for (int point = 0; point < pointCount; ++point) {
            const double x = xStart + point * step;
            page.block.x.push_back(x);
            page.block.y.push_back(value(series, x));
        }
    }
    page.block.capacity = static_cast<std::int64_t>(page.block.x.size());
    return page;
}

CSamplePage PulsePage(std::int32_t seriesCount, std::int32_t pointCount) {
    CSamplePage page = SamplePage(seriesCount, pointCount, -0.01, 0.14, Pulse);
    page.block.xTitle = "Time (seconds)";
    page.block.yTitle = "Acceleration (G's)";
    return page;
}

void PadEnd(CChartBlock& block, std::int32_t series, std::int32_t count) {
    for (std::int32_t back = 1; back <= count; ++back) {
        const auto cell = static_cast<std::size_t>((series + 1) * block.pointCount - back);
        block.x[cell] = block.paddingValue;
        block.y[cell] = block.paddingValue;
    }
}
