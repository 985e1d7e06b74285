#pragma once

#include "cli/arguments.h"
#include "signal/channel_class.h"

#include <array>
#include <string>

inline const std::string kClassNames = ks::ChannelClassList(", ", " or ");
inline const std::string kClassArgument = "a channel class: " + kClassNames;

/// The options of `quorvel-cli compare`.
inline const std::array<COptionDeclaration, 17> kCompareOptions = {{
    {"--hit-list", COptionKind::Repeatable, "the PATH of a hit list"},
    {"--reference", COptionKind::Single, "the PATH of a signal file"},
    {"--cfc", COptionKind::Single, kClassArgument},
    {"--no-filter-reference", COptionKind::Flag, ""},
    {"--window", COptionKind::Pair, "two numbers, MIN and MAX"},
    {"--jobs", COptionKind::Single, "a number N"},
    {"--corridor", COptionKind::Single, "a SIZE greater than 0"},
    {"--critical", COptionKind::Repeatable, "NAME=VALUE, for example moment=0.3"},
    {"--html", COptionKind::Single, "a PATH to write to"},
    {"--json", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--csv", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--pages", COptionKind::Flag, ""},
    {"--ascii", COptionKind::Single, "a DIR to write to"},
    {"--uds", COptionKind::Single, "a DIR to write to"},
    {"--fail-on-bad", COptionKind::Names, "names after =, or no ="},
    {"--quiet", COptionKind::Flag, ""},
    {"--verbose", COptionKind::Flag, ""},
}};
