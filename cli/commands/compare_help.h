#pragma once

#include "cli/help_text.h"

/// The help of `quorvel-cli compare`.
CHelpPage CompareHelp();
