#include "signal/resample.h"

#include "signal/column.h"
#include "signal/limits.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace ks {
namespace {

/// Added before cutting to a whole number, so that a sample that lies a rounding error before a multiple counts.
constexpr double kMultipleTolerance = 0.01;

/// The samples that arrays and point numbers have in common.
std::size_t KnownSamples(const CNumberedCurve& curve) {
    const std::size_t stored = std::min(curve.x.size(), curve.y.size());
    return std::min(stored, static_cast<std::size_t>(std::max(curve.count, 0)));
}

std::optional<std::int32_t> MultipleBelow(double x, double timeStep) {
    return WholeNumber(x / timeStep + kMultipleTolerance);
}

/// The abscissas of a resampled curve.
class CTargets {
public:
    double first = 0.0;  ///< a whole number
    double timeStep = 0.0;

    double operator[](std::size_t j) const {
        return (first + static_cast<double>(static_cast<std::int64_t>(j))) * timeStep;
    }
};

/// The straight line between the samples `high` - 1 and `high`.
template <class Axis>
double LineAt(const Axis& x, std::span<const double> y, std::size_t high, double t) {
    const std::size_t low = high - 1;
    return y[low] + (t - x[low]) / (x[high] - x[low]) * (y[high] - y[low]);
}

/// The points of a resampled curve one after the other. The upper end of the bracket only moves forward, since the
/// targets ascend; the sample before it then always lies before the target, whatever the abscissas are.
template <class Axis>
class CFilling {
public:
    CFilling(const Axis& x, std::span<const double> y, std::size_t last, const CTargets& targets,
             std::span<double> values)
        : m_x(x), m_y(y), m_last(last), m_targets(targets), m_values(values) {}

    void Fill() {
        std::size_t j = 0;
        while (j < m_values.size()) {
            if (j + kBlock <= m_values.size() && FillBlock(j)) {
                j += kBlock;
            } else {
                const std::size_t end = std::min(m_values.size(), j + kBlock);
                for (; j < end; ++j) FillOne(j);
            }
        }
    }

private:
    static constexpr std::size_t kBlock = 256;

    void FillOne(std::size_t j) {
        const double t = m_targets[j];
        while (m_high < m_last && t > m_x[m_high]) ++m_high;
        m_values[j] = LineAt(m_x, m_y, m_high, t);
    }

    /// Where the steps are nearly those of the curve, the upper end moves by about one sample for each target, and the
    /// three next to that one are candidates: a choice instead of a search that goes wrong at every other target.
    /// @return false, with nothing changed but values to come, when a target is elsewhere
    bool FillBlock(std::size_t j) {
        if (m_high < 2 || m_high + kBlock > m_last || !IsLikelyBlock()) return false;
        std::array<double, kBlock + 3> x;
        for (std::size_t k = 0; k < x.size(); ++k) x[k] = m_x[m_high - 2 + k];
        const double* const y = m_y.data() + (m_high - 2);
        double* const values = m_values.data() + j;

        std::uint64_t strays = 0;
        for (std::size_t k = 0; k < kBlock; ++k) {
            const double t = m_targets[j + k];
            const bool isAfter1 = t > x[k + 1];
            const bool isAfter2 = isAfter1 && t > x[k + 2];
            const double xLow = isAfter2 ? x[k + 2] : isAfter1 ? x[k + 1] : x[k];
            const double xHigh = isAfter2 ? x[k + 3] : isAfter1 ? x[k + 2] : x[k + 1];
            const double yLow = isAfter2 ? y[k + 2] : isAfter1 ? y[k + 1] : y[k];
            const double yHigh = isAfter2 ? y[k + 3] : isAfter1 ? y[k + 2] : y[k + 1];
            values[k] = yLow + (t - xLow) / (xHigh - xLow) * (yHigh - yLow);
            strays += static_cast<std::uint64_t>(!(t > x[k]) || t > x[k + 3]);
        }
        if (strays != 0) return false;
        const double t = m_targets[j + kBlock - 1];
        m_high += kBlock - 2;
        while (m_high < m_last && t > m_x[m_high]) ++m_high;
        return true;
    }

    [[nodiscard]] bool IsLikelyBlock() const {
        const double length = static_cast<double>(kBlock) * m_targets.timeStep;
        return std::abs(m_x[m_high + kBlock - 1] - m_x[m_high - 1] - length) < m_targets.timeStep;
    }

