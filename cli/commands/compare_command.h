#pragma once

#include "cli/exit_status.h"
#include "cli/output/console.h"

#include <string>
#include <vector>

/// Runs `quorvel-cli compare` on the arguments after its name: the document's interactive run, answered by the
/// options, then the requested outputs.
/// @throws CUsageError for wrong usage, before anything is read or written
CExitStatus RunCompare(const std::vector<std::string>& arguments, CConsole& console);
