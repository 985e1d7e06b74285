#include "bench/bare_column.h"
#include "bench/bare_loops.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace bare {

CBareColumn Interpolate(const CAxis& axis, std::span<const double> y, double timeStep) {
    const auto first = static_cast<std::int64_t>(axis.At(0) / timeStep + 0.01);
    const auto last = static_cast<std::int64_t>(axis.At(y.size() - 1) / timeStep + 0.01);
    CBareColumn column(static_cast<std::size_t>(last - first + 1));
    std::size_t high = 1;
    double xLow = axis.At(0);
    double xHigh = axis.At(1);
    std::int64_t number = first;
    for (double& value : column.Values()) {
        const double t = static_cast<double>(number++) * timeStep;
        while (high + 1 < y.size() && t > xHigh) {
            xLow = xHigh;
            xHigh = axis.At(++high);
        }
        value = y[high - 1] + (t - xLow) / (xHigh - xLow) * (y[high] - y[high - 1]);
    }
    return column;
}

}  // namespace bare