    Axis m_x;
    std::span<const double> m_y;
    std::size_t m_last;  ///< of the samples that may be used
    CTargets m_targets;
    std::span<double> m_values;
    std::size_t m_high = 1;
};

/// Whether the abscissas are multiples of the very step, all finite and apart from each other.
bool HasStep(const CColumn& x, double timeStep) {
    const CColumnRule* const rule = x.Rule();
    return rule != nullptr && rule->precision == CRulePrecision::Double && rule->step == timeStep &&
           x.IsAscendingByRule();
}

/// Every target is an abscissa, to the last bit. Within the curve the bracket ends at that sample, and the target's
/// share of it is a number that is not 0 divided by itself, exactly 1.
void FillAtSameStep(const CColumnRule& rule, std::span<const double> y, std::size_t last, const CTargets& targets,
                    std::int64_t first, std::span<double> values) {
    const CRuleAxis<double> x(rule);
    const auto count = static_cast<std::int64_t>(values.size());
    const std::int64_t shift = first - rule.first;  // target j is sample j + shift
    const auto begin = std::clamp<std::int64_t>(1 - shift, 0, count);
    const auto end = std::clamp<std::int64_t>(static_cast<std::int64_t>(last) + 1 - shift, begin, count);
    const auto at = [](std::int64_t index) { return static_cast<std::size_t>(index); };

    for (std::size_t j = 0; j < at(begin); ++j) values[j] = LineAt(x, y, 1, targets[j]);
    if (begin < end) {
        const std::span<const double> from = y.subspan(at(begin + shift - 1), at(end - begin + 1));
        const std::span<double> to = values.subspan(at(begin), at(end - begin));
        for (std::size_t k = 0; k < to.size(); ++k) to[k] = from[k] + (from[k + 1] - from[k]);
    }
    for (std::size_t j = at(end); j < values.size(); ++j) {
        values[j] = LineAt(x, y, std::max<std::size_t>(last, 1), targets[j]);
    }
}

}  // namespace

bool IsAscending(const CColumn& x) {
    if (x.IsAscendingByRule()) return true;
    const std::span<const double> values = x.Values();
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i - 1] > values[i]) return false;
    }
    return true;
}

std::optional<CPointRange> ResampledRange(const CNumberedCurve& curve, double timeStep) {
    if (curve.x.size() < 2 || curve.y.size() < 2 || curve.count == 0) return std::nullopt;
    const CExtrema limits = curve.x.Extrema();
    const std::optional<std::int32_t> steps = WholeNumber((limits.maximum - limits.minimum) / timeStep + 0.99);
    if (!steps || *steps < 1) return std::nullopt;

    const std::optional<std::int32_t> start = MultipleBelow(curve.x.front(), timeStep);
    const std::optional<std::int32_t> stop = MultipleBelow(curve.x[KnownSamples(curve) - 1], timeStep);
    if (!start || !stop) return std::nullopt;

    // The old point numbers bound the new ones; kept, since a signal with points before time zero that is resampled
    // to its own step must keep losing its first sample.
    const std::int64_t first = std::min<std::int64_t>(*start, std::int64_t{curve.lastPoint} - 1);
    const std::int64_t last = std::max<std::int64_t>(*stop, std::int64_t{curve.firstPoint} + 1);
    if (Saturated(first) != first || Saturated(last) != last) return std::nullopt;
    if (last - first + 1 > kMostResampledPoints) return std::nullopt;
    return CPointRange{static_cast<std::int32_t>(first), static_cast<std::int32_t>(last)};
}

CColumn Interpolate(const CNumberedCurve& curve, const CPointRange& range, double timeStep) {
    CColumn values = CColumn::WithRoom(static_cast<std::size_t>(CountOf(range.first, range.last)));
    if (values.empty()) return values;
    const CTargets targets{static_cast<double>(range.first), timeStep};
    const std::span<const double> y = curve.y.Values();
    const std::size_t last = KnownSamples(curve) - 1;
    const std::span<double> target = values.Mutable();
    if (HasStep(curve.x, timeStep)) {
        FillAtSameStep(*curve.x.Rule(), y, last, targets, range.first, target);
    } else {
        VisitAxis(curve.x, [&](const auto& x) { CFilling(x, y, last, targets, target).Fill(); });
    }
    return values;
}

}  // namespace ks
