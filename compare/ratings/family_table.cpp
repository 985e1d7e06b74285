// The rows of the table of ratings.

#include "compare/ratings/anova.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/families.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/messages.h"
#include "compare/ratings/pair.h"
#include "compare/ratings/parameters.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/ratings/single_values.h"
#include "compare/ratings/value.h"
#include "files/number_text.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

using CIso = CIso18571Rating;

/// A value of a family, or an error where the family lacked memory.
template <auto family, auto value>
CRatedContent Value(const CSignalRatings& ratings) {
    const auto& rated = ratings.*family;
    return rated ? (*rated).*value : CValue::Error(rating_message::kNoMemoryForRating);
}

/// A fact about a family; that of a default family where it lacked memory.
template <auto family, auto fact>
CRatedContent Fact(const CSignalRatings& ratings) {
    const auto& rated = ratings.*family;
    return rated ? (*rated).*fact : decltype((*rated).*fact){};
}

CRatedWord NoWord(CValueState state, std::string_view reason) {
    return {{}, state, std::string(reason)};
}

CRatedContent Grade(const CSignalRatings& ratings) {
    if (!ratings.iso18571) return NoWord(CValueState::Error, rating_message::kNoMemoryForRating);
    const CIso& rating = *ratings.iso18571;
    if (!rating.grade) return NoWord(rating.r.State(), rating.r.Reason());
    return CRatedWord{NameOf(*rating.grade), CValueState::Number, {}};
}

CRatedContent Verdict(const CSignalRatings& ratings) {
    if (!ratings.roadside) return NoWord(CValueState::Error, rating_message::kNoMemoryForRating);
    if (!ratings.roadside->verdict) return NoWord(CValueState::Unavailable, ratings.roadside->reason);
    return CRatedWord{NameOf(*ratings.roadside->verdict), CValueState::Number, {}};
}

CRatedContent Interval(const CSignalRatings& ratings) {
    if (!ratings.cora) return CRatedInterval{};
    return CRatedInterval{ratings.cora->startS, ratings.cora->endS};
}

CRatedContent CoraParameters(const CSignalRatings& ratings) {
    CParameterValues values;
    for (const auto& parameter : Parameters<CCoraOptions>()) {
        values.emplace_back(parameter.name, ValueOf(ratings.choice.cora, parameter));
    }
    return values;
}

/// "A_THRES 0.03, B_THRES 0.075", of the parameters that are set and, unless all are wanted, not at their defaults.
template <class Options>
std::string ParameterText(const Options& options, bool areAllWanted) {
    static const Options kDefaults;  // static: g++ 12 takes an unset optional of a local one for a read of garbage
    std::string text;
    for (const CRatingParameter<Options>& parameter : Parameters<Options>()) {
        const std::optional<double> value = ValueOf(options, parameter);
        if (!value || (!areAllWanted && value == ValueOf(kDefaults, parameter))) continue;
        if (!text.empty()) text += ", ";
        text += std::string(parameter.name) + " " + ks::ShortestText(*value);
    }
    return text;
}

std::vector<std::string> IsoRemarks(const CSignalRatings& ratings) {
    std::vector<std::string> remarks;
    const std::string changed = ParameterText(ratings.choice.iso18571, false);
    if (!changed.empty()) remarks.push_back(rating_message::ParametersUsed(changed));
    if (!ratings.iso18571) return remarks;
    const CIso& rating = *ratings.iso18571;
    if (rating.isResampled && rating.pointCount > 0) {
        remarks.push_back(rating_message::ResampledForIso(rating.pointCount));
    }
    if (rating.isMagnitudeByRule) remarks.emplace_back(rating_message::kMagnitudeByRule);
    if (rating.isSlopeByRule) remarks.emplace_back(rating_message::kSlopeByRule);
    return remarks;
}

std::vector<std::string> CoraRemarks(const CSignalRatings& ratings) {
    std::vector<std::string> remarks{rating_message::ParametersUsed(ParameterText(ratings.choice.cora, true))};
    if (ratings.cora && ratings.cora->startS.IsNumber() && ratings.cora->endS.IsNumber()) {
        remarks.push_back(rating_message::EvaluationInterval(ks::GeneralText(ratings.cora->startS.Number()) + " to " +
                                                             ks::GeneralText(ratings.cora->endS.Number())));
    }
    return remarks;
}

bool IsIsoModified(const CRatingChoice& choice) {
    return choice.iso18571 != CIso18571Options{};
}

bool IsCoraModified(const CRatingChoice& choice) {
    return choice.cora != CCoraOptions{};
}

/// From the choice, which is known even where the rating lacked memory.
template <bool (*isModified)(const CRatingChoice&)>
CRatedContent Modified(const CSignalRatings& ratings) {
    return isModified(ratings.choice);
}

constexpr auto kIso = &CSignalRatings::iso18571;
constexpr auto kKnowlesGear = &CSignalRatings::knowlesGear;
constexpr auto kAnova = &CSignalRatings::anova;
constexpr auto kValues = &CSignalRatings::values;
constexpr auto kCora = &CSignalRatings::cora;

