#include "cli/output/rating_report.h"

#include "cli/join.h"
#include "cli/output/display_text.h"
#include "cli/output/text_table.h"
#include "compare/document.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/signal.h"
#include "files/number_text.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

using ratings::CRatedCell;
using ratings::CRatedMember;
using ratings::CRatingChoice;
using ratings::CRatingCriterion;
using ratings::CRatingFamily;
using ratings::CRatingLimits;
using ratings::CSignalRatings;

constexpr std::size_t kLabelWidth = 13;  // as in the lines before the first table

/// A text about some of the signals.
struct CGroup {
    std::string text;
    std::vector<std::size_t> numbers;            // of the signals, ascending
    std::vector<const CRatedMember*> members{};  // that it is about; may be empty
};

/// Texts about signals, each once, in the order in which they first came.
class CGroups {
public:
    CGroup& Add(const std::string& text, std::size_t number) {
        const auto [place, isNew] = m_places.try_emplace(text, m_groups.size());
        if (isNew) m_groups.push_back({text, {}});
        CGroup& group = m_groups[place->second];
        if (group.numbers.empty() || group.numbers.back() != number) group.numbers.push_back(number);
        return group;
    }
    [[nodiscard]] const std::vector<CGroup>& All() const { return m_groups; }

private:
    std::vector<CGroup> m_groups;
    std::unordered_map<std::string, std::size_t> m_places;
};

std::string Numbered(std::size_t number) {
    return Join({"(", std::to_string(number), ")"});
}

/// "(1) to (3), (5)"
std::string NumbersText(const std::vector<std::size_t>& numbers) {
    std::string text;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
        if (!text.empty()) text += ", ";
        text += Numbered(numbers[i]);
        if (last > i) text += Join({last == i + 1 ? ", " : " to ", Numbered(numbers[last])});
        i = last + 1;
    }
    return text;
}

/// "ISO/TS 18571 of (1), (2): ...", a line per group; `nameOf` gives what the group's text is about.
template <class NameOf>
void AppendAbout(std::vector<std::string>& lines, const CGroups& groups, NameOf nameOf) {
    for (const CGroup& group : groups.All()) {
        lines.push_back(Join({nameOf(group), " of ", NumbersText(group.numbers), ": ", group.text}));
    }
}

/// Lines that begin after the label, which is in the first of them.
void AppendEntry(std::string& report, std::string_view label, std::string_view entry, std::size_t width) {
    std::string lines;
    AppendWrapped(lines, entry, kLabelWidth, width);
    std::string head(label);
    head.resize(kLabelWidth, ' ');
    report += head;
    report.append(lines, kLabelWidth);
}

void AppendEntries(std::string& report, std::string_view label, const std::vector<std::string>& entries,
                   std::size_t width) {
    for (const std::string& entry : entries) {
        AppendEntry(report, label, entry, width);
        label = {};
    }
}

/// Calls `take` with each rated signal, its ratings and its number.
template <class Take>
void ForEachRated(const CQuorvelDoc& document, Take take) {
    std::size_t number = 0;
    for (const CSignal& signal : document.ComputedSignals()) {
        ++number;
        if (signal.Ratings() != nullptr) take(*signal.Ratings(), number);
    }
}

/// Calls `take` with each family that was chosen.
template <class Take>
void ForEachFamily(const CRatingChoice& choice, Take take) {
    for (const CRatingFamily& family : ratings::RatingFamilies()) {
        if (IsChosen(choice, family)) take(family);
    }
}

bool IsColumn(const CRatedMember& member) {
    return !member.header.empty() && !member.isDetail;
}

// What the ratings were computed on.

std::string PairText(const CSignalRatings& rated, std::string_view xUnits) {
    std::string text = rated.pointCount == 0
                           ? std::string("no points")
                           : Join({std::to_string(rated.pointCount), " points, ", ks::GeneralText(rated.start), " to ",
                                   ks::GeneralText(rated.end), ", step ", ks::GeneralText(rated.step)});
    if (rated.pointCount > 0 && !xUnits.empty()) text += Join({" ", DisplayText(xUnits)});
    return text + (rated.filterClass ? Join({", CFC ", std::to_string(*rated.filterClass)}) : ", not filtered");
}

std::vector<std::string> PairLines(const CQuorvelDoc& document) {
    CGroups groups;
    const std::string& units = document.Reference().Record().GetXUNITS();
    ForEachRated(document,
                 [&](const CSignalRatings& rated, std::size_t number) { groups.Add(PairText(rated, units), number); });
    std::vector<std::string> lines;
    for (const CGroup& group : groups.All()) lines.push_back(Join({NumbersText(group.numbers), ": ", group.text}));
    return lines;
}

std::vector<std::string> RemarkLines(const CQuorvelDoc& document) {
    std::vector<std::string> lines;
    ForEachFamily(document.Ratings(), [&](const CRatingFamily& family) {
        if (family.remarks == nullptr) return;
        CGroups groups;
        ForEachRated(document, [&](const CSignalRatings& rated, std::size_t number) {
            for (const std::string& remark : family.remarks(rated)) groups.Add(remark, number);
        });
        AppendAbout(lines, groups, [&](const CGroup&) { return NameOf(family, document.Ratings()); });
    });
    return lines;
}

