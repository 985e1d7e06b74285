#pragma once

// Signals for the tests of the ratings: those that the reference cases use, too.
#include "compare/ratings/verification/signals.h"  // IWYU pragma: export
