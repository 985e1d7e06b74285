#pragma once

#include "compare/ratings/anova.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/pair.h"
#include "compare/ratings/single_values.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace ratings {

/// The ratings of one signal, and what they were computed on. compare/ratings/families.h is the table of them: to
/// show ratings, read that table, not the members below.
struct CSignalRatings {
    CRatingChoice choice;
    std::size_t pointCount = 0;  ///< of the pair; 0: nothing was rated
    double step = 0.0;           ///< of the pair, units of X
    /// First and last X of the pair; meaningless without points.
    double start = 0.0, end = 0.0;
    /// Channel class at which the run filtered the computed signal; no value: it did not.
    std::optional<std::int32_t> filterClass;

    // The families. One that was chosen and has no value here failed for lack of memory.
    std::optional<CIso18571Rating> iso18571;
    std::optional<CMagnitudePhase> spragueGeers, geers, geersCsa, russell;
    std::optional<CKnowlesGear> knowlesGear;
    std::optional<CAnova> anova;
    std::optional<CRoadside> roadside;
    std::optional<CSingleValues> values;
    std::optional<CCora> cora;
};

/// Rates a pair with the chosen families. One that lacks memory is left without a value; the others are still rated.
/// @throws ks::CError for options of the choice that are refused
CSignalRatings RatePair(const CRatedPair& pair, const CRatingChoice& choice, std::optional<std::int32_t> filterClass);

}  // namespace ratings
