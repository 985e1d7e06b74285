#include "compare/comparison.h"

#include "compare/sampling.h"
#include "signal/nsignal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>

namespace {

/// The first point is judged against this width whatever the corridor size is. Kept: older results depend on it.
constexpr double kFirstPointCorridor = 4.0;

/// What every point adds to the weighted sums: its moments of order 0 to 5 and its products.
struct CTerms {
    std::array<double, 6> computedMoments;
    std::array<double, 6> referenceMoments;
    double cross;
    double computedSquare;
    double referenceSquare;
};

CTerms TermsAt(double time, double computed, double reference) {
    CTerms terms;
    double power = 1.0;
    for (std::size_t order = 0; order < terms.computedMoments.size(); ++order) {
        terms.computedMoments[order] = power * computed;
        terms.referenceMoments[order] = power * reference;
        power *= time;
    }
    terms.cross = computed * reference;
    terms.computedSquare = computed * computed;
    terms.referenceSquare = reference * reference;
    return terms;
}

void Add(CTerms& sums, const CTerms& terms, double weight) {
    for (std::size_t order = 0; order < sums.computedMoments.size(); ++order) {
        sums.computedMoments[order] += weight * terms.computedMoments[order];
        sums.referenceMoments[order] += weight * terms.referenceMoments[order];
    }
    sums.cross += weight * terms.cross;
    sums.computedSquare += weight * terms.computedSquare;
    sums.referenceSquare += weight * terms.referenceSquare;
}

/// Everything that one pass over the points gathers.
struct CGathered {
    CTerms weighted;                                  ///< trapezoid weights: the ends count once, inner points twice
    double cross, computedSquares, referenceSquares;  ///< plain sums over all points
    double residualSum, residualSumOfSquares;         ///< these and the rest leave out the last point
    double computedPeak, referencePeak;
    std::int64_t outsideCount;
};

/// `computed` and `reference` hold the same number of values, at least one.
CGathered Gather(std::span<const double> computed, std::span<const double> reference, double timeStep,
                 double corridorSize) {
    const std::size_t count = computed.size();
    const CTerms first = TermsAt(timeStep, computed.front(), reference.front());
    const CTerms last = TermsAt(timeStep * static_cast<double>(count), computed.back(), reference.back());
    const double firstResidual = computed.front() - reference.front();

    CGathered sums{first,
                   first.cross,
                   first.computedSquare,
                   first.referenceSquare,
                   firstResidual,
                   firstResidual * firstResidual,
                   computed.front(),
                   reference.front(),
                   std::abs(firstResidual) > kFirstPointCorridor ? 1 : 0};
    Add(sums.weighted, last, 1.0);

    for (std::size_t i = 1; i + 1 < count; ++i) {
        const CTerms terms = TermsAt(timeStep * static_cast<double>(i + 1), computed[i], reference[i]);
        Add(sums.weighted, terms, 2.0);
        sums.cross += terms.cross;
        sums.computedSquares += terms.computedSquare;
        sums.referenceSquares += terms.referenceSquare;

        const double residual = computed[i] - reference[i];
        sums.residualSum += residual;
        sums.residualSumOfSquares += residual * residual;
        if (std::abs(computed[i]) > sums.computedPeak) sums.computedPeak = std::abs(computed[i]);
        if (std::abs(reference[i]) > sums.referencePeak) sums.referencePeak = std::abs(reference[i]);
        if (std::abs(residual) > corridorSize) ++sums.outsideCount;
    }

    if (count > 1) {
        sums.cross += last.cross;
        sums.computedSquares += last.computedSquare;
        sums.referenceSquares += last.referenceSquare;
    }
    return sums;
}

std::size_t CommonPointCount(const ks::CNSignal& computed, const ks::CNSignal& reference) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    return std::min({reference.GetPointCount(), computed.GetPointCount(), kMost});
}

}  // namespace

CSampling CComparison::Compute(ks::CNSignal& computed, const ks::CNSignal& reference) {
    Clear();
    if (CommonPointCount(computed, reference) == 0) return SamplingOf(computed);

    const double timeStep = reference.Getdelt();
    if (computed.Getdelt() != timeStep) computed.Resample(timeStep);
    const CSampling resampled = SamplingOf(computed);

    double start = reference.GetXMin();
    double stop = reference.GetXMax();
    std::optional<ks::CNSignal> cut;  // the reference is copied only where it must be cut
    if (computed.GetXMin() != start || computed.GetXMax() != stop) {
        if (computed.GetXMin() > start) start = computed.GetXMin();
        if (computed.GetXMax() < stop) stop = computed.GetXMax();
        computed.TruncateByTime(start, stop);
        cut = reference;
        cut->TruncateByTime(start, stop);
    }

    const ks::CNSignal& compared = cut ? *cut : reference;
    if (CommonPointCount(computed, compared) == 0) return resampled;
    m_minimumTime = start;
    m_maximumTime = stop;
    Measure(computed, compared, timeStep);
    return resampled;
}

void CComparison::Clear() {
    const double corridorSize = m_corridorSize;
    *this = CComparison();
    m_corridorSize = corridorSize;
}

void CComparison::Measure(const ks::CNSignal& computed, const ks::CNSignal& reference, double timeStep) {
    const std::size_t count = CommonPointCount(computed, reference);
    const CGathered sums = Gather(std::span(computed.GetY()).first(count), std::span(reference.GetY()).first(count),
                                  timeStep, m_corridorSize);
    const double n = static_cast<double>(count);

    m_computedMaximum = computed.GetYMax();
    m_computedMinimum = computed.GetYMin();
    m_referenceMaximum = reference.GetYMax();
    m_referenceMinimum = reference.GetYMin();
    m_computedPeak = sums.computedPeak;
    m_referencePeak = sums.referencePeak;
    m_pointCount = static_cast<std::int32_t>(count);

    m_residualSum = sums.residualSum;
    m_residualSumOfSquares = sums.residualSumOfSquares;
    m_meanSquareResidual = m_residualSumOfSquares / n;
    m_residualStandardDeviation = std::sqrt((m_residualSumOfSquares - m_residualSum * m_residualSum / n) / n);
    m_tStatistic = (m_residualSum / n) / (m_residualStandardDeviation / std::sqrt(n));
    m_percentOutsideCorridor = static_cast<double>(sums.outsideCount) * 100.0 / n;

    for (std::size_t order = 0; order < m_momentDifferences.size(); ++order) {
        const double computedMoment = sums.weighted.computedMoments[order];
        const double referenceMoment = sums.weighted.referenceMoments[order];
        m_momentDifferences[order] = std::abs((computedMoment - referenceMoment) / computedMoment);
    }

    m_correlationFactor =
        (timeStep * sums.weighted.cross / 2.0) / (std::sqrt(timeStep * sums.weighted.computedSquare / 2.0) *
                                                  std::sqrt(timeStep * sums.weighted.referenceSquare / 2.0));

    const double computedNorm = std::sqrt(sums.computedSquares);
    const double referenceNorm = std::sqrt(sums.referenceSquares);
    m_magnitudeError = referenceNorm / computedNorm - 1.0;
    m_phaseError = 1.0 - std::sqrt(std::abs(sums.cross)) / std::sqrt(referenceNorm * computedNorm);
    m_comprehensiveError = std::sqrt(m_magnitudeError * m_magnitudeError + m_phaseError * m_phaseError);
}
