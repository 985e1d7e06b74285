#include "compare/critical_values.h"

#include "files/number_text.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// The limit as given.
std::vector<std::string> Given(double limit) {
    return {ks::ShortestText(limit)};
}

// Numbers derived from a limit get six digits, for the shortest text of 0.07 * 100 is 7.000000000000001.

std::vector<std::string> InPercent(double limit) {
    return {ks::GeneralText(limit * 100.0)};
}

std::vector<std::string> LeftOfOneThenGiven(double limit) {
    return {ks::GeneralText(1.0 - limit), ks::ShortestText(limit)};
}

constexpr std::array kCriteria = {
    CCriterion{"residual", &CCriticalValues::averageResidual, 1488, "Average Residual < ", "% of PeakReference",
               "Average residual, in percent of the reference peak", "average residual %1 %, ",
               "below %1 % of the reference peak", Given},
    CCriterion{"stddev", &CCriticalValues::standardDeviation, 1490, "Standard Deviation < ", "% of PeakReference",
               "Standard deviation of the residual, in percent of the reference peak",
               "standard deviation %1 % of the\nreference peak; ", "below %1 % of the reference peak", Given},
    CCriterion{"corridor", &CCriticalValues::corridor, 1497, "Less than", "% outside 4 G corridor",
               "Share of the points outside the corridor, as a fraction", "share of points outside the corridor %1; ",
               "below %1 % of the points outside the corridor", InPercent},
    CCriterion{"correlation", &CCriticalValues::correlation, 1494, "Correlation Factor < ", "",
               "1 minus the correlation factor", "1 - correlation %1;\n", "above %1 (1 minus %2)", LeftOfOneThenGiven},
    CCriterion{"t", &CCriticalValues::tStatistic, 1499, "T Statistic <", "", "Magnitude of the T statistic",
               "T statistic %1; ", "below %1", Given},
    CCriterion{"moment", &CCriticalValues::moment, 1501, "Moment Differences <", "",
               "Each of the six moment differences", "moment differences %1.\n", "below %1", Given},
};

}  // namespace

CCriticalValues& CriticalValues() {
    static CCriticalValues values;
    return values;
}

std::span<const CCriterion> Criteria() {
    return kCriteria;
}

const CCriterion* FindCriterion(std::string_view name) {
    const auto* const found =
        std::find_if(kCriteria.begin(), kCriteria.end(), [name](const CCriterion& row) { return row.name == name; });
    return found == kCriteria.end() ? nullptr : &*found;
}

const CCriterion& CriterionOf(CCriticalValue limit) {
    const auto* const found =
        std::find_if(kCriteria.begin(), kCriteria.end(), [limit](const CCriterion& row) { return row.limit == limit; });
    assert(found != kCriteria.end());
    return *found;
}
