#include "compare/plots/real_transform.h"

#include <fftw3.h>

#include <bit>
#include <complex>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <numbers>
#include <span>
#include <type_traits>
#include <vector>

namespace {

class CFftwFree {
public:
    void operator()(void* memory) const { fftw_free(memory); }
};

/// Everything about plans except carrying them out needs it.
std::mutex& Planner() {
    static std::mutex planner;
    return planner;
}

class CDestroyPlan {
public:
    void operator()(fftw_plan plan) const {
        const std::scoped_lock lock(Planner());
        fftw_destroy_plan(plan);
    }
};

using CComplex = std::complex<double>;
using CBuffer = std::unique_ptr<CComplex, CFftwFree>;
using CPlan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, CDestroyPlan>;

CBuffer Allocate(std::size_t count) {
    if (count > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(CComplex)) throw std::bad_alloc();
    CBuffer buffer(reinterpret_cast<CComplex*>(fftw_alloc_complex(count)));
    if (!buffer) throw std::bad_alloc();
    return buffer;
}

/// FFTW ends the program when it lacks the memory for a plan. A plan's factors take about as much as the transform;
/// there must be memory for twice that, and some more for its bookkeeping.
void RequireRoomForPlans(std::size_t size) {
    constexpr std::size_t kNotes = 65536;
    Allocate(2 * size + kNotes);
}

CPlan Checked(fftw_plan plan) {
    if (plan == nullptr) throw std::bad_alloc();
    return CPlan(plan);
}

bool HasSmallFactorsOnly(std::size_t number) {
    for (const std::size_t factor : {2U, 3U, 5U}) {
        while (number % factor == 0) number /= factor;
    }
    return number == 1;
}

/// exp(-2 pi i k / size) for k up to a quarter of the size, as products of a coarse and a fine step: two short tables
/// cost less than one sine and cosine per line, and one product costs no digit that would show.
class CTurns {
public:
    explicit CTurns(std::size_t size) : m_fineBits(static_cast<int>(std::bit_width(size)) / 2) {
        const std::size_t fineCount = std::size_t{1} << m_fineBits;
        const std::size_t coarseCount = (size / 4 >> m_fineBits) + 1;
        for (std::size_t i = 0; i < fineCount; ++i) m_fine.push_back(Turn(i, size));
        for (std::size_t i = 0; i < coarseCount; ++i) m_coarse.push_back(Turn(i << m_fineBits, size));
    }

    CComplex operator[](std::size_t k) const {
        const CComplex& coarse = m_coarse[k >> m_fineBits];
        const CComplex& fine = m_fine[k & (m_fine.size() - 1)];
        return Product(coarse, fine);
    }

    /// a * b, written out: the library's operator also repairs infinities, which costs most of the time.
    static CComplex Product(const CComplex& a, const CComplex& b) {
        return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
    }

private:
    static CComplex Turn(std::size_t k, std::size_t size) {
        return std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(size));
    }

    int m_fineBits;
    std::vector<CComplex> m_fine, m_coarse;
};

/// Makes the spectrum of the samples out of that of the complex sequence (even samples, odd samples): lines k and
/// half - k hold the sum and the difference of both halves' lines, the odd half's turned by the half step that lies
/// between even and odd samples.
void Untangle(std::span<CComplex> spectrum, const CTurns& turns) {
    const std::size_t half = spectrum.size() - 1;
    const CComplex zero = spectrum[0];
    spectrum[0] = zero.real() + zero.imag();
    spectrum[half] = zero.real() - zero.imag();
    for (std::size_t k = 1; k <= half - k; ++k) {
        const CComplex left = spectrum[k];
        const CComplex right = std::conj(spectrum[half - k]);
        const CComplex even = 0.5 * (left + right);
        const CComplex odd = 0.5 * (left - right);
        const CComplex turned = CTurns::Product(turns[k], {odd.imag(), -odd.real()});
        spectrum[k] = even + turned;
        spectrum[half - k] = std::conj(even - turned);
    }
}

/// The reverse of Untangle, times 2.
void Tangle(std::span<CComplex> spectrum, const CTurns& turns) {
    const std::size_t half = spectrum.size() - 1;
    spectrum[0] = {spectrum[0].real() + spectrum[half].real(), spectrum[0].real() - spectrum[half].real()};
    for (std::size_t k = 1; k <= half - k; ++k) {
        const CComplex left = spectrum[k];
        const CComplex right = std::conj(spectrum[half - k]);
        const CComplex even = left + right;
        const CComplex odd = CTurns::Product(std::conj(turns[k]), left - right);
        spectrum[k] = {even.real() - odd.imag(), even.imag() + odd.real()};
        spectrum[half - k] = {even.real() + odd.imag(), odd.real() - even.imag()};
    }
}

}  // namespace

class CRealTransform::CPlans {
public:
    explicit CPlans(std::size_t size)
        : half(size / 2), samples(Allocate(half)), spectrum(Allocate(half + 1)), turns(size) {
        RequireRoomForPlans(half);
        forward = MakePlan(samples, spectrum, FFTW_FORWARD);
        backward = MakePlan(spectrum, samples, FFTW_BACKWARD);
    }

    std::span<CComplex> Spectrum() { return {spectrum.get(), half + 1}; }

    std::size_t half;
    CBuffer samples;
    CBuffer spectrum;
    CTurns turns;
    CPlan forward;
    CPlan backward;

private:
    [[nodiscard]] CPlan MakePlan(const CBuffer& from, const CBuffer& to, int sign) const {
        // The 64-bit interface, since a long signal with its padding may pass the range of int.
        const fftw_iodim64 dimension{static_cast<std::ptrdiff_t>(half), 1, 1};
        const std::scoped_lock lock(Planner());
        return Checked(fftw_plan_guru64_dft(1, &dimension, 0, nullptr, reinterpret_cast<fftw_complex*>(from.get()),
                                            reinterpret_cast<fftw_complex*>(to.get()), sign, FFTW_ESTIMATE));
    }
};

CRealTransform::CRealTransform(std::size_t size) : m_size(size), m_plans(std::make_unique<CPlans>(size)) {}

CRealTransform::~CRealTransform() = default;

std::size_t CRealTransform::FastSize(std::size_t size) {
    constexpr std::size_t kBlock = 64;
    constexpr std::size_t kManyBlocks = 512;
    constexpr std::size_t kManyTwos = 16;
    std::size_t blocks = size / kBlock + (size % kBlock == 0 ? 0 : 1);
    if (blocks == 0) blocks = 1;
    while (!HasSmallFactorsOnly(blocks) || (blocks > kManyBlocks && blocks % kManyTwos == 0)) ++blocks;
    return blocks * kBlock;
}

std::span<double> CRealTransform::Samples() {
    return {reinterpret_cast<double*>(m_plans->samples.get()), m_size};
}

std::span<std::complex<double>> CRealTransform::Spectrum() {
    return m_plans->Spectrum();
}

void CRealTransform::Forward() {
    fftw_execute(m_plans->forward.get());
    Untangle(m_plans->Spectrum(), m_plans->turns);
}

void CRealTransform::Backward() {
    Tangle(m_plans->Spectrum(), m_plans->turns);
    fftw_execute(m_plans->backward.get());
}
