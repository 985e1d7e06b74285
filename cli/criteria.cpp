#include "cli/criteria.h"

#include "cli/join.h"
#include "cli/messages.h"
#include "compare/critical_values.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using ratings::CRatingCriterion;

namespace {

std::string Names(bool areCriticalOnly) {
    std::vector<std::string_view> names;
    for (const CCriterion& criterion : Criteria()) names.push_back(criterion.name);
    for (const CRatingCriterion& criterion : ratings::RatingCriteria()) {
        if (criterion.limit != nullptr || !areCriticalOnly) names.push_back(criterion.name);
    }
    return NameList(names);
}

bool IsJudgedBy(const CSummaryColumn& column, const std::vector<const CCriterion*>& criteria) {
    return column.judgment && std::any_of(criteria.begin(), criteria.end(), [&column](const CCriterion* criterion) {
               return criterion->limit == column.judgment->limit;
           });
}

/// Calls `take` with the signal and the cell of each rating that the criterion judges.
template <class Take>
void ForEachJudged(const std::vector<CSignal>& signalList, const CRatingCriterion& criterion,
                   const ratings::CRatingLimits& limits, Take take) {
    for (const CSignal& signal : signalList) {
        if (signal.Ratings() == nullptr) continue;
        for (const ratings::CRatingFamily& family : ratings::RatingFamilies()) {
            if (!ratings::IsChosen(signal.Ratings()->choice, family)) continue;
            for (const ratings::CRatedMember& member : family.members) {
                if (member.criterion == criterion.name) take(signal, CellOf(member, *signal.Ratings(), limits));
            }
        }
    }
}

}  // namespace

std::string CriterionNames() {
    return Names(false);
}

std::string CriticalValueNames() {
    return Names(true);
}

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

bool HasBadRating(const std::vector<CSignal>& signalList, const std::vector<const CRatingCriterion*>& criteria,
                  const ratings::CRatingLimits& limits) {
    bool isBadFound = false;
    for (const CRatingCriterion* const criterion : criteria) {
        ForEachJudged(signalList, *criterion, limits, [&isBadFound](const CSignal&, const ratings::CRatedCell& cell) {
            isBadFound = isBadFound || cell.verdict == CVerdict::Bad;
        });
    }
    return isBadFound;
}

std::vector<std::string> RatingsNotJudged(const std::vector<CSignal>& signalList,
                                          const std::vector<const CRatingCriterion*>& criteria) {
    std::vector<std::string> sentences;
    for (const CRatingCriterion* const criterion : criteria) {
        ForEachJudged(signalList, *criterion, {}, [&](const CSignal& signal, const ratings::CRatedCell& cell) {
            if (cell.reason.empty()) return;
            std::string sentence = cli_message::NotJudged(signal.GetPath(), criterion->name, cell.reason);
            // Values of one family mostly lack for the same reason.
            if (sentences.empty() || sentences.back() != sentence) sentences.push_back(std::move(sentence));
        });
    }
    return sentences;
}
