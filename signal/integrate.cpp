#include "signal/integrate.h"

#include "signal/column.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

std::size_t TimeZeroIndex(std::int32_t firstPoint, std::size_t length) {
    if (firstPoint >= 1) return 0;
    return std::min(static_cast<std::size_t>(-std::int64_t{firstPoint}), length - 1);
}

CColumn CumulativeIntegral(const CColumn& x, std::span<const double> y, std::size_t anchor, double factor,
                           double initialValue) {
    CColumn integral = CColumn::WithRoom(y.size());
    VisitAxis(x, [&, values = integral.Mutable()](const auto& axis) {
        double sum = initialValue;
        values[anchor] = sum;
        for (std::size_t i = anchor + 1; i < y.size(); ++i) {
            sum = sum + 0.5 * factor * (axis[i] - axis[i - 1]) * (y[i - 1] + y[i]);
            values[i] = sum;
        }
        sum = initialValue;
        for (std::size_t i = anchor; i-- > 0;) {
            sum = sum - 0.5 * factor * (axis[i + 1] - axis[i]) * (y[i] + y[i + 1]);
            values[i] = sum;
        }
    });
    return integral;
}

}  // namespace ks
