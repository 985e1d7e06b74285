#pragma once

#include "compare/critical_values.h"
#include "compare/verdict.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

class CSignal;

/// On which side of its limit a judged value is good. A value equal to its limit is bad, and so is not-a-number.
enum class CGoodSide { Below, Above };

/// How the cells of a column are judged.
struct CJudgment {
    double (*value)(const CSignal& signal) = nullptr;
    CCriticalValue limit = nullptr;  ///< names the criterion, too
    CGoodSide goodSide = CGoodSide::Below;
};

/// One column of the summary table: all that tables, reports and exports know of it.
struct CSummaryColumn {
    std::string_view header;
    std::string (*text)(const CSignal& signal) = nullptr;
    std::optional<CJudgment> judgment = std::nullopt;  ///< none: the column has no verdicts
    bool isName = false;  ///< a path, aligned left and shortened where space is short; else a number
    /// One of the columns that the HTML report, CSV, results of version 1 and the copied table hold. Programs read
    /// these by position, so a column added later is not one of them; the terminal and the window show it.
    bool isFixed = false;
};

/// All columns, in their order: first the fixed ones, then any others.
std::span<const CSummaryColumn> SummaryColumns();

/// Verdict on the cell of `signal` in `column`; a value of exactly the machine epsilon gets none, see the code.
CVerdict Judge(const CSummaryColumn& column, const CSignal& signal, const CCriticalValues& limits = CriticalValues());
