#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"

/// Runs `quorvel-cli export` on the arguments behind its name.
/// @throws CUsageError for wrong usage, before anything is read or written
CExitStatus RunExport(const std::vector<std::string>& arguments, CConsole& console);