constexpr std::array kIsoMembers = {
    CRatedMember{
        .name = "resampled", .header = "resampled", .content = Fact<kIso, &CIso::isResampled>, .isDetail = true},
    CRatedMember{.name = "pointCount", .header = "points", .content = Fact<kIso, &CIso::pointCount>, .isDetail = true},
    CRatedMember{.name = "modified", .header = "", .content = Modified<IsIsoModified>},
    CRatedMember{"r", "R", Value<kIso, &CIso::r>, CPerfect::One, 3, "iso",
                 "0.5 at every location in far-side virtual testing, from a public code"},
    CRatedMember{"z", "Z", Value<kIso, &CIso::z>, CPerfect::One},
    CRatedMember{"ep", "EP", Value<kIso, &CIso::ep>, CPerfect::One},
    CRatedMember{"em", "EM", Value<kIso, &CIso::em>, CPerfect::One},
    CRatedMember{"es", "ES", Value<kIso, &CIso::es>, CPerfect::One},
    CRatedMember{"lag", "lag", Value<kIso, &CIso::lag>, CPerfect::Zero, kWhole},
    CRatedMember{"correlation", "correlation", Value<kIso, &CIso::correlation>, CPerfect::One},
    CRatedMember{
        .name = "grade",
        .header = "grade",
        .content = Grade,
        .limit = "R above 0.94 excellent, 0.80 good, 0.58 fair, else poor, from a public note, to be confirmed"},
};

/// Magnitude, phase and combined error; `limits` are those of the three.
struct CTriple {
    std::string_view criterion{};
    std::string_view combinedLimit{};
};

template <auto family>
constexpr std::array<CRatedMember, 3> MagnitudePhase(const CTriple& judged) {
    return {{{"m", "M", Value<family, &CMagnitudePhase::magnitude>, CPerfect::Zero, 3, judged.criterion},
             {"p", "P", Value<family, &CMagnitudePhase::phase>, CPerfect::Zero, 3, judged.criterion},
             {"c", "C", Value<family, &CMagnitudePhase::combined>, CPerfect::Zero, 3, {}, judged.combinedLimit}}};
}

constexpr auto kSpragueGeersMembers = MagnitudePhase<&CSignalRatings::spragueGeers>(
    {"sprague-geers", "traditionally below 0.20 is good, to be confirmed"});
constexpr auto kGeersMembers = MagnitudePhase<&CSignalRatings::geers>({});
constexpr auto kGeersCsaMembers = MagnitudePhase<&CSignalRatings::geersCsa>({});
constexpr auto kRussellMembers = MagnitudePhase<&CSignalRatings::russell>(
    {"", "up to 0.15 excellent, up to 0.28 acceptable, else poor, to be confirmed"});

constexpr std::array kKnowlesGearMembers = {
    CRatedMember{"m", "M", Value<kKnowlesGear, &CKnowlesGear::magnitude>, CPerfect::Zero},
    CRatedMember{"toa", "TOA", Value<kKnowlesGear, &CKnowlesGear::arrival>, CPerfect::Zero},
    CRatedMember{"c", "C", Value<kKnowlesGear, &CKnowlesGear::combined>, CPerfect::Zero},
};

constexpr std::array kAnovaMembers = {
    CRatedMember{"mean", "mean", Value<kAnova, &CAnova::mean>, CPerfect::Zero, 3, "anova-mean"},
    CRatedMember{"standardDeviation", "deviation", Value<kAnova, &CAnova::standardDeviation>, CPerfect::Zero, 3,
                 "anova-deviation"},
    CRatedMember{"t", "T", Value<kAnova, &CAnova::t>, CPerfect::Zero},
};

constexpr std::array kRoadsideMembers = {
    CRatedMember{.name = "verdict", .header = "verdict", .content = Verdict, .criterion = "roadside"},
};

constexpr std::array kSingleValues = {
    CRatedMember{"rms", "RMS error", Value<kValues, &CSingleValues::rms>, CPerfect::Zero, kSixDigits},
    CRatedMember{"nrmsePeak", "NRMSE by peak", Value<kValues, &CSingleValues::nrmsePeak>, CPerfect::Zero},
    CRatedMember{"nrmseRange", "NRMSE by range", Value<kValues, &CSingleValues::nrmseRange>, CPerfect::Zero},
    CRatedMember{"nrmseRms", "NRMSE by RMS", Value<kValues, &CSingleValues::nrmseRms>, CPerfect::Zero},
    CRatedMember{"pearson", "Pearson", Value<kValues, &CSingleValues::pearson>, CPerfect::One},
    CRatedMember{"nard", "NARD", Value<kValues, &CSingleValues::nard>, CPerfect::One},
    CRatedMember{"r2", "R2", Value<kValues, &CSingleValues::r2>, CPerfect::One},
    CRatedMember{"regression", "Regression", Value<kValues, &CSingleValues::regression>, CPerfect::One},
    CRatedMember{"theil", "Theil", Value<kValues, &CSingleValues::theil>, CPerfect::Zero},
    CRatedMember{"whang", "Whang", Value<kValues, &CSingleValues::whang>, CPerfect::Zero},
    CRatedMember{"zilliacus", "Zilliacus", Value<kValues, &CSingleValues::zilliacus>, CPerfect::Zero},
    CRatedMember{"rss", "RSS", Value<kValues, &CSingleValues::rss>, CPerfect::Zero},
    CRatedMember{"wifac", "WIFac", Value<kValues, &CSingleValues::wifac>, CPerfect::One},
};

