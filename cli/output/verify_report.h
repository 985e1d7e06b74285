#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <span>
#include <string>

/// The table of `verify`, a line per check, then the reasons where there is no number, what the signals of each case
/// are, the sources, and a line that sums up. Numbers are rounded so that the text is the same on every processor.
std::string VerifyReport(std::span<const ratings::CReferenceCase> cases);
