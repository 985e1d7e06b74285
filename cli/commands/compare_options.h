#pragma once

#include "compare/critical_values.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/criteria.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A time window, in X units; min < max.
struct CWindow {
    double min = 0.0;
    double max = 0.0;
};

/// How much the command prints in addition to its results.
enum class CVerbosity { Quiet, Usual, Verbose };

/// What `quorvel-cli compare` was asked to do. Paths are UTF-8; "-" is standard output.
class CCompareOptions {
public:
    std::vector<std::string> files;  ///< FILE..., without those of the hit lists
    std::vector<std::string> hitLists;
    std::optional<std::string> reference;  ///< none: made from the computed signals
    std::optional<std::int32_t> cfc;       ///< one of ks::kChannelClasses; none: nothing is filtered
    bool shouldFilterReference = true;     ///< as requested; without a class, nothing is filtered
    std::optional<CWindow> window;
    double corridor = 4.0;  ///< > 0
    CCriticalValues critical;
    ratings::CRatingChoice ratings;
    ratings::CRatingLimits ratingLimits;
    std::optional<std::string> html, json, csv;  ///< output paths
    bool shouldWritePages = false;               ///< the pages' series go into the JSON
    std::optional<std::string> asciiFolder, udsFolder;
    std::vector<const CCriterion*> failOnBad;  ///< criteria whose bad verdicts make the command fail
    std::vector<const ratings::CRatingCriterion*> failOnBadRating;  ///< the same of ratings
    CVerbosity verbosity = CVerbosity::Usual;
    unsigned jobs = 1;  ///< signals to work on at a time

    /// Whether the reference file is to be filtered.
    [[nodiscard]] bool FiltersReference() const { return cfc.has_value() && shouldFilterReference; }
    /// Whether an output goes to standard output instead of the table.
    [[nodiscard]] bool UsesStandardOutput() const;
    /// Whether the table of a completed run goes to standard output.
    [[nodiscard]] bool PrintsTable() const { return verbosity != CVerbosity::Quiet && !UsesStandardOutput(); }
};

/// Reads the arguments after `compare`.
/// @throws CUsageError with a sentence that says what would be accepted
CCompareOptions ParseCompareOptions(const std::vector<std::string>& arguments);
