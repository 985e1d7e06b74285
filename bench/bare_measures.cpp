#include "bench/bare_loops.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

namespace bare {
namespace {

/// The first point is judged against this width, whatever the corridor size is.
constexpr double kFirstPointCorridor = 4.0;

/// Two numbers in one register: the computed signal's and the reference's, or two sums of one term.
using Pair = double __attribute__((vector_size(16)));

constexpr Pair Both(double value) {
    return Pair{value, value};
}

/// What is summed in the order of the points. The doubled weight of inner points is left out: doubling every term
/// and the sum's start alike doubles the sum to the last bit, so it is done once, after the pass.
struct CRunning {
    std::array<Pair, 6> moments;
    Pair weightedSquares, squares, crosses, residuals;
};

Pair Larger(Pair a, Pair b) {
    return b > a ? b : a;
}

Pair Smaller(Pair a, Pair b) {
    return b < a ? b : a;
}

Pair Magnitudes(Pair value) {
    return Larger(value, -value);
}

/// The terms of one point, times `weight` where trapezoid weights count.
void Add(CRunning& sums, Pair point, double time, double weight) {
    Pair moment = point * Both(weight);
    double power = 1.0;
    for (std::size_t order = 0; order < sums.moments.size(); ++order) {
        sums.moments[order] += order == 0 ? moment : moment * Both(power);
        power *= time;
    }
    const Pair squares = point * point;
    sums.weightedSquares += squares * Both(weight);
    sums.squares += squares;
    const double cross = point[0] * point[1];
    sums.crosses += Pair{cross * weight, cross};
}

std::array<double, 2> Twice(Pair pair) {
    return {2.0 * pair[0], 2.0 * pair[1]};
}

template <CExtrema extrema>
CSums MeasurePass(std::span<const double> computed, std::span<const double> reference, double timeStep,
                  double corridor) {
    const std::size_t last = computed.size() - 1;
    const Pair firstPoint{computed[0], reference[0]};
    const Pair lastPoint{computed[last], reference[last]};
    const double firstResidual = firstPoint[0] - firstPoint[1];
    CSums sums;
    sums.outside = std::abs(firstResidual) > kFirstPointCorridor ? 1 : 0;

    CRunning running{};
    Add(running, firstPoint, timeStep, 0.5);
    // The ends belong to the weighted sums before the inner points do, to the plain ones in their place.
    CRunning ends = running;
    Add(ends, lastPoint, timeStep * static_cast<double>(last + 1), 0.5);
    running.moments = ends.moments;
    running.weightedSquares = ends.weightedSquares;
    running.crosses[0] = ends.crosses[0];
    running.residuals = Pair{firstResidual, firstResidual * firstResidual};

    Pair peaks = firstPoint;
    Pair largest = Larger(firstPoint, lastPoint);
    Pair least = Smaller(firstPoint, lastPoint);
    for (std::size_t i = 1; i < last; ++i) {
        const Pair point{computed[i], reference[i]};
        Add(running, point, timeStep * static_cast<double>(i + 1), 1.0);
        const double residual = point[0] - point[1];
        running.residuals += Pair{residual, residual * residual};
        peaks = Larger(peaks, Magnitudes(point));
        if constexpr (extrema == CExtrema::Needed) {
            largest = Larger(largest, point);
            least = Smaller(least, point);
        }
        sums.outside += std::abs(residual) > corridor ? 1 : 0;
    }
    running.squares += lastPoint * lastPoint;
    running.crosses[1] += lastPoint[0] * lastPoint[1];

    for (std::size_t order = 0; order < sums.moments.size(); ++order) {
        sums.moments[order] = Twice(running.moments[order]);
    }
    sums.weightedSquares = Twice(running.weightedSquares);
    sums.squares = {running.squares[0], running.squares[1]};
    sums.peaks = {peaks[0], peaks[1]};
    sums.largest = {largest[0], largest[1]};
    sums.least = {least[0], least[1]};
    sums.weightedCross = 2.0 * running.crosses[0];
    sums.cross = running.crosses[1];
    sums.residual = running.residuals[0];
    sums.residualSquares = running.residuals[1];
    return sums;
}

}  // namespace

CSums Measure(std::span<const double> computed, std::span<const double> reference, double timeStep, double corridor,
              CExtrema extrema) {
    return extrema == CExtrema::Needed ? MeasurePass<CExtrema::Needed>(computed, reference, timeStep, corridor)
                                       : MeasurePass<CExtrema::Known>(computed, reference, timeStep, corridor);
}

}  // namespace bare
