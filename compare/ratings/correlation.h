#pragma once

#include "compare/ratings/samples.h"

#include <optional>
#include <span>

namespace ratings {

/// What is subtracted from both signals before their products are summed.
enum class CCentering {
    Mean,  ///< each signal's mean: Pearson's correlation
    None,  ///< nothing: the cosine of the angle between the signals
};

/// Whether a correlation is not defined on account of this signal: constant for CCentering::Mean, zero throughout for
/// CCentering::None.
bool IsFlat(std::span<const double> values, CCentering centering);

/// sum x y / sqrt(sum x^2 sum y^2) with x and y as `centering` says, plain sums; from -1 to 1.
/// @param samples  equally many finite values of each
/// @return         no value when either signal is flat or empty
std::optional<double> Correlation(const CSamples& samples, CCentering centering);

}  // namespace ratings
