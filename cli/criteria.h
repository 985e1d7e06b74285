#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compare/critical_values.h"
#include "compare/summary_table.h"

/// One of the six criteria by the name that options and results use.
class CCriterion {
public:
    std::string_view name;
    double CCriticalValues::*limit;
    int firstColumn;  ///< of the summary table, judged by this limit ...
    int lastColumn;   ///< ... up to this one
};

/// The six criteria in the order of the results file. The names are frozen.
extern const std::array<CCriterion, 6> kCriteria;

/// The criterion of that name, or null.
const CCriterion* FindCriterion(std::string_view name);

/// The six names, for sentences: "residual, stddev, corridor, correlation, t and moment".
std::string CriterionNames();

/// Whether a row of the table has a bad verdict under one of the criteria.
bool AnyBad(const CSummaryTable& table, const std::vector<const CCriterion*>& criteria);
