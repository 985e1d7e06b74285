#pragma once

#include "compare/sampling.h"
#include "signal/nsignal.h"

#include <array>
#include <cstdint>

/// The measures of one computed signal against the reference.
///
/// All start at 0 except the corridor size, 4.0. No value is checked: infinities and not-a-number values come out as
/// the formulas give them.
///
/// Source of every formula: docs/measures.md, "The points compared" and "The measures". In the formulas below c(i) and
/// r(i), i = 0 ... N - 1, are the computed and the reference values, e(i) = c(i) - r(i), t(i) = dt (i + 1) with the
/// time step dt. sum' leaves the last point out; sumT weighs as the trapezoid rule does: the first and the last point
/// once, every other one twice. With N = 1 the only point counts in sum' and twice in sumT. "Y units" and "X units" are
/// those of the two records; "no unit" is a plain number.
class CComparison {
public:
    CComparison() = default;
    CComparison(const CComparison&) = default;
    CComparison(CComparison&&) = default;
    CComparison& operator=(const CComparison&) = default;
    CComparison& operator=(CComparison&&) = default;
    virtual ~CComparison() = default;

    /// Half-width of the corridor, in Y units.
    void SetCorridor(double size) { m_corridorSize = size; }

    /// Compares `computed` with `reference`. Resamples `computed` to the reference's time step, cuts it to the common
    /// time range, and leaves it so; the reference is not changed. When either record has no Y values, every
    /// measure is 0, and nothing is resampled or cut.
    /// @return how `computed` was sampled after resampling, before any cut
    /// @throws ks::CError from resampling or cutting; every measure is then 0, and `computed` may be resampled or
    ///         cut already
    CSampling Compute(ks::CNSignal& computed, const ks::CNSignal& reference);

    /// Q / N, with Q of GetResidualSumOfSquares; Y units squared.
    [[nodiscard]] double GetMeanSquareResidual() const { return m_meanSquareResidual; }

    /// Largest |c(i)|, the last point left out; Y units. The first value counts with its sign, so a negative first
    /// value stays the peak until a larger magnitude follows.
    [[nodiscard]] double GetComputedPeak() const { return m_computedPeak; }
    /// The same of r(i).
    [[nodiscard]] double GetReferencePeak() const { return m_referencePeak; }

    // Largest and smallest value of the records as compared, the last point included; Y units.
    [[nodiscard]] double GetComputedMaximum() const { return m_computedMaximum; }
    [[nodiscard]] double GetReferenceMaximum() const { return m_referenceMaximum; }
    [[nodiscard]] double GetComputedMinimum() const { return m_computedMinimum; }
    [[nodiscard]] double GetReferenceMinimum() const { return m_referenceMinimum; }

    /// sqrt((Q - S^2 / N) / N), with S of GetResidualSum and Q of GetResidualSumOfSquares; Y units.
    [[nodiscard]] double GetResidualStandardDeviation() const { return m_residualStandardDeviation; }
    /// S = sum' e; Y units.
    [[nodiscard]] double GetResidualSum() const { return m_residualSum; }
    /// Q = sum' e^2; Y units squared.
    [[nodiscard]] double GetResidualSumOfSquares() const { return m_residualSumOfSquares; }

    /// 100 (points of sum' with |e| above the corridor size) / N; percent, 0 to 100. The first point is
    /// judged against 4.0 whatever the corridor size is.
    [[nodiscard]] double GetPercentOutsideCorridor() const { return m_percentOutsideCorridor; }

    /// N, the number of points compared; at least 0.
    [[nodiscard]] std::int32_t GetPointCount() const { return m_pointCount; }

    /// |(C - R) / C| with C = sumT t^k c and R = sumT t^k r, for the orders k = 0 to 5; no unit, a fraction of the
    /// computed signal's moment.
    [[nodiscard]] const std::array<double, 6>& GetMomentDifferences() const { return m_momentDifferences; }
    /// (dt sumT(c r) / 2) / (sqrt(dt sumT(c^2) / 2) sqrt(dt sumT(r^2) / 2)); no unit, -1 to 1 except for rounding.
    [[nodiscard]] double GetCorrelationFactor() const { return m_correlationFactor; }

    /// M = sqrt(sum r^2) / sqrt(sum c^2) - 1, over every point once; no unit, -1 or greater.
    [[nodiscard]] double GetMagnitudeError() const { return m_magnitudeError; }
    /// P = 1 - sqrt(|sum c r|) / sqrt(sqrt(sum r^2) sqrt(sum c^2)), over every point once; no unit, 0 to 1 except
    /// for rounding.
    [[nodiscard]] double GetPhaseError() const { return m_phaseError; }
    /// C = sqrt(M^2 + P^2); no unit, 0 or greater.
    [[nodiscard]] double GetComprehensiveError() const { return m_comprehensiveError; }

    /// T = (S / N) / (s / sqrt(N)) with s of GetResidualStandardDeviation; no unit. Not a number for equal signals.
    [[nodiscard]] double GetTStatistic() const { return m_tStatistic; }

    // The common range: from the later start to the earlier end of both records; X units.
    [[nodiscard]] double GetMinimumTime() const { return m_minimumTime; }
    [[nodiscard]] double GetMaximumTime() const { return m_maximumTime; }

    /// Half-width of the corridor as last set, which Compute uses; Y units.
    [[nodiscard]] double GetCorridorSize() const { return m_corridorSize; }

private:
    void Clear();
    void Measure(const ks::CNSignal& computed, const ks::CNSignal& reference, double timeStep);

    double m_meanSquareResidual = 0.0;
    double m_computedPeak = 0.0, m_referencePeak = 0.0;
    double m_computedMaximum = 0.0, m_referenceMaximum = 0.0;
    double m_computedMinimum = 0.0, m_referenceMinimum = 0.0;
    double m_residualStandardDeviation = 0.0;
    double m_residualSum = 0.0, m_residualSumOfSquares = 0.0;
    double m_percentOutsideCorridor = 0.0;
    std::int32_t m_pointCount = 0;
    std::array<double, 6> m_momentDifferences{};
    double m_correlationFactor = 0.0;
    double m_magnitudeError = 0.0, m_phaseError = 0.0, m_comprehensiveError = 0.0;
    double m_tStatistic = 0.0;
    double m_minimumTime = 0.0, m_maximumTime = 0.0;
    double m_corridorSize = 4.0;
};
