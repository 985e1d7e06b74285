#pragma once

#include "compare/plots/real_transform.h"

#include <complex>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// Covariance of two sequences for every lag L = -maxLag ... maxLag.
///
/// With n the length of the shorter one, of which alone the values count, and the means of both over those n values:
///
///     value(L) = sum over j of (a[j] - mean a) * (b[j - L] - mean b) / overlap,   overlap = n - |L|,
///
/// j running over the overlap. Only the overlap divides; the means are always those of all n values. From |L| = n on
/// nothing overlaps: the formula's 0 / 0 is not-a-number at |L| = n, and 0 / overlap is -0.0 beyond. A value that is
/// not finite makes a mean that is not, and most values not-a-number.
///
/// Short sequences or few lags are summed plainly, otherwise a Fourier transform does all lags at once, of a long
/// sequence part by part. All are within 1e-12 times the product of the standard deviations of sums in extended
/// precision.
///
/// @param maxLag  >= 0
/// @return        2 * maxLag + 1 values, lag -maxLag first
/// @throws        std::bad_alloc
std::vector<double> Covariances(std::span<const double> a, std::span<const double> b, std::int32_t maxLag);

/// How the sums of all lags are made.
enum class CCovarianceMethod { Automatic, PlainSums, Transform, Sections };

/// Values less their mean, scaled by a power of two so that no product of two of them leaves the range of a double.
/// Each is formed when it is read, so a long sequence is never copied; the source must outlive the object.
class CCenteredView {
public:
    CCenteredView() = default;
    explicit CCenteredView(std::span<const double> source);

    [[nodiscard]] std::size_t size() const { return m_source.size(); }
    double operator[](std::size_t i) const { return m_source[i] * m_scale - m_mean - m_missed; }
    /// (*this)[i] * 2^Exponent() is the difference from the mean.
    [[nodiscard]] int Exponent() const { return m_exponent; }
    /// False: some value was infinite or not a number; values are then as IEEE gives them.
    [[nodiscard]] bool IsFinite() const { return m_isFinite; }
    /// The values in `target`, which is replaced.
    void CopyTo(std::vector<double>& target) const;

private:
    std::span<const double> m_source;
    double m_scale = 1.0;
    double m_mean = 0.0;    ///< of the scaled values
    double m_missed = 0.0;  ///< what the mean's own rounding left
    int m_exponent = 0;
    bool m_isFinite = true;
};

/// The same as values of its own.
struct CCentered {
    std::vector<double> values;
    int exponent = 0;
    bool isFinite = true;
};

CCentered Center(std::span<const double> values);

/// Covariances of one sequence with itself and with any number of others. What the lags of two pairs have in common
/// is done once: the transform's plan, and the first sequence's transform.
class CCovariances {
public:
    explicit CCovariances(std::int32_t maxLag, CCovarianceMethod method = CCovarianceMethod::Automatic);

    /// Sets the first sequence of the pairs from now on, which must exist as long as there are such pairs.
    void SetFirst(std::span<const double> a);
    /// The first sequence paired with itself. The values of L and -L are the same bits.
    std::vector<double> WithItself();
    /// The first sequence paired with `b`, of which as many values count as the first has.
    /// `b` must not be shorter.
    std::vector<double> With(std::span<const double> b);

private:
    [[nodiscard]] std::size_t Count() const { return m_first.size(); }
    [[nodiscard]] std::size_t Reach() const;  ///< the largest |lag| at which anything overlaps
    [[nodiscard]] bool ShouldUseTransform(const CCenteredView& b) const;
    void PrepareTransform();
    std::vector<double> Values(const CCenteredView& b);
    void SumPlainly(const CCenteredView& b, std::span<double> sums);
    void SumByTransform(const CCenteredView& b, std::span<double> sums);
    [[nodiscard]] bool ShouldUseSections() const;
    void PrepareSections();
    void SumBySections(const CCenteredView& b, std::span<double> sums);
    void SumSmallOverlaps(const CCenteredView& b, std::span<double> sums) const;
    template <class First, class Second>
    void SumShifts(const First& a, const Second& b, bool isSame, std::size_t firstShift, std::span<double> sums) const;

    std::int64_t m_maxLag;
    CCovarianceMethod m_method;
    CCenteredView m_first;
    // Memory that serves pair after pair.
    std::vector<double> m_firstValues, m_secondValues;
    std::vector<std::complex<double>> m_firstSpectrum;  ///< of m_first at the transform's size; empty until needed
    std::unique_ptr<CRealTransform> m_sectionTransform;
    std::vector<std::complex<double>> m_partSpectrum, m_products;
    std::unique_ptr<CRealTransform> m_transform;
};
