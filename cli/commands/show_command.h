#pragma once

#include "cli/exit_status.h"
#include "cli/output/console.h"

#include <string>
#include <vector>

/// Runs `quorvel-cli show` on the arguments after its name.
/// @throws CUsageError for wrong usage, before anything is read
CExitStatus RunShow(const std::vector<std::string>& arguments, CConsole& console);
