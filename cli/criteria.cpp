#include "cli/criteria.h"

#include <algorithm>

const std::array<CCriterion, 6> kCriteria = {{
    {"residual", &CCriticalValues::averageResidual, 2, 2},
    {"stddev", &CCriticalValues::standardDeviation, 3, 3},
    {"corridor", &CCriticalValues::corridor, 4, 4},
    {"correlation", &CCriticalValues::correlation, 5, 5},
    {"t", &CCriticalValues::tStatistic, 6, 6},
    {"moment", &CCriticalValues::moment, 7, 12},
}};

const CCriterion* FindCriterion(std::string_view name) {
    const auto* const found = std::find_if(kCriteria.begin(), kCriteria.end(),
                                           [name](const CCriterion& criterion) { return criterion.name == name; });
    return found == kCriteria.end() ? nullptr : &*found;
}

std::string CriterionNames() {
    std::string names;
    for (const CCriterion& criterion : kCriteria) {
        if (!names.empty()) {
            names += &criterion == &kCriteria.back() ? " and " : ", ";
        }
        names += criterion.name;
    }
    return names;
}

namespace {

bool IsBad(const CSummaryRow& row, const CCriterion& criterion) {
    for (int column = criterion.firstColumn; column <= criterion.lastColumn; ++column) {
        if (row.colors.at(static_cast<std::size_t>(column)) == CVerdictColor::Red) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool AnyBad(const CSummaryTable& table, const std::vector<const CCriterion*>& criteria) {
    return std::any_of(table.rows.begin(), table.rows.end(), [&criteria](const CSummaryRow& row) {
        return std::any_of(criteria.begin(), criteria.end(),
                           [&row](const CCriterion* criterion) { return IsBad(row, *criterion); });
    });
}
