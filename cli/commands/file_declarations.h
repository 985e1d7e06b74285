#pragma once

#include "cli/arguments.h"

#include <array>

// The options of the commands for single files.

inline constexpr COptionDeclaration kOut{"--out", COptionKind::Single, "a PATH to write to, or - for standard output"};

inline constexpr std::array<COptionDeclaration, 1> kShowOptions = {{{"--json", COptionKind::Flag, ""}}};

inline constexpr std::array<COptionDeclaration, 3> kExportOptions = {{
    {"--xy", COptionKind::Flag, ""},
    {"--x", COptionKind::Flag, ""},
    kOut,
}};

inline constexpr COptionDeclaration kTo{"--to", COptionKind::Single, "the number format ieee or sun"};

inline constexpr std::array<COptionDeclaration, 2> kConvertOptions = {{kTo, kOut}};

inline constexpr COptionDeclaration kPdf{"--pdf", COptionKind::Single, "a PATH to write to"};

inline constexpr std::array<COptionDeclaration, 2> kReportOptions = {{kPdf, {"--full", COptionKind::Flag, ""}}};
