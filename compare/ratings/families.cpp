#include "compare/ratings/families.h"

#include "compare/ratings/anova.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/ratings/value.h"
#include "compare/verdict.h"
#include "files/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ratings {
namespace {

std::size_t PlaceOf(const CRatingFamily& family) {
    return static_cast<std::size_t>(&family - RatingFamilies().data());
}

bool Matches(const CRatingFamily& family, std::string_view name) {
    return name == kWholeSet || family.option == name || (name == kStandardSet && family.isStandard);
}

bool HasMemberOf(const CRatingFamily& family, const CRatingCriterion& criterion) {
    return std::ranges::any_of(family.members,
                               [&](const CRatedMember& member) { return member.criterion == criterion.name; });
}

std::string Joined(std::string_view a, std::string_view b) {
    std::string text(a);
    if (!a.empty() && !b.empty()) text += ' ';
    return text += b;
}

constexpr std::string_view kModifiedWord = "modified";

std::string_view WordIfModified(const CRatingFamily& family, const CRatingChoice& choice) {
    return family.isModified != nullptr && family.isModified(choice) ? kModifiedWord : std::string_view();
}

std::string NumberText(double number, int decimals) {
    return decimals == kSixDigits ? ks::GeneralText(number) : ks::FixedText(number, decimals);
}

CVerdict VerdictOf(bool isGood) {
    return isGood ? CVerdict::Good : CVerdict::Bad;
}

CVerdict Judge(double number, const CRatingCriterion& criterion, const CRatingLimits& limits) {
    if (criterion.limit == nullptr) return CVerdict::None;
    const double limit = limits.*criterion.limit;
    return VerdictOf(criterion.rule == CRatingRule::Above ? number > limit : std::abs(number) <= limit);
}

CRatedCell WithoutValue(CValueState state, const std::string& reason) {
    return {std::string(state == CValueState::Error ? kErrorMark : kUnavailableMark), CVerdict::None, reason};
}

/// Makes the cell of each kind of content.
class CCellMaker {
public:
    CCellMaker(const CRatedMember& member, const CRatingLimits& limits)
        : m_member(member), m_limits(limits), m_criterion(FindRatingCriterion(member.criterion)) {}

    CRatedCell operator()(const CValue& value) const {
        if (!value.IsNumber()) return WithoutValue(value.State(), value.Reason());
        const CVerdict verdict = m_criterion ? Judge(value.Number(), *m_criterion, m_limits) : CVerdict::None;
        return {NumberText(value.Number(), m_member.decimals), verdict, {}};
    }
    CRatedCell operator()(const CRatedWord& word) const {
        if (word.word.empty()) return WithoutValue(word.state, word.reason);
        const bool isVerdict = m_criterion != nullptr && m_criterion->rule == CRatingRule::Pass;
        return {std::string(word.word), isVerdict ? VerdictOf(word.word == kPassWord) : CVerdict::None, {}};
    }
    CRatedCell operator()(bool isSo) const { return {isSo ? "yes" : "no", CVerdict::None, {}}; }
    CRatedCell operator()(std::size_t count) const { return {std::to_string(count), CVerdict::None, {}}; }
    CRatedCell operator()(const CRatedInterval& interval) const {
        if (!interval.start.IsNumber()) return WithoutValue(interval.start.State(), interval.start.Reason());
        if (!interval.end.IsNumber()) return WithoutValue(interval.end.State(), interval.end.Reason());
        return {ks::GeneralText(interval.start.Number()) + " to " + ks::GeneralText(interval.end.Number()),
                CVerdict::None,
                {}};
    }
    CRatedCell operator()(const CParameterValues& /*values*/) const { return {}; }  // shown by the remarks

private:
    const CRatedMember& m_member;
    const CRatingLimits& m_limits;
    const CRatingCriterion* m_criterion;
};

/// State of a value; nothing for a fact about the values.
std::optional<CFamilyState> StateOf(const CRatedContent& content) {
    if (const auto* const value = std::get_if<CValue>(&content)) return CFamilyState{value->State(), value->Reason()};
    if (const auto* const word = std::get_if<CRatedWord>(&content)) return CFamilyState{word->state, word->reason};
    return std::nullopt;
}

}  // namespace

std::vector<std::string_view> RatingNames() {
    std::vector<std::string_view> names{kStandardSet, kWholeSet};
    for (const CRatingFamily& family : RatingFamilies()) {
        if (names.back() != family.option) names.push_back(family.option);
    }
    return names;
}

bool AddFamilies(CRatingChoice& choice, std::string_view name) {
    bool isKnown = false;
    for (const CRatingFamily& family : RatingFamilies()) {
        if (!Matches(family, name)) continue;
        choice.families.set(PlaceOf(family));
        isKnown = true;
    }
    return isKnown;
}

bool IsChosen(const CRatingChoice& choice, const CRatingFamily& family) {
    return choice.families.test(PlaceOf(family));
}

bool IsJudged(const CRatingChoice& choice, const CRatingCriterion& criterion) {
    return std::ranges::any_of(RatingFamilies(), [&](const CRatingFamily& family) {
        return IsChosen(choice, family) && HasMemberOf(family, criterion);
    });
}

std::string_view OptionOf(const CRatingCriterion& criterion) {
    for (const CRatingFamily& family : RatingFamilies()) {
        if (HasMemberOf(family, criterion)) return family.option;
    }
    return {};
}

std::string NameOf(const CRatingFamily& family, const CRatingChoice& choice) {
    return Joined(family.name, WordIfModified(family, choice));
}

std::string HeaderOf(const CRatingFamily& family, const CRatedMember& member, const CRatingChoice& choice) {
    return Joined(Joined(family.header, WordIfModified(family, choice)), member.header);
}

std::string DemandOf(const CRatingCriterion& criterion, const CRatingLimits& limits, const CRatingChoice& choice) {
    constexpr std::string_view kPlace = "%1";
    std::string demand(criterion.demand);
    const std::size_t place = demand.find(kPlace);
    if (criterion.limit != nullptr && place != std::string::npos) {
        demand.replace(place, kPlace.size(), ks::GeneralText(limits.*criterion.limit));
    }
    for (const CRatingFamily& family : RatingFamilies()) {
        const bool isRenamed = HasMemberOf(family, criterion) && demand.starts_with(family.header);
        if (isRenamed) {
            demand.replace(0, family.header.size(), Joined(family.header, WordIfModified(family, choice)));
        }
    }
    return demand;
}

std::string_view DirectionText(CPerfect perfect) {
    switch (perfect) {
        case CPerfect::None:
            return "";
        case CPerfect::Zero:
            return "0 is best";
        case CPerfect::One:
            break;
    }
    return "1 is best";
}

CRatedCell CellOf(const CRatedMember& member, const CSignalRatings& ratings, const CRatingLimits& limits) {
    return std::visit(CCellMaker(member, limits), member.content(ratings));
}

CFamilyState StateOf(const CRatingFamily& family, const CSignalRatings& ratings) {
    std::optional<CFamilyState> first;
    for (const CRatedMember& member : family.members) {
        const std::optional<CFamilyState> state = StateOf(member.content(ratings));
        if (!state) continue;
        if (state->state == CValueState::Number) return {};
        if (!first) first = state;
    }
    return first.value_or(CFamilyState{});
}

}  // namespace ratings
