#include "cli/commands/rating_help.h"

#include "cli/help_text.h"
#include "cli/join.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/families.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/parameters.h"
#include "files/number_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ratings::CPerfect;
using ratings::CRatedMember;
using ratings::CRatingFamily;

/// "ISO/TS 18571, Sprague-Geers, ANOVA and Roadside acceptance"
std::string StandardNames() {
    std::vector<std::string_view> names;
    for (const CRatingFamily& family : ratings::RatingFamilies()) {
        if (family.isStandard) names.push_back(family.name);
    }
    return NameList(names);
}

CHelpSection Options() {
    return {"Ratings",
            {{"--ratings SET",
              Join({"Also rate every signal, with the scores that guidelines ask for, in a second table. SET is ",
                    ratings::kStandardSet, " (", StandardNames(), "), ", ratings::kWholeSet,
                    ", or names separated by commas, listed under \"Names of ratings\". ",
                    "Each signal is rated as it was compared. CSV and JSON get the ratings, too."})},
             {"--iso-parameter NAME=VALUE",
              "Change a parameter of ISO/TS 18571. The score is then called modified. May be repeated."},
             {"--cora-parameter NAME=VALUE",
              "Change a parameter of the CORA-like rating. The score is then called modified. May be repeated."}}};
}

/// "R, Z and EP (1 is best)"; empty without such values.
std::string ValueNames(const CRatingFamily& family, CPerfect perfect) {
    std::vector<std::string_view> names;
    for (const CRatedMember& member : family.members) {
        if (member.perfect == perfect && !member.header.empty() && !member.isDetail) names.push_back(member.header);
    }
    if (names.empty()) return {};
    const std::string_view direction = DirectionText(perfect);
    return direction.empty() ? NameList(names) : Join({NameList(names), " (", direction, ")"});
}

std::string FamilyText(const CRatingFamily& family) {
    std::string text = Join({family.name, ": "});
    std::string_view separator;
    for (const CPerfect perfect : {CPerfect::One, CPerfect::Zero, CPerfect::None}) {
        const std::string names = ValueNames(family, perfect);
        if (names.empty()) continue;
        text += Join({separator, names});
        separator = "; ";
    }
    return Join({text, ". ", family.standing});
}

CHelpSection Names() {
    CHelpSection section{"Names of ratings", {}};
    for (const CRatingFamily& family : ratings::RatingFamilies()) {
        std::vector<CHelpEntry>& entries = section.entries;
        if (!entries.empty() && entries.back().term == family.option) {
            entries.back().text += Join({" ", FamilyText(family)});
        } else {
            entries.push_back({std::string(family.option), FamilyText(family)});
        }
    }
    return section;
}

template <class Options>
std::string ParameterText() {
    static const Options kDefaults;  // static: g++ 12 takes an unset optional of a local one for a read of garbage
    std::string text;
    for (const auto& parameter : ratings::Parameters<Options>()) {
        const std::optional<double> value = ValueOf(kDefaults, parameter);
        text += Join({text.empty() ? "" : "; ", parameter.name, " (", value ? ks::ShortestText(*value) : "not set",
                      "), ", parameter.meaning});
    }
    return Join({text, "."});
}

CHelpSection Parameters() {
    return {"Parameters of ratings, with their defaults",
            {{"NAMEs of --iso-parameter", ParameterText<ratings::CIso18571Options>()},
             {"NAMEs of --cora-parameter", ParameterText<ratings::CCoraOptions>()}}};
}

std::string WithoutPlace(std::string_view demand) {
    return std::string(demand.substr(0, demand.find(" %1")));
}

}  // namespace

std::vector<CHelpSection> RatingHelp() {
    return {Options(), Names(), Parameters()};
}

std::vector<CHelpEntry> RatingCriteriaHelp() {
    std::vector<CHelpEntry> entries;
    for (const ratings::CRatingCriterion& criterion : ratings::RatingCriteria()) {
        if (criterion.limit == nullptr) continue;
        const std::string value = ks::ShortestText(ratings::CRatingLimits{}.*criterion.limit);
        entries.push_back({std::string(criterion.name),
                           Join({"Good is ", WithoutPlace(criterion.demand), " this value (", criterion.source,
                                 "). Needs --ratings with ", OptionOf(criterion), ". Default: ", value, "."})});
    }
    return entries;
}
