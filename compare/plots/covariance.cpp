#include "compare/plots/covariance.h"

#include "compare/plots/real_transform.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace {

/// Sum of term(0) ... term(count - 1) over eight lanes and blocks of them: it keeps the processor's vector units busy
/// and its rounding error far below that of one running sum. A sum that became not-a-number stays so and ends it.
template <class Term>
double BlockSum(std::size_t count, Term term) {
    constexpr std::size_t kLanes = 8;
    constexpr std::size_t kBlock = 1024;
    static_assert(kBlock % kLanes == 0);

    double total = 0.0;
    std::size_t i = 0;
    while (count - i >= kLanes) {
        const std::size_t blockEnd = i + std::min(kBlock, (count - i) / kLanes * kLanes);
        std::array<double, kLanes> lanes{};
        for (; i < blockEnd; i += kLanes) {
            for (std::size_t lane = 0; lane < kLanes; ++lane) lanes[lane] += term(i + lane);
        }
        total += ((lanes[0] + lanes[1]) + (lanes[2] + lanes[3])) + ((lanes[4] + lanes[5]) + (lanes[6] + lanes[7]));
        if (std::isnan(total)) return total;
    }
    for (; i < count; ++i) total += term(i);
    return total;
}

double Sum(std::span<const double> values) {
    return BlockSum(values.size(), [values](std::size_t i) { return values[i]; });
}

/// Sum over j of a[j] * b[j - lag] where both exist; a and b are equally long.
double ProductSum(std::span<const double> a, std::span<const double> b, std::int64_t lag) {
    const std::size_t shift = static_cast<std::size_t>(std::abs(lag));
    if (shift >= a.size()) return 0.0;
    const std::size_t overlap = a.size() - shift;
    const std::span<const double> left = lag < 0 ? a.first(overlap) : a.last(overlap);
    const std::span<const double> right = lag < 0 ? b.last(overlap) : b.first(overlap);
    return BlockSum(overlap, [left, right](std::size_t i) { return left[i] * right[i]; });
}

/// Largest magnitude; infinite or not-a-number values count as larger than every other.
double LargestMagnitude(std::span<const double> values) {
    // The bits of magnitudes are ordered as the magnitudes are, with infinity and then not-a-number after the rest.
    std::uint64_t largest = 0;
    for (const double value : values) largest = std::max(largest, std::bit_cast<std::uint64_t>(std::abs(value)));
    return std::bit_cast<double>(largest);
}

CCentered CenterNonFinite(std::span<const double> values) {
    CCentered centered{{values.begin(), values.end()}, 0, false};
    const double mean = Sum(values) / static_cast<double>(values.size());
    for (double& value : centered.values) value -= mean;
    return centered;
}

/// a * conjugate of b, written out: the library's operator also repairs infinities, which costs most of the time.
std::complex<double> ConjugateProduct(const std::complex<double>& a, const std::complex<double>& b) {
    return {a.real() * b.real() + a.imag() * b.imag(), a.imag() * b.real() - a.real() * b.imag()};
}

void Load(CRealTransform& transform, std::span<const double> values) {
    const std::span<double> samples = transform.Samples();
    const auto padding = std::ranges::copy(values, samples.begin()).out;
    std::fill(padding, samples.end(), 0.0);
    transform.Forward();
}

}  // namespace

CCentered Center(std::span<const double> values) {
    const double largest = LargestMagnitude(values);
    if (!std::isfinite(largest)) return CenterNonFinite(values);

    CCentered centered;
    centered.exponent = largest == 0.0 ? 0 : std::clamp(std::ilogb(largest), -1000, 1000);
    const double scale = std::ldexp(1.0, -centered.exponent);
    const double count = static_cast<double>(values.size());
    const double mean = BlockSum(values.size(), [values, scale](std::size_t i) { return values[i] * scale; }) / count;
    centered.values.resize(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) centered.values[i] = values[i] * scale - mean;
    // A mean much larger than the deviations is itself rounded too coarsely for them; this is what it missed.
    const double missed = Sum(centered.values) / count;
    for (double& value : centered.values) value -= missed;
    return centered;
}

std::vector<double> Covariances(std::span<const double> a, std::span<const double> b, std::int32_t maxLag) {
    const std::size_t count = std::min(a.size(), b.size());
    CCovariances covariances(maxLag);
    covariances.SetFirst(a.first(count));
    return covariances.With(b);
}

CCovariances::CCovariances(std::int32_t maxLag, CCovarianceMethod method) : m_maxLag(maxLag), m_method(method) {}

