#pragma once

#include "cli/exit_status.h"
#include "cli/output/console.h"

#include <string>
#include <vector>

/// Runs `quorvel-cli convert` on the arguments after its name.
/// @throws CUsageError for wrong usage, before anything is read or written
CExitStatus RunConvert(const std::vector<std::string>& arguments, CConsole& console);
