#pragma once

#include "cli/exit_status.h"
#include "cli/help_text.h"
#include "cli/output/console.h"

#include <string>
#include <vector>

/// One command of the program. A new one is a row of the table in program.cpp.
class CSubcommand {
public:
    std::string name;
    CHelpPage (*help)();
    /// Runs on the arguments after the name, in UTF-8. Throws CUsageError for wrong usage; the program handles `--help`
    /// and `--version` itself.
    CExitStatus (*run)(const std::vector<std::string>& arguments, CConsole& console);
};

/// Runs the program on its arguments (UTF-8), without its own name. Throws nothing.
CExitStatus RunProgram(const std::vector<std::string>& arguments, CConsole& console);

/// The help of the program itself.
CHelpPage ProgramHelp();
