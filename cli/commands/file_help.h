#pragma once

#include "cli/help_text.h"

CHelpPage ShowHelp();
CHelpPage ExportHelp();
CHelpPage ConvertHelp();
CHelpPage ReportHelp();