constexpr std::array kCoraMembers = {
    CRatedMember{.name = "modified", .header = "", .content = Modified<IsCoraModified>},
    CRatedMember{"corridor", "corridor", Value<kCora, &CCora::corridor>, CPerfect::One},
    CRatedMember{"shape", "shape", Value<kCora, &CCora::shape>, CPerfect::One},
    CRatedMember{"size", "size", Value<kCora, &CCora::size>, CPerfect::One},
    CRatedMember{"phase", "phase", Value<kCora, &CCora::phase>, CPerfect::One},
    CRatedMember{"crossCorrelation", "cross correlation", Value<kCora, &CCora::crossCorrelation>, CPerfect::One},
    CRatedMember{"total",
                 "total",
                 Value<kCora, &CCora::total>,
                 CPerfect::One,
                 3,
                 {},
                 "from 0.65 or 0.70 on often called fair to good, to be confirmed"},
    CRatedMember{"lag", "lag", Value<kCora, &CCora::lag>, CPerfect::Zero, kWhole},
    CRatedMember{.name = "interval", .header = "interval", .content = Interval, .isDetail = true},
    CRatedMember{.name = "parameters", .header = "", .content = CoraParameters},
};

constexpr std::array kFamilies = {
    CRatingFamily{
        "iso18571", "iso18571", "ISO/TS 18571", "ISO",
        "Formulas and defaults are those of public scorers, the grades those of a public note; to be confirmed "
        "against the standard.",
        true, kIsoMembers,
        [](const CRatedPair& pair, CSignalRatings& to) { to.iso18571 = RateIso18571(pair, to.choice.iso18571); },
        IsIsoModified, IsoRemarks},
    CRatingFamily{"sprague-geers", "spragueGeers", "Sprague-Geers", "Sprague-Geers",
                  "Formulas are published. Some tools show 1 - C under this name.", true, kSpragueGeersMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.spragueGeers = SpragueGeers(pair.samples); }},
    CRatingFamily{"geers", "geers", "Geers", "Geers", "Formulas are to be confirmed against the paper.", false,
                  kGeersMembers, [](const CRatedPair& pair, CSignalRatings& to) { to.geers = Geers(pair.samples); }},
    CRatingFamily{"geers-csa", "geersCsa", "Geers CSA", "Geers CSA", "Formulas are to be confirmed against the paper.",
                  false, kGeersCsaMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.geersCsa = GeersCsa(pair.samples); }},
    CRatingFamily{"russell", "russell", "Russell", "Russell", "Formulas are those of two public codes.", false,
                  kRussellMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.russell = Russell(pair.samples); }},
    CRatingFamily{"knowles-gear", "knowlesGear", "Knowles-Gear", "Knowles-Gear",
                  "Made for shock records that start at the event. Formulas are to be confirmed against the paper.",
                  false, kKnowlesGearMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.knowlesGear = RateKnowlesGear(pair); }},
    CRatingFamily{"anova", "anova", "ANOVA", "ANOVA",
                  "Shares of the reference peak. Formulas and limits are to be confirmed against the guideline.", true,
                  kAnovaMembers, [](const CRatedPair& pair, CSignalRatings& to) { to.anova = Anova(pair.samples); }},
    CRatingFamily{"anova", "roadside", "Roadside acceptance", "Roadside",
                  "Joins the limits of Sprague-Geers and ANOVA; to be confirmed against the guideline.", true,
                  kRoadsideMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.roadside = RoadsideAcceptance(pair.samples); }},
    CRatingFamily{"values", "values", "Single values", "",
                  "Textbook formulas, to be confirmed where a guideline asks for one by name.", false, kSingleValues,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.values = SingleValues(pair.samples); }},
    CRatingFamily{"cora", "cora", "CORA-like", "CORA-like",
                  "Comparable only between scores of equal parameters. Structure and some defaults follow vendors' "
                  "manuals; to be confirmed against the CORA manual.",
                  false, kCoraMembers,
                  [](const CRatedPair& pair, CSignalRatings& to) { to.cora = RateCora(pair, to.choice.cora); },
                  IsCoraModified, CoraRemarks},
};
static_assert(kFamilies.size() <= kMostFamilies);

}  // namespace

std::span<const CRatingFamily> RatingFamilies() {
    return kFamilies;
}

}  // namespace ratings
