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

/// Numbers of values in a section, per lag of the largest reach and at least: large enough to lose little at their
/// ends, small enough for the processor's caches.
constexpr std::size_t kSectionsReach = 8;
constexpr std::size_t kSmallestSection = 32768;

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
template <class First, class Second>
double ProductSum(const First& a, const Second& b, std::int64_t lag) {
    const std::size_t shift = static_cast<std::size_t>(std::abs(lag));
    if (shift >= a.size()) return 0.0;
    const std::size_t left = lag < 0 ? 0 : shift;
    const std::size_t right = lag < 0 ? shift : 0;
    return BlockSum(a.size() - shift, [&, left, right](std::size_t i) { return a[left + i] * b[right + i]; });
}

/// Largest magnitude; infinite or not-a-number values count as larger than every other.
double LargestMagnitude(std::span<const double> values) {
    // The bits of magnitudes are ordered as the magnitudes are, with infinity and then not-a-number after the rest.
    std::uint64_t largest = 0;
    for (const double value : values) largest = std::max(largest, std::bit_cast<std::uint64_t>(std::abs(value)));
    return std::bit_cast<double>(largest);
}

/// a * conjugate of b, written out: the library's operator also repairs infinities, which costs most of the time.
std::complex<double> ConjugateProduct(const std::complex<double>& a, const std::complex<double>& b) {
    return {a.real() * b.real() + a.imag() * b.imag(), a.imag() * b.real() - a.real() * b.imag()};
}

void Load(CRealTransform& transform, const CCenteredView& values) {
    const std::span<double> samples = transform.Samples();
    for (std::size_t i = 0; i < values.size(); ++i) samples[i] = values[i];
    std::ranges::fill(samples.subspan(values.size()), 0.0);
    transform.Forward();
}

/// The same for `values` from number `begin` on, as many as fit; those that do not exist are zeros.
void LoadPart(CRealTransform& transform, const CCenteredView& values, std::int64_t begin, std::size_t count) {
    const std::span<double> samples = transform.Samples();
    const auto before = static_cast<std::size_t>(std::max<std::int64_t>(-begin, 0));
    const auto first = static_cast<std::size_t>(std::max<std::int64_t>(begin, 0));
    const std::size_t end = before + std::min(count - before, values.size() - first);
    std::ranges::fill(samples.first(before), 0.0);
    for (std::size_t i = before; i < end; ++i) samples[i] = values[first + (i - before)];
    std::ranges::fill(samples.subspan(end), 0.0);
    transform.Forward();
}

}  // namespace

CCenteredView::CCenteredView(std::span<const double> source) : m_source(source) {
    const double largest = LargestMagnitude(source);
    const double count = static_cast<double>(source.size());
    m_isFinite = std::isfinite(largest);
    if (!m_isFinite) {
        m_mean = Sum(source) / count;
        return;
    }
    m_exponent = largest == 0.0 ? 0 : std::clamp(std::ilogb(largest), -1000, 1000);
    m_scale = std::ldexp(1.0, -m_exponent);
    m_mean = BlockSum(source.size(), [this](std::size_t i) { return m_source[i] * m_scale; }) / count;
    // A mean much larger than the deviations is itself rounded too coarsely for them; this is what it missed.
    m_missed = BlockSum(source.size(), [this](std::size_t i) { return m_source[i] * m_scale - m_mean; }) / count;
}

void CCenteredView::CopyTo(std::vector<double>& target) const {
    target.resize(size());
    for (std::size_t i = 0; i < target.size(); ++i) target[i] = (*this)[i];
}

CCentered Center(std::span<const double> values) {
    const CCenteredView view(values);
    CCentered centered{{}, view.Exponent(), view.IsFinite()};
    view.CopyTo(centered.values);
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
    m_first = CCenteredView(a);
    m_firstSpectrum.clear();
}

std::vector<double> CCovariances::WithItself() {
    std::vector<double> values = Values(m_first);
    // Equal in exact arithmetic; the transform's rounding would tell them apart.
    std::copy(values.rbegin(), values.rbegin() + m_maxLag, values.begin());
    return values;
}

std::vector<double> CCovariances::With(std::span<const double> b) {
    return Values(CCenteredView(b.first(Count())));
}

std::size_t CCovariances::Reach() const {
    return std::min(static_cast<std::size_t>(m_maxLag), std::max<std::size_t>(Count(), 1) - 1);
}

bool CCovariances::ShouldUseTransform(const CCenteredView& b) const {
    if (!m_first.IsFinite() || !b.IsFinite() || m_method == CCovarianceMethod::PlainSums) return false;
    if (m_method != CCovarianceMethod::Automatic) return Count() > 0;
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
    Load(*m_transform, m_first);
    const std::span<const std::complex<double>> spectrum = m_transform->Spectrum();
    m_firstSpectrum.assign(spectrum.begin(), spectrum.end());
}

