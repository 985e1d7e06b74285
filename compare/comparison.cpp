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

void AddOnce(CTerms& sums, const CTerms& terms) {
    for (std::size_t order = 0; order < sums.computedMoments.size(); ++order) {
        sums.computedMoments[order] += terms.computedMoments[order];
        sums.referenceMoments[order] += terms.referenceMoments[order];
    }
    sums.cross += terms.cross;
    sums.computedSquare += terms.computedSquare;
    sums.referenceSquare += terms.referenceSquare;
}

/// Everything that one pass over the points gathers.
struct CGathered {
    CTerms weighted;                                  ///< trapezoid weights: the ends count once, inner points twice
    double cross, computedSquares, referenceSquares;  ///< plain sums over all points
    double residualSum, residualSumOfSquares;         ///< these and the rest leave out the last point
    double computedPeak, referencePeak;
    std::int64_t outsideCount;
};

/// A number of the computed signal and the same of the reference, or two sums, in one register.
using CPair = double __attribute__((vector_size(16)));

CPair Larger(CPair a, CPair b) {
    return b > a ? b : a;
}

/// The sums while the inner points are added, each in its own order: only sums that do not depend on each other are
/// formed together.
class CRunningSums {
public:
    explicit CRunningSums(const CGathered& sums)
        : m_weightedSquares{sums.weighted.computedSquare, sums.weighted.referenceSquare},
          m_squares{sums.computedSquares, sums.referenceSquares},
          m_crosses{sums.weighted.cross, sums.cross},
          m_residuals{sums.residualSum, sums.residualSumOfSquares},
          m_peaks{sums.computedPeak, sums.referencePeak},
          m_outsideCount(sums.outsideCount) {
        for (std::size_t order = 0; order < m_moments.size(); ++order) {
            m_moments[order] = CPair{sums.weighted.computedMoments[order], sums.weighted.referenceMoments[order]};
        }
    }

    /// An inner point. The trapezoid weight 2 is the term added to itself.
    void Add(double time, double computed, double reference, double corridorSize) {
        const CPair point{computed, reference};
        const CPair times{time, time};
        m_moments[0] += point + point;
        CPair power = times;
        for (std::size_t order = 1; order < m_moments.size(); ++order) {
            const CPair term = power * point;
            m_moments[order] += term + term;
            power *= times;
        }
        const CPair squares = point * point;
        m_weightedSquares += squares + squares;
        m_squares += squares;
        const double cross = computed * reference;
        m_crosses += CPair{cross + cross, cross};

        const double residual = computed - reference;
        m_residuals += CPair{residual, residual * residual};
        m_peaks = Larger(m_peaks, CPair{std::abs(computed), std::abs(reference)});
        m_outsideCount += std::abs(residual) > corridorSize ? 1 : 0;
    }

    [[nodiscard]] CGathered Sums() const {
        CGathered sums{};
        for (std::size_t order = 0; order < m_moments.size(); ++order) {
            sums.weighted.computedMoments[order] = m_moments[order][0];
            sums.weighted.referenceMoments[order] = m_moments[order][1];
        }
        sums.weighted.computedSquare = m_weightedSquares[0];
        sums.weighted.referenceSquare = m_weightedSquares[1];
        sums.weighted.cross = m_crosses[0];
        sums.cross = m_crosses[1];
        sums.computedSquares = m_squares[0];
        sums.referenceSquares = m_squares[1];
        sums.residualSum = m_residuals[0];
        sums.residualSumOfSquares = m_residuals[1];
        sums.computedPeak = m_peaks[0];
        sums.referencePeak = m_peaks[1];
        sums.outsideCount = m_outsideCount;
        return sums;
    }

private:
    std::array<CPair, 6> m_moments;
    CPair m_weightedSquares, m_squares, m_crosses, m_residuals, m_peaks;
    std::int64_t m_outsideCount;
};

/// `computed` and `reference` hold the same number of values, at least one.
CGathered Gather(std::span<const double> computed, std::span<const double> reference, double timeStep,
                 double corridorSize) {
    const std::size_t count = computed.size();
    const CTerms first = TermsAt(timeStep, computed.front(), reference.front());
    const CTerms last = TermsAt(timeStep * static_cast<double>(count), computed.back(), reference.back());
    const double firstResidual = computed.front() - reference.front();

    CGathered ends{first,
                   first.cross,
                   first.computedSquare,
                   first.referenceSquare,
                   firstResidual,
                   firstResidual * firstResidual,
                   computed.front(),
                   reference.front(),
                   std::abs(firstResidual) > kFirstPointCorridor ? 1 : 0};
    AddOnce(ends.weighted, last);

    CRunningSums running(ends);
    for (std::size_t i = 1; i + 1 < count; ++i) {
        const auto number = static_cast<double>(static_cast<std::int64_t>(i) + 1);
        running.Add(timeStep * number, computed[i], reference[i], corridorSize);
    }

    CGathered sums = running.Sums();
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
    std::optional<ks::CNSignal> cut;  // its arrays are parts of the reference's, so this copies no values
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
    const CGathered sums =
        Gather(computed.GetY().Values().first(count), reference.GetY().Values().first(count), timeStep, m_corridorSize);
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
