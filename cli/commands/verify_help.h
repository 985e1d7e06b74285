#pragma once

#include "cli/help_text.h"

CHelpPage VerifyHelp();
