#pragma once

#include "cli/help_text.h"

#include <vector>

/// The sections of `quorvel-cli compare --help` about ratings: the options, what --ratings can name, and the
/// parameters.
std::vector<CHelpSection> RatingHelp();

/// The criteria of ratings that have a critical value, for the section about those.
std::vector<CHelpEntry> RatingCriteriaHelp();
