#pragma once

#include "cli/cli_host.h"
#include "cli/commands/compare_options.h"
#include "cli/output/json_results.h"
#include "cli/output/outputs.h"
#include "compare/document.h"

/// Whether the options request any output of the chart pages.
bool WantsPages(const CCompareOptions& options);

/// Selects every page of the document's page list once, in order, and writes what the options request: into `json` for
/// --pages unless it is null, and the files of --ascii and --uds. What a page shows depends on the pages before it,
/// because some cut the signals permanently.
void WritePages(const CCompareOptions& options, CQuorvelDoc& document, CCliHost& host, CJsonResults* json,
                COutputs& outputs);
