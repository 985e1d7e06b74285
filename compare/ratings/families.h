#pragma once

#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"
#include "compare/ratings/pair.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/ratings/value.h"
#include "compare/verdict.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// The one table of ratings. Options, help, tables, CSV and JSON read it; to add a value, add a row.

namespace ratings {

/// A word in place of a number, such as a grade.
struct CRatedWord {
    std::string_view word;  ///< empty: not available
    CValueState state = CValueState::Number;
    std::string reason;  ///< empty with a word
};

/// First and last time of an interval.
struct CRatedInterval {
    CValue start, end;
};

/// Names and values of parameters; no value for one that is not set.
using CParameterValues = std::vector<std::pair<std::string_view, std::optional<double>>>;

/// What a row of the table holds for a signal: a value with its three states (the first two), or a fact about the
/// family's values.
using CRatedContent = std::variant<CValue, CRatedWord, bool, std::size_t, CRatedInterval, CParameterValues>;

/// Which value says that the signals agree.
enum class CPerfect { None, Zero, One };

/// A row of a family. Members of results and headers are read by programs: frozen.
struct CRatedMember {
    std::string_view name;    ///< in JSON
    std::string_view header;  ///< of its column, after the family's; empty: in JSON alone
    CRatedContent (*content)(const CSignalRatings& ratings);  ///< of a family that was chosen
    CPerfect perfect = CPerfect::None;
    int decimals = 3;  ///< as text; kWhole and kSixDigits as they say
    /// A criterion of RatingCriteria(); empty: not judged.
    std::string_view criterion{};
    /// A limit that nothing is judged against, with its source; without a period.
    std::string_view limit{};
    bool isDetail = false;  ///< a column of CSV, but not of tables for people
};

inline constexpr int kWhole = 0;       ///< a whole number, in JSON too
inline constexpr int kSixDigits = -1;  ///< six significant digits: the value has units

/// A family: what is chosen together, has one member in JSON, and is computed in one go.
struct CRatingFamily {
    std::string_view option;  ///< names it in options; families with the same option are chosen together
    std::string_view member;  ///< in JSON; frozen
    std::string_view name;
    std::string_view header;    ///< begins the headers of its columns; may be empty
    std::string_view standing;  ///< where the definition is from, and what is to be confirmed; whole sentences
    bool isStandard;            ///< one of the set "standard"
    std::span<const CRatedMember> members;
    void (*rate)(const CRatedPair& pair, CSignalRatings& ratings);
    /// Whether a parameter is not at its default; null for a family without parameters.
    bool (*isModified)(const CRatingChoice& choice) = nullptr;
    /// Sentences on how the values of a signal came about; null for a family that has none.
    std::vector<std::string> (*remarks)(const CSignalRatings& ratings) = nullptr;
};

/// The families in the order of results.
std::span<const CRatingFamily> RatingFamilies();

// Choosing.

inline constexpr std::string_view kStandardSet = "standard";
inline constexpr std::string_view kWholeSet = "all";

/// What AddFamilies takes: both sets, then the options of the families, each once.
std::vector<std::string_view> RatingNames();
/// Adds the families of that name to the choice; false when there is no such name.
bool AddFamilies(CRatingChoice& choice, std::string_view name);
bool IsChosen(const CRatingChoice& choice, const CRatingFamily& family);
/// Whether a chosen family has values that the criterion judges.
bool IsJudged(const CRatingChoice& choice, const CRatingCriterion& criterion);
/// The option of the family that it judges.
std::string_view OptionOf(const CRatingCriterion& criterion);

// Showing. A family with changed parameters is called "modified" in all of these.

std::string NameOf(const CRatingFamily& family, const CRatingChoice& choice);
/// "ISO R"
std::string HeaderOf(const CRatingFamily& family, const CRatedMember& member, const CRatingChoice& choice);
/// What the criterion demands, with its limit: "ISO R above 0.58".
std::string DemandOf(const CRatingCriterion& criterion, const CRatingLimits& limits, const CRatingChoice& choice);
/// "1 is best", "0 is best", or empty.
std::string_view DirectionText(CPerfect perfect);

/// What a table shows of a value.
struct CRatedCell {
    std::string text;  ///< the number or the word; kUnavailableMark or kErrorMark with a reason
    CVerdict verdict = CVerdict::None;
    std::string reason;  ///< why there is no value; a whole sentence
};

inline constexpr std::string_view kUnavailableMark = "n/a";
inline constexpr std::string_view kErrorMark = "error";

CRatedCell CellOf(const CRatedMember& member, const CSignalRatings& ratings, const CRatingLimits& limits);

/// State of a family: that of a number with any value, else that of its first value, with its reason.
struct CFamilyState {
    CValueState state = CValueState::Number;
    std::string reason;
};

CFamilyState StateOf(const CRatingFamily& family, const CSignalRatings& ratings);

}  // namespace ratings