void CCovariances::SetFirst(std::span<const double> a) {
    m_first = Center(a);
    m_firstSpectrum.clear();
}

std::vector<double> CCovariances::WithItself() {
    std::vector<double> values = Values(m_first);
    // Equal in exact arithmetic; the transform's rounding would tell them apart.
    std::copy(values.rbegin(), values.rbegin() + m_maxLag, values.begin());
    return values;
}

std::vector<double> CCovariances::With(std::span<const double> b) {
    return Values(Center(b.first(Count())));
}

std::size_t CCovariances::Reach() const {
    return std::min(static_cast<std::size_t>(m_maxLag), std::max<std::size_t>(Count(), 1) - 1);
}

bool CCovariances::ShouldUseTransform(const CCentered& b) const {
    if (!m_first.isFinite || !b.isFinite || m_method == CCovarianceMethod::PlainSums) return false;
    if (m_method == CCovarianceMethod::Transform) return Count() > 0;
    // Measured: below this a transform with its plan takes as long as the sums.
    constexpr double kProductsWorthATransform = 3.0e5;
    return static_cast<double>(Count()) * static_cast<double>(2 * Reach() + 1) > kProductsWorthATransform;
}

void CCovariances::PrepareTransform() {
    const std::size_t needed = Count() + Reach();  // padded so that no lag sees the sequence's other end
    if (!m_transform || m_transform->Size() < needed || m_transform->Size() / 2 > needed) {
        m_transform.reset();  // gives its memory back first
        m_transform = std::make_unique<CRealTransform>(CRealTransform::FastSize(needed));
        m_firstSpectrum.clear();
    }
    if (!m_firstSpectrum.empty()) return;
    Load(*m_transform, m_first.values);
    const std::span<const std::complex<double>> spectrum = m_transform->Spectrum();
    m_firstSpectrum.assign(spectrum.begin(), spectrum.end());
}

std::vector<double> CCovariances::Values(const CCentered& b) {
    std::vector<double> values(2 * static_cast<std::size_t>(m_maxLag) + 1);
    if (ShouldUseTransform(b)) {
        SumByTransform(b, values);
    } else {
        SumPlainly(b, values, 0);
    }
    for (std::int64_t lag = -m_maxLag; lag <= m_maxLag; ++lag) {
        double& value = values[static_cast<std::size_t>(lag + m_maxLag)];
        const std::int64_t overlap = static_cast<std::int64_t>(Count()) - std::abs(lag);
        value = std::ldexp(value, m_first.exponent + b.exponent) / static_cast<double>(overlap);
    }
    return values;
}

void CCovariances::SumPlainly(const CCentered& b, std::span<double> sums, std::size_t firstShift) const {
    const std::size_t reach = Reach();
    for (std::size_t shift = firstShift; shift <= reach; ++shift) {
        const std::int64_t lag = static_cast<std::int64_t>(shift);
        sums[static_cast<std::size_t>(m_maxLag + lag)] = ProductSum(m_first.values, b.values, lag);
        if (&b == &m_first) continue;  // WithItself mirrors the values
        sums[static_cast<std::size_t>(m_maxLag - lag)] = ProductSum(m_first.values, b.values, -lag);
    }
}

void CCovariances::SumByTransform(const CCentered& b, std::span<double> sums) {
    PrepareTransform();
    if (&b != &m_first) Load(*m_transform, b.values);
    const std::span<std::complex<double>> product = m_transform->Spectrum();
    if (&b == &m_first) {
        for (std::size_t i = 0; i < product.size(); ++i) product[i] = std::norm(m_firstSpectrum[i]);
    } else {
        for (std::size_t i = 0; i < product.size(); ++i) product[i] = ConjugateProduct(m_firstSpectrum[i], product[i]);
    }
    m_transform->Backward();

    const std::span<const double> samples = m_transform->Samples();
    const double size = static_cast<double>(samples.size());
    const std::size_t reach = Reach();
    const std::size_t middle = static_cast<std::size_t>(m_maxLag);
    sums[middle] = samples[0] / size;
    for (std::size_t shift = 1; shift <= reach; ++shift) {
        sums[middle + shift] = samples[shift] / size;
        sums[middle - shift] = samples[samples.size() - shift] / size;
    }
    // The transform's error is that of all n products together; divided by a small overlap it would show.
    constexpr std::size_t kSmallestShare = 256;
    const std::size_t firstSmall = Count() - Count() / kSmallestShare;
    SumPlainly(b, sums, std::max<std::size_t>(firstSmall, 1));
}
