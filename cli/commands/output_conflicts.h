#pragma once

#include "cli/commands/compare_options.h"

/// Refuses two outputs to one path, since only the last would remain. Sees through "./", links and other names of a
/// file, and considers every file of the chart pages that the run might write.
/// @throws CUsageError that names both
void RefuseSharedOutputs(const CCompareOptions& options);
