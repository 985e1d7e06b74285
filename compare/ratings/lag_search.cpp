#include "compare/ratings/lag_search.h"

#include "compare/plots/covariance.h"
#include "compare/ratings/correlation.h"
#include "compare/ratings/samples.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ratings {
namespace {

constexpr double kTieMargin = 1e-12;

/// Share of the product of both whole norms that a sum may be off by. The transform stays a tenth below; with this
/// bound, exact ties such as those of ramps stay within the tie margin and need not be summed again.
constexpr double kSumError = 5e-14;

std::vector<double> CrossSums(std::span<const double> reference, std::span<const double> computed, std::size_t maxLag) {
    CCovariances covariances(static_cast<std::int32_t>(maxLag));
    covariances.SetFirst(computed);
    std::vector<double> sums = covariances.With(reference);
    for (std::size_t i = 0; i < sums.size(); ++i) {
        const std::size_t shift = i < maxLag ? maxLag - i : i - maxLag;
        sums[i] *= static_cast<double>(reference.size() - shift);
    }
    return sums;
}

/// Sum of the first i terms for every i, each rounded as if it had been summed exactly.
template <class Term>
std::vector<double> PrefixSums(std::span<const double> values, Term term) {
    std::vector<double> sums(values.size() + 1, 0.0);
    double sum = 0.0, missed = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double add = term(values[i]);
        const double next = sum + add;
        missed += std::abs(sum) >= std::abs(add) ? (sum - next) + add : (add - next) + sum;
        sum = next;
        sums[i + 1] = sum + missed;
    }
    return sums;
}

/// How many values from the start on are equal to the first; with CCentering::None only zeros count.
template <class Range>
std::size_t FlatRun(const Range& values, CCentering centering) {
    const double level = centering == CCentering::Mean ? *values.begin() : 0.0;
    std::size_t count = 0;
    for (const double value : values) {
        if (value != level) break;
        ++count;
    }
    return count;
}

/// One signal with what every part at its start or end needs.
class CPartSums {
public:
    CPartSums(std::span<const double> values, CCentering centering) {
        const CCentered centered = Center(values);
        const double scale = std::ldexp(1.0, centered.exponent);
        m_offset = centering == CCentering::Mean ? 0.0 : values.front() - centered.values.front() * scale;
        const double offset = m_offset;
        m_sums = PrefixSums(centered.values, [=](double value) { return value * scale; });
        m_squares = PrefixSums(centered.values, [=](double value) {
            const double whole = value * scale + offset;
            return whole * whole;
        });
        m_leading = FlatRun(values, centering);
        const std::vector<double> reversed(values.rbegin(), values.rend());
        m_trailing = FlatRun(reversed, centering);
    }

    [[nodiscard]] std::size_t Count() const { return m_sums.size() - 1; }
    [[nodiscard]] double Offset() const { return m_offset; }  ///< what the prefix sums lack of the values
    [[nodiscard]] double Sum(std::size_t first, std::size_t count) const {
        return m_sums[first + count] - m_sums[first];
    }
    [[nodiscard]] double Squares(std::size_t first, std::size_t count) const {
        return m_squares[first + count] - m_squares[first];
    }
    [[nodiscard]] double AllSquares() const { return m_squares.back(); }

    /// Parts lie at the start or at the end.
    [[nodiscard]] bool IsFlat(std::size_t first, std::size_t count) const {
        return first == 0 ? m_leading >= count : m_trailing >= count;
    }

private:
    std::vector<double> m_sums, m_squares;
    double m_offset = 0.0;
    std::size_t m_leading = 0, m_trailing = 0;
};

/// A lag's correlation lies between these.
struct CBounds {
    std::int64_t lag = 0;
    double low = -1.0;
    double high = 1.0;
};

/// The correlation by rule where an overlap is flat: flat parts are equal when their first values are.
double CorrelationByRule(bool areBothFlat, double reference, double computed, CCentering centering) {
    return centering == CCentering::Mean && areBothFlat && reference == computed ? 1.0 : 0.0;
}

/// Bounds of every lag's correlation in constant time each. A correlation does not change with scale, so each signal
/// is scaled by itself.
class CLagBounds {
public:
    CLagBounds(const CSamples& samples, std::size_t maxLag, CCentering centering)
        : CLagBounds(samples, Scale(samples.reference).values, Scale(samples.computed).values, maxLag, centering) {}

    [[nodiscard]] bool IsFlat(std::int64_t lag) const { return IsReferenceFlat(lag) || IsComputedFlat(lag); }

    [[nodiscard]] CBounds At(std::int64_t lag) const {
        const std::size_t count = Count(lag);
        const std::size_t x = ReferenceFirst(lag), y = ComputedFirst(lag);
        if (IsFlat(lag)) {
            const bool areBothFlat = IsReferenceFlat(lag) && IsComputedFlat(lag);
            const double byRule =
                CorrelationByRule(areBothFlat, m_samples.reference[x], m_samples.computed[y], m_centering);
            return {lag, byRule, byRule};
        }
        const double n = static_cast<double>(count);
        const double sumX = m_reference.Sum(x, count), sumY = m_computed.Sum(y, count);
        double xx = m_reference.Squares(x, count), yy = m_computed.Squares(y, count);
        double xy = m_cross[static_cast<std::size_t>(lag + m_maxLag)];
        if (m_centering == CCentering::Mean) {
            xx -= sumX * sumX / n;
            yy -= sumY * sumY / n;
            xy -= sumX * sumY / n;
        } else {
            const double offsetX = m_reference.Offset(), offsetY = m_computed.Offset();
            xy += offsetX * sumY + offsetY * sumX + n * offsetX * offsetY;
        }
        return Bounds(lag, xy, xx, yy);
    }

private:
    CLagBounds(const CSamples& samples, std::span<const double> reference, std::span<const double> computed,
               std::size_t maxLag, CCentering centering)
        : m_samples(samples),
          m_centering(centering),
          m_reference(reference, centering),
          m_computed(computed, centering),
          m_cross(CrossSums(reference, computed, maxLag)),
          m_maxLag(static_cast<std::int64_t>(maxLag)) {}

