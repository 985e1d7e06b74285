#pragma once

#include "cli/output/json_text.h"
#include "compare/signal.h"

/// The member "ratings" of a signal; nothing for one that was not rated. docs/formats/results.md describes it.
void AddRatings(CJsonText& text, const CSignal& signal);
