#pragma once

#include "app/commands.h"

// The numbers of the window's controls, in their property "controlId". Frozen: tools find controls by them. Those of
// dialogs are in the forms, and those of the critical values in the table of the criteria.

inline constexpr int kSummaryListId = 101;
inline constexpr int kPaneId = 128;
inline constexpr int kPagesId = 1015;
inline constexpr int kStatusBarId = static_cast<int>(CCommandId::StatusBar);  // the same as its command
