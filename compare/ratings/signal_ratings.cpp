#include "compare/ratings/signal_ratings.h"

#include "compare/ratings/choice.h"
#include "compare/ratings/families.h"
#include "compare/ratings/pair.h"

#include <cstdint>
#include <new>
#include <optional>
#include <stdexcept>

namespace ratings {
namespace {

void Rate(const CRatingFamily& family, const CRatedPair& pair, CSignalRatings& ratings) {
    try {
        family.rate(pair, ratings);
    } catch (const std::bad_alloc&) {
        return;
    } catch (const std::length_error&) {  // more than any memory holds
        return;
    }
}

}  // namespace

CSignalRatings RatePair(const CRatedPair& pair, const CRatingChoice& choice, std::optional<std::int32_t> filterClass) {
    CSignalRatings ratings;
    ratings.choice = choice;
    ratings.pointCount = pair.samples.reference.size();
    ratings.step = pair.time.stepS;
    ratings.start = pair.time.startS;
    ratings.end = pair.End();
    ratings.filterClass = filterClass;
    for (const CRatingFamily& family : RatingFamilies()) {
        if (IsChosen(choice, family)) Rate(family, pair, ratings);
    }
    return ratings;
}

}  // namespace ratings
