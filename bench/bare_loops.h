#pragma once

#include "bench/bare_column.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// Only the unavoidable work of each work item: no check for damaged files, no header, no record.
// They share no code with the product. The order of the arithmetic is the settled one.

namespace bare {

/// A regular axis as files with ordinates only mean it: the products are formed in single precision.
struct CAxis {
    std::int32_t first = 0;
    float timeStep = 0.0F;

    [[nodiscard]] double At(std::size_t i) const {
        return static_cast<double>(static_cast<float>(first + static_cast<std::int64_t>(i)) * timeStep);
    }
};

/// A curve. In files with ordinates only, `x` is empty; the axis gives all abscissas.
struct CCurve {
    CBareColumn x;
    CBareColumn y;
    CAxis axis;
};

/// Decodes a UDS-1992 file without a second component.
/// @throws std::runtime_error when the file cannot be read
CCurve DecodeUds(const std::string& path);
/// The same into a curve whose columns are reused when they are long enough.
void DecodeUds(const std::string& path, CCurve& curve);

/// Parses lines of two numbers, one character between them, with fast_float.
/// @throws std::runtime_error when the file cannot be read
CCurve ParseLines(const std::string& path);

/// Both passes of the channel filter, in place, without the tails.
void Filter(std::span<double> data, double timeStep, double frequency);

/// Straight lines between neighbors at the multiples of `timeStep` from the first sample to the last one.
CBareColumn Interpolate(const CAxis& axis, std::span<const double> y, double timeStep);

/// The trapezoid rule from the first sample on, in place.
void Integrate(const CAxis& axis, std::span<double> y);

/// The sums that all measures are made of; arrays of two hold the computed and the reference signal's.
struct CSums {
    std::array<std::array<double, 2>, 6> moments{};
    std::array<double, 2> weightedSquares{}, squares{}, peaks{}, largest{}, least{};
    double weightedCross = 0.0, cross = 0.0, residual = 0.0, residualSquares = 0.0;
    std::int64_t outside = 0;
};

enum class CExtrema { Known, Needed };

/// One pass over both; `computed` and `reference` are equally long, at least two values.
CSums Measure(std::span<const double> computed, std::span<const double> reference, double timeStep, double corridor,
              CExtrema extrema);

}  // namespace bare
