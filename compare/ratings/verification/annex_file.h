#pragma once

#include "compare/ratings/verification/signals.h"

#include <string_view>

namespace ratings {

/// The pair of signals in the text of a file of the annex.
///
/// The first line names the columns, among them Time, Test (the reference) and CAE (the computed signal); a line with
/// units follows, then a line per sample. Columns are separated by commas, semicolons or tabs; with semicolons or tabs
/// a number may have a decimal comma. Lines with an empty cell or "nan" in one of the three columns have no sample:
/// the other columns, with curves that were derived, may be longer. Upper and lower case, quotes, blanks, a byte order
/// mark, carriage returns and empty lines do not matter.
///
/// @throws ks::CError with a sentence for a text of another layout, or for times that do not go on evenly
CPairOfSignals ReadAnnexPair(std::string_view text);

}  // namespace ratings
