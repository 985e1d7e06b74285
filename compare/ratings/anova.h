#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace ratings {

/// Statistics of the residual r = (m - c) / max |m|: measured minus computed, as share of the measured peak. 0 is
/// perfect.
struct CAnova {
    CValue mean;               ///< sum r / N, positive when the computed signal is smaller
    CValue standardDeviation;  ///< sqrt(sum (r - mean)^2 / (N - 1))
    CValue t;                  ///< mean / (standard deviation / sqrt(N)); grows with the sampling rate, so has no limit
};

/// Not available: everything for a reference of zero; deviation and t for a single sample; t for a constant residual,
/// whose deviation is at most 1e-12 of the mean. A quiet tail in the window divides the residual, so the values belong
/// to their window. Formulas to be confirmed against the roadside guideline W179.
CAnova Anova(const CSamples& samples);

/// Limits of the roadside acceptance, each included; numbers to be confirmed against the roadside guideline W179.
struct CRoadsideLimits {
    double magnitude = 0.40;  ///< on |M| of Sprague-Geers
    double phase = 0.40;      ///< on P of Sprague-Geers
    double mean = 0.05;       ///< on |mean|
    double standardDeviation = 0.35;
};

enum class CRoadsideVerdict { Pass, Fail };

inline constexpr std::string_view kPassWord = "pass";
/// kPassWord or "fail".
constexpr std::string_view NameOf(CRoadsideVerdict verdict) {
    return verdict == CRoadsideVerdict::Pass ? kPassWord : "fail";
}

/// The verdict, or why there is none.
struct CRoadside {
    std::optional<CRoadsideVerdict> verdict;
    std::string reason;  ///< empty with a verdict
};

/// Passes when magnitude, phase, mean and standard deviation all keep their limits. A value that is not available
/// leaves no verdict, with that value's reason.
CRoadside RoadsideAcceptance(const CSamples& samples, const CRoadsideLimits& limits = {});

}  // namespace ratings
