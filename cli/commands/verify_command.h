#pragma once

#include "cli/exit_status.h"
#include "cli/output/console.h"
#include "compare/ratings/verification/reference_case.h"

#include <span>
#include <string>
#include <vector>

/// Runs `quorvel-cli verify` on the arguments after its name.
/// @throws CUsageError for wrong usage, before anything is read
CExitStatus RunVerify(const std::vector<std::string>& arguments, CConsole& console);

/// BadVerdict where a check fails, else Good.
CExitStatus StatusOf(std::span<const ratings::CReferenceCase> cases);
