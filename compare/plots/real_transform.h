#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

/// The discrete Fourier transform of a real sequence and back, between two buffers of its own.
///
/// Even and odd samples go as real and imaginary parts through one complex transform of half the size; FFTW plans that
/// thirty times faster than its real transforms, whose plans would cost more than all else here. Plans are estimated,
/// never measured, so the same input gives the same bits in every run. Several threads may have a transform each; their
/// plans are made one after another, since FFTW's planner is shared by the whole process.
class CRealTransform {
public:
    /// @param size  number of samples, even, > 0; a FastSize is fast
    /// @throws std::bad_alloc when there is no memory or no plan
    explicit CRealTransform(std::size_t size);
    CRealTransform(const CRealTransform&) = delete;
    CRealTransform& operator=(const CRealTransform&) = delete;
    ~CRealTransform();

    /// A size >= `size` that FFTW handles fast: a multiple of 64 without prime factors above 5 and, when large, without
    /// many factors 2, whose strides compete for the same cache lines.
    static std::size_t FastSize(std::size_t size);

    [[nodiscard]] std::size_t Size() const { return m_size; }

    /// Size() samples; what Forward reads and Backward writes.
    std::span<double> Samples();
    /// Size() / 2 + 1 values for frequencies 0 ... Size() / 2; what Forward writes, and Backward reads and destroys.
    /// The first and the last must be real for Backward.
    std::span<std::complex<double>> Spectrum();

    /// The spectrum of the samples.
    void Forward();
    /// The samples of the spectrum, times Size().
    void Backward();

private:
    class CPlans;
    std::size_t m_size;
    std::unique_ptr<CPlans> m_plans;
};
