#include "compare/plots/real_transform.h"

#include <fftw3.h>

#include <limits>
#include <new>
#include <type_traits>

namespace {

class CFftwFree {
public:
    void operator()(double* memory) const { fftw_free(memory); }
};

class CDestroyPlan {
public:
    void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};

using CBuffer = std::unique_ptr<double, CFftwFree>;
using CPlan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, CDestroyPlan>;

CBuffer Allocate(std::size_t count) {
    if (count > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double)) throw std::bad_alloc();
    CBuffer buffer(fftw_alloc_real(count));
    if (!buffer) throw std::bad_alloc();
    return buffer;
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

}  // namespace

class CRealTransform::CPlans {
public:
    explicit CPlans(std::size_t size) : buffer(Allocate(2 * (size / 2 + 1))) {
        // The 64-bit interface, since a long signal with its padding may pass the range of int.
        const fftw_iodim64 samples{static_cast<std::ptrdiff_t>(size), 1, 1};
        fftw_complex* const spectrum = reinterpret_cast<fftw_complex*>(buffer.get());
        forward = Checked(fftw_plan_guru64_dft_r2c(1, &samples, 0, nullptr, buffer.get(), spectrum, FFTW_ESTIMATE));
        backward = Checked(fftw_plan_guru64_dft_c2r(1, &samples, 0, nullptr, spectrum, buffer.get(), FFTW_ESTIMATE));
    }

    CBuffer buffer;
    CPlan forward;
    CPlan backward;
};

CRealTransform::CRealTransform(std::size_t size) : m_size(size), m_plans(std::make_unique<CPlans>(size)) {}

CRealTransform::~CRealTransform() = default;

std::size_t CRealTransform::FastSize(std::size_t size) {
    constexpr std::size_t kBlock = 64;
    std::size_t blocks = size / kBlock + (size % kBlock == 0 ? 0 : 1);
    if (blocks == 0) blocks = 1;
    while (!HasSmallFactorsOnly(blocks)) ++blocks;
    return blocks * kBlock;
}

std::span<double> CRealTransform::Samples() {
    return {m_plans->buffer.get(), m_size};
}

std::span<std::complex<double>> CRealTransform::Spectrum() {
    return {reinterpret_cast<std::complex<double>*>(m_plans->buffer.get()), m_size / 2 + 1};
}

void CRealTransform::Forward() {
    fftw_execute(m_plans->forward.get());
}

void CRealTransform::Backward() {
    fftw_execute(m_plans->backward.get());
}