std::vector<double> CCovariances::Values(const CCenteredView& b) {
    std::vector<double> values(2 * static_cast<std::size_t>(m_maxLag) + 1);
    if (ShouldUseTransform(b)) {
        SumByTransform(b, values);
    } else {
        SumPlainly(b, values);
    }
    for (std::int64_t lag = -m_maxLag; lag <= m_maxLag; ++lag) {
        double& value = values[static_cast<std::size_t>(lag + m_maxLag)];
        const std::int64_t overlap = static_cast<std::int64_t>(Count()) - std::abs(lag);
        value = std::ldexp(value, m_first.Exponent() + b.Exponent()) / static_cast<double>(overlap);
    }
    return values;
}

template <class First, class Second>
void CCovariances::SumShifts(const First& a, const Second& b, bool isSame, std::size_t firstShift,
                             std::span<double> sums) const {
    const std::size_t reach = Reach();
    for (std::size_t shift = firstShift; shift <= reach; ++shift) {
        const std::int64_t lag = static_cast<std::int64_t>(shift);
        sums[static_cast<std::size_t>(m_maxLag + lag)] = ProductSum(a, b, lag);
        if (isSame) continue;  // WithItself mirrors the values
        sums[static_cast<std::size_t>(m_maxLag - lag)] = ProductSum(a, b, -lag);
    }
}

/// Every value is used once per lag, so it is formed only once.
void CCovariances::SumPlainly(const CCenteredView& b, std::span<double> sums) {
    m_first.CopyTo(m_firstValues);
    if (&b == &m_first) {
        SumShifts(m_firstValues, m_firstValues, true, 0, sums);
        return;
    }
    b.CopyTo(m_secondValues);
    SumShifts(m_firstValues, m_secondValues, false, 0, sums);
}

bool CCovariances::ShouldUseSections() const {
    // Fewer values fit into the processor's caches, or nearly so, and need a transform less.
    constexpr std::size_t kManyValues = std::size_t{1} << 19U;
    if (m_method != CCovarianceMethod::Automatic) return m_method == CCovarianceMethod::Sections;
    return Count() > kManyValues && Count() / kSectionsReach > Reach();
}

void CCovariances::PrepareSections() {
    // Of a section, twice the reach is lost to its neighbors.
    const std::size_t least = m_method == CCovarianceMethod::Automatic ? kSmallestSection : 0;
    const std::size_t size = CRealTransform::FastSize(std::max(least, kSectionsReach * Reach()));
    if (!m_sectionTransform || m_sectionTransform->Size() != size) {
        m_sectionTransform = std::make_unique<CRealTransform>(size);
    }
    m_products.assign(m_sectionTransform->Spectrum().size(), 0.0);
}

/// A part of the first sequence meets, at some lag, the same part of the second one and `reach` values to either side.
void CCovariances::SumBySections(const CCenteredView& b, std::span<double> sums) {
    PrepareSections();
    const std::size_t reach = Reach();
    const std::size_t step = m_sectionTransform->Size() - 2 * reach;
    const std::span<std::complex<double>> spectrum = m_sectionTransform->Spectrum();
    for (std::size_t begin = 0; begin < Count(); begin += step) {
        const auto from = static_cast<std::int64_t>(begin);
        LoadPart(*m_sectionTransform, m_first, from, step);
        m_partSpectrum.assign(spectrum.begin(), spectrum.end());
        LoadPart(*m_sectionTransform, b, from - static_cast<std::int64_t>(reach), m_sectionTransform->Size());
        for (std::size_t i = 0; i < spectrum.size(); ++i) {
            m_products[i] += ConjugateProduct(spectrum[i], m_partSpectrum[i]);
        }
    }
    std::ranges::copy(m_products, spectrum.begin());
    m_sectionTransform->Backward();

    // Sample k is the sum at which the second sequence is k - reach values further on than the first.
    const std::span<const double> samples = m_sectionTransform->Samples();
    const double size = static_cast<double>(samples.size());
    const std::size_t last = static_cast<std::size_t>(m_maxLag) + reach;
    for (std::size_t k = 0; k <= 2 * reach; ++k) sums[last - k] = samples[k] / size;
    SumSmallOverlaps(b, sums);
}

void CCovariances::SumByTransform(const CCenteredView& b, std::span<double> sums) {
    if (ShouldUseSections()) {
        SumBySections(b, sums);
        return;
    }
    PrepareTransform();
    if (&b != &m_first) Load(*m_transform, b);
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
    SumSmallOverlaps(b, sums);
}

/// The transform's error is that of all n products together; divided by a small overlap it would show.
void CCovariances::SumSmallOverlaps(const CCenteredView& b, std::span<double> sums) const {
    constexpr std::size_t kSmallestShare = 256;
    const std::size_t firstSmall = Count() - Count() / kSmallestShare;
    SumShifts(m_first, b, &b == &m_first, std::max<std::size_t>(firstSmall, 1), sums);
}