    static std::size_t ReferenceFirst(std::int64_t lag) { return lag < 0 ? static_cast<std::size_t>(-lag) : 0; }
    static std::size_t ComputedFirst(std::int64_t lag) { return lag < 0 ? 0 : static_cast<std::size_t>(lag); }
    [[nodiscard]] std::size_t Count(std::int64_t lag) const {
        return m_reference.Count() - ReferenceFirst(lag) - ComputedFirst(lag);
    }
    [[nodiscard]] bool IsReferenceFlat(std::int64_t lag) const {
        return m_reference.IsFlat(ReferenceFirst(lag), Count(lag));
    }
    [[nodiscard]] bool IsComputedFlat(std::int64_t lag) const {
        return m_computed.IsFlat(ComputedFirst(lag), Count(lag));
    }

    [[nodiscard]] CBounds Bounds(std::int64_t lag, double xy, double xx, double yy) const {
        const double allXx = m_reference.AllSquares(), allYy = m_computed.AllSquares();
        const double errorXx = kSumError * allXx, errorYy = kSumError * allYy;
        if (!(xx > 4.0 * errorXx) || !(yy > 4.0 * errorYy)) return {lag, -1.0, 1.0};
        const double norm = std::sqrt(xx) * std::sqrt(yy);
        const double correlation = xy / norm;
        const double error = kSumError * std::sqrt(allXx) * std::sqrt(allYy) / norm + errorXx / xx + errorYy / yy;
        return {lag, std::max(correlation - error, -1.0), std::min(correlation + error, 1.0)};
    }

    CSamples m_samples;
    CCentering m_centering;
    CPartSums m_reference, m_computed;
    std::vector<double> m_cross;
    std::int64_t m_maxLag;
};

/// The lags that may be the best so far, in the order of trying. Whichever it is, it correlates no worse than the
/// first of them, and no more than the tie margin below any of them.
class CCandidates {
public:
    void Try(const CBounds& bounds) {
        if (m_lags.empty() || bounds.low > m_highest + kTieMargin) {
            m_lags.assign(1, bounds.lag);
            m_firstLow = m_lowest = bounds.low;
            m_highest = bounds.high;
            return;
        }
        if (bounds.high <= std::max(m_firstLow + kTieMargin, m_lowest)) return;
        m_lags.push_back(bounds.lag);
        m_lowest = std::max(m_lowest, bounds.low);
        m_highest = std::max(m_highest, bounds.high);
    }

    [[nodiscard]] std::span<const std::int64_t> Lags() const { return m_lags; }

private:
    std::vector<std::int64_t> m_lags;
    double m_firstLow = 0.0;
    double m_lowest = 0.0;   ///< the highest lower bound among the lags
    double m_highest = 0.0;  ///< the highest upper bound
};

CLagCorrelation BestOf(std::span<const std::int64_t> lags, const CSamples& samples, CCentering centering) {
    CLagCorrelation best = CorrelationAtLag(samples, lags.front(), centering);
    for (const std::int64_t lag : lags.subspan(1)) {
        const CLagCorrelation candidate = CorrelationAtLag(samples, lag, centering);
        if (candidate.correlation > best.correlation + kTieMargin) best = candidate;
    }
    return best;
}

}  // namespace

CSamples OverlapAt(const CSamples& samples, std::int64_t lag) {
    const std::size_t count = samples.reference.size() - static_cast<std::size_t>(std::abs(lag));
    if (lag < 0) return {samples.reference.last(count), samples.computed.first(count)};
    return {samples.reference.first(count), samples.computed.last(count)};
}

CLagCorrelation CorrelationAtLag(const CSamples& samples, std::int64_t lag, CCentering centering) {
    const CSamples overlap = OverlapAt(samples, lag);
    if (const auto correlation = Correlation(overlap, centering)) return {lag, *correlation, false};
    const bool areBothFlat = IsFlat(overlap.reference, centering) && IsFlat(overlap.computed, centering);
    return {lag, CorrelationByRule(areBothFlat, overlap.reference.front(), overlap.computed.front(), centering), true};
}

CLagCorrelation FindBestLag(const CSamples& samples, std::size_t maxLag, CCentering centering) {
    const CLagCorrelation atZero = CorrelationAtLag(samples, 0, centering);
    if (atZero.correlation + kTieMargin >= 1.0) return atZero;

    const CLagBounds bounds(samples, maxLag, centering);
    CCandidates candidates;
    const bool isFlatTried = centering == CCentering::Mean;
    if (isFlatTried || !atZero.isByRule) candidates.Try({0, atZero.correlation, atZero.correlation});
    for (std::int64_t shift = 1; shift <= static_cast<std::int64_t>(maxLag); ++shift) {
        for (const std::int64_t lag : {shift, -shift}) {
            if (isFlatTried || !bounds.IsFlat(lag)) candidates.Try(bounds.At(lag));
        }
    }
    return candidates.Lags().empty() ? atZero : BestOf(candidates.Lags(), samples, centering);
}

}  // namespace ratings
