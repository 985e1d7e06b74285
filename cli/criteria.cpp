#include "cli/criteria.h"

#include "compare/critical_values.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

std::string CriterionNames() {
    const std::span<const CCriterion> criteria = Criteria();
    std::string names;
    for (const CCriterion& criterion : criteria) {
        if (!names.empty()) {
            names += &criterion == &criteria.back() ? " and " : ", ";
        }
        names += criterion.name;
    }
    return names;
}

namespace {

bool IsJudgedBy(const CSummaryColumn& column, const std::vector<const CCriterion*>& criteria) {
    return column.judgment && std::any_of(criteria.begin(), criteria.end(), [&column](const CCriterion* criterion) {
               return criterion->limit == column.judgment->limit;
           });
}

}  // namespace

bool HasBad(const CSummaryTable& table, const std::vector<const CCriterion*>& criteria) {
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        const bool isBad = IsJudgedBy(table.columns[column], criteria) &&
                           std::any_of(table.rows.begin(), table.rows.end(), [column](const CSummaryRow& row) {
                               return row[column].verdict == CVerdict::Bad;
                           });
        if (isBad) {
            return true;
        }
    }
    return false;
}
