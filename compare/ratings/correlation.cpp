#include "compare/ratings/correlation.h"

#include "compare/plots/covariance.h"
#include "compare/ratings/samples.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace ratings {
namespace {

std::vector<double> Prepared(std::span<const double> values, CCentering centering) {
    return centering == CCentering::Mean ? Center(values).values : Scale(values).values;
}

}  // namespace

bool IsFlat(std::span<const double> values, CCentering centering) {
    return IsConstant(values) && (centering == CCentering::Mean || values.empty() || values.front() == 0.0);
}

std::optional<double> Correlation(const CSamples& samples, CCentering centering) {
    if (IsFlat(samples.reference, centering) || IsFlat(samples.computed, centering)) return {};
    const std::vector<double> x = Prepared(samples.reference, centering);
    const std::vector<double> y = Prepared(samples.computed, centering);
    double xx = 0.0, yy = 0.0, xy = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        xx += x[i] * x[i];
        yy += y[i] * y[i];
        xy += x[i] * y[i];
    }
    return std::clamp(xy / (std::sqrt(xx) * std::sqrt(yy)), -1.0, 1.0);
}

}  // namespace ratings
