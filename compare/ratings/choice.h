#pragma once

#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"

#include <bitset>
#include <cstddef>

namespace ratings {

/// Room for families; see RatingFamilies().
inline constexpr std::size_t kMostFamilies = 32;

/// Which families of ratings a run computes, and with which parameters. The default computes none.
struct CRatingChoice {
    std::bitset<kMostFamilies> families;  ///< by their places in RatingFamilies(); see AddFamilies
    CIso18571Options iso18571;            ///< FaultOf() gives nothing for them
    CCoraOptions cora;                    ///< the same

    [[nodiscard]] bool IsEmpty() const { return families.none(); }
    bool operator==(const CRatingChoice&) const = default;
};

}  // namespace ratings
