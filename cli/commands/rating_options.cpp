#include "cli/commands/rating_options.h"

#include "cli/arguments.h"
#include "cli/commands/compare_declarations.h"
#include "cli/criteria.h"
#include "cli/join.h"
#include "cli/messages.h"
#include "cli/usage_error.h"
#include "compare/critical_values.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/ratings/parameters.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using ratings::CRatingChoice;
using ratings::CRatingCriterion;

namespace {

std::vector<std::string_view> SplitAtCommas(std::string_view names) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t comma = std::min(names.find(','), names.size());
        parts.push_back(names.substr(0, comma));
        if (comma == names.size()) return parts;
        names.remove_prefix(comma + 1);
    }
}

/// NAME=VALUE as one of an option's values.
struct CNamedValue {
    std::string_view name;
    std::string value;
};

CNamedValue SplitAtEquals(std::string_view option, std::string_view example, std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) throw CUsageError(cli_message::ValueWithoutName(option, example, text));
    return {text.substr(0, equals), std::string(text.substr(equals + 1))};
}

/// An option for parameters, and what --ratings calls the family that they belong to.
struct CParameterOption {
    std::string_view option;
    std::string_view example;
    std::string_view family;
};

bool Includes(const CRatingChoice& choice, std::string_view family) {
    CRatingChoice asked;
    ratings::AddFamilies(asked, family);
    return (choice.families & asked.families).any();
}

template <class Options>
std::string ParameterNames() {
    std::vector<std::string_view> names;
    for (const auto& parameter : ratings::Parameters<Options>()) names.push_back(parameter.name);
    return NameList(names);
}

template <class Options>
void ReadParameters(const CArguments& arguments, const CParameterOption& from, const CRatingChoice& choice,
                    Options& options) {
    const std::vector<std::string>& values = arguments.Values(from.option);
    if (values.empty()) return;
    if (!Includes(choice, from.family)) throw CUsageError(cli_message::RatingsNeeded(from.option, from.family));
    for (const std::string& text : values) {
        const CNamedValue given = SplitAtEquals(from.option, from.example, text);
        const auto* const parameter = ratings::FindParameter<Options>(given.name);
        if (parameter == nullptr) {
            throw CUsageError(cli_message::NameNotKnown(from.option, ParameterNames<Options>(), given.name));
        }
        ratings::SetValue(options, *parameter, ReadNumber(from.option, given.value));
    }
    if (const auto fault = FaultOf(options)) throw CUsageError(cli_message::ParametersRefused(from.option, *fault));
}

/// The criterion of that name, which belongs to ratings; null for one of the table.
const CRatingCriterion* ReadRatingCriterion(std::string_view option, std::string_view given, std::string_view name,
                                            const CRatingChoice& choice) {
    const CRatingCriterion* const criterion = ratings::FindRatingCriterion(name);
    if (criterion != nullptr && !ratings::IsJudged(choice, *criterion)) {
        throw CUsageError(cli_message::RatingsNeeded(Join({option, given}), ratings::OptionOf(*criterion)));
    }
    return criterion;
}

void ReadCriticalValue(std::string_view text, const CRatingChoice& choice, CJudging& judging) {
    constexpr std::string_view kOption = "--critical";
    const CNamedValue given = SplitAtEquals(kOption, kCriticalExample, text);
    if (const CCriterion* const criterion = FindCriterion(given.name)) {
        judging.critical.*criterion->limit = ReadNumber(kOption, given.value);
        return;
    }
    const CRatingCriterion* const rated = ratings::FindRatingCriterion(given.name);
    if (rated == nullptr || rated->limit == nullptr) {
        throw CUsageError(cli_message::NameNotKnown(kOption, CriticalValueNames(), given.name));
    }
    ReadRatingCriterion(kOption, Join({" ", given.name}), given.name, choice);
    judging.ratingLimits.*rated->limit = ReadNumber(kOption, given.value);
}

void FailOn(const CRatingCriterion& criterion, CJudging& judging) {
    if (std::ranges::find(judging.failOnBadRating, &criterion) == judging.failOnBadRating.end()) {
        judging.failOnBadRating.push_back(&criterion);
    }
}

void FailOnAll(const CRatingChoice& choice, CJudging& judging) {
    for (const CCriterion& criterion : Criteria()) judging.failOnBad.push_back(&criterion);
    for (const CRatingCriterion& criterion : ratings::RatingCriteria()) {
        if (ratings::IsJudged(choice, criterion)) FailOn(criterion, judging);
    }
}

void FailOnName(std::string_view name, const CRatingChoice& choice, CJudging& judging) {
    constexpr std::string_view kOption = "--fail-on-bad";
    if (const CCriterion* const criterion = FindCriterion(name)) {
        judging.failOnBad.push_back(criterion);
    } else if (const auto* const rated = ReadRatingCriterion(kOption, Join({"=", name}), name, choice)) {
        FailOn(*rated, judging);
    } else {
        throw CUsageError(cli_message::NameNotKnown(kOption, CriterionNames(), name));
    }
}

}  // namespace

CRatingChoice ReadRatings(const CArguments& arguments) {
    CRatingChoice choice;
    const std::optional<std::string> set = arguments.Value("--ratings");
    if (set) {
        for (const std::string_view name : SplitAtCommas(*set)) {
            if (ratings::AddFamilies(choice, name)) continue;
            throw CUsageError(cli_message::NameNotKnown("--ratings", NameList(ratings::RatingNames()), name));
        }
    }
    ReadParameters(arguments, {"--iso-parameter", kIsoParameterExample, "iso18571"}, choice, choice.iso18571);
    ReadParameters(arguments, {"--cora-parameter", kCoraParameterExample, "cora"}, choice, choice.cora);
    return choice;
}

CJudging ReadJudging(const CArguments& arguments, const CRatingChoice& choice) {
    CJudging judging;
    for (const std::string& text : arguments.Values("--critical")) ReadCriticalValue(text, choice, judging);
    for (const std::string_view names : arguments.Values("--fail-on-bad")) {
        if (names.empty()) {
            FailOnAll(choice, judging);
            continue;
        }
        for (const std::string_view name : SplitAtCommas(names)) FailOnName(name, choice, judging);
    }
    return judging;
}