// The table.

bool HasWord(const CRatedMember& member) {
    const CRatingCriterion* const criterion = ratings::FindRatingCriterion(member.criterion);
    return criterion != nullptr && criterion->rule != ratings::CRatingRule::Pass;
}

CTextColumn MakeColumn(const CQuorvelDoc& document, const CRatingFamily& family, const CRatedMember& member,
                       const CRatingLimits& limits) {
    CTextColumn column;
    column.header = HeaderOf(family, member, document.Ratings());
    column.note = DirectionText(member.perfect);
    const bool hasWord = HasWord(member);
    ForEachRated(document, [&](const CSignalRatings& rated, std::size_t) {
        const CRatedCell cell = CellOf(member, rated, limits);
        column.cells.push_back({cell.text, cell.verdict, hasWord});
    });
    return column;
}

std::vector<CTextColumn> MakeColumns(const CQuorvelDoc& document, const CRatingLimits& limits) {
    std::vector<CTextColumn> columns;
    ForEachFamily(document.Ratings(), [&](const CRatingFamily& family) {
        for (const CRatedMember& member : family.members) {
            if (IsColumn(member)) columns.push_back(MakeColumn(document, family, member, limits));
        }
    });
    const bool isJudged = std::ranges::any_of(ratings::RatingCriteria(), [&](const CRatingCriterion& criterion) {
        return IsJudged(document.Ratings(), criterion);
    });
    if (isJudged) columns.push_back(BalanceOf(columns));
    return columns;
}

// Limits.

std::vector<std::string> DemandLines(const CRatingChoice& choice, const CRatingLimits& limits) {
    std::vector<std::string> lines;
    for (const CRatingCriterion& criterion : ratings::RatingCriteria()) {
        if (!IsJudged(choice, criterion)) continue;
        const bool isChanged =
            criterion.limit != nullptr && limits.*criterion.limit != CRatingLimits{}.*criterion.limit;
        const std::string demand = DemandOf(criterion, limits, choice);
        // A limit of the user's own has no other source.
        lines.push_back(isChanged ? Join({demand, ", as requested"}) : Join({demand, " (", criterion.source, ")"}));
    }
    return lines;
}

std::vector<std::string> LimitLines(const CRatingChoice& choice) {
    std::vector<std::string> lines;
    ForEachFamily(choice, [&](const CRatingFamily& family) {
        for (const CRatedMember& member : family.members) {
            if (!member.limit.empty()) lines.push_back(Join({HeaderOf(family, member, choice), ": ", member.limit}));
        }
    });
    return lines;
}

// Values that are not available.

std::string FamilyText(const CRatingFamily& family, const std::vector<const CRatedMember*>& members,
                       const CRatingChoice& choice) {
    std::string text = NameOf(family, choice);
    const auto columns = std::ranges::count_if(family.members, IsColumn);
    if (static_cast<std::size_t>(columns) == members.size()) return text;
    for (const CRatedMember* const member : members)
        text += Join({member == members.front() ? " " : ", ", member->header});
    return text;
}

/// The lines for the cells with this mark, once per family and reason.
std::vector<std::string> ReasonLines(const CQuorvelDoc& document, std::string_view mark) {
    std::vector<std::string> lines;
    ForEachFamily(document.Ratings(), [&](const CRatingFamily& family) {
        CGroups groups;
        ForEachRated(document, [&](const CSignalRatings& rated, std::size_t number) {
            for (const CRatedMember& member : family.members) {
                if (!IsColumn(member)) continue;
                const CRatedCell cell = CellOf(member, rated, {});
                if (cell.reason.empty() || cell.text != mark) continue;
                std::vector<const CRatedMember*>& members = groups.Add(cell.reason, number).members;
                if (std::ranges::find(members, &member) == members.end()) members.push_back(&member);
            }
        });
        AppendAbout(lines, groups,
                    [&](const CGroup& group) { return FamilyText(family, group.members, document.Ratings()); });
    });
    return lines;
}

}  // namespace

std::string RatingReport(const CQuorvelDoc& document, const CRatingLimits& limits, const CTextTableStyle& style) {
    if (document.Ratings().IsEmpty()) return {};
    std::string report = "\n";
    AppendEntries(report, "Ratings", PairLines(document), style.width);
    report += "\n";
    report += TextTable(MakeColumns(document, limits), style);
    report += "\n";
    AppendEntries(report, "Good is", DemandLines(document.Ratings(), limits), style.width);
    AppendEntries(report, "Limits", LimitLines(document.Ratings()), style.width);
    AppendEntries(report, "Remarks", RemarkLines(document), style.width);
    for (const std::string_view mark : {ratings::kUnavailableMark, ratings::kErrorMark}) {
        AppendEntries(report, mark, ReasonLines(document, mark), style.width);
    }
    return report;
}
