#pragma once

#include "compare/ratings/value.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {

/// Where the expected numbers of a case come from. None of them was computed by this program.
enum class CCaseSource { PublicScorer, ClosedForm, Definition, PublishedSums, Annex };

struct CCaseSourceText {
    CCaseSource source;
    std::string_view name;  ///< as in the column of a table
    std::string_view text;  ///< for an auditor; whole sentences
};

/// One for each source.
std::span<const CCaseSourceText> CaseSources();
std::string_view NameOf(CCaseSource source);

/// How exactly an expected number is known.
struct CPrecision {
    double tolerance = 0.0;  ///< largest deviation that passes; >= 0
    int decimals = 0;        ///< decimals that are shown
};

/// Half a unit of the last printed digit.
inline constexpr CPrecision kSevenDigits{0.5e-7, 7};
inline constexpr CPrecision kFourDigits{0.5e-4, 4};
/// Closed forms are exact; this leaves room for the rounding of sums.
inline constexpr CPrecision kClosedForm{1e-9, 9};
inline constexpr CPrecision kWholeNumber{0.0, 0};

/// One value of a case: what it must be, and what this program computed.
struct CCheck {
    std::string metric;
    double expected = 0.0;
    CValue got;
    CPrecision precision;

    /// |got - expected|; no value where there is no number.
    [[nodiscard]] std::optional<double> Deviation() const;
    /// Whether there is a number within the tolerance.
    [[nodiscard]] bool Passes() const;
};

/// A pair of signals, and every value that is known of it.
struct CReferenceCase {
    std::string name;
    std::string signals;  ///< what they are; m is the reference, c the computed signal, i = 0 ... N - 1
    CCaseSource source = CCaseSource::ClosedForm;
    std::vector<CCheck> checks{};

    void Expect(std::string_view metric, double expected, const CValue& got, const CPrecision& precision);
    void Expect(std::string_view metric, double expected, double got, const CPrecision& precision);
};

struct CCheckCount {
    std::size_t all = 0;
    std::size_t failed = 0;
};

CCheckCount CountChecks(std::span<const CReferenceCase> cases);

}  // namespace ratings
