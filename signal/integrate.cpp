#include "signal/integrate.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ks {

std::size_t TimeZeroIndex(std::int32_t firstPoint, std::size_t length) {
    if (firstPoint >= 1) return 0;
    return std::min(static_cast<std::size_t>(-std::int64_t{firstPoint}), length - 1);
}

std::vector<double> CumulativeIntegral(std::span<const double> x, std::span<const double> y, std::size_t anchor,
                                       double factor, double initialValue) {
    std::vector<double> integral(y.size());
    integral[anchor] = initialValue;
    for (std::size_t i = anchor + 1; i < y.size(); ++i) {
        integral[i] = integral[i - 1] + 0.5 * factor * (x[i] - x[i - 1]) * (y[i - 1] + y[i]);
    }
    for (std::size_t i = anchor; i-- > 0;) {
        integral[i] = integral[i + 1] - 0.5 * factor * (x[i + 1] - x[i]) * (y[i] + y[i + 1]);
    }
    return integral;
}

}  // namespace ks
