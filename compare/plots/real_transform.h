#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

/// The discrete Fourier transform of a real sequence and back, in place on a buffer of its own.
///
/// Plans are estimated, never measured, so the same input gives the same bits in every run. One thread only: FFTW's
/// planner is shared by the whole process.
class CRealTransform {
public:
    /// @param size  number of samples, > 0; a FastSize is fast
    /// @throws std::bad_alloc when memory or a plan cannot be had
    explicit CRealTransform(std::size_t size);
    CRealTransform(const CRealTransform&) = delete;
    CRealTransform& operator=(const CRealTransform&) = delete;
    ~CRealTransform();

    /// The smallest size >= `size` that FFTW handles fast: a multiple of 64 without prime factors above 5.
    static std::size_t FastSize(std::size_t size);

    std::size_t Size() const { return m_size; }

    /// Size() samples; valid until Forward, and after Backward.
    std::span<double> Samples();
    /// Size() / 2 + 1 values for frequencies 0 ... Size() / 2, in the memory of the samples; valid after Forward.
    std::span<std::complex<double>> Spectrum();

    /// Turns the samples into their spectrum.
    void Forward();
    /// Turns the spectrum into its samples times Size().
    void Backward();

private:
    class CPlans;
    std::size_t m_size;
    std::unique_ptr<CPlans> m_plans;
};
