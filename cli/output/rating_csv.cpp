#include "cli/output/rating_csv.h"

#include "cli/join.h"
#include "cli/output/csv_table.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/families.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/signal.h"
#include "files/number_text.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ratings::CRatedCell;
using ratings::CRatedMember;
using ratings::CRatingChoice;
using ratings::CRatingFamily;
using ratings::CSignalRatings;

/// A column about what was rated.
struct CPairColumn {
    std::string_view header;
    std::string (*text)(const CSignalRatings& rated);
};

std::string IfRated(const CSignalRatings& rated, double number) {
    return rated.pointCount == 0 ? std::string() : ks::ShortestText(number);
}

constexpr std::array kPairColumns = {
    CPairColumn{"Rated points", [](const CSignalRatings& rated) { return std::to_string(rated.pointCount); }},
    CPairColumn{"Rated from", [](const CSignalRatings& rated) { return IfRated(rated, rated.start); }},
    CPairColumn{"Rated to", [](const CSignalRatings& rated) { return IfRated(rated, rated.end); }},
    CPairColumn{"Rated step", [](const CSignalRatings& rated) { return IfRated(rated, rated.step); }},
    CPairColumn{"Rated filter class",
                [](const CSignalRatings& rated) {
                    return rated.filterClass ? std::to_string(*rated.filterClass) : std::string("none");
                }},
};

std::string Header(const CRatingFamily& family, const CRatedMember& member, const CRatingChoice& choice) {
    const std::string header = HeaderOf(family, member, choice);
    const std::string_view direction = DirectionText(member.perfect);
    return direction.empty() ? header : Join({header, " (", direction, ")"});
}

std::string Text(const CRatedMember& member, const CSignalRatings& rated) {
    const CRatedCell cell = CellOf(member, rated, {});
    return cell.reason.empty() ? cell.text : Join({cell.text, ": ", cell.reason});
}

/// Calls `take` with each column of a chosen family.
template <class Take>
void ForEachColumn(const CRatingChoice& choice, Take take) {
    for (const CRatingFamily& family : ratings::RatingFamilies()) {
        if (!IsChosen(choice, family)) continue;
        for (const CRatedMember& member : family.members) {
            if (!member.header.empty()) take(family, member);
        }
    }
}

std::vector<std::string> RowOf(const CSignal& signal) {
    std::vector<std::string> row;
    if (signal.Ratings() == nullptr) return row;
    const CSignalRatings& rated = *signal.Ratings();
    for (const CPairColumn& column : kPairColumns) row.push_back(column.text(rated));
    ForEachColumn(rated.choice,
                  [&](const CRatingFamily&, const CRatedMember& member) { row.push_back(Text(member, rated)); });
    return row;
}

}  // namespace

CCsvColumns RatingColumns(const std::vector<CSignal>& signalList, const CRatingChoice& choice) {
    CCsvColumns columns;
    if (choice.IsEmpty()) return columns;
    for (const CPairColumn& column : kPairColumns) columns.headers.emplace_back(column.header);
    ForEachColumn(choice, [&](const CRatingFamily& family, const CRatedMember& member) {
        columns.headers.push_back(Header(family, member, choice));
    });
    for (const CSignal& signal : signalList) columns.rows.push_back(RowOf(signal));
    return columns;
}
