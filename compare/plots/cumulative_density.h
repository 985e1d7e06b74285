#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// Number of points of every cumulative density curve.
inline constexpr std::size_t kDensityPointCount = 100;

/// A cumulative density: x[k] is a residual, y[k] the percentage of samples whose residual is smaller. Both hold
/// kDensityPointCount values; points after the curve's end hold kNoDataValue in both.
struct CCumulativeDensity {
    std::vector<double> x;
    std::vector<double> y;
};

/// The residuals at which the density is taken: from -2 sigma on in steps of sigma * 4 / 99, each the one before plus
/// the step, while below 2 sigma; at most kDensityPointCount. None when sigma is 0 or not a number. They never fall;
/// they stay equal where the step is lost in rounding.
std::vector<double> DensityThresholds(double sigma);

/// The share of residuals computed[i] - reference[i] below each threshold, in percent, i running over the shorter of
/// both. A residual that is not a number is below no threshold; it counts in the divisor. Without samples the
/// percentages are not-a-number.
///
/// One pass over the samples, each looked up among the thresholds by bisection.
CCumulativeDensity CumulativeDensity(std::span<const double> computed, std::span<const double> reference, double sigma);
