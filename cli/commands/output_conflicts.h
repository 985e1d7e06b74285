#pragma once

#include "cli/commands/compare_options.h"

/// Two outputs on one path: only the last would be left. Looks through "./", links and further names of a file, and at
/// the files of the chart pages, whichever of them the run will write.
/// @throws CUsageError that names both
void RefuseSharedOutputs(const CCompareOptions& options);
