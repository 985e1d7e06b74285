#pragma once

#include "compare/critical_values.h"
#include "compare/summary_table.h"

#include <string>
#include <vector>

/// The names of all criteria, as text for sentences: "residual, stddev, corridor, correlation, t and moment".
std::string CriterionNames();

/// Whether a row of the table has a bad verdict under one of the criteria.
bool HasBad(const CSummaryTable& table, const std::vector<const CCriterion*>& criteria);
