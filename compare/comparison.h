#pragma once

#include <array>
#include <cstdint>

#include "compare/sampling.h"
#include "signal/nsignal.h"

/// The measures of one computed signal against the reference. See docs/measures.md for every formula.
///
/// All start at 0 except the corridor size, 4.0. No value is checked: infinities and not-a-number values come out as
/// the formulas give them. Values are in Y units where nothing else is said; t(i) = dt (i + 1) stands for time.
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

    /// Compares `computed` with `reference`. Resamples `computed` to the reference's time step and cuts it to the
    /// common time range, both lasting; the reference is left as it is. A record without Y values leaves every
    /// measure at 0 and nothing resampled or cut.
    /// @return `computed` as it was resampled and not yet cut
    /// @throws ks::CError from resampling or cutting; every measure is then 0, `computed` as far as it was changed
    CSampling Compute(ks::CNSignal& computed, const ks::CNSignal& reference);

    double GetMeanSquareResidual() const { return m_meanSquareResidual; }
    double GetComputedPeak() const { return m_computedPeak; }
    double GetReferencePeak() const { return m_referencePeak; }
    double GetComputedMaximum() const { return m_computedMaximum; }
    double GetReferenceMaximum() const { return m_referenceMaximum; }
    double GetComputedMinimum() const { return m_computedMinimum; }
    double GetReferenceMinimum() const { return m_referenceMinimum; }
    double GetResidualStandardDeviation() const { return m_residualStandardDeviation; }
    double GetResidualSum() const { return m_residualSum; }
    double GetResidualSumOfSquares() const { return m_residualSumOfSquares; }
    double GetPercentOutsideCorridor() const { return m_percentOutsideCorridor; }  ///< 0 to 100
    std::int32_t GetPointCount() const { return m_pointCount; }                    ///< number of points compared
    /// Relative differences of the moments of order 0 to 5, as fractions of the computed signal's.
    const std::array<double, 6>& GetMomentDifferences() const { return m_momentDifferences; }
    double GetCorrelationFactor() const { return m_correlationFactor; }
    double GetMagnitudeError() const { return m_magnitudeError; }          ///< M
    double GetPhaseError() const { return m_phaseError; }                  ///< P
    double GetComprehensiveError() const { return m_comprehensiveError; }  ///< C
    double GetTStatistic() const { return m_tStatistic; }
    double GetMinimumTime() const { return m_minimumTime; }  ///< common time range, X units
    double GetMaximumTime() const { return m_maximumTime; }
    double GetCorridorSize() const { return m_corridorSize; }

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
