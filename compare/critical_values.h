#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The limits against which summary cells are judged. See docs/measures.md, "Columns and verdicts".
struct CCriticalValues {
    double averageResidual = 5.0;     ///< percent of the reference peak
    double standardDeviation = 20.0;  ///< of the residual, percent of the reference peak
    double corridor = 0.1;            ///< share of points outside the corridor, as a fraction
    double correlation = 0.05;        ///< 1 minus the correlation factor
    double tStatistic = 2.58;         ///< magnitude of T
    double moment = 0.2;              ///< moment differences of order 0 to 5
};

/// Names one of the critical values.
using CCriticalValue = double CCriticalValues::*;

/// The one set of limits of the process.
CCriticalValues& CriticalValues();

/// A criterion: one critical value with the name and the texts about it. In the texts %1 and %2 are places for
/// numbers.
struct CCriterion {
    std::string_view name;        ///< in options and in results; frozen
    CCriticalValue limit;         ///< its default is that of CCriticalValues
    std::int32_t controlId;       ///< of its field in the dialog; frozen
    std::string_view label;       ///< before that field; ends in "<" where it names the value
    std::string_view labelAfter;  ///< after that field; may be empty
    std::string_view meaning;     ///< what is judged against the limit, with its unit
    /// Its part of the terminal's sentence on all limits, %1 the limit; ends where that line of the terminal does.
    std::string_view phrase;
    std::string_view demand;  ///< what a value below the limit is; good, unless its column is judged otherwise
    /// The numbers in `demand`, from %1 on.
    std::vector<std::string> (*demandNumbers)(double limit);
};

/// The criteria, in the order of the results file and of the dialog.
std::span<const CCriterion> Criteria();

/// The criterion of that name, or null.
const CCriterion* FindCriterion(std::string_view name);

/// The criterion of that critical value; every one has one.
const CCriterion& CriterionOf(CCriticalValue limit);
